#pragma once

// VESK_API marks the names that libvesk.so exports; the library is built with hidden
// visibility, so everything without it stays internal.
#define VESK_API __attribute__((visibility("default")))
