#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Geographical longitude/latitude: no numeric parameters, only the three strings.
class GXCART_API CGxGeographicalProjectionIDs {
public:
    static constexpr const char SectionName[] = "GEOGRAPHICAL_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxGeographicalProjection : public CGxTabledMapProjData,
                                             public CGxGeographicalProjectionIDs {
public:
    CGxGeographicalProjection();
    explicit CGxGeographicalProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxGeographicalProjection(const std::string& name, const std::string& branchName,
                              const std::string& ellipsoidID, bool canDelete = false,
                              bool canEdit = false);
    CGxGeographicalProjection(const CGxGeographicalProjection& other) = default;
    CGxGeographicalProjection& operator=(const CGxGeographicalProjection& other) = default;

    CGxProjection* CreateProjection() const override;
};
