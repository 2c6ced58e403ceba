// Prints, bit for bit, what the library makes of every coordinate system it
// knows: the catalogue, the deferred EPSG systems reached by code, and any
// .prj texts named on the command line. For each system: its normalised
// projection string, PROJ.4 text, origin, default area, and the forward,
// inverse, convergence, geocentric and geodesic results on a grid of points
// over the default area. Numbers are written as hexadecimal floats, so two
// dumps differ exactly when a result moved by a single bit.
//
//   golden_dump [--codes] [file.prj ...] > dump.txt
//
// A refactoring that must not change results runs it before and after and
// compares the two files with diff.

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionList.h"
#include "datum/DatumConverter.h"
#include "definitions/MapProjData.h"
#include "mapprojection/Cartography.h"
#include "mapprojection/MapProjection.h"
#include "wkt/ProjTranslator.h"

namespace {

void Numbers(const char* label, const std::vector<double>& values) {
    std::printf("  %s", label);
    for (double v : values) std::printf(" %a", v);
    std::printf("\n");
}

void Dump(const std::string& label, const std::string& text) {
    std::printf("== %s\n", label.c_str());
    CGxMapProjection system(text);
    std::printf("  string %s\n", system.GetProjectionString());
    std::printf("  name %s\n", system.GetName());
    std::printf("  proj4 %s\n", CGxProjTranslator::Convert2Proj4(text, nullptr, 0).c_str());
    double lon0 = 0, lat0 = 0;
    system.GetOrigin(&lon0, &lat0);
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    system.GetDefaultArea(&x0, &y0, &x1, &y1);
    Numbers("origin/area", {lon0, lat0, x0, y0, x1, y1});
    constexpr int kSteps = 4;
    for (int i = 0; i <= kSteps; ++i) {
        for (int j = 0; j <= kSteps; ++j) {
            const double x = x0 + (x1 - x0) * i / kSteps;
            const double y = y0 + (y1 - y0) * j / kSteps;
            double lon = 0, lat = 0, xb = 0, yb = 0;
            system.Proj2Geo(x, y, &lon, &lat);
            system.Geo2Proj(lon, lat, &xb, &yb);
            const double gamma = system.GetConvergence(lon, lat);
            double X = 0, Y = 0, Z = 0, lonB = 0, latB = 0, hB = 0;
            system.Geo2XYZ(lon, lat, 100.0, &X, &Y, &Z);
            system.XYZ2Geo(X, Y, Z, &lonB, &latB, &hB);
            double s = 0, a1 = 0, a2 = 0, lon2 = 0, lat2 = 0, a3 = 0;
            const bool d = system.GetDistance(lon0, lat0, lon, lat, s, a1, a2);
            const bool p = system.GetPoint(lon, lat, 30.0, 1e5, lon2, lat2, a3);
            Numbers("p", {x, y, lon, lat, xb, yb, gamma, X, Y, Z, lonB, latB, hB, d ? s : -1, a1,
                          a2, p ? lon2 : -1, lat2, a3});
        }
    }
    CGxCartography grid(text.c_str(), lon0, lat0, 30.0);
    double X = 0, Y = 0, lon = 0, lat = 0;
    grid.Geo2Xy(lon0 + 0.1, lat0 + 0.1, &X, &Y);
    grid.Xy2Geo(X, Y, &lon, &lat);
    Numbers("local", {X, Y, lon, lat});
}

}  // namespace

int main(int argc, char** argv) {
    bool codes = false;
    std::vector<std::string> files;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--codes")
            codes = true;
        else
            files.push_back(arg);
    }
    CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    std::vector<std::string> names;
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it)
        names.push_back((*it)->GetName());
    for (const std::string& name : names) Dump(name, name);
    if (codes) {
        for (int code = 2000; code < 33000; ++code) {
            const std::string text = "EPSG:" + std::to_string(code);
            if (CGxMapProjection::IsValid(text.c_str())) Dump(text, text);
        }
    }
    for (const std::string& path : files) {
        std::ifstream in(path, std::ios::binary);
        std::stringstream content;
        content << in.rdbuf();
        Dump(path, content.str());
    }
    // Two datum conversions through WGS 84 geocentric coordinates.
    const char* wgs84 = CGxMapProjection::IDtoProjectionString(CGxMapProjection::eWgs84);
    CGxDatumConverter converter("UTM-32", wgs84);
    converter.SetConversionType(CGxDatumConverter::eProjToGeo);
    double shift[7] = {-87.0, -98.0, -121.0, 0.1, 0.2, 0.3, 1.5};
    converter.SetDatumShift(CGxCartDef::eSevenParameterShift, shift, true);
    double x = 500000.0, y = 5344208.0, h = 50.0;
    converter.Convert(x, y, h);
    Numbers("datum", {x, y, h});
    return 0;
}
