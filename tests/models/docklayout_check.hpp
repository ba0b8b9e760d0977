// Reads layout-tree element records from arbitrary bytes and checks that an element read is
// written back to bytes that read back to an element writing the same bytes; its duplicate
// writes them too unless relations have relations of their own (a duplicate copies relations
// without theirs). Holders with a missing child are exempt: their record does not read back
// as written, by design. Shared by the fuzz target and the docking tests.
#pragma once

#include "models/databuffer_input.hpp"

#include <vesk/docking.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace docklayout_check {

// Records read from one input, one after the other.
inline constexpr int MAX_RECORDS = 8;

using databuffer_input::BufferOf;

inline std::vector<uint8_t> Written(const vesk::DockElement& el)
{
    vesk::DataBuffer buffer;
    el.WriteToDataBuffer(buffer);
    return buffer.GetBytes();
}

// Whether the tree (relations included) holds a holder with a missing child.
inline bool HasShell(const vesk::DockElement& el)
{
    if (const auto* holder = dynamic_cast<const vesk::HolderElement*>(&el)) {
        if (!holder->GetLeft() || !holder->GetRight() || HasShell(*holder->GetLeft()) || HasShell(*holder->GetRight()))
            return true;
    }
    for (const auto& relation : el.GetRelations()) {
        if (HasShell(*relation))
            return true;
    }
    return false;
}

inline bool HasNoRelations(const vesk::DockElement& el)
{
    const auto* holder = dynamic_cast<const vesk::HolderElement*>(&el);
    return el.GetRelations().empty() &&
           (!holder || ((!holder->GetLeft() || HasNoRelations(*holder->GetLeft())) &&
                        (!holder->GetRight() || HasNoRelations(*holder->GetRight()))));
}

// Whether Duplicate(true) copies everything: no relation carries relations below it.
inline bool DuplicatesWhole(const vesk::DockElement& el)
{
    for (const auto& relation : el.GetRelations()) {
        if (!HasNoRelations(*relation))
            return false;
    }
    const auto* holder = dynamic_cast<const vesk::HolderElement*>(&el);
    return !holder || ((!holder->GetLeft() || DuplicatesWhole(*holder->GetLeft())) &&
                       (!holder->GetRight() || DuplicatesWhole(*holder->GetRight())));
}

// Queries that must not crash on whatever was read.
inline void Exercise(const vesk::DockElement& el)
{
    if (const auto* holder = dynamic_cast<const vesk::HolderElement*>(&el)) {
        holder->GetSideLenInPixel(holder->GetLeft());
        holder->GetSideLenInPixel(holder->GetRight());
        holder->GetIdentifier();
    }
    el.FindClosestDockPane({}, {});
    el.CountWindows({});
    vesk::CRectangle rect;
    el.FindHighestDockFreeRect({}, {}, rect);
}

inline bool RoundTrip(const vesk::DockElement& el, std::string& failed)
{
    const std::vector<uint8_t> first = Written(el);
    if (DuplicatesWhole(el) && Written(*el.Duplicate(true)) != first) {
        failed = "duplicate";
        return false;
    }
    vesk::DataBuffer buffer = BufferOf(first.data() + vesk::DATABUFFER_CONTENT_START,
                                       first.size() - vesk::DATABUFFER_CONTENT_START);
    const std::unique_ptr<vesk::DockElement> back = vesk::DockElement::CreateFromDataBuffer(buffer);
    if (!back || back->GetType() != el.GetType()) {
        failed = "read back";
        return false;
    }
    if (Written(*back) != first) {
        failed = "second write";
        return false;
    }
    return true;
}

// Reads records from `data` until MAX_RECORDS or the bytes run out; false, with `failed` set,
// when a record read does not survive RoundTrip.
inline bool Run(const uint8_t* data, size_t size, std::string& failed)
{
    vesk::DataBuffer buffer = BufferOf(data, size);
    for (int i = 0; i < MAX_RECORDS; ++i) {
        const int32_t before = buffer.GetPos();
        const std::unique_ptr<vesk::DockElement> el = vesk::DockElement::CreateFromDataBuffer(buffer);
        if (!el) {
            if (buffer.GetPos() == before)
                break;
            continue;
        }
        Exercise(*el);
        if (!HasShell(*el) && !RoundTrip(*el, failed))
            return false;
    }
    return true;
}

} // namespace docklayout_check
