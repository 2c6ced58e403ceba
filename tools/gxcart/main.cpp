// gxcart: the library's coordinate conversions and catalogue from the shell.

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "Commands.h"
#include "catalogue/CartSetup.h"

namespace {

const char* const kHelp =
    "usage: gxcart COMMAND [ARGUMENTS]\n"
    "       gxcart --version\n"
    "\n"
    "Commands:\n"
    "  convert --from S --to T [FILE]  convert points between coordinate systems\n"
    "  info S                          describe a coordinate system\n"
    "  info --paths                    where the catalogue files were looked for\n"
    "  list [projected|geographical|all|ellipsoids]\n"
    "                                  the catalogue's systems by branch, or ellipsoids\n"
    "  distance LON1 LAT1 LON2 LAT2    geodesic distance and azimuths\n"
    "  graticule S [-o FILE.svg]       SVG of meridians and parallels\n"
    "\n"
    "A coordinate system S is a catalogue name (UTM-32), an EPSG code\n"
    "(EPSG:25832), LONG/LAT, NON-UTM, a WKT text or the path of a .prj file.\n"
    "'gxcart COMMAND --help' tells more.\n"
    "\n"
    "Exit status: 0 done, 1 some input could not be converted, 2 a wrong command\n"
    "line, 3 reading or writing failed.\n";

// What the library has to say about the user's catalogue files (a section
// it skipped, a damaged file it kept aside, a file it could not write) goes
// to standard error, one "gxcart: " line each.
void PrintCatalogueReport(const GxIo& io) {
    const std::string report = CGxCartSetup::GetReport();
    std::size_t begin = 0;
    while (begin < report.size()) {
        const std::size_t end = report.find('\n', begin);
        GxError(io, GxPrintable(report.substr(begin, end - begin), report.size()));
        begin = end == std::string::npos ? report.size() : end + 1;
    }
}

struct Command {
    const char* name;
    int (*run)(const GxArgs&, const GxIo&);
};

const Command kCommands[] = {
    {"convert", GxRunConvert},   {"info", GxRunInfo},           {"list", GxRunList},
    {"distance", GxRunDistance}, {"graticule", GxRunGraticule},
};

// A library copied without its catalogue files knows little more than
// LONG/LAT and NON-UTM: every catalogue name then looks unknown. Say why
// before the first such message.
void WarnAboutMissingCatalogue(const GxIo& io) {
    const std::vector<std::string> missing = GxMissingSystemCatalogueFiles();
    if (missing.empty()) return;
    std::string names;
    for (const std::string& name : missing) names += (names.empty() ? "" : ", ") + name;
    GxWarning(io, "the library's system catalogue files are missing (" + names +
                      "): catalogue names such as UTM-32 are unknown or incomplete. Install "
                      "them beside libgxcart.so or in ../share/gxcart/ next to it; "
                      "'gxcart info --paths' shows where the library looked.");
}

// Everything written must have arrived: a full disk shows only when the
// buffered rest is flushed or the stream closed.
int FinishOutput(const GxIo& io, int status) {
    const bool failed = std::fflush(io.out) != 0 || std::ferror(io.out);
    int error = errno;
    const bool closeFailed = std::fclose(io.out) != 0;
    if (!failed && closeFailed) error = errno;
    if ((failed || closeFailed) && status != kExitIo) {
        GxError(io, "cannot write standard output: " + GxErrnoText(error));
        return kExitIo;
    }
    return failed || closeFailed ? kExitIo : status;
}

int Run(int argc, char** argv, const GxIo& io) {
    if (argc < 2) {
        GxWrite(io.err, kHelp);
        return kExitUsage;
    }
    const std::string name = argv[1];
    if (GxIsHelp(name) || name == "help") return GxWrite(io.out, kHelp) ? kExitOk : kExitIo;
    if (name == "--version") {
        GxWrite(io.out, "gxcart " GXCART_VERSION_TEXT "\n");
        return kExitOk;
    }
    const GxArgs args(argv + 2, argv + argc);
    for (const Command& command : kCommands) {
        if (name != command.name) continue;
        const bool asksForHelp = !args.empty() && GxIsHelp(args[0]);
        if (!asksForHelp) WarnAboutMissingCatalogue(io);
        PrintCatalogueReport(io);
        int status = kExitPartial;
        try {
            status = command.run(args, io);
        } catch (const std::exception& e) {
            GxError(io, std::string(command.name) + ": " + e.what());
        }
        // Saved here rather than at unload, so that a failure can be told.
        if (!CGxCartSetup::Instance().WriteModified() && status == kExitOk) status = kExitPartial;
        PrintCatalogueReport(io);
        return status;
    }
    GxError(io, "unknown command " + GxPrintable(name) + " (see gxcart --help)");
    return kExitUsage;
}

}  // namespace

int main(int argc, char** argv) {
    const GxIo io = GxStandardIo();
    return FinishOutput(io, Run(argc, argv, io));
}
