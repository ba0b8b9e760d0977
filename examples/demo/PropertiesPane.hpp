#pragma once

#include "FolderPane.hpp"

#include <string>

namespace demo {

// What is known about the selected file: kind, size, its three times and the picture's size.
class PropertiesPane : public Pane
{
public:
    PropertiesPane() : Pane("Properties", false) {}

    // The file and the size of its picture ((0, 0) when it could not be read).
    void Show(const PictureFile& file, const vesk::TamSize& pictureSize);
    void Clear();
    void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) override;

private:
    bool m_bShown = false;
    PictureFile m_aFile;
    vesk::TamSize m_aPicture;
};

// The kind of picture a file name says, such as "PNG picture"; the extension in capitals.
std::string KindOf(const std::string& name);

} // namespace demo
