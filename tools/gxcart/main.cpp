// gxcart: the library's coordinate conversions and catalogue from the shell.

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "Commands.h"

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
    "A coordinate system S is a catalogue name (UTM-32), an EPSG code\n"
    "(EPSG:25832), LONG/LAT, NON-UTM, a WKT text or the path of a .prj file.\n"
    "'gxcart COMMAND --help' tells more.\n";

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
        try {
            return command.run(args);
        } catch (const std::exception& e) {
            GxError(std::string(command.name) + ": " + e.what());
            return kExitPartial;
        }
    }
    GxError("unknown command " + name + " (see gxcart --help)");
    return kExitUsage;
}
