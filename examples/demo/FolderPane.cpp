#include "FolderPane.hpp"

#include <algorithm>
#include <filesystem>

using namespace vesk;

namespace demo {

bool IsPictureName(const std::string& name)
{
    static const WildCard patterns[] = {WildCard("*.png"), WildCard("*.jpg"), WildCard("*.jpeg"),
                                        WildCard("*.bmp"), WildCard("*.tif"), WildCard("*.tiff"),
                                        WildCard("*.gif")};
    std::string lower = name;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    const SString text(lower.c_str());
    return std::any_of(std::begin(patterns), std::end(patterns), [&](const WildCard& w) { return w.Matches(text); });
}

bool FolderPane::Open(const std::string& folder, std::string& error)
{
    std::error_code ec;
    std::filesystem::directory_iterator it(folder, ec), end;
    if (ec) {
        error = "cannot read the folder " + folder + ": " + ec.message();
        return false;
    }
    std::vector<PictureFile> files;
    for (; it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (!IsPictureName(name))
            continue;
        PictureFile file{name, it->path().string(), FileStat(DirEntry(SString(it->path().c_str())))};
        if (file.stat.IsKind(FSYS_KIND_FILE))
            files.push_back(std::move(file));
    }
    std::sort(files.begin(), files.end(), [](const PictureFile& a, const PictureFile& b) { return a.name < b.name; });
    m_aFolder = folder;
    m_aFiles = std::move(files);
    m_nSelected = -1;
    Invalidate();
    return true;
}

void FolderPane::Select(int index)
{
    if (m_aFiles.empty())
        return;
    m_nSelected = std::clamp(index, 0, static_cast<int>(m_aFiles.size()) - 1);
    Invalidate();
    if (m_aOnSelect)
        m_aOnSelect(m_nSelected);
}

std::string FolderPane::SizeText(const International& intl, uint64_t bytes)
{
    const uint64_t kb = bytes / 1024 + (bytes % 1024 != 0); // rounded up without overflowing
    return std::string(intl.GetNum(static_cast<int32_t>(std::min<uint64_t>(kb, INT32_MAX)), 0)) + " KB";
}

std::string FolderPane::TimeText(const International& intl, const Date& date, const Time& time)
{
    return std::string(intl.GetDate(date)) + " " + std::string(intl.GetTime(time, false, false));
}

void FolderPane::Render(OutputDevice& dev, const TamSize& size)
{
    int32_t y = DrawFrame(dev, size);
    DrawLine(dev, 6, y, m_aFolder.empty() ? "(no folder)" : std::filesystem::path(m_aFolder).filename().string(),
             TamColor(0x606060u));
    y += LINE_HEIGHT + 4;
    m_nListTop = y;
    const International intl;
    for (size_t i = 0; i < m_aFiles.size() && y < size.Height(); ++i, y += 2 * LINE_HEIGHT) {
        const PictureFile& f = m_aFiles[i];
        const bool selected = static_cast<int>(i) == m_nSelected;
        if (selected)
            dev.Erase(CRectangle(2, y, size.Width() - 3, y + 2 * LINE_HEIGHT - 1), TamColor(COL_HIGHLIGHT));
        const TamColor text = selected ? TamColor(COL_HIGHLIGHTTEXT) : TamColor(0x202020u);
        DrawLine(dev, 6, y, f.name, text);
        DrawLine(dev, 14, y + LINE_HEIGHT,
                 SizeText(intl, f.stat.GetSize64()) + "  " + TimeText(intl, f.stat.DateModified(), f.stat.TimeModified()),
                 selected ? text : TamColor(0x707070u));
    }
}

void FolderPane::MouseButtonDown(const MouseEvent& event)
{
    const int32_t y = event.GetPosPixel().y;
    if (y >= m_nListTop)
        Select((y - m_nListTop) / (2 * LINE_HEIGHT));
}

} // namespace demo
