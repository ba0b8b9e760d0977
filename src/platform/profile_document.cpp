#include "platform/profile_document.hpp"

#include "platform/utf.hpp"

#include <algorithm>
#include <utility>

namespace vesk::platform {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view s)
{
    while (!s.empty() && IsBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && IsBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool HasLineBreakOrNul(std::string_view s)
{
    return s.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos;
}

std::string Utf16BytesToUtf8(std::string_view bytes, bool bigEndian)
{
    std::u16string units(bytes.size() / 2, u'\0');
    for (size_t i = 0; i < units.size(); ++i) {
        auto hi = static_cast<uint8_t>(bytes[2 * i + (bigEndian ? 0 : 1)]);
        auto lo = static_cast<uint8_t>(bytes[2 * i + (bigEndian ? 1 : 0)]);
        units[i] = static_cast<char16_t>(hi << 8 | lo);
    }
    return Utf16ToUtf8(units);
}

std::string Utf8ToUtf16Bytes(std::string_view text, bool bigEndian)
{
    std::u16string units = u"\uFEFF" + Utf8ToUtf16(text);
    std::string bytes;
    bytes.reserve(units.size() * 2);
    for (char16_t unit : units) {
        char hi = static_cast<char>(unit >> 8), lo = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? hi : lo;
        bytes += bigEndian ? lo : hi;
    }
    return bytes;
}

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

} // namespace

size_t ProfileDocument::NameHash::operator()(std::string_view name) const noexcept
{
    uint64_t hash = 14695981039346656037u; // FNV-1a over the lower-case bytes
    for (char c : name)
        hash = (hash ^ static_cast<uint8_t>(Lower(c))) * 1099511628211u;
    return static_cast<size_t>(hash);
}

bool ProfileDocument::NameEqual::operator()(std::string_view a, std::string_view b) const noexcept
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
        return Lower(x) == Lower(y);
    });
}

void ProfileDocument::Section::Index()
{
    keys.clear();
    for (size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].isKey)
            keys.emplace(lines[i].Key(), i);
    }
}

void ProfileDocument::ParseKey(Line& line)
{
    line.isKey = false;
    std::string_view text = line.text;
    size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos || text[begin] == ';' || text[begin] == '#')
        return;
    size_t equals = text.find('=', begin);
    if (equals == std::string_view::npos)
        return;
    std::string_view key = Trim(text.substr(begin, equals - begin));
    if (key.empty())
        return;
    std::string_view value = Trim(text.substr(equals + 1));
    line.isKey = true;
    line.keyBegin = static_cast<uint32_t>(begin);
    line.keyLength = static_cast<uint32_t>(key.size());
    line.valueBegin = static_cast<uint32_t>(value.empty() ? text.size() : value.data() - text.data());
    line.valueLength = static_cast<uint32_t>(value.size());
}

ProfileDocument ProfileDocument::Parse(std::string_view bytes)
{
    ProfileDocument doc;
    std::string decoded;
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        bool bigEndian = bytes[0] == '\xFE';
        doc.m_encoding = bigEndian ? Encoding::Utf16Be : Encoding::Utf16Le;
        decoded = Utf16BytesToUtf8(bytes.substr(2), bigEndian);
        bytes = decoded;
    } else if (bytes.starts_with(kUtf8Bom)) {
        doc.m_encoding = Encoding::Utf8Bom;
        bytes.remove_prefix(kUtf8Bom.size());
    }
    doc.m_sections.emplace_back();
    bool endSeen = false;
    while (!bytes.empty()) {
        size_t newline = bytes.find('\n');
        std::string_view text = bytes.substr(0, newline);
        Line line;
        line.hasEnd = newline != std::string_view::npos;
        // A CR at the very end of the file is a line end cut short: it belongs to the line
        // end as in "\r\n", so that the line means the same once a later edit completes it.
        if (text.ends_with('\r')) {
            line.crlf = true;
            text.remove_suffix(1);
        }
        if (line.hasEnd && !endSeen) {
            doc.m_crlf = line.crlf;
            endSeen = true;
        }
        bytes.remove_prefix(line.hasEnd ? newline + 1 : bytes.size());
        line.text = text;

        std::string_view head = Trim(text);
        if (head.starts_with('[')) {
            Section section;
            section.name = Trim(head.substr(1, head.find(']') - 1));
            section.hasHeader = true;
            section.header = std::move(line);
            doc.m_sections.push_back(std::move(section));
        } else {
            ParseKey(line);
            doc.m_sections.back().lines.push_back(std::move(line));
        }
    }
    for (Section& section : doc.m_sections)
        section.Index();
    doc.IndexSections();
    return doc;
}

std::string ProfileDocument::Serialize() const
{
    std::string out;
    if (m_encoding == Encoding::Utf8Bom)
        out = kUtf8Bom;
    const auto put = [&out](const Line& line) {
        out += line.text;
        if (line.crlf)
            out += '\r';
        if (line.hasEnd)
            out += '\n';
    };
    for (const Section& section : m_sections) {
        if (section.hasHeader)
            put(section.header);
        for (const Line& line : section.lines)
            put(line);
    }
    if (m_encoding == Encoding::Utf16Le || m_encoding == Encoding::Utf16Be)
        return Utf8ToUtf16Bytes(out, m_encoding == Encoding::Utf16Be);
    return out;
}

void ProfileDocument::IndexSections()
{
    m_index.clear();
    for (size_t i = 1; i < m_sections.size(); ++i)
        m_index.emplace(m_sections[i].name, i);
}

const ProfileDocument::Section* ProfileDocument::FindSection(std::string_view name) const
{
    auto it = m_index.find(Trim(name));
    return it == m_index.end() ? nullptr : &m_sections[it->second];
}

ProfileDocument::Section* ProfileDocument::FindSection(std::string_view name)
{
    return const_cast<Section*>(std::as_const(*this).FindSection(name));
}

std::optional<std::string_view> ProfileDocument::Find(std::string_view section, std::string_view key) const
{
    const Section* found = FindSection(section);
    if (!found)
        return std::nullopt;
    auto it = found->keys.find(Trim(key));
    if (it == found->keys.end())
        return std::nullopt;
    return found->lines[it->second].Value();
}

std::vector<std::string_view> ProfileDocument::KeyNames(std::string_view section) const
{
    std::vector<std::string_view> names;
    const Section* found = FindSection(section);
    if (!found)
        return names;
    for (size_t i = 0; i < found->lines.size(); ++i) {
        const Line& line = found->lines[i];
        if (line.isKey && found->keys.find(line.Key())->second == i)
            names.push_back(line.Key());
    }
    return names;
}

ProfileDocument::Line ProfileDocument::NewLine(std::string text) const
{
    Line line;
    line.text = std::move(text);
    line.crlf = m_crlf;
    ParseKey(line);
    return line;
}

void ProfileDocument::EndLine(Line& line) const
{
    if (!line.hasEnd) {
        line.hasEnd = true;
        line.crlf = line.crlf || m_crlf; // a CR already there becomes "\r\n"
    }
}

void ProfileDocument::EndLastLine()
{
    Section& last = m_sections.back();
    Line* line = !last.lines.empty() ? &last.lines.back() : last.hasHeader ? &last.header : nullptr;
    if (line)
        EndLine(*line);
}

bool ProfileDocument::SetValue(std::string_view section, std::string_view key, std::string_view value)
{
    section = Trim(section);
    key = Trim(key);
    Section* found = FindSection(section);
    if (!found) {
        EndLastLine();
        Section added;
        added.name = section;
        added.hasHeader = true;
        added.header = NewLine("[" + added.name + "]");
        m_sections.push_back(std::move(added));
        m_index.emplace(section, m_sections.size() - 1);
        found = &m_sections.back();
    }
    auto it = found->keys.find(key);
    if (it != found->keys.end()) {
        Line& line = found->lines[it->second];
        if (line.Value() == value)
            return false;
        line.text.resize(line.valueBegin);
        line.text += value;
        ParseKey(line);
        return true;
    }
    // A new key goes after the section's last non-blank line, before the blank lines that
    // separate it from the next section; only blank lines follow it, so no index moves.
    size_t at = found->lines.size();
    while (at > 0 && Trim(found->lines[at - 1].text).empty())
        --at;
    EndLine(at > 0 ? found->lines[at - 1] : found->header);
    std::string text(key);
    text += '=';
    text += value;
    found->lines.insert(found->lines.begin() + static_cast<ptrdiff_t>(at), NewLine(std::move(text)));
    found->keys.emplace(key, at);
    return true;
}

bool ProfileDocument::DeleteKey(std::string_view section, std::string_view key)
{
    Section* found = FindSection(section);
    if (!found)
        return false;
    key = Trim(key);
    if (!found->keys.contains(key))
        return false;
    std::erase_if(found->lines, [&](const Line& line) { return line.isKey && NameEqual()(line.Key(), key); });
    found->Index();
    return true;
}

bool ProfileDocument::DeleteSections(const std::function<bool(std::string_view name)>& match)
{
    size_t before = m_sections.size();
    auto first = m_sections.begin() + 1; // the lines before the first header stay
    m_sections.erase(std::remove_if(first, m_sections.end(), [&](const Section& s) { return match(s.name); }),
        m_sections.end());
    if (m_sections.size() == before)
        return false;
    IndexSections();
    return true;
}

bool ProfileDocument::DeleteSection(std::string_view name)
{
    return DeleteSections([name](std::string_view other) { return SameName(name, other); });
}

bool ProfileDocument::SameName(std::string_view a, std::string_view b)
{
    return NameEqual()(Trim(a), Trim(b));
}

bool ProfileDocument::IsValidSection(std::string_view name)
{
    return !HasLineBreakOrNul(name) && name.find(']') == std::string_view::npos;
}

bool ProfileDocument::IsValidKey(std::string_view name)
{
    name = Trim(name);
    return !name.empty() && !HasLineBreakOrNul(name) && name.find('=') == std::string_view::npos
        && name[0] != '[' && name[0] != ';' && name[0] != '#';
}

bool ProfileDocument::IsValidValue(std::string_view value)
{
    return !HasLineBreakOrNul(value);
}

} // namespace vesk::platform
