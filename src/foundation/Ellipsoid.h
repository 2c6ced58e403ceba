#pragma once

#include <string>

#include "foundation/GxExport.h"

// A reference ellipsoid: display name, identifier code, semi-major axis in
// metres and inverse flattening (0 or less means a sphere). Derived values are
// computed on each call, never stored.
class GXCART_API CGxEllipsoid {
public:
    // A default ellipsoid has a = 1 and 1/f = 1 (so f = 1 and b = 0): code that
    // checks for a positive major axis treats it as valid.
    CGxEllipsoid();
    CGxEllipsoid(const std::string& name, const std::string& id, double major,
                 double invFlattening);
    CGxEllipsoid(const CGxEllipsoid& other);
    CGxEllipsoid& operator=(const CGxEllipsoid& other);
    virtual ~CGxEllipsoid();

    // Replaces the two numbers and keeps the name and identifier.
    void SetParams(double major, double invFlattening);

    // Same object, or same name and ID byte for byte and near-equal numbers.
    bool operator==(const CGxEllipsoid& other) const;
    // Same object, or near-equal numbers; names and IDs are ignored.
    bool IsEquivalent(const CGxEllipsoid& other) const;

    double GetMajor() const { return major; }
    double GetInvFlatness() const { return invFlattening; }
    double GetFlatness() const;
    double GetMinor() const;
    double GetEccentricity() const;
    std::string GetName() const { return name; }
    std::string GetID() const { return ID; }

private:
    std::string name;
    std::string ID;
    double major;
    double invFlattening;
};

// Shared enumerations and the unit conversions of the datum code.
class GXCART_API CGxCartDef {
public:
    enum ETypeOfDatumShift : int {
        eNoDatumShift = 0,
        eThreeParameterShift = 1,
        eSevenParameterShift = 2,
    };

    // Arc-seconds to radians: s * pi / 3600 / 180, in that order.
    static double arcsec2rad(double s);
    // Parts per million to a plain factor.
    static double ppm2dec(double s);
};
