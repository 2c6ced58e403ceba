#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

// Files the facade tests read and write.
namespace facadetest {

// A text of tests/data without its final line end.
inline std::string ReadText(const std::string& relative) {
    std::ifstream in(std::string(GXCART_TEST_DATA) + "/" + relative);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

// text with its first occurrence of from replaced; a test fails when there
// is none.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at != std::string::npos) text.replace(at, from.size(), to);
    return text;
}

inline void WriteText(const std::filesystem::path& p, const std::string& text) {
    std::ofstream out(p, std::ios::binary);
    out << text;
}

// A folder of its own under /tmp, removed with everything in it.
class TempFolder {
public:
    TempFolder() {
        char pattern[] = "/tmp/gxcart-facade-XXXXXX";
        path_ = mkdtemp(pattern);
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    std::string folder() const { return path_.string() + "/"; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

}  // namespace facadetest
