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

int GxRunDistance(const GxArgs& args, const GxIo& io) {
    std::string systemName = "LONG/LAT";
    std::vector<double> values;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (GxIsHelp(args[i])) return GxWrite(io.out, kHelp) ? kExitOk : kExitIo;
        if (args[i] == "--system") {
            if (!GxOptionValue(io, args, i, &systemName)) return kExitUsage;
            continue;
        }
        double v = 0.0;
        if (!GxReadNumber(args[i], &v)) {
            GxError(io, "distance: not a number: " + GxPrintable(args[i]));
            return kExitUsage;
        }
        values.push_back(v);
    }
    if (values.size() != 4) {
        GxError(io, "distance takes LON1 LAT1 LON2 LAT2 (see gxcart distance --help)");
        return kExitUsage;
    }
    if (values[1] < -90 || values[1] > 90 || values[3] < -90 || values[3] > 90) {
        GxError(io, "distance: latitudes lie between -90 and 90");
        return kExitUsage;
    }
    const std::unique_ptr<CGxMapProjection> system = GxOpenSystem(io, systemName);
    if (!system) return kExitUsage;

    double distance = 0.0, azimuth1 = 0.0, azimuth2 = 0.0;
    bool measured = false;
    try {
        measured = system->GetDistance(values[0], values[1], values[2], values[3], distance,
                                       azimuth1, azimuth2);
    } catch (const std::exception&) {
        GxError(io, "distance: no geodesic found");
        return kExitPartial;
    }
    if (!measured) {
        GxError(io, "distance: " + GxPrintable(systemName) + " has no ellipsoid to measure on");
        return kExitPartial;
    }
    std::fprintf(io.out, "distance  %s m\nazimuth1  %s\nazimuth2  %s\n",
                 GxFixed(distance, 4).c_str(), GxFixed(azimuth1, 9).c_str(),
                 GxFixed(azimuth2, 9).c_str());
    return kExitOk;
}
