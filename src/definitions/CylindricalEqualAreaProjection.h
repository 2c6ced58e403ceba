#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

class GXCART_API CGxCylindricalEqualAreaProjectionIDs {
public:
    static constexpr const char SectionName[] = "CYLINDRICAL_EQUAL_AREA_PROJECTION";
};

// Lambert cylindrical equal area, normal aspect, true to scale along a
// standard parallel and its mirror. Named setters change nothing unless the
// definition is editable.
class GXCART_API CGxCylindricalEqualAreaProjection : public CGxTabledMapProjData,
                                                     public CGxCylindricalEqualAreaProjectionIDs {
public:
    CGxCylindricalEqualAreaProjection();
    explicit CGxCylindricalEqualAreaProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxCylindricalEqualAreaProjection(const std::string& name, const std::string& branchName,
                                      const std::string& ellipsoidID, double parallel1,
                                      double centre, double falseEasting, double falseNorthing,
                                      bool canDelete = false, bool canEdit = false);
    CGxCylindricalEqualAreaProjection(const CGxCylindricalEqualAreaProjection& other) = default;
    CGxCylindricalEqualAreaProjection& operator=(const CGxCylindricalEqualAreaProjection& other) =
        default;

    CGxProjection* CreateProjection() const override;

    // Latitude of true scale, degrees.
    double GetParallel1() const { return _Param(0); }
    void SetParallel1(double parallel1) { _SetParam(0, parallel1); }

    // Longitude of the central meridian, degrees.
    double GetCentre() const { return _Param(1); }
    void SetCentre(double centre) { _SetParam(1, centre); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(2); }
    void SetFalseEasting(double falseEasting) { _SetParam(2, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(3); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(3, falseNorthing); }
};
