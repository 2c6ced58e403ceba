#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Rotated longitude/latitude grid: geographical coordinates about a displaced
// pole, as used by climate and ocean models. No false origin.
class GXCART_API CGxRotatedLongitudeLatitudeProjectionIDs {
public:
    static constexpr const char SectionName[] = "ROTATED_LONGITUDE_LATITUDE_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxRotatedLongitudeLatitudeProjection
    : public CGxTabledMapProjData,
      public CGxRotatedLongitudeLatitudeProjectionIDs {
public:
    CGxRotatedLongitudeLatitudeProjection();
    explicit CGxRotatedLongitudeLatitudeProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxRotatedLongitudeLatitudeProjection(const std::string& name, const std::string& branchName,
                                          const std::string& ellipsoidID, double southPoleLongitude,
                                          double southPoleLatitude, double rotationAngle,
                                          bool canDelete = false, bool canEdit = false);
    CGxRotatedLongitudeLatitudeProjection(const CGxRotatedLongitudeLatitudeProjection& other) =
        default;
    CGxRotatedLongitudeLatitudeProjection& operator=(
        const CGxRotatedLongitudeLatitudeProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Longitude of the rotated south pole, degrees.
    double GetSouthPoleLongitude() const { return _Param(0); }
    void SetSouthPoleLongitude(double southPoleLongitude) { _SetParam(0, southPoleLongitude); }

    // Latitude of the rotated south pole, degrees.
    double GetSouthPoleLatitude() const { return _Param(1); }
    void SetSouthPoleLatitude(double southPoleLatitude) { _SetParam(1, southPoleLatitude); }

    // Rotation about the new polar axis, degrees.
    double GetRotationAngle() const { return _Param(2); }
    void SetRotationAngle(double rotationAngle) { _SetParam(2, rotationAngle); }
};
