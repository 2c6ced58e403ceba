#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Cassini-Soldner, the transverse equidistant cylindrical projection.
class GXCART_API CGxCassiniSoldnerProjectionIDs {
public:
    static constexpr const char SectionName[] = "CASSINI_SOLDNER_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxCassiniSoldnerProjection : public CGxTabledMapProjData,
                                               public CGxCassiniSoldnerProjectionIDs {
public:
    CGxCassiniSoldnerProjection();
    explicit CGxCassiniSoldnerProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxCassiniSoldnerProjection(const std::string& name, const std::string& branchName,
                                const std::string& ellipsoidID, double centralMeridian,
                                double originLatitude, double falseEasting, double falseNorthing,
                                bool canDelete = false, bool canEdit = false);
    CGxCassiniSoldnerProjection(const CGxCassiniSoldnerProjection& other) = default;
    CGxCassiniSoldnerProjection& operator=(const CGxCassiniSoldnerProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Longitude of the central meridian, degrees.
    double GetCentralMeridian() const { return _Param(0); }
    void SetCentralMeridian(double centralMeridian) { _SetParam(0, centralMeridian); }

    // Latitude of the natural origin, degrees.
    double GetOriginLatitude() const { return _Param(1); }
    void SetOriginLatitude(double originLatitude) { _SetParam(1, originLatitude); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(2); }
    void SetFalseEasting(double falseEasting) { _SetParam(2, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(3); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(3, falseNorthing); }
};
