#pragma once

#include <cstddef>

#include "datum/DatumShift.h"
#include "foundation/GxExport.h"

class CGxPRJParser;

// What a coordinate-system text says beyond the projection itself: its
// linear and angular units, its datum shift and the direction of its two
// axes. The axis rules turn the algorithms' (easting, northing) into the
// order and signs the system states, for example (northing, easting) for a
// grid whose first axis points north, or negated values for a grid counted
// west and south.
class GXCART_API CGxProjectionInfo {
public:
    // Size of a unit name, terminator included: longer names are cut.
    static constexpr std::size_t kUnitNameSize = 64;

    // One axis: its direction, the sign it gives a coordinate and its name.
    class GXCART_API CAxis {
    public:
        // Direction of an axis. The underlying type is fixed so that any int
        // is a value of the enumeration; values outside 0..3 name no
        // direction.
        enum EType : int {
            eEast = 0,
            eNorth = 1,
            eWest = 2,
            eSouth = 3,
        };

        // Size of an axis name, terminator included: longer names are cut.
        static constexpr std::size_t kNameSize = 32;

        // East, unnamed.
        CAxis();
        CAxis(EType type, const char* name);
        CAxis(const CAxis& other);
        CAxis& operator=(const CAxis& other);
        virtual ~CAxis();

        // Stores the type and the name (a null name is empty). East and north
        // give the factor +1, west and south -1; a type outside these keeps
        // the factor the axis had.
        void SetProperties(EType type, const char* name);

        // "EAST", "NORTH", "WEST" or "SOUTH" in any case; any other word, an
        // empty one or null gives east.
        static EType StringToType(const char* direction);

        EType GetType() const { return type; }
        double GetFactor() const { return factor; }
        const char* GetName() const { return name; }

    private:
        EType type;
        double factor;
        char name[kNameSize];
    };

    // Units not set, empty unit names, no datum shift, axes (east,
    // "Easting") and (north, "Northing").
    CGxProjectionInfo();
    CGxProjectionInfo(const CGxProjectionInfo& other);
    CGxProjectionInfo& operator=(const CGxProjectionInfo& other);
    virtual ~CGxProjectionInfo();

    // Takes the units, the datum shift and both axes from a read text.
    void SetProjectionInfo(const CGxPRJParser& parser);

    // Metres per linear unit and its name; radians per angular unit and its
    // name. name must hold kUnitNameSize characters; either pointer may be
    // null. False exactly when the unit is not set.
    bool GetProjUnit(double* factor, char* name) const;
    bool GetAngularUnit(double* factor, char* name) const;

    void GetDatumShift(CGxDatumShift& shift) const;
    void SetDatumShift(const CGxDatumShift& shift);

    void GetAxisTypes(CAxis::EType& first, CAxis::EType& second) const;
    const CAxis& GetAxis1() const { return axis1; }
    const CAxis& GetAxis2() const { return axis2; }

    // The axis rule: a first axis along a meridian (north or south) puts the
    // northing first, so the algorithms' (easting, northing) pair is swapped.
    bool SwapsAxes() const {
        return axis1.GetType() == CAxis::eNorth || axis1.GetType() == CAxis::eSouth;
    }

    // From (easting, northing) to the system's axis order and signs: each
    // value takes its axis's sign, and the pair is swapped when the first
    // axis runs north or south.
    void Convert(double& x, double& y) const;
    // The reverse of Convert: swap first, then the signs.
    void InvConvert(double& x, double& y) const;

private:
    double projUnitFactor;
    double angularUnitFactor;
    char projUnitName[kUnitNameSize];
    char angularUnitName[kUnitNameSize];
    CGxDatumShift datumShift;
    CAxis axis1;
    CAxis axis2;
};
