// libvesk.so's dynamic symbol table holds the public interface and zlib's, nothing else: every
// exported C++ name belongs to a class or function that a header under include/ declares.
#include "support/ZlibNames.hpp"

#include <gtest/gtest.h>

#include <cxxabi.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <fstream>
#include <memory>
#include <regex>
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

// Every identifier of the public headers' code (comments and string literals left out).
std::set<std::string> PublicIdentifiers()
{
    std::set<std::string> words;
    const std::regex word("[A-Za-z_][A-Za-z0-9_]*");
    const std::regex noise(R"(//[^\n]*|/\*[\s\S]*?\*/|"(?:[^"\\\n]|\\.)*")");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VESK_INCLUDE_DIR)) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file(entry.path());
        std::stringstream text;
        text << file.rdbuf();
        const std::string content = std::regex_replace(text.str(), noise, " ");
        for (std::sregex_iterator it(content.begin(), content.end(), word), end; it != end; ++it)
            words.insert(it->str());
    }
    return words;
}

// The names of the qualified name that follows the first "vesk::" (after a special-symbol
// prefix or a return type): "vesk::SString::Append" gives SString and Append. Empty for a
// symbol outside the library's namespace.
std::vector<std::string> VeskNames(const std::string& demangled)
{
    static const std::regex qualified(R"(^(?:(?:typeinfo name for|typeinfo for|vtable for|VTT for|guard variable for|(?:virtual|non-virtual) thunk to) )?(?:[^(]* )?vesk::((?:[A-Za-z_]\w*::)*[A-Za-z_]\w*))");
    static const std::regex component(R"([A-Za-z_]\w*)");
    std::vector<std::string> names;
    std::smatch match;
    if (!std::regex_search(demangled, match, qualified))
        return names;
    const std::string chain = match[1].str();
    for (std::sregex_iterator it(chain.begin(), chain.end(), component), end; it != end; ++it)
        names.push_back(it->str());
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
