#include "projections/FourierCoefficients.h"

#include <cmath>

namespace {

// Krueger series in n, fourth order: forward (geodetic conformal to
// rectifying) coefficients.
void TransverseMercatorForward(double n, double* h) {
    h[0] = n * (1.0 / 2 + n * (-2.0 / 3 + n * (5.0 / 16 + 41.0 * n / 180)));
    h[1] = n * n * (13.0 / 48 + n * (-3.0 / 5 + 557.0 * n / 1440));
    h[2] = n * n * n * (61.0 / 240 - 103.0 * n / 140);
    h[3] = 49561.0 * n * n * n * n / 161280;
}

// Krueger series in n, fourth order: inverse coefficients, taken positive.
void TransverseMercatorInverse(double n, double* h) {
    h[0] = n * (1.0 / 2 + n * (-2.0 / 3 + n * (37.0 / 96 - n / 360)));
    h[1] = n * n * (1.0 / 48 + n * (1.0 / 15 - 437.0 * n / 1440));
    h[2] = n * n * n * (17.0 / 480 - 37.0 * n / 840);
    h[3] = 4397.0 * n * n * n * n / 161280;
}

// Authalic to geodetic latitude, series in e^2, third order.
void Authalic(double E, double* c) {
    c[0] = E / 3 + 31 * E * E / 180 + 517 * E * E * E / 5040;
    c[1] = 23 * E * E / 360 + 251 * E * E * E / 3780;
    c[2] = 761 * E * E * E / 45360;
    c[3] = 0.0;
}

// Meridian arc in e^2, third order (M1 multiplies the latitude, M2..M4 the
// sines of its multiples).
void MeridianArc(double E, double* m) {
    m[0] = 1 - E / 4 - 3 * E * E / 64 - 5 * E * E * E / 256;
    m[1] = 3 * E / 8 + 3 * E * E / 32 + 45 * E * E * E / 1024;
    m[2] = 15 * E * E / 256 + 45 * E * E * E / 1024;
    m[3] = 35 * E * E * E / 3072;
}

// Footpoint latitude from the rectifying latitude, series in
// e1 = (1 - sqrt(1 - e^2)) / (1 + sqrt(1 - e^2)), fourth order.
void Footpoint(double E, double* f) {
    const double s = std::sqrt(1 - E);
    const double e1 = (1 - s) / (1 + s);
    f[0] = 3 * e1 / 2 - 27 * e1 * e1 * e1 / 32;
    f[1] = 21 * e1 * e1 / 16 - 55 * e1 * e1 * e1 * e1 / 32;
    f[2] = 151 * e1 * e1 * e1 / 96;
    f[3] = 1097 * e1 * e1 * e1 * e1 / 512;
}

// Conformal to geodetic latitude, series in e^2, fourth order.
void Conformal(double E, double* c) {
    c[0] = E / 2 + 5 * E * E / 24 + E * E * E / 12 + 13 * E * E * E * E / 360;
    c[1] = 7 * E * E / 48 + 29 * E * E * E / 240 + 811 * E * E * E * E / 11520;
    c[2] = 7 * E * E * E / 120 + 81 * E * E * E * E / 1120;
    c[3] = 4279 * E * E * E * E / 161280;
}

}  // namespace

void GxComputeFourierCoefficients(EGxSeries series, bool forward, double x, double* out) {
    switch (series) {
        case EGxSeries::eKruegerTransverseMercator:
            forward ? TransverseMercatorForward(x, out) : TransverseMercatorInverse(x, out);
            break;
        case EGxSeries::eAuthalicLatitude:
            Authalic(x, out);
            break;
        case EGxSeries::eMeridianArc:
            forward ? MeridianArc(x, out) : Footpoint(x, out);
            break;
        case EGxSeries::eConformalLatitude:
            Conformal(x, out);
            break;
    }
}
