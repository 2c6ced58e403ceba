// gxcart distance: the geodesic between two points.

#include <cmath>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "mapprojection/MapProjection.h"

namespace {

const char* const kHelp =
    "usage: gxcart distance [--system S] LON1 LAT1 LON2 LAT2\n"
    "\n"
    "The ellipsoidal distance in metres between two points given in decimal\n"
    "degrees, and the forward azimuths at both ends in degrees clockwise from\n"
    "north, on the ellipsoid of the coordinate system S (default LONG/LAT,\n"
    "which measures on WGS 84).\n";

}  // namespace

int GxRunDistance(const GxArgs& args) {
    std::string systemName = "LONG/LAT";
    std::vector<double> values;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (GxIsHelp(args[i])) {
            std::fputs(kHelp, stdout);
            return kExitOk;
        }
        if (args[i] == "--system") {
            if (!GxOptionValue(args, i, &systemName)) return kExitUsage;
            continue;
        }
        double v = 0.0;
        if (!GxReadNumber(args[i], &v)) {
            GxError("distance: not a number: " + args[i]);
            return kExitUsage;
        }
        values.push_back(v);
    }
    if (values.size() != 4) {
        GxError("distance takes LON1 LAT1 LON2 LAT2 (see gxcart distance --help)");
        return kExitUsage;
    }
    if (values[1] < -90 || values[1] > 90 || values[3] < -90 || values[3] > 90) {
        GxError("distance: latitudes lie between -90 and 90");
        return kExitUsage;
    }
    const std::unique_ptr<CGxMapProjection> system = GxOpenSystem(systemName);
    if (!system) return kExitUsage;

    double distance = 0.0, azimuth1 = 0.0, azimuth2 = 0.0;
    bool measured = false;
    try {
        measured = system->GetDistance(values[0], values[1], values[2], values[3], distance,
                                       azimuth1, azimuth2);
    } catch (const std::exception&) {
        GxError("distance: no geodesic found");
        return kExitPartial;
    }
    if (!measured) {
        GxError("distance: " + systemName + " has no ellipsoid to measure on");
        return kExitPartial;
    }
    std::printf("distance  %s m\nazimuth1  %s\nazimuth2  %s\n", GxFixed(distance, 4).c_str(),
                GxFixed(azimuth1, 9).c_str(), GxFixed(azimuth2, 9).c_str());
    return kExitOk;
}
