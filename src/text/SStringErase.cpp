#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {

void SStringErase(SStringData*& slot, uint32_t index, uint32_t length)
{
    SStringData* rec = slot;
    const uint32_t len = rec->nLen;
    if (index >= len || length == 0)
        return;
    length = std::min(length, len - index);
    if (length == len) {
        SStringSetRecord(slot, SStringData::Empty());
        return;
    }
    if (index + length == len) {
        SStringMakeUnique(slot);
        slot->SetLength(index);
        return;
    }
    SStringData* rest = SStringData::Make(len - length);
    std::memcpy(rest->Text(), rec->Text(), index);
    std::memcpy(rest->Text() + index, rec->Text() + index + length, len - index - length);
    rest->SetUTF8(rec->IsUTF8());
    SStringSetRecord(slot, rest);
}

} // namespace vesk
