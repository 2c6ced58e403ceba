#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// New Zealand map grid, a conformal projection of minimum scale error over
// New Zealand. The default's name keeps the spelling catalogues know it by.
class GXCART_API CGxNewZealandMapGridProjectionIDs {
public:
    static constexpr const char SectionName[] = "NEW_ZEALAND_MAP_GRID_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxNewZealandMapGridProjection : public CGxTabledMapProjData,
                                                  public CGxNewZealandMapGridProjectionIDs {
public:
    CGxNewZealandMapGridProjection();
    explicit CGxNewZealandMapGridProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxNewZealandMapGridProjection(const std::string& name, const std::string& branchName,
                                   const std::string& ellipsoidID, double originLongitude,
                                   double originLatitude, double falseEasting, double falseNorthing,
                                   bool canDelete = false, bool canEdit = false);
    CGxNewZealandMapGridProjection(const CGxNewZealandMapGridProjection& other) = default;
    CGxNewZealandMapGridProjection& operator=(const CGxNewZealandMapGridProjection& other) =
        default;

    CGxProjection* CreateProjection() const override;

    // Longitude of the origin, degrees.
    double GetOriginLongitude() const { return _Param(0); }
    void SetOriginLongitude(double originLongitude) { _SetParam(0, originLongitude); }

    // Latitude of the origin, degrees.
    double GetOriginLatitude() const { return _Param(1); }
    void SetOriginLatitude(double originLatitude) { _SetParam(1, originLatitude); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(2); }
    void SetFalseEasting(double falseEasting) { _SetParam(2, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(3); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(3, falseNorthing); }
};
