#pragma once

// Docking: the data buffer of the stored records, dock positions and their neighbours.
#include <vesk/docking/DataBuffer.hpp>
#include <vesk/docking/DockNeighbour.hpp>
#include <vesk/docking/DockPosition.hpp>
