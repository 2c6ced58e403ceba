#pragma once

#include "foundation/Projection.h"

class CGxPRJParser;

// An affine grid tied to geography by three reference points: P1 carries a
// known longitude and latitude, the direction P1 -> P2 measures longitude and
// the direction P1 -> P3 measures latitude, each at a constant rate in degrees
// per grid unit. It converts from grid to geography only.
class GXCART_API CGxIsoMetric : public CGxProjection {
public:
    // (x1, y1), (x2, y2), (x3, y3): the three grid points; lon1, lat1: the
    // geographic position of P1; lon2: the longitude at P2; lat3: the latitude
    // at P3 (degrees). Coinciding points leave the rates undefined and every
    // inverse NaN.
    CGxIsoMetric(double x1, double y1, double x2, double y2, double x3, double y3, double lon1,
                 double lat1, double lon2, double lat3);

    // "Isometric".
    const char* GetName() const override;
    // Not defined for this grid: x and y are left as the caller set them.
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    CGxProjection* Clone() const override;
    // Writes nothing: the grid is not a coordinate system the WKT writer knows.
    void TransferParameters(CGxPRJParser& parser) const override;

private:
    double originX, originY;      // P1, grid units
    double originLon, originLat;  // at P1, degrees
    double u1x, u1y;              // unit vector P1 -> P2
    double u2x, u2y;              // unit vector P1 -> P3
    double lonPerLength;          // degrees of longitude per grid unit along u1
    double latPerLength;          // degrees of latitude per grid unit along u2
};
