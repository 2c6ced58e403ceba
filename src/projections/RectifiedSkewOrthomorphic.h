#pragma once

#include "projections/ObliqueMercatorMath.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxRectifiedSkewOrthomorphicProjection;

// Rectified skew orthomorphic: Hotine oblique Mercator with its grid origin at
// the natural origin and the skew grid turned by its own rectification angle,
// usually chosen so that grid north is close to true north at the centre
// (EPSG variant A; the Malaysian and Bornean RSO grids).
class GXCART_API CGxRectifiedSkewOrthomorphic : public CGxObliqueMercatorBase {
public:
    // scale on the central line; centre longitude and latitude, the central
    // line's azimuth at the centre and the rotation from the skew to the
    // rectified grid (xyPlaneRotation) in degrees; false easting and northing
    // in the ellipsoid unit.
    CGxRectifiedSkewOrthomorphic(const char* name, double scale, double centreLongitude,
                                 double centreLatitude, double azimuth, double xyPlaneRotation,
                                 double falseEasting, double falseNorthing,
                                 const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxRectifiedSkewOrthomorphic(const CGxRectifiedSkewOrthomorphicProjection* definition);

    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxRectifiedSkewOrthomorphicProjection& definition) const;
};
