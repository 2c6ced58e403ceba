#!/usr/bin/env python3
"""Derives the series coefficients of the geodesic integrals
(src/datum/VincentySeries.h) and of the meridian arc and its inverse
(src/projections/math/MeridianArc.h), and prints them.

A developer tool: needs SymPy (python3-sympy), which the library does not.

    python3 tools/derive_series.py

Geodesic integrals, in eps = (sqrt(1 + k^2) - 1) / (sqrt(1 + k^2) + 1):
1 + k^2 sin^2 t = |1 - eps exp(2it)|^2 / (1 - eps)^2, so each integrand is a
function of |1 - eps z|, z = exp(2it); its binomial series collected by powers
of z gives A (the constant term) and C_l (the z^l term over l A): the integral
is A (t + sum_l C_l sin 2lt). The longitude integrand also holds the third
flattening n (f = 2n / (1 + n)) and is expanded in eps and n together.

Meridian arc, in n: (1 - e^2) (1 - e^2 sin^2 phi)^(-3/2) =
(1 - n)^2 (1 + n) |1 + n z|^(-3), likewise; its inverse series (geodetic from
rectifying latitude) by fixed-point iteration on trigonometric polynomials
held as coefficients of exp(2imu).
"""
from fractions import Fraction

import sympy as sp

ORDER = 6


def binomial(a, j):
    r = Fraction(1)
    for i in range(j):
        r = r * (a - i) / (i + 1)
    return r


def abs_power_terms(p, x, sign, order):
    """(1 + sign x z)^p (1 + sign x / z)^p: the z^m coefficients (m >= 0)."""
    terms = {}
    for j in range(order + 1):
        for k in range(order + 1 - j):
            m = j - k
            if m >= 0:
                c = binomial(p, j) * binomial(p, k) * sign ** (j + k)
                terms[m] = terms.get(m, 0) + sp.Rational(c.numerator, c.denominator) * x ** (j + k)
    return terms


def series(expr, x, order=ORDER):
    return sp.expand(sp.series(expr, x, 0, order + 1).removeO())


def print_fourier(label, scale, terms, x):
    print(f"{label}: A = {scale}")
    for m in range(1, ORDER + 1):
        print(f"  {label}_{m} = {series(terms[m] / (m * terms[0]), x)}")


def geodesic():
    eps, n, t, z = sp.symbols("eps n t z")
    # I1: |1 - eps z| / (1 - eps)
    terms = abs_power_terms(Fraction(1, 2), eps, -1, ORDER)
    print_fourier("C1", f"({terms[0]}) / (1 - eps)", terms, eps)
    # I2: (1 - eps) / |1 - eps z|
    terms = abs_power_terms(Fraction(-1, 2), eps, -1, ORDER)
    print_fourier("C2", f"(1 - eps) ({terms[0]})", terms, eps)
    # I3: (2 - f) / (1 + (1 - f) |1 - eps z| / (1 - eps)), fifth order in eps and n.
    order = ORDER - 1
    e, nn = t * eps, t * n
    w = sp.sqrt((1 - e * z) * (1 - e / z))
    h = sp.expand(sp.series(2 * (1 - e) / ((1 + nn) * (1 - e) + (1 - nn) * w), t, 0, order + 1).removeO())
    poly = sp.Poly(sp.expand(h * z ** order), z)
    c = {m: sp.expand(poly.coeff_monomial(z ** (m + order))) for m in range(order + 1)}
    print(f"C3: A = {sp.collect(series(c[0], t, order).subs(t, 1), eps)}")
    for m in range(1, order + 1):
        print(f"  C3_{m} = {sp.collect(series(c[m] / (m * c[0]), t, order).subs(t, 1), eps)}")


def meridian():
    n = sp.symbols("n", real=True)
    terms = abs_power_terms(Fraction(-3, 2), n, 1, ORDER)
    scale = series((1 - n) ** 2 * (1 + n) * terms[0], n)
    print(f"Meridian arc: A (1 + n) = {series(scale * (1 + n), n)}")
    h = {m: series(terms[m] / (m * terms[0]), n) for m in range(1, ORDER + 1)}
    for m in range(1, ORDER + 1):
        print(f"  h_{m} = {h[m]}")

    # phi = mu + delta(mu) with delta = -sum_k h_k sin(2k (mu + delta)).
    # Trigonometric polynomials as {m: coefficient of exp(2 i m mu)}.
    def cut(c):
        # Drop the powers of n above the order (the coefficients are
        # polynomials in n with complex rational coefficients).
        c = sp.expand(c)
        return sp.Add(*[term for term in sp.Add.make_args(c) if sp.degree(term, n) <= ORDER])

    def truncate(p):
        r = {m: cut(c) for m, c in p.items()}
        return {m: c for m, c in r.items() if c != 0}

    def multiply(p, q):
        r = {}
        for a, ca in p.items():
            for b, cb in q.items():
                r[a + b] = r.get(a + b, 0) + ca * cb
        return truncate(r)

    delta = {}
    for _ in range(ORDER):
        total = {}
        for k in range(1, ORDER + 1):
            # exp(2ik(mu + delta)) = exp(2ik mu) sum_p (2ik delta)^p / p!
            power, expo = {0: sp.Integer(1)}, {0: sp.Integer(1)}
            for p in range(1, ORDER + 1):
                power = multiply(power, {m: 2 * sp.I * k * c for m, c in delta.items()})
                for m, c in power.items():
                    expo[m] = expo.get(m, 0) + c / sp.factorial(p)
            shifted = {m + k: c for m, c in expo.items()}
            # sin = (E - conj(E)) / 2i; delta is odd and real, so conj maps
            # the exp(2im mu) coefficient c to exp(-2im mu) with conj(c).
            for m, c in shifted.items():
                total[m] = total.get(m, 0) - h[k] * c / (2 * sp.I)
                total[-m] = total.get(-m, 0) + h[k] * sp.conjugate(c) / (2 * sp.I)
        delta = truncate(total)
    for m in range(1, ORDER + 1):
        # delta = sum_m d_m sin 2m mu: d_m = 2i times the exp(2im mu) coefficient.
        print(f"  d_{m} = {sp.expand(2 * sp.I * delta.get(m, 0))}")


if __name__ == "__main__":
    geodesic()
    meridian()
