#pragma once

// Geometry values: integer and floating-point points, sizes and rectangles, closed ranges,
// pairs and three-dimensional points.
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/FPoint.hpp>
#include <vesk/values/FRectangle.hpp>
#include <vesk/values/Pair.hpp>
#include <vesk/values/Point3D.hpp>
#include <vesk/values/Range.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>
