// libvesk.so's dynamic symbol table holds the public interface and zlib's, nothing else: every
// exported C++ name belongs to a class or function that a header under include/ declares.
#include "support/ZlibNames.hpp"

#include <gtest/gtest.h>

#include <cxxabi.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::set<std::string> kZlibNames(std::begin(vesk::test::kZlibNames), std::end(vesk::test::kZlibNames));

std::vector<std::string> ExportedSymbols()
{
    const std::string command = std::string("nm -D --defined-only '") + VESK_LIBRARY_FILE + "'";
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::vector<std::string> names;
    if (!pipe)
        return names;
    char line[4096];
    while (fgets(line, sizeof line, pipe.get())) {
        std::istringstream fields(line);
        std::string address, kind, name;
        if (fields >> address >> kind >> name)
            names.push_back(name.substr(0, name.find('@')));
    }
    return names;
}

std::string Demangle(const std::string& name)
{
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> text(
        abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), std::free);
    return status == 0 ? std::string(text.get()) : name;
}

bool IsIdentifierChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// The text with comments and string literals blanked out.
std::string CodeOnly(const std::string& text)
{
    std::string code;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "//") == 0) {
            i = text.find('\n', i);
            if (i == std::string::npos)
                break;
        } else if (text.compare(i, 2, "/*") == 0) {
            i = text.find("*/", i + 2);
            if (i == std::string::npos)
                break;
            ++i;
        } else if (text[i] == '"') {
            for (++i; i < text.size() && text[i] != '"'; ++i)
                i += text[i] == '\\';
        } else {
            code += text[i];
            continue;
        }
        code += ' ';
    }
    return code;
}

// Every identifier of the public headers' code (comments and string literals left out).
std::set<std::string> PublicIdentifiers()
{
    std::set<std::string> words;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VESK_INCLUDE_DIR)) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file(entry.path());
        std::stringstream text;
        text << file.rdbuf();
        const std::string code = CodeOnly(text.str());
        for (size_t i = 0; i < code.size();) {
            if (!IsIdentifierChar(code[i])) {
                ++i;
                continue;
            }
            const size_t start = i;
            while (i < code.size() && IsIdentifierChar(code[i]))
                ++i;
            words.insert(code.substr(start, i - start));
        }
    }
    return words;
}

// The names of the qualified name that starts with the first "vesk::" standing at the start
// of the symbol or after a space (a special-symbol prefix such as "vtable for", or a return
// type), before any parameter list: "vesk::SString::Append(...)" gives SString and Append.
// Empty for a symbol outside the library's namespace, such as a standard-library template
// instantiated for a library type.
std::vector<std::string> VeskNames(const std::string& demangled)
{
    std::vector<std::string> names;
    const size_t at = demangled.find("vesk::");
    if (at == std::string::npos || at > demangled.find('(') || (at > 0 && demangled[at - 1] != ' '))
        return names;
    size_t i = at + 6;
    for (;;) {
        const size_t start = i;
        while (i < demangled.size() && IsIdentifierChar(demangled[i]))
            ++i;
        if (i == start)
            break;
        names.push_back(demangled.substr(start, i - start));
        if (demangled.compare(i, 2, "::") != 0)
            break;
        i += 2;
    }
    return names;
}

} // namespace

TEST(Exports, OnlyThePublicInterfaceAndZlib)
{
    const std::vector<std::string> symbols = ExportedSymbols();
    ASSERT_GT(symbols.size(), 100u) << "nm found no dynamic symbols in " << VESK_LIBRARY_FILE;
    const std::set<std::string> identifiers = PublicIdentifiers();
    std::vector<std::string> strays;
    for (const std::string& symbol : symbols) {
        if (kZlibNames.count(symbol) || symbol.rfind("_init", 0) == 0 || symbol == "_fini")
            continue;
        const std::string demangled = Demangle(symbol);
        const std::vector<std::string> names = VeskNames(demangled);
        bool isPublic = !names.empty();
        for (const std::string& name : names)
            isPublic = isPublic && identifiers.count(name) != 0;
        if (!isPublic)
            strays.push_back(demangled);
    }
    EXPECT_TRUE(strays.empty()) << strays.size() << " exported names are not public, first: "
                                << (strays.empty() ? "" : strays.front());
    for (const std::string& stray : strays)
        ADD_FAILURE() << stray;
}

TEST(Exports, EveryZlibNameIsExported)
{
    const std::vector<std::string> symbols = ExportedSymbols();
    const std::set<std::string> exported(symbols.begin(), symbols.end());
    for (const std::string& name : kZlibNames)
        EXPECT_TRUE(exported.count(name)) << name;
}
