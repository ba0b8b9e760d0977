#pragma once

// Colours: TamColor, TransparentColor, RGBAlpha, ColorPair and the colour-table names.
#include <vesk/frame/ColorName.hpp>
#include <vesk/graphics/ColorPair.hpp>
#include <vesk/graphics/RGBAlpha.hpp>
#include <vesk/graphics/TamColor.hpp>

// Drawing tools and gradients.
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Font.hpp>
#include <vesk/graphics/Gradient.hpp>
#include <vesk/graphics/GradientBrush.hpp>
#include <vesk/graphics/Pen.hpp>
#include <vesk/graphics/Polygon.hpp>
#include <vesk/graphics/Region.hpp>
#include <vesk/graphics/Texture.hpp>

// Drawing surfaces: the output device, off-screen pictures and PDF printing.
#include <vesk/graphics/OutputDevice.hpp>
#include <vesk/graphics/PrinterDevice.hpp>
#include <vesk/graphics/VirtualDevice.hpp>

// Bitmaps: the image value, its files and operations.
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/BrushBitmaps.hpp>
#include <vesk/graphics/ImageList.hpp>

// The command list a tool bar is built from.
#include <vesk/graphics/CommandIds.hpp>

// Animated GIF: the reader, its LZW decoder and decoded frames.
#include <vesk/graphics/GifAnimation.hpp>
#include <vesk/graphics/GifPlayer.hpp>
