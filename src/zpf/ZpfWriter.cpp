// Writer of the keyword-file text and the replace-by-rename file write.

#include "zpf/ZpfTree.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace gxzpf {
namespace {

namespace fs = std::filesystem;

constexpr const char* kIndent = "    ";
// Attempts at finding an unused temporary name before giving up.
constexpr int kTemporaryAttempts = 64;

void AppendQuoted(std::string& out, const std::string& text) {
    static const char* const kHex = "0123456789ABCDEF";
    out += '"';
    for (char c : text) {
        unsigned char u = static_cast<unsigned char>(c);
        switch (c) {
            case '"': out += "\\\""; break;
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\t': out += "\\t"; break;
            case '\r': out += "\\r"; break;
            default:
                // Other control bytes (NUL included) are escaped so the file
                // stays a text file; bytes above 0x7F (UTF-8) pass unchanged.
                if (u < 0x20 || u == 0x7F) {
                    out += "\\x";
                    out += kHex[u >> 4];
                    out += kHex[u & 0xF];
                } else {
                    out += c;
                }
        }
    }
    out += '"';
}

void AppendName(std::string& out, const std::string& name) {
    if (IsBareName(name))
        out += name;
    else
        AppendQuoted(out, name);
}

// A name for the temporary file next to the target; the leading dot keeps it
// out of ordinary listings while it exists.
fs::path TemporaryName(const fs::path& target) {
    static std::atomic<unsigned long> counter{0};
    auto tick = static_cast<unsigned long>(std::chrono::steady_clock::now().time_since_epoch().count());
    std::string name = "." + target.filename().string() + "." + std::to_string(tick % 1000000007UL) + "-" +
                       std::to_string(counter.fetch_add(1)) + ".tmp";
    return target.parent_path() / name;
}

bool Fail(std::string& message, const std::string& path, const std::string& reason) {
    message = "cannot write '" + path + "': " + reason;
    return false;
}

}  // namespace

std::string Format(const File& file) {
    std::string out;
    bool first = true;
    for (const auto& target : file.targets) {
        if (!first) out += '\n';
        first = false;
        AppendName(out, target->name);
        out += " {\n";
        for (const auto& section : target->sections) {
            out += kIndent;
            AppendName(out, section->name);
            out += " {\n";
            for (const auto& keyword : section->keywords) {
                out += kIndent;
                out += kIndent;
                AppendName(out, keyword->name);
                out += " =";
                const char* separator = " ";
                for (std::size_t i = 0; i < keyword->ValueCount(); ++i) {
                    const Value* value = keyword->ValueAt(i);
                    out += separator;
                    separator = ", ";
                    // A number keeps the text it was read or made with, which
                    // reads back as the same bits.
                    if (value->isText)
                        AppendQuoted(out, value->text);
                    else
                        out += value->text;
                }
                out += '\n';
            }
            out += kIndent;
            out += "}\n";
        }
        out += "}\n";
    }
    return out;
}

bool WriteReplacing(const std::string& path, const std::string& text, std::string& message) {
    if (path.empty()) return Fail(message, path, "empty path");
    fs::path target(path);
    std::error_code ec;
    if (!target.has_filename() || fs::is_directory(target, ec)) return Fail(message, path, "is a folder");

    // The new content goes to a fresh file in the target's own folder (a
    // rename is only atomic within one file system) and replaces the target
    // in one step; until then the old file is untouched.
    fs::path temporary;
    std::FILE* out = nullptr;
    for (int attempt = 0; attempt < kTemporaryAttempts && !out; ++attempt) {
        temporary = TemporaryName(target);
        errno = 0;
        // "x": fail rather than reuse a file that happens to exist.
        out = std::fopen(temporary.c_str(), "wbx");
        if (!out && errno != EEXIST) break;
    }
    if (!out) return Fail(message, path, errno ? std::strerror(errno) : "no temporary file");

    bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
    written = (std::fflush(out) == 0) && written;
    int writeErrno = errno;
    written = (std::fclose(out) == 0) && written;
    if (!written) {
        fs::remove(temporary, ec);
        return Fail(message, path, writeErrno ? std::strerror(writeErrno) : "write failed");
    }

    // Keep the permissions the user gave the old file.
    fs::file_status old = fs::status(target, ec);
    if (!ec && fs::is_regular_file(old)) fs::permissions(temporary, old.permissions(), ec);

    fs::rename(temporary, target, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return Fail(message, path, ec.message());
    }
    return true;
}

}  // namespace gxzpf
