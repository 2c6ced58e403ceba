#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

class CGxMapProjection;

// What the subcommands of gxcart share: the arguments, how a coordinate
// system is named on the command line, and numbers in and out.

// The arguments after the subcommand's name.
using GxArgs = std::vector<std::string>;

// Exit statuses: 0 everything done, 1 some input left out or a result that
// could not be computed, 2 the command line itself is wrong.
constexpr int kExitOk = 0;
constexpr int kExitPartial = 1;
constexpr int kExitUsage = 2;

// A coordinate system as named on the command line: a projection string
// (catalogue name, "LONG/LAT", "NON-UTM" or WKT), or the path of a .prj file
// whose first line is the WKT.
std::string GxSystemText(const std::string& argument);

// The map projection of a command-line system; null, with a message on
// standard error naming what went wrong, when it gives none.
std::unique_ptr<CGxMapProjection> GxOpenSystem(const std::string& argument);

// A whole argument read as a finite number (decimal point in every locale).
bool GxReadNumber(const std::string& text, double* value);

// "%.*f" with a decimal point in every locale; "-0" is written "0".
std::string GxFixed(double value, int decimals);

// Prints "gxcart: " and the message to standard error.
void GxError(const std::string& message);

// The value of an option that takes one ("--from S"); advances i past it.
// False, with a message, when the value is missing.
bool GxOptionValue(const GxArgs& args, std::size_t& i, std::string* value);

bool GxIsHelp(const std::string& arg);
