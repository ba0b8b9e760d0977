#pragma once

// The whole public interface of Vesk.
#include <vesk/export.hpp>
#include <vesk/frame.hpp>
#include <vesk/graphics.hpp>
#include <vesk/zlib.hpp>
