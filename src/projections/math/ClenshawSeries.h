#pragma once

#include <cmath>

// Clenshaw summation of trigonometric series, the stable and cheap way to sum
// sum_{k=1..count} c[k-1] sin(k x) without computing the multiple angles. The
// callers usually know sin x and cos x already (or can get them algebraically),
// so the main overloads take them instead of x.

// sum_{k=1..count} c[k-1] sin(k x): with t = 2 cos x, u_k = t u_(k+1) - u_(k+2)
// + c_k from the highest k down to 1 (u beyond count are 0); the sum is
// sin(x) u_1.
inline double GxClenshawSine(const double* c, int count, double sinx, double cosx) {
    const double t = 2 * cosx;
    double u1 = 0.0, u2 = 0.0;
    for (int k = count - 1; k >= 0; --k) {
        const double u = t * u1 - u2 + c[k];
        u2 = u1;
        u1 = u;
    }
    return sinx * u1;
}

inline double GxClenshawSine(const double* c, int count, double x) {
    return GxClenshawSine(c, count, std::sin(x), std::cos(x));
}

// sum_{k=1..count} c[k-1] sin(k z) for complex z = x + i y, real part to *re,
// imaginary part to *im. The same recurrence runs in complex numbers with
// 2 cos z = 2 cos x cosh y - 2i sin x sinh y, and the sum is sin(z) u_1 with
// sin z = sin x cosh y + i cos x sinh y.
inline void GxClenshawComplexSine(const double* c, int count, double sinx, double cosx,
                                  double sinhy, double coshy, double* re, double* im) {
    const double r = 2 * cosx * coshy;
    const double s = -2 * sinx * sinhy;
    double h1r = 0.0, h1i = 0.0, h2r = 0.0, h2i = 0.0;
    for (int k = count - 1; k >= 0; --k) {
        const double hr = r * h1r - s * h1i - h2r + c[k];
        const double hi = s * h1r + r * h1i - h2i;
        h2r = h1r;
        h2i = h1i;
        h1r = hr;
        h1i = hi;
    }
    const double sr = sinx * coshy, si = cosx * sinhy;
    *re = h1r * sr - h1i * si;
    *im = h1i * sr + h1r * si;
}

inline void GxClenshawComplexSine(const double* c, int count, double x, double y, double* re,
                                  double* im) {
    GxClenshawComplexSine(c, count, std::sin(x), std::cos(x), std::sinh(y), std::cosh(y), re, im);
}
