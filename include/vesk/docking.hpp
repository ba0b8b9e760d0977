#pragma once

// Docking: the data buffer of the stored records, dock positions and their neighbours, and the
// dock layout tree, and the dock framework's windows.
#include <vesk/docking/DataBuffer.hpp>
#include <vesk/docking/DockNeighbour.hpp>
#include <vesk/docking/DockPosition.hpp>
#include <vesk/docking/DockablePane.hpp>
#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockParentWnd.hpp>
#include <vesk/docking/TamDockSite.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/docking/TamPaneContainer.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>
