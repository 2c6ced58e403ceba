#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

class CGxMapProjection;

// What the subcommands of gxcart share: the arguments, the streams, how a
// coordinate system is named on the command line, and numbers in and out.

// The arguments after the subcommand's name.
using GxArgs = std::vector<std::string>;

// The streams a command reads and writes. The program passes the standard
// ones; the fuzz program passes memory and /dev/null.
struct GxIo {
    std::FILE* in;
    std::FILE* out;
    std::FILE* err;
};

GxIo GxStandardIo();

// Exit statuses: 0 everything done, 1 some input could not be converted or a
// result could not be computed, 2 the command line is wrong (including a
// file that cannot be opened), 3 reading the input or writing the output
// failed part way.
constexpr int kExitOk = 0;
constexpr int kExitPartial = 1;
constexpr int kExitUsage = 2;
constexpr int kExitIo = 3;

// No real longitude lies more than two turns from Greenwich; beyond that a
// number is a mistake (a swapped column, a unit of metres) and no longitude.
constexpr double kGxLongitudeLimit = 720.0;

// The map projection of a coordinate system named on the command line: a
// projection string (catalogue name, "LONG/LAT", "NON-UTM" or WKT), or the
// whole content of a file when the argument ends in ".prj", or names no
// known system but an existing file. Null, with a message naming what went
// wrong (an unknown name, a missing or unreadable file, "UTM" without zone),
// when it gives none. *text (when given) receives what the system was built
// from: the argument or the file's content.
std::unique_ptr<CGxMapProjection> GxOpenSystem(const GxIo& io, const std::string& argument,
                                               std::string* text = nullptr);

// A whole argument read as a finite number (decimal point in every locale).
bool GxReadNumber(const std::string& text, double* value);

// "%.*f" with a decimal point in every locale and every digit, however
// large the value; "-0" is written "0".
std::string GxFixed(double value, int decimals);

// Bytes made safe to show on a terminal: control characters, DEL, bytes
// that are not UTF-8 and the C1 controls become \xNN, a backslash becomes
// "\\". More than maxBytes of input are cut and the total length noted.
std::string GxPrintable(const std::string& bytes, std::size_t maxBytes = 200);

// "gxcart: " and the message on the error stream; GxWarning adds
// "warning: ".
void GxError(const GxIo& io, const std::string& message);
void GxWarning(const GxIo& io, const std::string& message);

// The value of an option that takes one ("--from S"); advances i past it.
// False, with a message, when the value is missing.
bool GxOptionValue(const GxIo& io, const GxArgs& args, std::size_t& i, std::string* value);

bool GxIsHelp(const std::string& arg);

// Writes all of text; false when the stream takes less (a full disk, a
// closed pipe).
bool GxWrite(std::FILE* stream, const std::string& text);

// The text of errno for messages.
std::string GxErrnoText(int error);

// Writes text to the file at path so that an existing file is either
// replaced whole or left as it was: a regular file goes through a temporary
// file in the same folder that is renamed over it; anything else (a device,
// a pipe) is written directly. False, with the reason, on failure.
bool GxWriteFile(const std::string& path, const std::string& text, std::string* problem);
