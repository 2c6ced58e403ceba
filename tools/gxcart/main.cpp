// gxcart: the library's coordinate conversions and catalogue from the shell.

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "Commands.h"
#include "catalogue/CartSetup.h"

namespace {

const char* const kHelp =
    "usage: gxcart COMMAND [ARGUMENTS]\n"
    "\n"
    "Commands:\n"
    "  convert --from S --to T [FILE]  convert points between coordinate systems\n"
    "  info S                          describe a coordinate system\n"
    "  list [projected|geographical|all|ellipsoids]\n"
    "                                  the catalogue's systems by branch, or ellipsoids\n"
    "  distance LON1 LAT1 LON2 LAT2    geodesic distance and azimuths\n"
    "  graticule S [-o FILE.svg]       SVG of meridians and parallels\n"
    "\n"
    "A coordinate system S is a catalogue name (UTM-32), LONG/LAT, NON-UTM, a\n"
    "WKT text or the path of a .prj file. 'gxcart COMMAND --help' tells more.\n";

// What the library has to say about the user's catalogue files (a section
// it skipped, a damaged file it kept aside, a file it could not write) goes
// to standard error, one "gxcart: " line each.
void PrintCatalogueReport() {
    const std::string report = CGxCartSetup::GetReport();
    std::size_t begin = 0;
    while (begin < report.size()) {
        const std::size_t end = report.find('\n', begin);
        GxError(report.substr(begin, end - begin));
        begin = end == std::string::npos ? report.size() : end + 1;
    }
}

struct Command {
    const char* name;
    int (*run)(const GxArgs&);
};

const Command kCommands[] = {
    {"convert", GxRunConvert},   {"info", GxRunInfo},           {"list", GxRunList},
    {"distance", GxRunDistance}, {"graticule", GxRunGraticule},
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs(kHelp, stderr);
        return kExitUsage;
    }
    const std::string name = argv[1];
    if (GxIsHelp(name) || name == "help") {
        std::fputs(kHelp, stdout);
        return kExitOk;
    }
    const GxArgs args(argv + 2, argv + argc);
    for (const Command& command : kCommands) {
        if (name != command.name) continue;
        PrintCatalogueReport();
        int status = kExitPartial;
        try {
            status = command.run(args);
        } catch (const std::exception& e) {
            GxError(std::string(command.name) + ": " + e.what());
        }
        // Saved here rather than at unload, so that a failure can be told.
        if (!CGxCartSetup::Instance().WriteModified() && status == kExitOk) status = kExitPartial;
        PrintCatalogueReport();
        return status;
    }
    GxError("unknown command " + name + " (see gxcart --help)");
    return kExitUsage;
}
