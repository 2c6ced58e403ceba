// Replacing a file by rename, with everything flushed to the disk first, and
// the care a shared library owes its host: no signal ends the process, no
// temporary file is left, and a file it could not read is never destroyed.

#include "zpf/FileReplace.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "zpf/ZpfTree.h"

namespace gxzpf {
namespace {

namespace fs = std::filesystem;

// Attempts at finding an unused temporary name before giving up.
constexpr int kTemporaryAttempts = 64;
// Copies of one unreadable file made within the same second.
constexpr int kKeptCopiesPerSecond = 100;
// Largest single write; the kernel caps one write near 2 GiB anyway.
constexpr std::size_t kLargestWrite = std::size_t(1) << 30;

const char* const kTemporarySuffix = ".tmp";
const char* const kUnreadableInfix = ".unreadable-";

// While it lives, a file-size limit reached by this thread's writes shows up
// as EFBIG only. The SIGXFSZ sent with it stays blocked, and if it arrived it
// is taken before the thread's signal mask is restored, so it is never
// delivered. A SIGXFSZ that was already pending is left alone.
class FileSizeSignalGuard {
public:
    FileSizeSignalGuard() {
        sigemptyset(&set_);
        sigaddset(&set_, SIGXFSZ);
        active_ = pthread_sigmask(SIG_BLOCK, &set_, &old_) == 0;
        pendingBefore_ = active_ && Pending();
    }
    ~FileSizeSignalGuard() {
        if (!active_) return;
        const int savedErrno = errno;
        if (!pendingBefore_ && Pending()) {
            const timespec noWait{0, 0};
            while (sigtimedwait(&set_, nullptr, &noWait) < 0 && errno == EINTR) {
            }
        }
        pthread_sigmask(SIG_SETMASK, &old_, nullptr);
        errno = savedErrno;
    }
    FileSizeSignalGuard(const FileSizeSignalGuard&) = delete;
    FileSizeSignalGuard& operator=(const FileSizeSignalGuard&) = delete;

private:
    static bool Pending() {
        sigset_t pending;
        sigemptyset(&pending);
        return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
    }

    sigset_t set_;
    sigset_t old_;
    bool active_ = false;
    bool pendingBefore_ = false;
};

std::string FolderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path().string() : std::string(".");
}

std::string TemporaryPrefix(const fs::path& target) {
    return "." + target.filename().string() + ".";
}

// A name for the temporary file next to the target. The leading dot keeps it
// out of ordinary listings; the process id tells a later writer whether the
// process that made it still runs.
fs::path TemporaryName(const fs::path& target) {
    static std::atomic<unsigned long> counter{0};
    return target.parent_path() /
           (TemporaryPrefix(target) + std::to_string(static_cast<long>(::getpid())) + "-" +
            std::to_string(counter.fetch_add(1)) + kTemporarySuffix);
}

bool Fail(std::string& message, const std::string& path, const std::string& reason) {
    message = "cannot write '" + path + "': " + reason;
    return false;
}

bool WriteAll(int fd, const std::string& text, int& error) {
    const char* next = text.data();
    std::size_t left = text.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, next, std::min(left, kLargestWrite));
        if (n < 0) {
            if (errno == EINTR) continue;
            error = errno;
            return false;
        }
        if (n == 0) {
            error = EIO;
            return false;
        }
        next += n;
        left -= static_cast<std::size_t>(n);
    }
    return true;
}

// Makes a rename in folder durable. Some file systems cannot sync a folder;
// the rename has happened all the same, so that is not a failure.
void SyncFolder(const std::string& folder) {
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

std::string UtcStamp() {
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y%m%dT%H%M%SZ", &utc);
    return text;
}

bool StartsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

// An earlier copy of the file that already holds every part of it that
// cannot be read; "" if none. The writer carries those parts into the new file
// unchanged, so without this each write of a file that stays damaged would
// leave one more copy.
std::string ExistingCopy(const fs::path& target, const File& damaged) {
    const std::string prefix = target.filename().string() + kUnreadableInfix;
    std::error_code ec;
    fs::directory_iterator it(FolderOf(target), ec), end;
    for (; !ec && it != end; it.increment(ec)) {
        if (!StartsWith(it->path().filename().string(), prefix)) continue;
        std::string copy;
        if (!ReadWhole(it->path().string(), copy)) continue;
        const bool holdsAll =
            std::all_of(damaged.unread.begin(), damaged.unread.end(), [&](Span span) {
                return copy.find(std::string_view(damaged.text)
                                     .substr(span.begin, span.end - span.begin)) !=
                       std::string::npos;
            });
        if (holdsAll) return it->path().string();
    }
    return std::string();
}

}  // namespace

bool ReadWhole(const std::string& path, std::string& out) {
    std::FILE* in = std::fopen(path.c_str(), "rb");
    if (!in) return false;
    // The size taken beforehand saves regrowing; a file that grows meanwhile
    // is still read to its end.
    long size = 0;
    if (std::fseek(in, 0, SEEK_END) == 0) size = std::ftell(in);
    std::rewind(in);
    out.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    out.resize(std::fread(&out[0], 1, out.size(), in));
    char chunk[4096];
    for (std::size_t n; (n = std::fread(chunk, 1, sizeof chunk, in)) > 0;) out.append(chunk, n);
    const bool ok = std::ferror(in) == 0;
    std::fclose(in);
    return ok;
}

bool WriteReplacing(const std::string& path, const std::string& text, std::string& message) {
    if (path.empty()) return Fail(message, path, "empty path");
    const fs::path target(path);
    std::error_code ec;
    if (!target.has_filename() || fs::is_directory(target, ec))
        return Fail(message, path, "is a folder");

    const FileSizeSignalGuard guard;
    // The new content goes to a fresh file in the target's own folder (a
    // rename is only atomic within one file system) and replaces the target
    // in one step; until then the old file is untouched.
    fs::path temporary;
    int fd = -1;
    for (int attempt = 0; attempt < kTemporaryAttempts && fd < 0; ++attempt) {
        temporary = TemporaryName(target);
        // O_EXCL: never reuse a file that happens to exist.
        fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) return Fail(message, path, errno ? std::strerror(errno) : "no temporary file");

    // Keep the permissions the user gave the old file.
    struct stat old {};
    if (::stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode)) ::fchmod(fd, old.st_mode & 07777);

    int error = 0;
    bool written = WriteAll(fd, text, error);
    // Only what has reached the disk may replace the old file: a crash after
    // the rename must find the new content, not an empty file.
    if (written && ::fsync(fd) != 0) {
        error = errno;
        written = false;
    }
    if (::close(fd) != 0 && written) {
        error = errno;
        written = false;
    }
    if (!written) {
        ::unlink(temporary.c_str());
        return Fail(message, path, error ? std::strerror(error) : "write failed");
    }
    if (::rename(temporary.c_str(), path.c_str()) != 0) {
        error = errno;
        ::unlink(temporary.c_str());
        return Fail(message, path, std::strerror(error));
    }
    SyncFolder(FolderOf(target));
    return true;
}

bool KeepUnreadable(const std::string& path, std::string& keptAs, std::string& message) {
    keptAs.clear();
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT) return true;
        message = "cannot check '" + path + "': " + std::strerror(errno);
        return false;
    }
    // A folder or device in the file's place is refused by the write itself.
    if (!S_ISREG(info.st_mode)) return true;
    std::string content;
    if (!ReadWhole(path, content)) {
        message = "cannot read '" + path + "' to check it before it is replaced";
        return false;
    }
    File tree;
    std::string firstProblem;
    if (Parse(content, tree, firstProblem)) return true;

    const fs::path target(path);
    if (!ExistingCopy(target, tree).empty()) return true;
    const std::string base = path + kUnreadableInfix + UtcStamp();
    for (int n = 1; n <= kKeptCopiesPerSecond; ++n) {
        const std::string candidate = n == 1 ? base : base + "-" + std::to_string(n);
        // A second name for the same bytes: nothing is copied, and the copy
        // cannot be half written.
        if (::link(path.c_str(), candidate.c_str()) == 0) {
            keptAs = candidate;
            return true;
        }
        if (errno == EEXIST) continue;
        // A file system without hard links gets a written copy.
        std::error_code ec;
        if (fs::exists(candidate, ec)) continue;
        if (!WriteReplacing(candidate, content, message)) return false;
        keptAs = candidate;
        return true;
    }
    message = "cannot keep a copy of '" + path + "': too many copies";
    return false;
}

int RemoveStaleTemporaries(const std::string& path) {
    const fs::path target(path);
    if (!target.has_filename()) return 0;
    const std::string prefix = TemporaryPrefix(target);
    const std::string suffix = kTemporarySuffix;
    const long self = static_cast<long>(::getpid());
    int removed = 0;
    std::error_code ec;
    fs::directory_iterator it(FolderOf(target), ec), end;
    for (; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() <= prefix.size() + suffix.size() || !StartsWith(name, prefix) ||
            name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
            continue;
        // ".<name>.<pid>-<n>.tmp": the writer's process id comes first.
        long pid = 0;
        std::size_t i = prefix.size();
        for (; i < name.size() && name[i] >= '0' && name[i] <= '9' && pid < 1000000000L; ++i)
            pid = pid * 10 + (name[i] - '0');
        if (i == prefix.size() || name[i] != '-' || pid <= 0 || pid == self) continue;
        if (::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH) continue;
        std::error_code removeError;
        if (fs::remove(it->path(), removeError)) ++removed;
    }
    return removed;
}

}  // namespace gxzpf
