#pragma once

// The first step of every conic inverse (Lambert, Albers, equidistant
// conic): the offsets (dx, dy) of a point from the apex of the cone, measured so that
// atan2(dx, dy) is the polar angle n (lon - lon0) and hypot(dx, dy) the
// radius of the point's parallel. A southern cone (n < 0) has its apex
// south of the map and negative radii; turning both differences round keeps
// the radius positive and the angle's sign right.
inline void GxConeApexOffsets(double x, double y, double falseEasting, double falseNorthing,
                              double rho0, double n, double* dx, double* dy) {
    if (n < 0) {
        *dx = falseEasting - x;
        *dy = (y - falseNorthing) - rho0;
    } else {
        *dx = x - falseEasting;
        *dy = rho0 - (y - falseNorthing);
    }
}
