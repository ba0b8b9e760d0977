#include "text/SStringData_p.hpp"

namespace vesk {

constinit SStringEmptyRecord g_SStringEmpty{};

SStringData* SStringData::Make(uint32_t n, uint32_t room)
{
    if (room > SSTRING_RECORD_LIMIT)
        throw std::bad_alloc();
    const uint32_t capacity = (room | 15) + 1;
    char* block = new char[sizeof(SStringData) + capacity];
    SStringData* rec = new (block) SStringData{n, 0, capacity, 0, {}};
    rec->Text()[n] = 0;
    return rec;
}

void SStringData::Free(SStringData* rec) noexcept
{
    rec->~SStringData();
    delete[] reinterpret_cast<char*>(rec);
}

} // namespace vesk
