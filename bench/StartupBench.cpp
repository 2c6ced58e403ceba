// Library start-up, load to ready: the time dlopen takes to load a fresh copy
// of libgxcart.so and run its start-up (catalogues read from the data files
// beside it). A library is started once per process and dlclose need not
// unload it, so every iteration runs gxcart_load_probe in a new process; the
// time reported is the wall-clock time the probe measures around dlopen, not
// the process's own start, and the counter cpu_ms the processor time of the
// same span (the two differ on a busy machine).
//
// The library and its data files are copied into a temporary folder once, and
// the probe runs with HOME and XDG_DATA_HOME in that folder, so no user
// catalogue takes part and nothing is written outside it.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

namespace fs = std::filesystem;

// A temporary folder holding libgxcart.so, its data files and an empty user
// folder; removed at the end of the benchmark.
class GxStartupFolder {
public:
    GxStartupFolder() {
        std::string pattern = (fs::temp_directory_path() / "gxcart-startup-XXXXXX").string();
        if (!mkdtemp(pattern.data())) return;
        root = pattern;
        const fs::path library(GXCART_LIBRARY_FILE);
        std::error_code ec;
        fs::copy_file(library, root / "libgxcart.so", ec);
        for (const auto& entry : fs::directory_iterator(library.parent_path(), ec)) {
            const std::string ext = entry.path().extension().string();
            if (ext == ".zpf" || ext == ".setup")
                fs::copy_file(entry.path(), root / entry.path().filename(), ec);
        }
        fs::create_directory(root / "home", ec);
    }
    ~GxStartupFolder() {
        std::error_code ec;
        if (!root.empty()) fs::remove_all(root, ec);
    }
    GxStartupFolder(const GxStartupFolder&) = delete;
    GxStartupFolder& operator=(const GxStartupFolder&) = delete;

    bool Ok() const { return !root.empty() && fs::exists(root / "libgxcart.so"); }
    std::string Library() const { return (root / "libgxcart.so").string(); }
    std::string Home() const { return (root / "home").string(); }

private:
    fs::path root;
};

// Wall-clock and processor seconds of one load, and of the first look-up of
// a system when one was asked for.
struct GxLoadTime {
    double wall = -1, processor = -1, lookUp = -1;
};

// Runs the probe on the library, with a projection string to build after the
// load when system is not null; negative times when the probe failed.
GxLoadTime ProbeOnce(const GxStartupFolder& folder, const char* system = nullptr) {
    int out[2];
    if (pipe(out) != 0) return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, out[0]);
    posix_spawn_file_actions_addclose(&actions, out[1]);

    std::string probe = GXCART_LOAD_PROBE, library = folder.Library();
    std::string home = "HOME=" + folder.Home(), xdg = "XDG_DATA_HOME=" + folder.Home();
    std::string lookUp = system ? system : "";
    char* args[] = {probe.data(), library.data(), system ? lookUp.data() : nullptr, nullptr};
    char* env[] = {home.data(), xdg.data(), nullptr};
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, probe.c_str(), &actions, nullptr, args, env);
    posix_spawn_file_actions_destroy(&actions);
    close(out[1]);

    std::string text;
    char buffer[64];
    ssize_t n = 0;
    while (spawned == 0 && (n = read(out[0], buffer, sizeof buffer)) > 0) text.append(buffer, n);
    close(out[0]);
    if (spawned != 0) return {};
    int status = 0;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return {};
    char* end = nullptr;
    GxLoadTime t;
    t.wall = std::strtod(text.c_str(), &end) * 1e-9;
    t.processor = std::strtod(end, &end) * 1e-9;
    if (system) t.lookUp = std::strtod(end, nullptr) * 1e-9;
    return t;
}

void BM_LibraryStartupLoadToReady(benchmark::State& state) {
    const GxStartupFolder folder;
    if (!folder.Ok()) {
        state.SkipWithError("could not copy libgxcart.so into a temporary folder");
        return;
    }
    double processor = 0;
    for (auto _ : state) {
        const GxLoadTime t = ProbeOnce(folder);
        if (t.wall < 0 || t.processor < 0) {
            state.SkipWithError("the load probe failed");
            break;
        }
        state.SetIterationTime(t.wall);
        processor += t.processor;
    }
    state.counters["cpu_ms"] =
        benchmark::Counter(processor * 1e3, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_LibraryStartupLoadToReady)->UseManualTime()->Unit(benchmark::kMillisecond);

// The first look-up of a code that only the deferred EPSG file holds: the
// time that file's reading adds, once per process, to the first construction
// that needs it (the load itself is not counted).
void BM_FirstLookUpOfADeferredCode(benchmark::State& state) {
    const GxStartupFolder folder;
    if (!folder.Ok()) {
        state.SkipWithError("could not copy libgxcart.so into a temporary folder");
        return;
    }
    for (auto _ : state) {
        const GxLoadTime t = ProbeOnce(folder, "EPSG:2958");
        if (t.lookUp < 0) {
            state.SkipWithError("the load probe failed");
            break;
        }
        state.SetIterationTime(t.lookUp);
    }
}
BENCHMARK(BM_FirstLookUpOfADeferredCode)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
