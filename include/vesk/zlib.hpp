#pragma once

// libvesk.so exports the complete zlib interface unchanged: include this header and link
// vesk::vesk to compress and inflate without linking zlib yourself.
#include <zlib.h>
