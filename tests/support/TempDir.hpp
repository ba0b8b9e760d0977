#pragma once

#include <string>
#include <string_view>

namespace vesk::test {

// A fresh directory under $TMPDIR (else /tmp), removed with everything in it at end of scope.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    // The path of name inside the directory.
    std::string File(std::string_view name) const { return m_path + "/" + std::string(name); }

private:
    std::string m_path;
};

} // namespace vesk::test
