#pragma once

// One window of the headless display.

#include "platform/display/headless/HeadlessBackend.hpp"

#include <mutex>

namespace vesk::display {

struct HeadlessBackend::HWindow
{
    // Geometry, state and the dirty box are guarded by the backend's mutex.
    WindowKind kind = WindowKind::TopLevel;
    NativeWindow parent = nullptr;
    int32_t x = 0, y = 0, width = 0, height = 0;
    std::string title;
    bool visible = false;
    ShowCommand state = ShowCommand::Normal;
    WindowBox normalBox; // the box to restore after maximising
    CursorShape cursor = CursorShape::Arrow;
    bool dirty = false;
    WindowBox dirtyBox;

    // Held from BeginPaint to EndPaint and from GetSurface to ReleaseSurface, so a painter on
    // another thread and the user-interface thread take turns; recursive because a paint
    // handler may draw through a second device of the same window. Guards the surface and
    // `dead` (taken before the backend's mutex, never after it).
    std::recursive_mutex paintLock;
    cairo_surface_t* surface = nullptr;
    bool dead = false;

    // Replaces the surface by `fresh`, keeping what the old one showed.
    void Resize(cairo_surface_t* fresh)
    {
        cairo_t* cr = cairo_create(fresh);
        cairo_set_source_surface(cr, surface, 0, 0);
        cairo_paint(cr);
        cairo_destroy(cr);
        cairo_surface_destroy(surface);
        surface = fresh;
    }
};

} // namespace vesk::display
