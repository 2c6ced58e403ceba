#pragma once

// Files the tests read and write: the one-line texts of the .prj files under
// tests/data/wkt, whole files as bytes, and scratch folders of their own.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

// The first line of tests/data/wkt/<file>; a failure when there is none.
inline std::string GxReadPrj(const std::string& file) {
    std::ifstream in(std::string(GXCART_TEST_DATA) + "/wkt/" + file);
    std::string line;
    std::getline(in, line);
    if (line.empty()) ADD_FAILURE() << "cannot read " << file;
    return line;
}

// The rows of tests/data/wkt/expected_parameters.txt, each cut at '|' into
// seven fields without their surrounding blanks: file, whether it parses,
// type, projection name, linear unit, its factor, parameters.
inline std::vector<std::vector<std::string>> GxExpectedParameterRows() {
    std::ifstream table(std::string(GXCART_TEST_DATA) + "/wkt/expected_parameters.txt");
    if (!table) ADD_FAILURE() << "cannot read expected_parameters.txt";
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> fields;
        std::istringstream cells(line);
        for (std::string cell; std::getline(cells, cell, '|');) {
            const std::size_t first = cell.find_first_not_of(' ');
            fields.push_back(first == std::string::npos
                                 ? std::string()
                                 : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
        }
        fields.resize(7);
        rows.push_back(fields);
    }
    return rows;
}

// A text of tests/data without its final line end.
inline std::string GxReadText(const std::string& relative) {
    std::ifstream in(std::string(GXCART_TEST_DATA) + "/" + relative);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

// text with its first occurrence of from replaced; a test fails when there
// is none.
inline std::string GxReplaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at != std::string::npos) text.replace(at, from.size(), to);
    return text;
}

// The bytes of a file (empty when it cannot be read).
inline std::string GxSlurp(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

inline void GxWriteText(const std::filesystem::path& p, const std::string& text) {
    std::ofstream(p, std::ios::binary) << text;
}

// A new folder under /tmp, removed with everything in it at the end.
class GxTempFolder {
public:
    GxTempFolder() {
        char pattern[] = "/tmp/gxcart-test-XXXXXX";
        if (!mkdtemp(pattern)) ADD_FAILURE() << "cannot make a scratch folder";
        path_ = pattern;
    }
    ~GxTempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    GxTempFolder(const GxTempFolder&) = delete;
    GxTempFolder& operator=(const GxTempFolder&) = delete;

    // The folder with a trailing slash, as the catalogues take it.
    std::string folder() const { return path_.string() + "/"; }
    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};
