#include "CliSupport.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "foundation/NumberText.h"
#include "foundation/Text.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

namespace {

// A .prj file holds one coordinate system, a few kilobytes at most; anything
// much larger is not one, and is not read into memory.
constexpr std::size_t kMaxSystemFileBytes = 1u << 20;

bool EndsWithPrj(const std::string& text) {
    if (text.size() < 4) return false;
    return GxEqualsIgnoringCase(std::string_view(text).substr(text.size() - 4), ".prj");
}

// The whole file: every line of a pretty-printed WKT counts, not only the
// first. A UTF-8 byte order mark (some Windows editors write one) is dropped.
bool ReadSystemFile(const std::string& path, std::string* text, std::string* problem) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) {
        *problem = "cannot read " + path + ": " + GxErrnoText(errno);
        return false;
    }
    struct stat info {};
    if (fstat(fileno(file), &info) == 0 && S_ISDIR(info.st_mode)) {
        std::fclose(file);
        *problem = "cannot read " + path + ": it is a directory";
        return false;
    }
    std::string content(kMaxSystemFileBytes + 1, '\0');
    const std::size_t got = std::fread(&content[0], 1, content.size(), file);
    const int error = std::ferror(file) ? errno : 0;
    std::fclose(file);
    if (error != 0) {
        *problem = "cannot read " + path + ": " + GxErrnoText(error);
        return false;
    }
    if (got > kMaxSystemFileBytes) {
        *problem = path + " is larger than 1 MiB: not a coordinate system file";
        return false;
    }
    content.resize(got);
    if (content.compare(0, 3, "\xEF\xBB\xBF") == 0) content.erase(0, 3);
    *text = std::move(content);
    return true;
}

bool IsRegularFile(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

// Builds the map projection of a text; null when the text resolves to
// nothing, with a message for the bare "UTM".
std::unique_ptr<CGxMapProjection> Resolve(const GxIo& io, const std::string& text, bool* utm) {
    *utm = false;
    std::unique_ptr<CGxMapProjection> system;
    try {
        system = std::make_unique<CGxMapProjection>(text);
    } catch (const std::out_of_range&) {
        GxError(io, "\"UTM\" names no zone: give one, for example UTM-32");
        *utm = true;
        return nullptr;
    }
    if (!system->GetProjection()) return nullptr;
    return system;
}

void AppendHex(std::string& out, unsigned char c) {
    static const char kDigits[] = "0123456789ABCDEF";
    out += "\\x";
    out += kDigits[c >> 4];
    out += kDigits[c & 15];
}

// Length of the valid UTF-8 sequence of a printable character at bytes[i]
// (within n), 0 when there is none: overlong forms, surrogates, code points
// beyond U+10FFFF, the C1 controls and the bidirectional controls that can
// reorder what a terminal shows are all refused.
std::size_t PrintableSequence(const std::string& bytes, std::size_t i, std::size_t n) {
    const auto c = static_cast<unsigned char>(bytes[i]);
    std::size_t length = 0;
    unsigned long cp = 0;
    if (c >= 0xC2 && c <= 0xDF) {
        length = 2;
        cp = c & 0x1F;
    } else if (c >= 0xE0 && c <= 0xEF) {
        length = 3;
        cp = c & 0x0F;
    } else if (c >= 0xF0 && c <= 0xF4) {
        length = 4;
        cp = c & 0x07;
    } else {
        return 0;
    }
    if (i + length > n) return 0;
    for (std::size_t k = 1; k < length; ++k) {
        const auto t = static_cast<unsigned char>(bytes[i + k]);
        if ((t & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (t & 0x3F);
    }
    static const unsigned long kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
    if (cp < kMinimum[length] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    if (cp <= 0x9F) return 0;
    if ((cp >= 0x202A && cp <= 0x202E) || (cp >= 0x2066 && cp <= 0x2069) || cp == 0x200E ||
        cp == 0x200F || cp == 0x061C)
        return 0;
    return length;
}

}  // namespace

GxIo GxStandardIo() {
    return GxIo{stdin, stdout, stderr};
}

std::unique_ptr<CGxMapProjection> GxOpenSystem(const GxIo& io, const std::string& argument,
                                               std::string* text) {
    const std::string shown = GxPrintable(argument);
    std::string content, problem;
    bool utm = false;
    // A WKT in a file that is not called .prj ("system.wkt") is read too;
    // a name of the catalogue always comes first.
    const bool prj = EndsWithPrj(argument);
    std::unique_ptr<CGxMapProjection> system;
    if (!prj) {
        system = Resolve(io, argument, &utm);
        if (system || utm || !IsRegularFile(argument)) {
            if (system && text) *text = argument;
            if (system || utm) return system;
            if (CGxPRJParser::IsPRJ(argument))
                GxError(io, "the WKT text names no coordinate system GxCart can build: " + shown);
            else if (argument.find('/') != std::string::npos)
                GxError(io, "unknown coordinate system " + shown + " (and no file of that name)");
            else
                GxError(io, "unknown coordinate system: " + shown + " (see gxcart list)");
            return nullptr;
        }
    }
    if (!ReadSystemFile(argument, &content, &problem)) {
        GxError(io, GxPrintable(problem));
        return nullptr;
    }
    system = Resolve(io, content, &utm);
    if (!system && !utm) GxError(io, shown + " holds no coordinate system GxCart can build");
    if (system && text) *text = std::move(content);
    return system;
}

bool GxReadNumber(const std::string& text, double* value) {
    double v = 0.0;
    if (!GxParseWholeNumber(text, &v) || !std::isfinite(v)) return false;
    *value = v;
    return true;
}

std::string GxFixed(double value, int decimals) {
    char small[64];
    const int length = std::snprintf(small, sizeof small, "%.*f", decimals, value);
    std::string text;
    if (length < 0) return "nan";
    if (static_cast<std::size_t>(length) < sizeof small) {
        text.assign(small, static_cast<std::size_t>(length));
    } else {
        // 1e300 has 301 digits before the point; every one is written.
        text.resize(static_cast<std::size_t>(length) + 1);
        std::snprintf(&text[0], text.size(), "%.*f", decimals, value);
        text.resize(static_cast<std::size_t>(length));
    }
    // The C library writes a decimal comma in some locales; this tool never
    // changes the locale, but a host's environment must not change its files.
    for (char& c : text)
        if (c == ',') c = '.';
    if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') text.erase(0, 1);
    return text;
}

std::string GxPrintable(const std::string& bytes, std::size_t maxBytes) {
    const std::size_t n = std::min(bytes.size(), maxBytes);
    std::string out;
    out.reserve(n);
    for (std::size_t i = 0; i < n;) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c == '\\') {
            out += "\\\\";
            ++i;
        } else if (c >= 0x20 && c < 0x7F) {
            out += static_cast<char>(c);
            ++i;
        } else if (const std::size_t length = PrintableSequence(bytes, i, n)) {
            out.append(bytes, i, length);
            i += length;
        } else {
            AppendHex(out, c);
            ++i;
        }
    }
    if (bytes.size() > maxBytes) out += "... (" + std::to_string(bytes.size()) + " bytes)";
    return out;
}

void GxError(const GxIo& io, const std::string& message) {
    const std::string line = "gxcart: " + message + "\n";
    std::fwrite(line.data(), 1, line.size(), io.err);
}

void GxWarning(const GxIo& io, const std::string& message) {
    GxError(io, "warning: " + message);
}

bool GxOptionValue(const GxIo& io, const GxArgs& args, std::size_t& i, std::string* value) {
    if (i + 1 >= args.size()) {
        GxError(io, "option " + args[i] + " needs a value");
        return false;
    }
    *value = args[++i];
    return true;
}

bool GxIsHelp(const std::string& arg) {
    return arg == "--help" || arg == "-h";
}

bool GxWrite(std::FILE* stream, const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size();
}

std::string GxErrnoText(int error) {
    return error != 0 ? std::strerror(error) : "unknown error";
}

bool GxWriteFile(const std::string& path, const std::string& text, std::string* problem) {
    struct stat info {};
    const bool exists = stat(path.c_str(), &info) == 0;
    if (exists && S_ISDIR(info.st_mode)) {
        *problem = "cannot write " + path + ": it is a directory";
        return false;
    }
    if (exists && !S_ISREG(info.st_mode)) {
        // A device or a pipe has nothing to keep; write straight to it.
        std::FILE* file = std::fopen(path.c_str(), "wb");
        bool ok = file && GxWrite(file, text);
        int error = errno;
        if (file && std::fclose(file) != 0 && ok) {
            ok = false;
            error = errno;
        }
        if (!ok) *problem = "cannot write " + path + ": " + GxErrnoText(error);
        return ok;
    }
    // A link is written through: the file it points at is replaced, the link
    // stays.
    std::string target = path;
    if (exists) {
        if (char* resolved = realpath(path.c_str(), nullptr)) {
            target = resolved;
            std::free(resolved);
        }
    }
    const std::size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : target.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? target : target.substr(slash + 1);
    std::string temporary = folder + "." + name + ".XXXXXX";
    const int fd = mkstemp(&temporary[0]);
    if (fd < 0) {
        *problem = "cannot write " + path + ": " + GxErrnoText(errno);
        return false;
    }
    // The new file gets the mode the old one had, or what a plain create
    // would give it.
    mode_t mode = 0;
    if (exists) {
        mode = info.st_mode & 07777;
    } else {
        const mode_t mask = umask(0);
        umask(mask);
        mode = 0666 & ~mask;
    }
    std::size_t done = 0;
    int error = 0;
    while (done < text.size()) {
        const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
        if (n < 0) {
            if (errno == EINTR) continue;
            error = errno;
            break;
        }
        done += static_cast<std::size_t>(n);
    }
    if (error == 0 && fchmod(fd, mode) != 0) error = errno;
    if (error == 0 && fsync(fd) != 0) error = errno;
    if (::close(fd) != 0 && error == 0) error = errno;
    if (error == 0 && std::rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) {
        ::unlink(temporary.c_str());
        *problem = "cannot write " + path + ": " + GxErrnoText(error);
        return false;
    }
    return true;
}
