#pragma once

#include "foundation/Projection.h"

class CGxPRJParser;

// Placeholder for the gnomonic projection, which GxCart does not provide yet.
// Building one, or converting through one, writes "Gnomic projection not
// implemented yet" to standard error and aborts the process: a grid that
// silently gave wrong coordinates would be worse.
class GXCART_API CGxGnomic : public CGxProjection {
public:
    // Reports and aborts.
    CGxGnomic();

    // "Gnomic".
    const char* GetName() const override;
    // Report and abort.
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    CGxProjection* Clone() const override;
    // Writes nothing: the grid is not a coordinate system the WKT writer knows.
    void TransferParameters(CGxPRJParser& parser) const override;
};
