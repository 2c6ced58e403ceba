#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Krovak oblique conformal conic. Its scales have no reduction form and its
// azimuth and grid rotation no degrees-minutes-seconds form.
class GXCART_API CGxKrovakProjectionIDs {
public:
    static constexpr const char SectionName[] = "KROVAK_OBLIQUE_CONFORMAL_CONIC";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxKrovakProjection : public CGxTabledMapProjData, public CGxKrovakProjectionIDs {
public:
    CGxKrovakProjection();
    explicit CGxKrovakProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxKrovakProjection(const std::string& name, const std::string& branchName,
                        const std::string& ellipsoidID, double scaleAtPseudoParallel,
                        double pseudoParallel, double centerLongitude, double centerLatitude,
                        double azimuth, double xyPlaneRotation, double xScale, double yScale,
                        double falseEasting, double falseNorthing, bool canDelete = false,
                        bool canEdit = false);
    CGxKrovakProjection(const CGxKrovakProjection& other) = default;
    CGxKrovakProjection& operator=(const CGxKrovakProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Scale factor on the pseudo standard parallel.
    double GetScaleAtPseudoParallel() const { return _Param(0); }
    void SetScaleAtPseudoParallel(double scaleAtPseudoParallel) {
        _SetParam(0, scaleAtPseudoParallel);
    }

    // Latitude of the pseudo standard parallel, degrees.
    double GetPseudoParallel() const { return _Param(1); }
    void SetPseudoParallel(double pseudoParallel) { _SetParam(1, pseudoParallel); }

    // Longitude of the projection centre, degrees.
    double GetCenterLongitude() const { return _Param(2); }
    void SetCenterLongitude(double centerLongitude) { _SetParam(2, centerLongitude); }

    // Latitude of the projection centre, degrees.
    double GetCenterLatitude() const { return _Param(3); }
    void SetCenterLatitude(double centerLatitude) { _SetParam(3, centerLatitude); }

    // Azimuth of the initial line at the centre (co-latitude of the cone axis), degrees.
    double GetAzimuth() const { return _Param(4); }
    void SetAzimuth(double azimuth) { _SetParam(4, azimuth); }

    // Rotation of the plane coordinates, degrees.
    double GetXYPlaneRotation() const { return _Param(5); }
    void SetXYPlaneRotation(double xyPlaneRotation) { _SetParam(5, xyPlaneRotation); }

    // Factor on the plane x coordinate before the rotation.
    double GetXScale() const { return _Param(6); }
    void SetXScale(double xScale) { _SetParam(6, xScale); }

    // Factor on the plane y coordinate before the rotation.
    double GetYScale() const { return _Param(7); }
    void SetYScale(double yScale) { _SetParam(7, yScale); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(8); }
    void SetFalseEasting(double falseEasting) { _SetParam(8, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(9); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(9, falseNorthing); }
};
