// Loads a copy of libgxcart.so into this fresh process and prints how long
// dlopen took, in nanoseconds of wall-clock time and of this process's
// processor time: the library's whole start-up (locale, data folder,
// ellipsoid and projection catalogues) up to the point where a caller can
// convert. On a busy machine the two differ by the time spent waiting. The start-up benchmark runs
// it once per iteration, as a library that was loaded before would not start up again.
//
//   gxcart_load_probe <path of libgxcart.so> [projection string]
//
// Exit status 0 when the library loaded and is ready (its flat interface
// resolves "UTM-32"), 1 otherwise. Given a projection string, the probe then
// also builds that system once and prints the wall-clock nanoseconds it took
// as a third number: with a code only the deferred EPSG file holds
// ("EPSG:2958"), the time of its first reading.

#include <dlfcn.h>
#include <time.h>

#include <chrono>
#include <cstdio>

#include "gxcart.h"

// The probe is not linked with the library: only the flat interface's types
// come from its header, the functions from dlsym.
namespace {
using GxCreate = decltype(&C_GXMP_CREATE);
using GxDestroy = decltype(&C_GXMP_DESTROY);

long long ProcessorNanoseconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec * 1000000000LL + t.tv_nsec;
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: %s <path of libgxcart.so> [projection string]\n", argv[0]);
        return 1;
    }
    const long long c0 = ProcessorNanoseconds();
    const auto t0 = std::chrono::steady_clock::now();
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    const auto t1 = std::chrono::steady_clock::now();
    const long long c1 = ProcessorNanoseconds();
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }

    // Ready means the catalogue answers: a zone name gives a system.
    const auto create = reinterpret_cast<GxCreate>(dlsym(library, "C_GXMP_CREATE"));
    const auto destroy = reinterpret_cast<GxDestroy>(dlsym(library, "C_GXMP_DESTROY"));
    if (!create || !destroy) {
        std::fprintf(stderr, "flat interface not found\n");
        return 1;
    }
    GxMapProjectionHandle handle = nullptr;
    int status = -1;
    create("UTM-32", &handle, &status);
    const bool ready = handle != nullptr;
    destroy(&handle, &status);

    bool resolved = true;
    long long lookUp = 0;
    if (argc == 3) {
        const auto l0 = std::chrono::steady_clock::now();
        create(argv[2], &handle, &status);
        const auto l1 = std::chrono::steady_clock::now();
        resolved = handle != nullptr;
        destroy(&handle, &status);
        lookUp = std::chrono::duration_cast<std::chrono::nanoseconds>(l1 - l0).count();
    }

    const auto wall = std::chrono::duration_cast<std::chrono::nanoseconds>(t1 - t0).count();
    if (argc == 3)
        std::printf("%lld %lld %lld\n", static_cast<long long>(wall), c1 - c0, lookUp);
    else
        std::printf("%lld %lld\n", static_cast<long long>(wall), c1 - c0);
    return ready && resolved ? 0 : 1;
}
