#pragma once

// Colours: TamColor, TransparentColor, RGBAlpha, ColorPair and the colour-table names.
#include <vesk/frame/ColorName.hpp>
#include <vesk/graphics/ColorPair.hpp>
#include <vesk/graphics/RGBAlpha.hpp>
#include <vesk/graphics/TamColor.hpp>

// Animated GIF: the reader, its LZW decoder and decoded frames.
#include <vesk/graphics/AnimatedGif.hpp>
