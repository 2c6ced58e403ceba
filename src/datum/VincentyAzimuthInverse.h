#pragma once

// The inverse geodesic problem solved for the azimuth at the first point
// instead of the longitude on the auxiliary sphere. Vincenty's iteration on
// that longitude is ill-conditioned when the points are nearly antipodal (the
// longitude hardly depends on the azimuth there) and cannot represent the
// geodesics that leave the equator between two equatorial points more than
// (1 - f) pi apart. Taking the azimuth as the unknown removes both
// limitations: the longitude reached at the second point's latitude grows
// monotonically with the azimuth, so a Newton iteration kept inside a shrinking
// bracket always converges (C. F. F. Karney, "Algorithms for geodesics",
// J. Geod. 87 (2013), sections 4-5).

struct GxGeodesicLine {
    double distance;  // metres
    double azimuth1;  // degrees in (-180, 180]
    double azimuth2;  // degrees in (-180, 180], forward azimuth at the second point
};

// The shortest geodesic on the ellipsoid with semi-major axis a and flattening
// f (0 <= f < 1) from latitude lat1 to latitude lat2 (degrees, within +-90)
// with the longitude difference lam12 (degrees, within +-180). False when the
// iteration did not converge (not seen on any input; the caller must not use
// the line then).
bool GxInverseByAzimuth(double a, double f, double lat1, double lat2, double lam12,
                        GxGeodesicLine& line);
