#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Equidistant conic with two standard parallels. Its default definition has a
// false easting of 0, unlike the other conics.
class GXCART_API CGxEquidistantConicProjectionIDs {
public:
    static constexpr const char SectionName[] = "EQUIDISTANT_CONIC_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxEquidistantConicProjection : public CGxTabledMapProjData,
                                                 public CGxEquidistantConicProjectionIDs {
public:
    CGxEquidistantConicProjection();
    explicit CGxEquidistantConicProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxEquidistantConicProjection(const std::string& name, const std::string& branchName,
                                  const std::string& ellipsoidID, double parallel1,
                                  double parallel2, double centralMeridian, double originLatitude,
                                  double falseEasting, double falseNorthing, bool canDelete = false,
                                  bool canEdit = false);
    CGxEquidistantConicProjection(const CGxEquidistantConicProjection& other) = default;
    CGxEquidistantConicProjection& operator=(const CGxEquidistantConicProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // First standard parallel, degrees.
    double GetParallel1() const { return _Param(0); }
    void SetParallel1(double parallel1) { _SetParam(0, parallel1); }

    // Second standard parallel, degrees.
    double GetParallel2() const { return _Param(1); }
    void SetParallel2(double parallel2) { _SetParam(1, parallel2); }

    // Longitude of the central meridian, degrees.
    double GetCentralMeridian() const { return _Param(2); }
    void SetCentralMeridian(double centralMeridian) { _SetParam(2, centralMeridian); }

    // Latitude of the false origin, degrees.
    double GetOriginLatitude() const { return _Param(3); }
    void SetOriginLatitude(double originLatitude) { _SetParam(3, originLatitude); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(4); }
    void SetFalseEasting(double falseEasting) { _SetParam(4, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(5); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(5, falseNorthing); }
};
