#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/AnimatedGif.hpp>

#include "graphics/gif/GifReader_p.hpp"
#include "platform/atomic_file.hpp"

#include <string>

namespace vesk {

AnimatedGif::AnimatedGif() : m_pReader(std::make_unique<GifReader>()), m_pClock(&GifClock::System()) {}

AnimatedGif::~AnimatedGif() = default;

int AnimatedGif::Load(const DirEntry& entry)
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

void AnimatedGif::Rewind() { m_pReader->Rewind(); }
GifFrame AnimatedGif::FirstImage() { return m_pReader->FirstImage(); }
GifFrame AnimatedGif::NextImage() { return m_pReader->NextImage(); }

uint16_t AnimatedGif::GetScreenWidth() const { return m_pReader->m_nScreenWidth; }
uint16_t AnimatedGif::GetScreenHeight() const { return m_pReader->m_nScreenHeight; }
uint8_t AnimatedGif::GetBackgroundIndex() const { return m_pReader->m_nBackground; }
uint32_t AnimatedGif::GetGlobalColorCount() const { return m_pReader->m_nGlobalColors; }
const uint8_t* AnimatedGif::GetGlobalColorTable() const { return m_pReader->m_pGlobalTable.get(); }

bool AnimatedGif::IsScreenDrawable() const
{
    return uint64_t{m_pReader->m_nScreenWidth} * m_pReader->m_nScreenHeight * 4 <= GifFrame::MAX_BUFFER_BYTES;
}

uint16_t AnimatedGif::GetFrameLeft() const { return m_pReader->m_nLeft; }
uint16_t AnimatedGif::GetFrameTop() const { return m_pReader->m_nTop; }
uint16_t AnimatedGif::GetFrameWidth() const { return m_pReader->m_nWidth; }
uint16_t AnimatedGif::GetFrameHeight() const { return m_pReader->m_nHeight; }
uint8_t AnimatedGif::GetFrameFlags() const { return m_pReader->m_nFrameFlags; }

uint8_t AnimatedGif::GetDisposal() const { return m_pReader->m_nDisposal; }
void AnimatedGif::ClearDisposal() { m_pReader->m_nDisposal = 0; }
bool AnimatedGif::IsTransparent() const { return m_pReader->m_bTransparent; }
uint16_t AnimatedGif::GetDelay() const { return m_pReader->m_nDelay; }
uint8_t AnimatedGif::GetTransparentIndex() const { return m_pReader->m_nTransparentIndex; }
uint32_t AnimatedGif::GetTransparentColor() const { return m_pReader->m_nTransparentColor; }

uint32_t AnimatedGif::GetFrameDelayMs() const
{
    const uint16_t delay = m_pReader->m_nDelay;
    return delay ? uint32_t{delay} * 10 : 50;
}

} // namespace vesk
