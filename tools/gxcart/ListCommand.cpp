// gxcart list: the catalogue's coordinate systems by branch, or its
// ellipsoids.

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "Commands.h"
#include "catalogue/CartSetup.h"
#include "catalogue/EllipsoidList.h"
#include "catalogue/MapProjectionList.h"
#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "mapprojection/MapProjection.h"

namespace {

const char* const kHelp =
    "usage: gxcart list [projected | geographical | all | ellipsoids]\n"
    "\n"
    "Lists the coordinate systems of the catalogue under their branches:\n"
    "projected systems, geographical systems, or all of them (the default,\n"
    "which adds LONG/LAT and NON-UTM), each followed by its code in brackets\n"
    "when it has one ([EPSG:25832]). Thousands more EPSG systems, read only\n"
    "when needed, are found by code but not listed. 'ellipsoids' lists the\n"
    "catalogue's ellipsoids with identifier, semi-major axis and inverse\n"
    "flattening.\n";

int ListSystems(const GxIo& io, int mask) {
    CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    // Branches in the order the catalogue first names them; systems in
    // catalogue order within each.
    std::vector<std::string> order;
    std::map<std::string, std::vector<std::string>> branches;
    for (auto it = catalogue.GetIteratorBegin(); it != catalogue.GetIteratorEnd(); ++it) {
        const CGxMapProjData* definition = *it;
        const std::string name = definition->GetName();
        if (!CGxMapProjection::IsType(mask, name.c_str())) continue;
        std::string branch = definition->GetBranchName();
        if (branch.empty()) branch = "(no branch)";
        auto found = branches.find(branch);
        if (found == branches.end()) {
            order.push_back(branch);
            found = branches.emplace(branch, std::vector<std::string>()).first;
        }
        const std::string& code = GxDefinitionCode(definition);
        found->second.push_back(code.empty() ? name : name + " [" + code + "]");
    }
    for (const std::string& branch : order) {
        std::fprintf(io.out, "%s\n", branch.c_str());
        for (const std::string& name : branches[branch])
            std::fprintf(io.out, "  %s\n", name.c_str());
    }
    return kExitOk;
}

int ListEllipsoids(const GxIo& io) {
    CGxEllipsoidList& catalogue = CGxCartSetup::Instance().GetEllipsoidList();
    for (auto it = catalogue.GetIteratorBegin(CGxEllipsoidList::eAllEllipsoids);
         it != catalogue.GetIteratorEnd(CGxEllipsoidList::eAllEllipsoids); ++it) {
        const CGxEllipsoid* e = *it;
        std::fprintf(io.out, "%-8s %-40s a = %s m, 1/f = %s\n", e->GetID().c_str(),
                     e->GetName().c_str(), GxFormatNumber(e->GetMajor()).c_str(),
                     GxFormatNumber(e->GetInvFlatness()).c_str());
    }
    return kExitOk;
}

}  // namespace

int GxRunList(const GxArgs& args, const GxIo& io) {
    const std::string what = args.empty() ? "all" : args[0];
    if (GxIsHelp(what)) return GxWrite(io.out, kHelp) ? kExitOk : kExitIo;
    if (args.size() > 1) {
        GxError(io, "list takes at most one word (see gxcart list --help)");
        return kExitUsage;
    }
    if (what == "projected") return ListSystems(io, CGxMapProjection::eProjectedSystems);
    if (what == "geographical") return ListSystems(io, CGxMapProjection::eGeographicSystems);
    if (what == "all") return ListSystems(io, CGxMapProjection::eAllSystems);
    if (what == "ellipsoids") return ListEllipsoids(io);
    GxError(io, "list: unknown word " + GxPrintable(what) +
                    " (projected, geographical, all or ellipsoids)");
    return kExitUsage;
}
