#pragma once

// Two coordinate-system names that stand for themselves rather than for a
// WKT text or a catalogue entry. Hosts write them into their model files and
// look them up by exact spelling, so the library spells them in one place.

// The model's own plane: no projection and no figure of the earth; points
// are handed through unchanged.
inline constexpr char kGxNonUtmString[] = "NON-UTM";

// Longitudes and latitudes in degrees, taken as they are.
inline constexpr char kGxLongLatString[] = "LONG/LAT";
