#pragma once

// The two coordinate-system strings that name no WKT text. Users type them,
// files store them and the catalogue lists them, so every comparison and every
// entry uses these one spellings.

// A plane grid without georeference: nothing converts, coordinates pass as
// they are.
inline constexpr char kGxNonUtmString[] = "NON-UTM";

// Geographical longitude and latitude in degrees, without a named figure.
inline constexpr char kGxLongLatString[] = "LONG/LAT";
