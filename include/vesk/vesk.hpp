#pragma once

// The whole public interface of Vesk.
#include <vesk/export.hpp>
#include <vesk/text.hpp>
#include <vesk/zlib.hpp>
