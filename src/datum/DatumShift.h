#pragma once

#include "foundation/Ellipsoid.h"
#include "foundation/GxExport.h"

// How a datum relates to the geocentric frame of WGS 84: no shift, a
// three-parameter translation or a seven-parameter similarity (Helmert)
// transformation in the position-vector convention.
//
// Parameters, in the order and units of a WKT TOWGS84 clause:
//   0..2  translations dX, dY, dZ in metres
//   3..5  rotations rX, rY, rZ in arc-seconds
//   6     scale correction in parts per million
class GXCART_API CGxDatumShift {
public:
    static constexpr int kParameterCount = 7;

    // No shift, all parameters 0.
    CGxDatumShift();
    // Copies seven values and derives the type from them (see SetParameters).
    // A null pointer gives no shift.
    explicit CGxDatumShift(double* const values);
    // Stores the type and the seven values exactly as given; the type is not
    // derived, so a record can carry parameters its type does not use.
    CGxDatumShift(CGxCartDef::ETypeOfDatumShift type, double dX, double dY, double dZ, double rX,
                  double rY, double rZ, double scale);
    virtual ~CGxDatumShift();

    // Type none, all parameters 0.
    void Reset();
    // Copies seven values and derives the type: any non-zero translation makes
    // a three-parameter shift, any non-zero rotation or scale a seven-parameter
    // one. A NaN or infinite value counts as zero here. A null pointer resets.
    void SetParameters(double* const values);

    // The seven parameters, writable in place.
    double* GetParameters() { return parameters; }
    const double* GetParameters() const { return parameters; }
    // Parameter i (0..6). Any other index refers to a per-thread scratch value
    // that reads NaN and absorbs writes, so a wrong index never touches memory
    // outside the record.
    double& operator[](long i);
    double operator[](long i) const;

    CGxCartDef::ETypeOfDatumShift GetType() const { return type; }
    // "None", "3 parameter", "7 parameter", or "" for a type outside these.
    const char* GetTypeAsText() const;

    // Equal types, and the parameters the type uses agree within the relative
    // tolerance of 1e-12; two records without a shift are always equal.
    bool operator==(const CGxDatumShift& other) const;
    bool operator!=(const CGxDatumShift& other) const { return !(*this == other); }

private:
    CGxCartDef::ETypeOfDatumShift type;
    double parameters[kParameterCount];
};
