// Keyword files: the reader on the input bytes, a walk over everything read,
// the write-and-read-back property, and the two catalogue readers that turn a
// file into ellipsoids and projection definitions (and write them back).

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "FuzzSupport.h"
#include "catalogue/EllipsoidList.h"
#include "catalogue/MapProjectionList.h"
#include "definitions/MapProjData.h"
#include "wkt/PRJParser.h"
#include "zpf/ZpfTree.h"
#include "zpf/zpf.h"

namespace {

std::string ScratchPath(const char* stem) {
    return (std::filesystem::temp_directory_path() /
            (std::string("gxcart-fuzz-") + std::to_string(::getpid()) + stem))
        .string();
}

void WalkTree(void* file) {
    const int targets = zpfGetNoTargets(file);
    for (int t = 1; t <= targets; ++t) {
        void* target = zpfTargetByNum(file, t);
        const std::string targetName = zpfGetName(target);
        const int sections = zpfGetNoSections(target);
        for (int s = 1; s <= sections; ++s) {
            void* section = zpfSectionByNum(target, s);
            const std::string sectionName = zpfGetName(section);
            zpfGetNoInstances(target, sectionName.c_str());
            const int keywords = zpfGetNoKeywords(section);
            for (int k = 1; k <= keywords; ++k) {
                void* keyword = zpfKeywordByNum(section, k);
                const std::string keywordName = zpfGetName(keyword);
                const int values = zpfGetNoParams(keyword);
                for (int v = 0; v <= values + 1; ++v) {
                    void* value = zpfParamByNum(keyword, v);
                    int i;
                    double d;
                    std::string str;
                    zpfGetInt(value, &i);
                    zpfGetDouble(value, &d);
                    zpfGetString(value, &str);
                    zpfIsText(value);
                    zpfGetParam(section, keywordName.c_str(), 1, v, &d);
                    zpfGetParam(section, keywordName.c_str(), 2, v, &str);
                }
            }
        }
    }
    zpfGetErrorGlb();
}

void ReadCatalogues(const std::string& path) {
    CGxEllipsoidList ellipsoids;
    ellipsoids.ReadEllipsoids(path, true);

    CGxMapProjectionList list;
    list.ReadMapProjections(path, true);
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it) {
        CGxMapProjData* definition = *it;
        gxfuzz::ProjectionPtr projection(definition->CreateProjection());
        if (projection) gxfuzz::ExerciseAlgorithm(*projection);
        CGxPRJParser parser(definition);
        std::string wkt;
        parser.Format(wkt);
    }
    list.WriteCustomMapProjections(ScratchPath("-out.zpf"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = gxfuzz::Text(data, size);

    gxzpf::File tree;
    std::string message;
    const bool complete = gxzpf::Parse(text, tree, message);
    // What cannot be read is skipped but kept: an unchanged file is written
    // back byte for byte, damaged or not.
    if (gxzpf::Format(tree) != text) {
        std::fprintf(stderr, "keyword file is not written back as read\n");
        std::abort();
    }
    WalkTree(&tree);
    if (complete) {
        // What is written reads back to the same content.
        const std::string written = gxzpf::Format(tree);
        gxzpf::File again;
        if (!gxzpf::Parse(written, again, message) || gxzpf::Format(again) != written) {
            std::fprintf(stderr, "keyword file does not survive writing: %s\n", message.c_str());
            std::abort();
        }
    }

    const std::string path = ScratchPath(".zpf");
    static const bool cleanUpAtExit = std::atexit([] {
                                          std::remove(ScratchPath(".zpf").c_str());
                                          std::remove(ScratchPath("-out.zpf").c_str());
                                      }) == 0;
    (void)cleanUpAtExit;
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    ReadCatalogues(path);
    return 0;
}
