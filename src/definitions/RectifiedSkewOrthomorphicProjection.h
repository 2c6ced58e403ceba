#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Rectified skew orthomorphic: oblique Mercator whose grid is rotated by its
// own angle rather than by the azimuth of the initial line.
class GXCART_API CGxRectifiedSkewOrthomorphicProjectionIDs {
public:
    static constexpr const char SectionName[] = "RECTIFIED_SKEW_ORTHOMORPHIC_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxRectifiedSkewOrthomorphicProjection
    : public CGxTabledMapProjData,
      public CGxRectifiedSkewOrthomorphicProjectionIDs {
public:
    CGxRectifiedSkewOrthomorphicProjection();
    explicit CGxRectifiedSkewOrthomorphicProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxRectifiedSkewOrthomorphicProjection(const std::string& name, const std::string& branchName,
                                           const std::string& ellipsoidID, double scale,
                                           double centerLongitude, double centerLatitude,
                                           double azimuth, double xyPlaneRotation,
                                           double falseEasting, double falseNorthing,
                                           bool canDelete = false, bool canEdit = false);
    CGxRectifiedSkewOrthomorphicProjection(const CGxRectifiedSkewOrthomorphicProjection& other) =
        default;
    CGxRectifiedSkewOrthomorphicProjection& operator=(
        const CGxRectifiedSkewOrthomorphicProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Scale factor on the initial line.
    double GetScale() const { return _Param(0); }
    void SetScale(double scale) { _SetParam(0, scale); }

    // Longitude of the projection centre, degrees.
    double GetCenterLongitude() const { return _Param(1); }
    void SetCenterLongitude(double centerLongitude) { _SetParam(1, centerLongitude); }

    // Latitude of the projection centre, degrees.
    double GetCenterLatitude() const { return _Param(2); }
    void SetCenterLatitude(double centerLatitude) { _SetParam(2, centerLatitude); }

    // Azimuth of the initial line through the centre, degrees east of north.
    double GetAzimuth() const { return _Param(3); }
    void SetAzimuth(double azimuth) { _SetParam(3, azimuth); }

    // Angle from the rectified grid to the skew grid, degrees.
    double GetXYPlaneRotation() const { return _Param(4); }
    void SetXYPlaneRotation(double xyPlaneRotation) { _SetParam(4, xyPlaneRotation); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(5); }
    void SetFalseEasting(double falseEasting) { _SetParam(5, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(6); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(6, falseNorthing); }
};
