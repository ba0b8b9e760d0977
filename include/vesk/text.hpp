#pragma once

// Text: the byte string SString.
#include <vesk/text/SString.hpp>
