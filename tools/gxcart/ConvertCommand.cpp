// gxcart convert: coordinates from one system to another, one point a line.

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "Commands.h"
#include "datum/DatumConverter.h"
#include "definitions/MapProjData.h"
#include "mapprojection/MapProjection.h"

namespace {

const char* const kHelp =
    "usage: gxcart convert --from S --to T [--inverse] [--precision N] [FILE]\n"
    "\n"
    "Converts points from the coordinate system S to T, one point a line, read\n"
    "from FILE or standard input ('-'). A line holds two or three numbers\n"
    "separated by blanks, tabs or one comma: x y [h]. On a geographical side x y\n"
    "are longitude and latitude in decimal degrees; on a projected side they are\n"
    "easting and northing in metres, whatever linear unit a WKT declares (the\n"
    "library works in metres). h is the ellipsoidal height in metres. Systems on\n"
    "different datums are converted through WGS 84 with their TOWGS84 shifts;\n"
    "heights then change with the ellipsoid. LONG/LAT names no datum: to shift\n"
    "from or to WGS 84 longitude/latitude give its GEOGCS as WKT or a .prj file.\n"
    "Blank lines and lines starting with '#' are skipped.\n"
    "\n"
    "S and T are catalogue names (UTM-32), LONG/LAT, NON-UTM, WKT text, or the\n"
    "path of a .prj file.\n"
    "\n"
    "  --inverse      convert from T to S instead\n"
    "  --precision N  decimals written (default 9 for degrees, 4 otherwise)\n"
    "\n"
    "A line that cannot be read or converted is reported on standard error with\n"
    "its line number and left out; the exit status is then 1.\n";

// Input larger than this shows its progress when standard error is a
// terminal.
constexpr std::uintmax_t kProgressBytes = 4u << 20;
constexpr unsigned long kProgressLines = 1u << 16;
constexpr int kMaxDecimals = 17;
constexpr int kDegreeDecimals = 9;
constexpr int kUnitDecimals = 4;

// A side whose coordinates are longitude/latitude in degrees: the conversion
// skips its projection. A rotated grid is not one of them; its own
// coordinates are what the user holds.
bool IsGeographicalSide(const CGxMapProjection& system) {
    const char* text = system.GetProjectionString();
    return CGxMapProjection::IsLongLat(text) ||
           CGxMapProjection::IsProjectionOfType(text, CGxMapProjData::eGeographical);
}

bool IsSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',';
}

// Splits a line into its numbers: fields separated by blanks and tabs with at
// most one comma between two fields. False for anything else.
bool ReadFields(const std::string& line, double* values, int* count) {
    *count = 0;
    std::size_t i = 0;
    const std::size_t n = line.size();
    while (i < n && (line[i] == ' ' || line[i] == '\t')) ++i;
    while (i < n) {
        std::size_t end = i;
        while (end < n && !IsSeparator(line[end])) ++end;
        if (end == i || *count == 3) return false;
        if (!GxReadNumber(line.substr(i, end - i), &values[(*count)++])) return false;
        int commas = 0;
        i = end;
        while (i < n && IsSeparator(line[i])) commas += line[i++] == ',';
        if (commas > 1 || (commas == 1 && i == n)) return false;
    }
    return *count >= 2;
}

struct Options {
    std::string from, to, file;
    bool inverse = false;
    int precision = -1;
};

int ParseOptions(const GxArgs& args, Options* options) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        std::string value;
        if (arg == "--from" || arg == "--to") {
            if (!GxOptionValue(args, i, &value)) return kExitUsage;
            (arg == "--from" ? options->from : options->to) = value;
        } else if (arg == "--inverse") {
            options->inverse = true;
        } else if (arg == "--precision") {
            double digits = 0;
            if (!GxOptionValue(args, i, &value)) return kExitUsage;
            if (!GxReadNumber(value, &digits) || digits < 0 || digits > kMaxDecimals ||
                digits != std::floor(digits)) {
                GxError("--precision takes a whole number from 0 to 17, not " + value);
                return kExitUsage;
            }
            options->precision = static_cast<int>(digits);
        } else if (arg.size() > 1 && arg[0] == '-' && arg[1] == '-') {
            GxError("unknown option " + arg + " (see gxcart convert --help)");
            return kExitUsage;
        } else if (options->file.empty()) {
            options->file = arg;
        } else {
            GxError("more than one input file given");
            return kExitUsage;
        }
    }
    if (options->from.empty() || options->to.empty()) {
        GxError("convert needs --from and --to (see gxcart convert --help)");
        return kExitUsage;
    }
    return kExitOk;
}

class Progress {
public:
    explicit Progress(std::uintmax_t totalBytes)
        : total(totalBytes), shown(totalBytes >= kProgressBytes && isatty(STDERR_FILENO)) {}
    ~Progress() {
        if (shown && lines >= kProgressLines) std::fprintf(stderr, "\r%40s\r", "");
    }
    void Line(std::uintmax_t bytesRead) {
        if (!shown || ++lines % kProgressLines != 0) return;
        std::fprintf(stderr, "\rgxcart: %lu lines, %3.0f%%", lines,
                     100.0 * static_cast<double>(bytesRead) / static_cast<double>(total));
    }

private:
    std::uintmax_t total;
    bool shown;
    unsigned long lines = 0;
};

}  // namespace

int GxRunConvert(const GxArgs& args) {
    for (const std::string& arg : args) {
        if (GxIsHelp(arg)) {
            std::fputs(kHelp, stdout);
            return kExitOk;
        }
    }
    Options options;
    if (int status = ParseOptions(args, &options)) return status;

    std::unique_ptr<CGxMapProjection> source = GxOpenSystem(options.from);
    std::unique_ptr<CGxMapProjection> target = GxOpenSystem(options.to);
    if (!source || !target) return kExitUsage;

    const bool sourceGeo = IsGeographicalSide(*source);
    const bool targetGeo = IsGeographicalSide(*target);
    CGxDatumConverter converter(source.get(), target.get());
    converter.SetConversionType(static_cast<CGxDatumConverter::ETypeOfConversion>(
        (sourceGeo ? 2 : 0) + (targetGeo ? 1 : 0)));
    const bool outputGeo = options.inverse ? sourceGeo : targetGeo;
    const int decimals =
        options.precision >= 0 ? options.precision : (outputGeo ? kDegreeDecimals : kUnitDecimals);
    const int heightDecimals = options.precision >= 0 ? options.precision : kUnitDecimals;

    std::ifstream file;
    std::istream* in = &std::cin;
    std::string inputName = "standard input";
    std::uintmax_t size = 0;
    if (!options.file.empty() && options.file != "-") {
        file.open(options.file, std::ios::binary);
        if (!file) {
            GxError("cannot read " + options.file);
            return kExitUsage;
        }
        in = &file;
        inputName = options.file;
        std::error_code ec;
        size = std::filesystem::file_size(options.file, ec);
        if (ec) size = 0;
    }

    Progress progress(size);
    std::string line, out;
    std::uintmax_t bytesRead = 0;
    unsigned long lineNumber = 0, leftOut = 0;
    while (std::getline(*in, line)) {
        ++lineNumber;
        bytesRead += line.size() + 1;
        progress.Line(bytesRead);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] == '#') continue;

        double v[3] = {0.0, 0.0, 0.0};
        int count = 0;
        if (!ReadFields(line, v, &count)) {
            std::fprintf(stderr, "gxcart: %s:%lu: not two or three numbers: %s\n",
                         inputName.c_str(), lineNumber, line.c_str());
            ++leftOut;
            continue;
        }
        if (options.inverse)
            converter.InvConvert(v[0], v[1], v[2]);
        else
            converter.Convert(v[0], v[1], v[2]);
        if (!std::isfinite(v[0]) || !std::isfinite(v[1]) || !std::isfinite(v[2])) {
            std::fprintf(stderr,
                         "gxcart: %s:%lu: the point has no image in the target system: %s\n",
                         inputName.c_str(), lineNumber, line.c_str());
            ++leftOut;
            continue;
        }
        out = GxFixed(v[0], decimals);
        out += ' ';
        out += GxFixed(v[1], decimals);
        if (count == 3) {
            out += ' ';
            out += GxFixed(v[2], heightDecimals);
        }
        out += '\n';
        std::fwrite(out.data(), 1, out.size(), stdout);
    }
    if (leftOut > 0) {
        std::fprintf(stderr, "gxcart: %lu of %lu lines left out\n", leftOut, lineNumber);
        return kExitPartial;
    }
    return kExitOk;
}
