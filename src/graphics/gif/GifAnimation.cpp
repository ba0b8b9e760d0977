#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/GifAnimation.hpp>

#include "graphics/gif/GifReader_p.hpp"
#include "platform/atomic_file.hpp"

#include <string>

namespace vesk {

GifAnimation::GifAnimation() : m_pReader(std::make_unique<GifReader>()), m_pClock(&GifClock::System()) {}

GifAnimation::~GifAnimation() = default;

int GifAnimation::Load(const DirEntry& entry)
{
    m_bLoaded = false;
    m_pReader = std::make_unique<GifReader>();
    DirEntry file(entry);
    file.ChangeExtension("anm");
    const SString full = file.GetFull();
    std::string path(static_cast<const char*>(full), full.Len());
    for (char& c : path)
        if (c == '\\')
            c = '/';
    std::string bytes;
    platform::FileStamp stamp;
    if (path.empty() || path.find('\0') != std::string::npos
        || platform::ReadWholeFile(path, bytes, stamp) != platform::ReadStatus::Ok)
        return 0;
    if (!m_pReader->Open(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()))
        return 0;
    m_pReader->ScanFirst();
    m_bLoaded = true;
    return 1;
}

void GifAnimation::Rewind() { m_pReader->Rewind(); }
GifFrame GifAnimation::FirstImage() { return m_pReader->FirstImage(); }
GifFrame GifAnimation::NextImage() { return m_pReader->NextImage(); }

uint16_t GifAnimation::GetScreenWidth() const { return m_pReader->m_nScreenWidth; }
uint16_t GifAnimation::GetScreenHeight() const { return m_pReader->m_nScreenHeight; }
uint8_t GifAnimation::GetBackgroundIndex() const { return m_pReader->m_nBackground; }
uint32_t GifAnimation::GetGlobalColorCount() const { return m_pReader->m_nGlobalColors; }
const uint8_t* GifAnimation::GetGlobalColorTable() const { return m_pReader->m_pGlobalTable.get(); }

bool GifAnimation::IsScreenDrawable() const
{
    return uint64_t{m_pReader->m_nScreenWidth} * m_pReader->m_nScreenHeight * 4 <= GifFrame::MAX_BUFFER_BYTES;
}

uint16_t GifAnimation::GetFrameLeft() const { return m_pReader->m_nLeft; }
uint16_t GifAnimation::GetFrameTop() const { return m_pReader->m_nTop; }
uint16_t GifAnimation::GetFrameWidth() const { return m_pReader->m_nWidth; }
uint16_t GifAnimation::GetFrameHeight() const { return m_pReader->m_nHeight; }
uint8_t GifAnimation::GetFrameFlags() const { return m_pReader->m_nFrameFlags; }

uint8_t GifAnimation::GetDisposal() const { return m_pReader->m_nDisposal; }
void GifAnimation::ClearDisposal() { m_pReader->m_nDisposal = 0; }
bool GifAnimation::IsTransparent() const { return m_pReader->m_bTransparent; }
uint16_t GifAnimation::GetDelay() const { return m_pReader->m_nDelay; }
uint8_t GifAnimation::GetTransparentIndex() const { return m_pReader->m_nTransparentIndex; }
uint32_t GifAnimation::GetTransparentColor() const { return m_pReader->m_nTransparentColor; }

uint32_t GifAnimation::GetFrameDelayMs() const
{
    const uint16_t delay = m_pReader->m_nDelay;
    return delay ? uint32_t{delay} * 10 : 50;
}

} // namespace vesk
