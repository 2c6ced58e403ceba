// Converts one point through the installed classes.
#include <cstdio>

#include "mapprojection/MapProjection.h"

int main() {
    const CGxMapProjection utm("UTM-32");
    double x = 0.0, y = 0.0;
    utm.Geo2Proj(9.5, 48.25, &x, &y);
    std::printf("%.2f %.2f\n", x, y);
    return utm.GetProjection() ? 0 : 1;
}
