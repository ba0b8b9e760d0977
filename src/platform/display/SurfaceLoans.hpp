#pragma once

// The surfaces a display backend has lent to painters. A window's paint lock is held from the
// loan to its return, so a painter on another thread and the user-interface thread take turns;
// the loan is found again by its surface, not the window's handle, because the window may be
// destroyed while its surface is out and its lock must still be freed.

#include <cairo.h>

#include <memory>
#include <mutex>
#include <unordered_map>

namespace vesk::display {

template <class Record>
class SurfaceLoans
{
public:
    // Locks the record's paint lock and lends what `surfaceOf` gives under it (a new reference).
    // When that is null, unlocks again and returns null.
    template <class SurfaceOf>
    cairo_surface_t* Lend(const std::shared_ptr<Record>& record, SurfaceOf surfaceOf)
    {
        record->paintLock.lock();
        cairo_surface_t* surface = surfaceOf(*record);
        if (!surface) {
            record->paintLock.unlock();
            return nullptr;
        }
        surface = cairo_surface_reference(surface);
        std::lock_guard lock(m_mutex);
        m_loans.emplace(surface, record);
        return surface;
    }

    // Ends the loan of `surface`: flushes and drops the lent reference and gives back the window's
    // record, whose paint lock is still held (the caller unlocks it); null for an unknown surface.
    std::shared_ptr<Record> TakeBack(cairo_surface_t* surface)
    {
        std::shared_ptr<Record> record;
        {
            std::lock_guard lock(m_mutex);
            auto it = m_loans.find(surface);
            if (it == m_loans.end())
                return nullptr;
            record = std::move(it->second);
            m_loans.erase(it);
        }
        cairo_surface_flush(surface);
        cairo_surface_destroy(surface);
        return record;
    }

private:
    std::mutex m_mutex;
    std::unordered_multimap<cairo_surface_t*, std::shared_ptr<Record>> m_loans;
};

} // namespace vesk::display
