#pragma once

// Angles that keyword files give as degrees, minutes and seconds
// ("Parallel_1_dms = 45, 30, 0").
//
// The sign is carried by the degrees alone: the angle is
// d + s*m/60 + s*sec/3600 with s = -1 when d is negative, else +1. "-0"
// degrees is not negative, so an angle between -1 and 0 degrees is written
// with negative minutes (0, -30, 0 is -0.5). Any part may have a fraction and
// is taken as the exact decimal it states: 45.5, 0, 0 is 45.5 degrees.

// The three parts of the first occurrence of keyword in a section: up to three
// values, missing ones 0, a value that is no number 0. False when the keyword
// is absent.
bool GxReadDmsParts(void* section, const char* keyword, double parts[3]);

// The angle in decimal degrees; false when the keyword is absent.
bool GxReadDmsDegrees(void* section, const char* keyword, double* degrees);

// The same angle as whole degrees, whole minutes and seconds, for callers
// that take integers: fractions of degrees and minutes move down to the
// minutes and seconds (45.5, 0, 0 gives 45, 30, 0). Parts that are whole
// numbers are passed on unchanged.
void GxSplitDms(const double parts[3], int* degrees, int* minutes, double* seconds);
