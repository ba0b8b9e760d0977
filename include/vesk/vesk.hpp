#pragma once

// The whole public interface of Vesk.
#include <vesk/datetime.hpp>
#include <vesk/export.hpp>
#include <vesk/text.hpp>
#include <vesk/values.hpp>
#include <vesk/zlib.hpp>
