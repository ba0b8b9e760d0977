#pragma once

// The whole public interface of Vesk.
#include <vesk/containers.hpp>
#include <vesk/datetime.hpp>
#include <vesk/docking.hpp>
#include <vesk/errcode.hpp>
#include <vesk/export.hpp>
#include <vesk/files.hpp>
#include <vesk/frame.hpp>
#include <vesk/graphics.hpp>
#include <vesk/links.hpp>
#include <vesk/locale.hpp>
#include <vesk/text.hpp>
#include <vesk/values.hpp>
#include <vesk/window.hpp>
#include <vesk/zlib.hpp>
