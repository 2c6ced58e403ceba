#pragma once

#include "projections/ObliqueMercatorMath.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxObliqueMercatorProjection;

// Hotine oblique Mercator with its grid origin at the projection centre and
// the grid rectified by the azimuth of the central line (EPSG variant B with
// gamma = alpha). With an azimuth of 90 degrees the central line runs east-west
// through the centre and the projection is the Swiss oblique cylindrical one.
class GXCART_API CGxObliqueMercator : public CGxObliqueMercatorBase {
public:
    // scale on the central line; centre longitude and latitude and the
    // central line's azimuth at the centre in degrees; false easting and
    // northing (the grid values of the centre) in the ellipsoid unit.
    CGxObliqueMercator(const char* name, double scale, double centreLongitude,
                       double centreLatitude, double azimuth, double falseEasting,
                       double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxObliqueMercator(const CGxObliqueMercatorProjection* definition);

    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxObliqueMercatorProjection& definition) const;
};
