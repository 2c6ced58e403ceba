#pragma once

#include "foundation/GxExport.h"

class CGxEllipsoid;

// Geodesics on an ellipsoid of revolution by Vincenty's formulae (T. Vincenty,
// "Direct and inverse solutions of geodesics on the ellipsoid with application
// of nested equations", Survey Review 23(176), 1975): the inverse problem
// (distance and azimuths between two points) and the direct problem (the point
// reached along an azimuth over a distance).
//
// Angles are decimal degrees, longitude before latitude; distances are metres;
// azimuths are clockwise from north. The inverse solves Vincenty's equation for
// the longitude difference on the auxiliary sphere with a Newton-Raphson root
// search wherever that equation determines the geodesic well; near the
// antipode of the first point, and wherever the search does not end on a root
// (as between equatorial points more than (1 - f) 180 degrees apart, whose
// geodesic leaves the equator), the problem is solved for the azimuth instead
// (datum/VincentyAzimuthInverse.h). The direct problem follows Vincenty for the
// arc and takes the longitude from the series of the longitude integral.
class GXCART_API CGxVincenty {
public:
    explicit CGxVincenty(const CGxEllipsoid& ellipsoid);
    CGxVincenty(const CGxVincenty& other) = default;
    CGxVincenty& operator=(const CGxVincenty& other) = default;
    virtual ~CGxVincenty();

    // Inverse problem. azimuth1 is the forward azimuth at the first point and
    // azimuth2 the forward azimuth at the second point (the direction in which
    // the geodesic continues beyond it, not the bearing back to the first
    // point), both in (-180, 180]. Distances agree with the exact geodesic to
    // 0.1 mm and azimuths to 1e-8 degrees on terrestrial figures, for every
    // pair of points.
    //
    // The longitude difference is taken the shorter way round (a difference
    // beyond +-180 degrees is reduced). Two names of the same point give
    // distance 0 and NaN azimuths (there is no direction); a latitude beyond
    // +-90 degrees or a non-finite number gives NaN everywhere. Of two equally
    // short geodesics (antipodal points, equatorial points more than
    // (1 - f) 180 degrees apart) the one GeographicLib reports is given.
    void GetDistance(double lon1, double lat1, double lon2, double lat2, double& distance,
                     double& azimuth1, double& azimuth2) const;

    // Direct problem: from (lon1, lat1) along azimuth1 over distance metres to
    // (lon2, lat2), with azimuth2 the forward azimuth there. lon2 is lon1 plus
    // the longitude difference travelled, not reduced to +-180. The end point
    // is within 0.1 mm of the exact one for lines up to once round the Earth;
    // a start latitude beyond +-90 degrees gives NaN.
    void GetPoint(double lon1, double lat1, double azimuth1, double distance, double& lon2,
                  double& lat2, double& azimuth2) const;

protected:
    // Vincenty's series in u^2 = cos^2(alpha) e'^2 for the length scale A and
    // the coefficient B of the arc correction, fourth order.
    static double PolyA(double u2);
    static double PolyB(double u2);

private:
    double a;    // semi-major axis, metres
    double b;    // semi-minor axis, metres
    double f;    // flattening
    double ep2;  // second eccentricity squared, (a^2 - b^2) / b^2
};
