#pragma once

#include <string>

// The lock that processes sharing a user folder take before they change the
// files the catalogues keep there (custom ellipsoids, custom projections, the
// recently-used list): an exclusive flock on the file ".gxcart.lock" in that
// folder. A process that ends, however it ends, releases it.
//
// Within one process the lock is re-entrant and also keeps the process's
// threads apart; flock alone would not, since all threads share it.
class GxCatalogueLock {
public:
    // Takes the lock of folder (ending in '/'), creating the lock file when
    // needed. Waits for another process for a few seconds at most, so that a
    // hung process cannot hang every other one at exit.
    explicit GxCatalogueLock(const std::string& folder);
    ~GxCatalogueLock();
    GxCatalogueLock(const GxCatalogueLock&) = delete;
    GxCatalogueLock& operator=(const GxCatalogueLock&) = delete;

    bool Held() const { return held_; }
    // Why the lock is not held.
    const std::string& Problem() const { return problem_; }

    static constexpr const char* kFileName = ".gxcart.lock";

private:
    std::string folder_;
    bool held_ = false;
    std::string problem_;
};
