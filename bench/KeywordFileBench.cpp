// The keyword-file library on the catalogue files that every start-up reads,
// inside one process: loading (reading and parsing) a file, and the look-ups
// a catalogue makes of each of its sections (every keyword a definition may
// have, most of the optional ones absent). The start-up benchmark times the
// whole load of the library; these time the part the keyword files take, as
// instructions not spread over a fresh process.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "zpf/zpf.h"

namespace {

// The catalogue files read at start-up, beside the built library.
const std::vector<std::string>& StartupFiles() {
    static const std::vector<std::string> files = [] {
        const std::filesystem::path folder =
            std::filesystem::path(GXCART_LIBRARY_FILE).parent_path();
        std::vector<std::string> paths;
        for (const char* name : {"ellipsoid.zpf", "map_projection.zpf", "state_plane_nad83.zpf",
                                 "state_plane_nad27.zpf", "epsg_common.zpf"})
            paths.push_back((folder / name).string());
        return paths;
    }();
    return files;
}

void BM_KeywordFilesLoadAndClose(benchmark::State& state) {
    std::size_t sections = 0;
    for (auto _ : state) {
        for (const std::string& path : StartupFiles()) {
            void* file = zpfLoadFile(path.c_str());
            if (!file) {
                state.SkipWithError(("cannot load " + path).c_str());
                return;
            }
            sections += static_cast<std::size_t>(zpfGetNoSections(zpfTargetByNum(file, 1)));
            zpfClose(file);
        }
    }
    state.counters["sections"] =
        benchmark::Counter(static_cast<double>(sections), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_KeywordFilesLoadAndClose)->Unit(benchmark::kMicrosecond);

// What a projection definition asks of its section: the shape check of its
// keywords, then each text, each parameter in its alternative form first
// (usually absent) and its decimal keyword.
void BM_KeywordLookUpsOfTheProjectionCatalogue(benchmark::State& state) {
    void* file = zpfLoadFile(StartupFiles()[1].c_str());
    void* block = file ? zpfTargetByNum(file, 1) : nullptr;
    const int count = block ? zpfGetNoSections(block) : 0;
    if (count == 0) {
        state.SkipWithError("cannot load the projection catalogue");
        zpfClose(file);
        return;
    }
    const char* texts[] = {"Projection_Name", "Branch_Name", "Ellipsoid", "Code"};
    const char* decimals[] = {"Centre", "Origin_Latitude", "Parallel_1", "Parallel_2",
                              "Scale",  "Feast",           "Fnorth"};
    const char* alternatives[] = {"Centre_dms",     "Origin_Latitude_dms", "Parallel_1_dms",
                                  "Parallel_2_dms", "Scale_Reduction",     "Feast_usft",
                                  "Fnorth_usft"};
    std::vector<ZpfParamShape> shapes;
    for (const char* t : texts) shapes.push_back({t, 1, 1, 0});
    for (int i = 0; i < 7; ++i) {
        shapes.push_back({decimals[i], 1, 1, 1});
        shapes.push_back({alternatives[i], 1, 3, 1});
    }
    std::string text;
    double sum = 0.0;
    for (auto _ : state) {
        for (int s = 1; s <= count; ++s) {
            void* section = zpfSectionByNum(block, s);
            std::string problem;
            zpfCheckParams(section, shapes.data(), static_cast<int>(shapes.size()), &problem);
            for (const char* t : texts) zpfGetParam(section, t, 1, 1, &text);
            for (int i = 0; i < 7; ++i) {
                double value = 0.0;
                if (!zpfGetParam(section, alternatives[i], 1, 1, &value))
                    zpfGetParam(section, decimals[i], 1, 1, &value);
                sum += value;
            }
            zpfGetErrorGlb();
        }
    }
    benchmark::DoNotOptimize(sum);
    state.counters["sections"] = count;
    zpfClose(file);
}
BENCHMARK(BM_KeywordLookUpsOfTheProjectionCatalogue)->Unit(benchmark::kMicrosecond);

}  // namespace
