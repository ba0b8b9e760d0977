#pragma once

// The parsed text of a profile file: sections headed by "[name]" holding "key=value" lines.
// Every line keeps its exact bytes, so a rewrite changes only the lines that were edited.


#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vesk::platform {

// Rules of the format, as this engine applies them:
// - Lines end in "\n" or "\r\n"; a "\r" at the very end of the file ends the last line too.
// - A line is a section header when its first non-blank character is '['; the name runs to
//   the first ']' (to the end of the line when the bracket is missing).
// - A line holding '=' is a key line: the key is the text before the first '=', the value the
//   text after it. Lines starting with ';' or '#', blank lines, lines without '=' or with an
//   empty key, and lines before the first header are kept but not read.
// - Names and values are trimmed of surrounding blanks (space and tab); quotes are kept.
//   Section and key names compare without regard to ASCII case.
// - The first section and the first key of a name win; later duplicates are kept but unread.
// - Text is UTF-8; a UTF-16 file with a byte-order mark is read and written back as UTF-16,
//   a UTF-8 byte-order mark is kept.
class ProfileDocument {
public:
    static ProfileDocument Parse(std::string_view bytes);
    std::string Serialize() const;

    // The value of key in section, or nullopt when absent. Valid until the next edit.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;
    // The key names of section in file order, each once.
    std::vector<std::string_view> KeyNames(std::string_view section) const;

    // Names must pass IsValidSection/IsValidKey and values IsValidValue; each edit returns
    // whether the document changed.
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);
    bool DeleteKey(std::string_view section, std::string_view key);
    // Removes every section of that name, with all its lines.
    bool DeleteSection(std::string_view name);
    // Removes every section whose name satisfies match, with all its lines.
    bool DeleteSections(const std::function<bool(std::string_view name)>& match);

    // Whether two section or key names are the same: trimmed, ASCII case ignored.
    static bool SameName(std::string_view a, std::string_view b);

    // Whether a name or value can be written so that it reads back as given (after trimming).
    static bool IsValidSection(std::string_view name);
    static bool IsValidKey(std::string_view name);
    static bool IsValidValue(std::string_view value);

private:
    enum class Encoding : uint8_t { Utf8, Utf8Bom, Utf16Le, Utf16Be };

    struct Line {
        std::string text; // without its line end
        bool hasEnd = true;
        bool crlf = false; // "\r\n", or a lone "\r" when the line has no end
        bool isKey = false;
        uint32_t keyBegin = 0, keyLength = 0, valueBegin = 0, valueLength = 0;
        std::string_view Key() const { return std::string_view(text).substr(keyBegin, keyLength); }
        std::string_view Value() const { return std::string_view(text).substr(valueBegin, valueLength); }
    };


    // Maps a name, compared without regard to ASCII case, to an index; looked up with any
    // string_view without building a string.
    struct NameHash {
        using is_transparent = void;
        size_t operator()(std::string_view name) const noexcept;
    };
    struct NameEqual {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const noexcept;
    };
    using NameIndex = std::unordered_map<std::string, size_t, NameHash, NameEqual>;

    struct Section {
        std::string name; // trimmed
        bool hasHeader = false;
        Line header;
        std::vector<Line> lines;
        NameIndex keys; // key -> index of its first line
        void Index();
    };

    static void ParseKey(Line& line);
    Section* FindSection(std::string_view name);
    const Section* FindSection(std::string_view name) const;
    void IndexSections();
    Line NewLine(std::string text) const;
    void EndLine(Line& line) const;
    void EndLastLine();

    Encoding m_encoding = Encoding::Utf8;
    bool m_crlf = false; // line end for new lines, taken from the file's first line
    std::vector<Section> m_sections; // [0] holds the lines before the first header
    NameIndex m_index; // name -> index of its first section
};

} // namespace vesk::platform
