// gxcart info: what the library makes of a coordinate system.

#include <cstdio>
#include <memory>
#include <string>

#include "Commands.h"
#include "datum/DatumShift.h"
#include "definitions/TabledMapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/ProjectionInfo.h"
#include "mapprojection/CatalogueLookup.h"
#include "mapprojection/MapProjection.h"
#include "mapprojection/TextTrim.h"
#include "wkt/PRJParser.h"
#include "wkt/ProjTranslator.h"

namespace {

const char* const kHelp =
    "usage: gxcart info S\n"
    "\n"
    "Describes the coordinate system S (a catalogue name such as UTM-32, an\n"
    "EPSG code such as EPSG:25832, LONG/LAT, NON-UTM, WKT text or the path of\n"
    "a .prj file): its short name, kind, projection type and title, the code\n"
    "of a catalogue system, parameters with their units, ellipsoid, datum\n"
    "shift, origin, default area, units, PROJ.4 text and WKT laid out one\n"
    "element a line.\n";

void Field(const char* label, const std::string& value) {
    std::printf("%-14s%s\n", label, value.c_str());
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

int GxRunInfo(const GxArgs& args) {
    if (args.size() == 1 && GxIsHelp(args[0])) {
        std::fputs(kHelp, stdout);
        return kExitOk;
    }
    if (args.size() != 1) {
        GxError("info takes one coordinate system (see gxcart info --help)");
        return kExitUsage;
    }
    const std::unique_ptr<CGxMapProjection> system = GxOpenSystem(args[0]);
    if (!system) return kExitUsage;
    CGxProjection* algorithm = system->GetProjection();

    // "LONG/LAT" and "NON-UTM" are no WKT and stand for no projection type.
    const std::string wkt = system->GetProjectionString();
    const bool shortForm = !CGxPRJParser::IsPRJ(wkt);
    CGxPRJParser parser(wkt);
    parser.Parse(false);

    Field("Short name:", CGxMapProjection::ShortName(wkt.c_str()));
    Field("Kind:", Kind(*system));
    Field("Type:", shortForm ? std::string("none (a short form, not WKT)")
                             : std::to_string(static_cast<int>(parser.GetProjectionType())) + " " +
                                   parser.GetProjectionTypeTitle());
    Field("Algorithm:", system->GetName());
    const std::string code = CatalogueCode(GxSystemText(args[0]));
    if (!code.empty()) Field("Code:", code);

    const int parameters = parser.GetNoOfParameters();
    if (parameters > 0) {
        std::printf("Parameters:\n");
        for (int i = 0; i < parameters; ++i) {
            std::string name, unit;
            double value = 0.0, factor = 1.0;
            if (!parser.GetParameter(i, name, value, unit, factor)) continue;
            std::printf("  %-28s %s%s%s\n", name.c_str(), Number(value).c_str(),
                        unit.empty() ? "" : " ", unit.c_str());
        }
    }

    std::string ellipsoidName;
    double major = 0.0, invFlattening = 0.0;
    parser.GetEllipsoid(ellipsoidName, major, invFlattening);
    CGxEllipsoid figure;
    if (algorithm->GetAnonymousEllipsoid(figure)) {
        Field("Ellipsoid:", (ellipsoidName.empty() ? std::string("(unnamed)") : ellipsoidName) +
                                ", a = " + Number(figure.GetMajor()) + " m, 1/f = " +
                                (figure.GetInvFlatness() > 0 ? Number(figure.GetInvFlatness())
                                                             : std::string("0 (sphere)")));
    } else {
        Field("Ellipsoid:", "none");
    }
    CGxDatumShift shift;
    parser.GetDatumShift(shift);
    Field("Datum shift:", ShiftText(shift));

    double lon = 0.0, lat = 0.0;
    system->GetOrigin(&lon, &lat);
    Field("Origin:", "longitude " + Number(lon) + ", latitude " + Number(lat));
    double x0 = 0.0, y0 = 0.0, x1 = 0.0, y1 = 0.0;
    system->GetDefaultArea(&x0, &y0, &x1, &y1);
    // Projected coordinates are metres whatever linear unit the text declares:
    // the library converts every length to metres when it builds the system.
    Field("Default area:", GxFixed(x0, 4) + " " + GxFixed(y0, 4) + " to " + GxFixed(x1, 4) + " " +
                               GxFixed(y1, 4) +
                               (system->IsGeographical() ? " (degrees)" : " (metres)"));
    const std::string linear = UnitText(*system, CGxMapProjection::eProjectedUnit, "m");
    const std::string angular = UnitText(*system, CGxMapProjection::eAngularUnit, "rad");
    if (!linear.empty()) Field("Linear unit:", linear);
    if (!angular.empty()) Field("Angular unit:", angular);
    Field("PROJ.4:", CGxProjTranslator::Convert2Proj4(system->GetProjectionString(), nullptr, 0));

    if (shortForm) return kExitOk;
    std::string readable;
    CGxPRJParser::FormatAsReadableWKT(wkt, readable);
    std::string lines;
    for (char c : readable)
        if (c != '\r') lines += c;
    std::printf("WKT:\n%s\n", lines.c_str());
    return kExitOk;
}
