#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "datum/DatumShift.h"

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

CGxDatumShift FromValues(double dX, double dY, double dZ, double rX, double rY, double rZ,
                         double s) {
    double v[7] = {dX, dY, dZ, rX, rY, rZ, s};
    return CGxDatumShift(v);
}

}  // namespace

// The type follows the last non-zero group: rotations or scale make a
// similarity transformation whatever the translations are. "Non-zero" is
// relative, so even the smallest subnormal counts, while a value that cannot
// be compared (NaN, infinity) never raises the type.
TEST(DatumShift, TypeDerivedFromValues) {
    const double tiny = std::numeric_limits<double>::denorm_min();
    struct Case {
        double v[7];
        CGxCartDef::ETypeOfDatumShift type;
        const char* text;
    };
    const Case cases[] = {
        {{0, 0, 0, 0, 0, 0, 0}, CGxCartDef::eNoDatumShift, "None"},
        {{-0.0, 0, -0.0, 0, 0, 0, 0}, CGxCartDef::eNoDatumShift, "None"},
        {{87, 98, 121, 0, 0, 0, 0}, CGxCartDef::eThreeParameterShift, "3 parameter"},
        {{0, 0, 0, 0, 0, 0, 0.5}, CGxCartDef::eSevenParameterShift, "7 parameter"},
        {{0, 0, 0, -1.2, 0, 0, 0}, CGxCartDef::eSevenParameterShift, "7 parameter"},
        {{-582, -105, -414, -1.04, -0.35, 3.08, 8.3},
         CGxCartDef::eSevenParameterShift,
         "7 parameter"},
        {{0, 0, 1e-13, 0, 0, 0, 0}, CGxCartDef::eThreeParameterShift, "3 parameter"},
        {{tiny, 0, 0, 0, 0, 0, 0}, CGxCartDef::eThreeParameterShift, "3 parameter"},
        {{kNaN, 0, 0, 0, 0, 0, 0}, CGxCartDef::eNoDatumShift, "None"},
        {{87, 0, 0, kNaN, kNaN, kNaN, kNaN}, CGxCartDef::eThreeParameterShift, "3 parameter"},
        {{kInf, 0, 0, 0, 0, 0, -kInf}, CGxCartDef::eNoDatumShift, "None"},
    };
    for (const Case& c : cases) {
        double v[7];
        std::copy(c.v, c.v + 7, v);
        CGxDatumShift shift(v);
        SCOPED_TRACE(std::string(c.text) + " from " + std::to_string(v[0]) + " ... " +
                     std::to_string(v[6]));
        EXPECT_EQ(shift.GetType(), c.type);
        EXPECT_STREQ(shift.GetTypeAsText(), c.text);
        for (int i = 0; i < 7; ++i) {
            EXPECT_TRUE(shift[i] == v[i] || (std::isnan(shift[i]) && std::isnan(v[i]))) << i;
        }
    }
}

// Reset and a null pointer clear the record. The typed constructor trusts its
// type: it is how a caller keeps unused parameters or names a type the values
// would not give.
TEST(DatumShift, ResetNullAndTypedConstruction) {
    CGxDatumShift shift = FromValues(1, 2, 3, 4, 5, 6, 7);
    shift.Reset();
    EXPECT_EQ(shift.GetType(), CGxCartDef::eNoDatumShift);
    for (int i = 0; i < 7; ++i) EXPECT_EQ(shift[i], 0.0);
    shift = FromValues(1, 2, 3, 4, 5, 6, 7);
    shift.SetParameters(nullptr);
    EXPECT_EQ(shift.GetType(), CGxCartDef::eNoDatumShift);
    EXPECT_EQ(shift.GetParameters()[6], 0.0);

    CGxDatumShift none(CGxCartDef::eNoDatumShift, 10, 20, 30, 1, 2, 3, 4);
    EXPECT_EQ(none.GetType(), CGxCartDef::eNoDatumShift);
    EXPECT_EQ(none[2], 30.0);
    CGxDatumShift odd(static_cast<CGxCartDef::ETypeOfDatumShift>(3), 0, 0, 0, 0, 0, 0, 0);
    EXPECT_STREQ(odd.GetTypeAsText(), "");
}

// Writing a parameter in place does not re-derive the type; an index outside
// the record reads NaN and leaves the record alone.
TEST(DatumShift, ParameterAccessInPlace) {
    CGxDatumShift shift = FromValues(87, 98, 121, 0, 0, 0, 0);
    shift[6] = 2.5;
    shift.GetParameters()[0] = -87;
    EXPECT_EQ(shift.GetType(), CGxCartDef::eThreeParameterShift);
    EXPECT_EQ(shift[6], 2.5);
    EXPECT_EQ(shift[0], -87.0);

    shift[7] = 99;
    shift[-1] = 99;
    EXPECT_TRUE(std::isnan(shift[7]));
    EXPECT_TRUE(std::isnan(static_cast<const CGxDatumShift&>(shift)[-1]));
    EXPECT_EQ(shift[6], 2.5);
    EXPECT_EQ(shift[0], -87.0);
}

TEST(DatumShift, EqualityComparesWhatTheTypeUses) {
    using T = CGxCartDef;
    // Translations only: rotations stored beside them do not matter.
    EXPECT_EQ(CGxDatumShift(T::eThreeParameterShift, 87, 98, 121, 1, 2, 3, 4),
              CGxDatumShift(T::eThreeParameterShift, 87, 98, 121, -5, 0, 9, 0));
    // Relative tolerance of 1e-12 on every used value.
    EXPECT_EQ(FromValues(100, 0, 0, 0, 0, 0, 1), FromValues(100.00000000001, 0, 0, 0, 0, 0, 1));
    EXPECT_NE(FromValues(100, 0, 0, 0, 0, 0, 1), FromValues(100.001, 0, 0, 0, 0, 0, 1));
    EXPECT_NE(FromValues(100, 0, 0, 0, 0, 0, 1), FromValues(100, 0, 0, 0, 0, 0, 1.000001));
    // Against zero only zero agrees.
    EXPECT_NE(FromValues(100, 0, 0, 0, 0, 1e-300, 1), FromValues(100, 0, 0, 0, 0, 0, 1));
    // Without a shift the parameters are never looked at.
    EXPECT_EQ(CGxDatumShift(T::eNoDatumShift, 1, 2, 3, 4, 5, 6, 7), CGxDatumShift());
    // Same values, different types.
    EXPECT_NE(CGxDatumShift(T::eThreeParameterShift, 1, 2, 3, 0, 0, 0, 0),
              CGxDatumShift(T::eSevenParameterShift, 1, 2, 3, 0, 0, 0, 0));
    // A NaN agrees with nothing, not even a copy of itself; the object itself
    // is still equal to itself.
    const CGxDatumShift withNaN(T::eSevenParameterShift, 1, 2, 3, 0, kNaN, 0, 0);
    const CGxDatumShift copy(withNaN);
    EXPECT_NE(withNaN, copy);
    EXPECT_TRUE(withNaN == withNaN);
    EXPECT_FALSE(withNaN != withNaN);
}
