#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/ImageList.hpp>
#include <vesk/text/UString.hpp>

#include <cstdint>
#include <memory>
#include <vector>

namespace vesk {

// The command list a tool bar is built from: up to `capacity` entries of a command number
// (0xFFFFFFFF for a separator), a text, a tool-tip text and an image index into the list's
// images (0xFFFFFFFF for none). Images are enlarged for the screen when the scale exceeds 1.2.
class VESK_API CommandIds
{
public:
    static constexpr uint32_t NONE = 0xFFFFFFFFu;

    // Room for `capacity` entries. The scale comes from the library state's resolution: each
    // axis in whole per cent (ScaleX(100), ScaleY(100)); when both are at least 101 the
    // smaller one / 100, else 1.0.
    explicit CommandIds(uint32_t capacity);
    // Copies share the images; the string list buffer is not copied (each object makes its own).
    CommandIds(const CommandIds& other);
    CommandIds& operator=(const CommandIds& other);
    ~CommandIds();

    // Appends an entry; ignored when the list is full. An empty tool tip takes the text; an
    // image with a width and height gets the next image index, any other NONE.
    void Add(uint32_t command, const UString& text, const Bitmap& image, const UString& toolTip = UString());
    // Appends a separator: command and image NONE, text "$sep$".
    void AddSeparator();
    // Adds the image to the image list, enlarged by the scale (each side to the nearest whole
    // pixel) when the scale exceeds 1.2; returns the new image count, 0 for an empty image.
    uint32_t AddReserve(const Bitmap& image);
    // Every text, in order, as a list of zero-terminated strings ended by an empty one. The
    // buffer belongs to the object and is replaced by the next call.
    const char16_t* GetPWinStringList();

    bool HasTexts() const;
    // Tool tips are enabled and some tool-tip text is not empty.
    bool HasToolTips() const;

    // The command number at `index`; NONE beyond the count.
    uint32_t operator[](uint32_t index) const;
    // The image index at `index`; NONE beyond the count.
    uint32_t GetBitmapId(uint32_t index) const;
    // Texts; empty beyond the count.
    UString GetString(uint32_t index) const;
    UString GetToolTipText(uint32_t index) const;
    void SetString(uint32_t index, const UString& text);
    uint32_t Count() const { return m_nCount; }
    uint32_t GetImageCount() const { return m_nImageCount; }
    uint32_t GetCapacity() const { return m_nCapacity; }
    const ImageList& GetImageList() const { return m_aImageList; }
    void EnableToolTips(bool enable) { m_bToolTips = enable; }
    void SetHorizontal() { m_bVertical = false; }
    void SetVertical() { m_bVertical = true; }
    bool IsVertical() const { return m_bVertical; }
    void SetScale(double scale) { m_fScale = scale; }
    double GetScale() const { return m_fScale; }

private:
    std::vector<uint32_t> m_aCommands;
    std::vector<uint32_t> m_aImageIndexes;
    std::vector<UString> m_aTexts;
    std::vector<UString> m_aToolTips;
    std::unique_ptr<char16_t[]> m_pStringList;
    ImageList m_aImageList;
    uint32_t m_nCount = 0;
    uint32_t m_nImageCount = 0;
    uint32_t m_nCapacity = 0;
    bool m_bToolTips = true;
    bool m_bVertical = false;
    double m_fScale = 1.0;
};

} // namespace vesk
