#include "catalogue/CatalogueLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

namespace {

// Longest wait for another process. Writers hold the lock for the few
// milliseconds of a write; ten seconds means a process that is stuck.
constexpr std::chrono::seconds kLongestWait{10};
constexpr std::chrono::milliseconds kFirstPause{1};
constexpr std::chrono::milliseconds kLongestPause{50};

struct HeldLock {
    std::string folder;
    int fd;
    int depth;
};

// The locks this process holds. The mutex stays locked for as long as a lock
// object lives, so the process's threads take turns.
struct ProcessLocks {
    std::recursive_mutex mutex;
    std::vector<HeldLock> held;
};

ProcessLocks& Locks() {
    static ProcessLocks* locks = new ProcessLocks;
    return *locks;
}

int OpenLockFile(const std::string& path) {
    int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    // In a read-only folder an existing lock file still serves for locking.
    if (fd < 0 && (errno == EACCES || errno == EROFS || errno == EPERM))
        fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    return fd;
}

// Waits for the exclusive lock. A file system without locks cannot keep
// writers apart, but each write still replaces its file whole, so the write
// goes ahead.
bool Acquire(int fd, std::string& problem) {
    const auto deadline = std::chrono::steady_clock::now() + kLongestWait;
    auto pause = kFirstPause;
    for (;;) {
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) return true;
        if (errno == EINTR) continue;
        if (errno == ENOLCK || errno == EINVAL || errno == EOPNOTSUPP) return true;
        if (errno != EWOULDBLOCK) {
            problem = std::strerror(errno);
            return false;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            problem = "another process has held the lock for more than " +
                      std::to_string(kLongestWait.count()) + " seconds";
            return false;
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, kLongestPause);
    }
}

}  // namespace

GxCatalogueLock::GxCatalogueLock(const std::string& folder) : folder_(folder) {
    ProcessLocks& locks = Locks();
    locks.mutex.lock();
    for (HeldLock& lock : locks.held) {
        if (lock.folder == folder_) {
            ++lock.depth;
            held_ = true;
            return;
        }
    }
    const std::string path = folder_ + kFileName;
    const int fd = OpenLockFile(path);
    if (fd < 0) {
        problem_ = "cannot open the lock file '" + path + "': " + std::strerror(errno);
    } else if (!Acquire(fd, problem_)) {
        problem_ = "cannot lock '" + path + "': " + problem_;
        ::close(fd);
    } else {
        locks.held.push_back(HeldLock{folder_, fd, 1});
        held_ = true;
        return;
    }
    locks.mutex.unlock();
}

GxCatalogueLock::~GxCatalogueLock() {
    if (!held_) return;
    ProcessLocks& locks = Locks();
    auto it = std::find_if(locks.held.begin(), locks.held.end(),
                           [this](const HeldLock& lock) { return lock.folder == folder_; });
    if (it != locks.held.end() && --it->depth == 0) {
        ::flock(it->fd, LOCK_UN);
        ::close(it->fd);
        locks.held.erase(it);
    }
    locks.mutex.unlock();
}
