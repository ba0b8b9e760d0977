#include "PropertiesPane.hpp"

#include <algorithm>

using namespace vesk;

namespace demo {

std::string KindOf(const std::string& name)
{
    const size_t dot = name.rfind('.');
    std::string ext = dot == std::string::npos ? std::string() : name.substr(dot + 1);
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::toupper(c); });
    if (ext == "JPEG")
        ext = "JPG";
    else if (ext == "TIFF")
        ext = "TIF";
    return ext == "GIF" ? "GIF animation" : ext + " picture";
}

void PropertiesPane::Show(const PictureFile& file, const TamSize& pictureSize)
{
    m_aFile = file;
    m_aPicture = pictureSize;
    m_bShown = true;
    Invalidate();
}

void PropertiesPane::Clear()
{
    m_bShown = false;
    Invalidate();
}

void PropertiesPane::Render(OutputDevice& dev, const TamSize& size)
{
    int32_t y = DrawFrame(dev, size);
    if (!m_bShown) {
        DrawLine(dev, 6, y, "Nothing selected", TamColor(0x707070u));
        return;
    }
    const International intl;
    const FileStat& s = m_aFile.stat;
    const std::string picture = m_aPicture.Width() > 0
                                    ? std::to_string(m_aPicture.Width()) + " x " + std::to_string(m_aPicture.Height())
                                    : "unreadable";
    const std::pair<const char*, std::string> rows[] = {
        {"Name", m_aFile.name},
        {"Kind", KindOf(m_aFile.name)},
        {"Size", std::string(intl.GetNum(static_cast<int32_t>(std::min<uint64_t>(s.GetSize64(), INT32_MAX)), 0)) + " bytes"},
        {"Modified", FolderPane::TimeText(intl, s.DateModified(), s.TimeModified())},
        {"Created", FolderPane::TimeText(intl, s.DateCreated(), s.TimeCreated())},
        {"Accessed", FolderPane::TimeText(intl, s.DateAccessed(), s.TimeAccessed())},
        {"Picture", picture},
    };
    for (const auto& [label, value] : rows) {
        DrawLine(dev, 6, y, label, TamColor(0x707070u));
        DrawLine(dev, 76, y, value);
        y += LINE_HEIGHT;
    }
}

} // namespace demo
