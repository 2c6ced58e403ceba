#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Polar stereographic of the north pole with a latitude of true scale.
class GXCART_API CGxStereographicNorthPoleProjectionIDs {
public:
    static constexpr const char SectionName[] = "STEREOGRAPHIC_NORTH_POLE_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxStereographicNorthPoleProjection
    : public CGxTabledMapProjData,
      public CGxStereographicNorthPoleProjectionIDs {
public:
    CGxStereographicNorthPoleProjection();
    explicit CGxStereographicNorthPoleProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxStereographicNorthPoleProjection(const std::string& name, const std::string& branchName,
                                        const std::string& ellipsoidID, double parallel1,
                                        double centre, double falseEasting, double falseNorthing,
                                        bool canDelete = false, bool canEdit = false);
    CGxStereographicNorthPoleProjection(const CGxStereographicNorthPoleProjection& other) = default;
    CGxStereographicNorthPoleProjection& operator=(
        const CGxStereographicNorthPoleProjection& other) = default;

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
