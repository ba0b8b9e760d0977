#pragma once

#include "Pane.hpp"

#include <vesk/files.hpp>
#include <vesk/locale.hpp>

#include <functional>
#include <string>
#include <vector>

namespace demo {

// One picture file of the listed folder.
struct PictureFile
{
    std::string name;
    std::string path;
    vesk::FileStat stat;
};

// The folder listing: the picture files of one folder (chosen by their extensions), with
// size and modification time in the user's locale. A click or the arrow keys select a row.
class FolderPane : public Pane
{
public:
    FolderPane() : Pane("Folder", false) {}

    // Lists the folder; false with `error` set when it cannot be read (the old list stays).
    bool Open(const std::string& folder, std::string& error);
    const std::string& Folder() const { return m_aFolder; }
    const std::vector<PictureFile>& Files() const { return m_aFiles; }
    int Selected() const { return m_nSelected; }
    // Selects row `index` (clamped) and tells the listener.
    void Select(int index);
    void SetOnSelect(std::function<void(int)> listener) { m_aOnSelect = std::move(listener); }
    // The top of row `index` as last drawn, in pane coordinates.
    int32_t RowTop(int index) const { return m_nListTop + index * 2 * LINE_HEIGHT; }

    void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) override;
    // "12.345 KB"-style size and date-time texts of the user's locale.
    static std::string SizeText(const vesk::International& intl, uint64_t bytes);
    static std::string TimeText(const vesk::International& intl, const vesk::Date& date, const vesk::Time& time);

protected:
    void MouseButtonDown(const vesk::MouseEvent& event) override;

private:
    std::string m_aFolder;
    std::vector<PictureFile> m_aFiles;
    int m_nSelected = -1;
    int32_t m_nListTop = 0;
    std::function<void(int)> m_aOnSelect;
};

// Whether the name has one of the picture extensions the demo shows.
bool IsPictureName(const std::string& name);

} // namespace demo
