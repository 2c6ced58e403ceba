// gxcart info: what the library makes of a coordinate system.

#include <cstdio>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "Commands.h"
#include "catalogue/CartSetup.h"
#include "catalogue/EllipsoidList.h"
#include "catalogue/MapProjectionList.h"
#include "datum/DatumShift.h"
#include "definitions/TabledMapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/ProjectionInfo.h"
#include "foundation/Text.h"
#include "mapprojection/CatalogueLookup.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"
#include "wkt/ProjTranslator.h"

namespace {

const char* const kHelp =
    "usage: gxcart info S\n"
    "       gxcart info --paths\n"
    "\n"
    "Describes the coordinate system S (a catalogue name such as UTM-32, an\n"
    "EPSG code such as EPSG:25832, LONG/LAT, NON-UTM, WKT text or the path of\n"
    "a .prj file): its short name, kind, projection type and title, the code\n"
    "of a catalogue system, parameters with their units, ellipsoid, datum\n"
    "shift, origin, default area, units, PROJ.4 text and WKT laid out one\n"
    "element a line.\n"
    "\n"
    "With --paths: the folder the library read its system catalogue files from\n"
    "and the user's folder of custom files, which of their files were found, and\n"
    "how many ellipsoids and coordinate systems the catalogue holds.\n";

// Files the library reads from its data folder at load; without them the
// catalogue holds hardly more than LONG/LAT and NON-UTM.
const char* const kSystemFiles[] = {"ellipsoid.zpf",         "map_projection.zpf",
                                    "state_plane_nad83.zpf", "state_plane_nad27.zpf",
                                    "epsg_common.zpf",       "epsg_other.zpf"};
// Read only when a caller enumerates projections; the catalogue works
// without them. The user's files are all of this kind, or custom entries.
const char* const kOptionalSystemFiles[] = {"OpenGISProjections/", "SystemDefinedProjection.setup"};
const char* const kUserFiles[] = {"custom_ellipsoid.zpf", "custom_projection.zpf",
                                  "OpenGISProjections/", "UserDefinedProjection.setup",
                                  ".MapProjectionBuffer.txt"};

bool Exists(const std::string& folder, const std::string& name) {
    if (folder.empty()) return false;
    std::error_code ec;
    return std::filesystem::exists(folder + name, ec);
}

void Field(const GxIo& io, const char* label, const std::string& value) {
    std::fprintf(io.out, "%-14s%s\n", label, value.c_str());
}

void FileLines(const GxIo& io, const std::string& folder, const char* const* names,
               std::size_t count, const char* missing) {
    for (std::size_t i = 0; i < count; ++i)
        std::fprintf(io.out, "  %-32s%s\n", names[i], Exists(folder, names[i]) ? "found" : missing);
}

int ShowPaths(const GxIo& io) {
    CGxCartSetup& setup = CGxCartSetup::Instance();
    const std::string data = setup.GetDataPath(), user = setup.GetUserPath();
    Field(io, "Data folder:", data.empty() ? "(the library could not find its own folder)" : data);
    FileLines(io, data, kSystemFiles, std::size(kSystemFiles), "MISSING");
    FileLines(io, data, kOptionalSystemFiles, std::size(kOptionalSystemFiles), "not there");
    Field(io,
          "User folder:", user.empty() ? "(none: neither XDG_DATA_HOME nor HOME is set)" : user);
    FileLines(io, user, kUserFiles, std::size(kUserFiles), "not there");
    CGxEllipsoidList& ellipsoids = setup.GetEllipsoidList();
    long nEllipsoids = 0;
    for (auto it = ellipsoids.GetIteratorBegin(CGxEllipsoidList::eAllEllipsoids);
         it != ellipsoids.GetIteratorEnd(CGxEllipsoidList::eAllEllipsoids); ++it)
        ++nEllipsoids;
    CGxMapProjectionList& projections = setup.GetMapProjectionList();
    long nSystems = 0;
    for (auto it = projections.GetIteratorBegin(); it != projections.GetIteratorEnd(); ++it)
        ++nSystems;
    Field(io, "Catalogue:",
          std::to_string(nEllipsoids) + " ellipsoids, " + std::to_string(nSystems) +
              " coordinate systems");
    return kExitOk;
}

std::string Number(double value) {
    return GxFormatNumber(value);
}

const char* Kind(const CGxMapProjection& system) {
    if (system.IsLocal()) return "local plane grid, no georeference";
    if (system.IsGeographical()) return "geographical";
    return "projected";
}

// The shift as a TOWGS84 clause holds it: metres, arc-seconds, parts per
// million.
std::string ShiftText(const CGxDatumShift& shift) {
    const double* p = shift.GetParameters();
    switch (shift.GetType()) {
        case CGxCartDef::eThreeParameterShift:
            return std::string("3 parameters to WGS 84: ") + Number(p[0]) + " " + Number(p[1]) +
                   " " + Number(p[2]) + " m";
        case CGxCartDef::eSevenParameterShift:
            return std::string("7 parameters to WGS 84: ") + Number(p[0]) + " " + Number(p[1]) +
                   " " + Number(p[2]) + " m, " + Number(p[3]) + " " + Number(p[4]) + " " +
                   Number(p[5]) + " arc-seconds, " + Number(p[6]) + " ppm";
        default:
            return "none";
    }
}

std::string UnitText(const CGxMapProjection& system, CGxMapProjection::EMapProjectionInfo which,
                     const char* baseUnit) {
    char name[CGxProjectionInfo::kUnitNameSize] = "";
    double factor = 0.0;
    if (!system.GetUnit(which, &factor, name)) return "";
    return std::string(name) + " (" + Number(factor) + " " + baseUnit + ")";
}

// The register code of the catalogue system a name or code stands for;
// empty for WKT, which names no catalogue system.
std::string CatalogueCode(const std::string& text) {
    const std::string trimmed = GxTrimmed(text);
    if (CGxPRJParser::IsPRJ(trimmed)) return std::string();
    return GxDefinitionCode(GxFindCatalogueSystem(trimmed));
}

}  // namespace

std::vector<std::string> GxMissingSystemCatalogueFiles() {
    const std::string data = CGxCartSetup::Instance().GetDataPath();
    std::vector<std::string> missing;
    for (const char* name : kSystemFiles)
        if (!Exists(data, name)) missing.push_back(name);
    return missing;
}

int GxRunInfo(const GxArgs& args, const GxIo& io) {
    if (args.size() == 1 && GxIsHelp(args[0])) return GxWrite(io.out, kHelp) ? kExitOk : kExitIo;
    if (args.size() == 1 && args[0] == "--paths") return ShowPaths(io);
    if (args.size() != 1) {
        GxError(io, "info takes one coordinate system, or --paths (see gxcart info --help)");
        return kExitUsage;
    }
    std::string text;
    const std::unique_ptr<CGxMapProjection> system = GxOpenSystem(io, args[0], &text);
    if (!system) return kExitUsage;
    CGxProjection* algorithm = system->GetProjection();

    // "LONG/LAT" and "NON-UTM" are no WKT and stand for no projection type.
    const std::string wkt = system->GetProjectionString();
    const bool shortForm = !CGxPRJParser::IsPRJ(wkt);
    CGxPRJParser parser(wkt);
    parser.Parse(false);

    Field(io, "Short name:", CGxMapProjection::ShortName(wkt.c_str()));
    Field(io, "Kind:", Kind(*system));
    Field(io, "Type:",
          shortForm ? std::string("none (a short form, not WKT)")
                    : std::to_string(static_cast<int>(parser.GetProjectionType())) + " " +
                          parser.GetProjectionTypeTitle());
    Field(io, "Algorithm:", system->GetName());
    const std::string code = CatalogueCode(text);
    if (!code.empty()) Field(io, "Code:", code);

    const int parameters = parser.GetNoOfParameters();
    if (parameters > 0) {
        std::fprintf(io.out, "Parameters:\n");
        for (int i = 0; i < parameters; ++i) {
            std::string name, unit;
            double value = 0.0, factor = 1.0;
            if (!parser.GetParameter(i, name, value, unit, factor)) continue;
            std::fprintf(io.out, "  %-28s %s%s%s\n", name.c_str(), Number(value).c_str(),
                         unit.empty() ? "" : " ", unit.c_str());
        }
    }

    std::string ellipsoidName;
    double major = 0.0, invFlattening = 0.0;
    parser.GetEllipsoid(ellipsoidName, major, invFlattening);
    CGxEllipsoid figure;
    if (algorithm->GetAnonymousEllipsoid(figure)) {
        Field(io, "Ellipsoid:",
              (ellipsoidName.empty() ? std::string("(unnamed)") : ellipsoidName) +
                  ", a = " + Number(figure.GetMajor()) + " m, 1/f = " +
                  (figure.GetInvFlatness() > 0 ? Number(figure.GetInvFlatness())
                                               : std::string("0 (sphere)")));
    } else {
        Field(io, "Ellipsoid:", "none");
    }
    CGxDatumShift shift;
    parser.GetDatumShift(shift);
    Field(io, "Datum shift:", ShiftText(shift));

    double lon = 0.0, lat = 0.0;
    system->GetOrigin(&lon, &lat);
    Field(io, "Origin:", "longitude " + Number(lon) + ", latitude " + Number(lat));
    double x0 = 0.0, y0 = 0.0, x1 = 0.0, y1 = 0.0;
    system->GetDefaultArea(&x0, &y0, &x1, &y1);
    // Projected coordinates are metres whatever linear unit the text declares:
    // the library converts every length to metres when it builds the system.
    Field(io, "Default area:",
          GxFixed(x0, 4) + " " + GxFixed(y0, 4) + " to " + GxFixed(x1, 4) + " " + GxFixed(y1, 4) +
              (system->IsGeographical() ? " (degrees)" : " (metres)"));
    const std::string linear = UnitText(*system, CGxMapProjection::eProjectedUnit, "m");
    const std::string angular = UnitText(*system, CGxMapProjection::eAngularUnit, "rad");
    if (!linear.empty()) Field(io, "Linear unit:", linear);
    if (!angular.empty()) Field(io, "Angular unit:", angular);
    Field(io,
          "PROJ.4:", CGxProjTranslator::Convert2Proj4(system->GetProjectionString(), nullptr, 0));

    if (shortForm) return kExitOk;
    std::string readable;
    CGxPRJParser::FormatAsReadableWKT(wkt, readable);
    std::string lines;
    for (char c : readable)
        if (c != '\r') lines += c;
    std::fprintf(io.out, "WKT:\n%s\n", lines.c_str());
    return kExitOk;
}
