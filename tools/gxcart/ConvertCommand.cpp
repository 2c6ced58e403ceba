// gxcart convert: coordinates from one system to another, one row out for
// every line in, so that row n of the output always belongs to line n of the
// input (IDs kept beside the coordinates stay with their points).

#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "Commands.h"
#include "datum/DatumConverter.h"
#include "datum/DatumShift.h"
#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/Text.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

namespace {

const char* const kHelp =
    "usage: gxcart convert --from S --to T [OPTIONS] [FILE]\n"
    "\n"
    "Converts points from the coordinate system S to T, one point a line, read\n"
    "from FILE or standard input ('-'), and writes one line for every line read.\n"
    "\n"
    "A line starts with x y [h]: on a geographical side longitude and latitude in\n"
    "decimal degrees, on a projected side easting and northing in metres (see\n"
    "--native-units), h the ellipsoidal height in metres. The numbers are\n"
    "separated by blanks or tabs, or by commas (blanks around a comma allowed),\n"
    "never by both on one line: '9,5 48' is refused, not read as 9 5 48 or as\n"
    "9.5 48; numbers always take a decimal point. A third number is the height;\n"
    "whatever follows the coordinates (IDs, attributes, a fourth number) is\n"
    "written after the converted ones unchanged. Comment lines (starting with\n"
    "'#') and blank lines are written as they are.\n"
    "\n"
    "A line that cannot be read or converted (not numbers, a latitude beyond\n"
    "+-90 or a longitude beyond +-720, a point the target system cannot show) is\n"
    "written with the error marker in place of each number, and reported with\n"
    "its line number on standard error; the exit status is then 1.\n"
    "\n"
    "Systems on different datums are converted through WGS 84 with their TOWGS84\n"
    "shifts; heights then change with the ellipsoid. A system without a shift is\n"
    "taken as lying on WGS 84, and a warning says so when that matters. The web\n"
    "Mercator (EPSG:3857 in any of its spellings) lies on WGS 84: its longitudes\n"
    "and latitudes are WGS 84's.\n"
    "LONG/LAT names no datum: to shift from or to WGS 84 longitude/latitude give\n"
    "its GEOGCS as WKT or a .prj file.\n"
    "\n"
    "S and T are catalogue names (UTM-32), LONG/LAT, NON-UTM, WKT text, or the\n"
    "path of a .prj file (read whole, pretty-printed or not).\n"
    "\n"
    "  --inverse            convert from T to S instead\n"
    "  --precision N        decimals written (default 9 for degrees, 4 otherwise)\n"
    "  --native-units       projected coordinates in the system's own linear unit\n"
    "                       (US survey feet for a US-foot system) instead of metres\n"
    "  --2d                 read x y only: a third column is passed through\n"
    "  --error-marker TEXT  written for each number of a failed line (default *)\n"
    "\n"
    "Exit status: 0 every line converted, 1 some lines failed, 2 a wrong command\n"
    "line or input file, 3 reading or writing failed part way.\n";

// Input larger than this shows its progress when standard error is a
// terminal.
constexpr std::uintmax_t kProgressBytes = 4u << 20;
constexpr unsigned long kProgressLines = 1u << 16;
constexpr int kMaxDecimals = 17;
constexpr int kDegreeDecimals = 9;
constexpr int kUnitDecimals = 4;
// A line longer than this is no coordinate line; it fails, and only this
// much of it is kept in memory.
constexpr std::size_t kMaxLineBytes = 1u << 20;

// A side whose coordinates are longitude/latitude in degrees: the conversion
// skips its projection. A rotated grid is not one of them; its own
// coordinates are what the user holds.
bool IsGeographicalSide(const CGxMapProjection& system) {
    const char* text = system.GetProjectionString();
    return CGxMapProjection::IsLongLat(text) ||
           CGxMapProjection::IsProjectionOfType(text, CGxMapProjData::eGeographical);
}

struct Options {
    std::string from, to, file;
    bool inverse = false;
    bool nativeUnits = false;
    bool twoD = false;
    int precision = -1;
    std::string marker = "*";
};

int ParseOptions(const GxIo& io, const GxArgs& args, Options* options) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        std::string value;
        if (arg == "--from" || arg == "--to") {
            if (!GxOptionValue(io, args, i, &value)) return kExitUsage;
            (arg == "--from" ? options->from : options->to) = value;
        } else if (arg == "--inverse") {
            options->inverse = true;
        } else if (arg == "--native-units") {
            options->nativeUnits = true;
        } else if (arg == "--2d") {
            options->twoD = true;
        } else if (arg == "--error-marker") {
            if (!GxOptionValue(io, args, i, &value)) return kExitUsage;
            if (value.find_first_of("\n\r") != std::string::npos) {
                GxError(io, "--error-marker cannot hold a line break");
                return kExitUsage;
            }
            options->marker = value;
        } else if (arg == "--precision") {
            double digits = 0;
            if (!GxOptionValue(io, args, i, &value)) return kExitUsage;
            if (!GxReadNumber(value, &digits) || digits < 0 || digits > kMaxDecimals ||
                digits != std::floor(digits)) {
                GxError(io,
                        "--precision takes a whole number from 0 to 17, not " + GxPrintable(value));
                return kExitUsage;
            }
            options->precision = static_cast<int>(digits);
        } else if (arg.size() > 1 && arg[0] == '-' && arg[1] == '-') {
            GxError(io, "unknown option " + GxPrintable(arg) + " (see gxcart convert --help)");
            return kExitUsage;
        } else if (options->file.empty()) {
            options->file = arg;
        } else {
            GxError(io, "more than one input file given");
            return kExitUsage;
        }
    }
    if (options->from.empty() || options->to.empty()) {
        GxError(io, "convert needs --from and --to (see gxcart convert --help)");
        return kExitUsage;
    }
    return kExitOk;
}

// Lines of a stream without their line feed; a read error is told apart
// from the end of the input. Each line is taken as soon as it is complete,
// so that a user typing points at a terminal sees each answer at once.
class LineReader {
public:
    enum EResult { eLine, eEnd, eError };

    explicit LineReader(std::FILE* stream) : in(stream) {}

    // The next line into *line (at most kMaxLineBytes of it; *tooLong tells
    // that more was skipped).
    EResult Next(std::string* line, bool* tooLong) {
        line->clear();
        *tooLong = false;
        bool any = false;
        int c;
        while ((c = getc_unlocked(in)) != EOF) {
            any = true;
            ++consumed;
            if (c == '\n') return eLine;
            if (line->size() < kMaxLineBytes)
                line->push_back(static_cast<char>(c));
            else
                *tooLong = true;
        }
        if (std::ferror(in)) {
            error = errno;
            return eError;
        }
        return any ? eLine : eEnd;
    }
    int Error() const { return error; }
    std::uintmax_t Consumed() const { return consumed; }

private:
    std::FILE* in;
    int error = 0;
    std::uintmax_t consumed = 0;
};

struct FileCloser {
    std::FILE* file;
    ~FileCloser() {
        if (file) std::fclose(file);
    }
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsSeparator(char c) {
    return IsBlank(c) || c == ',';
}

enum class ESeparator { eBlank, eComma, eDoubleComma };

// The coordinates at the start of a line and where the rest of it begins.
struct Row {
    double v[3] = {0.0, 0.0, 0.0};
    int count = 0;          // coordinates read: 2 or 3
    std::size_t tail = 0;   // first byte after the last coordinate
    std::string separator;  // written between the numbers of the output
    std::string problem;    // why the line was not read; empty when it was
};

// Reads x y [h] from the start of a line. Numbers are separated by blanks
// and tabs, or by one comma (blanks around it allowed); all separators between
// the numbers of a line must be of one kind, so "9,5 48" (a decimal comma, or
// 9 5 48?) and "537117 5344208,12" are refused instead of guessed. The field
// after the coordinates counts too when it is a number: "9.5 48.25 120,5"
// is as ambiguous as the others.
void ReadRow(const std::string& line, bool twoD, Row* row) {
    const int wanted = twoD ? 2 : 3;
    const std::size_t n = line.size();
    double values[4];
    std::size_t ends[4];
    ESeparator before[4] = {ESeparator::eBlank, ESeparator::eBlank, ESeparator::eBlank,
                            ESeparator::eBlank};
    bool tabFirst = false;
    int numbers = 0;
    std::size_t i = 0;
    while (i < n && IsBlank(line[i])) ++i;
    // One number beyond the coordinates is read to check its separator.
    while (numbers <= wanted && i < n) {
        std::size_t end = i;
        while (end < n && !IsSeparator(line[end])) ++end;
        if (end == i || !GxReadNumber(line.substr(i, end - i), &values[numbers])) break;
        ends[numbers++] = end;
        int commas = 0;
        bool tab = false;
        for (i = end; i < n && IsSeparator(line[i]); ++i) {
            commas += line[i] == ',';
            tab = tab || line[i] == '\t';
        }
        if (numbers <= 3)
            before[numbers] = commas == 0   ? ESeparator::eBlank
                              : commas == 1 ? ESeparator::eComma
                                            : ESeparator::eDoubleComma;
        if (numbers == 1) tabFirst = tab;
    }
    if (numbers < 2) {
        row->problem = "not a point: x y [h] expected";
        return;
    }
    const int count = std::min(numbers, wanted);
    // Separators before the second and later coordinates, and before a
    // number that follows them.
    const ESeparator kind = before[1];
    for (int k = 1; k < numbers; ++k) {
        if (before[k] == ESeparator::eDoubleComma) {
            if (k < count) {
                row->problem = "an empty field between two numbers";
                return;
            }
            continue;
        }
        if (before[k] != kind) {
            row->problem =
                "blanks and commas both separate numbers, so the line reads two ways: use one "
                "kind (and a decimal point)";
            return;
        }
    }
    row->count = count;
    for (int k = 0; k < count; ++k) row->v[k] = values[k];
    row->tail = ends[row->count - 1];
    row->separator = kind == ESeparator::eComma ? "," : tabFirst ? "\t" : " ";
}

// Metres per unit of a projected side, or 1 where the side has no such unit
// (a geographical side, a plane grid, a system that declares none).
double LinearUnit(const CGxMapProjection& system) {
    if (system.IsGeographical()) return 1.0;
    double factor = 1.0;
    if (!system.GetUnit(CGxMapProjection::eProjectedUnit, &factor, nullptr) ||
        !std::isfinite(factor) || !(factor > 0))
        return 1.0;
    return factor;
}

class Progress {
public:
    Progress(std::FILE* stream, std::uintmax_t totalBytes)
        : err(stream),
          total(totalBytes),
          shown(totalBytes >= kProgressBytes && isatty(fileno(stream))) {}
    ~Progress() {
        if (shown && lines >= kProgressLines) std::fprintf(err, "\r%40s\r", "");
    }
    void Line(std::uintmax_t bytesRead) {
        if (!shown || ++lines % kProgressLines != 0) return;
        std::fprintf(err, "\rgxcart: %lu lines, %3.0f%%", lines,
                     100.0 * static_cast<double>(bytesRead) / static_cast<double>(total));
    }

private:
    std::FILE* err;
    std::uintmax_t total;
    bool shown;
    unsigned long lines = 0;
};

// ------------------------------------------------------------ datum warning

// What the datum check needs to know of one side.
struct DatumSide {
    std::string argument;
    bool hasEllipsoid = false;
    CGxEllipsoid ellipsoid;
    bool hasShift = false;
    std::string datum;  // normalised DATUM name of the user's WKT; empty otherwise
};

// Upper-case letters and digits of a datum name, without the "D_" that
// ESRI's files put in front: "D_WGS_1984" and "WGS 1984" compare equal. A
// name that only says the datum is unknown ("Unknown based on International
// 1924 ellipsoid", GDAL's words for a bare ellipsoid) gives the empty text:
// such a datum is known by its ellipsoid alone.
std::string NormalDatumName(const std::string& name) {
    const std::size_t start =
        name.size() > 2 && (name[0] == 'D' || name[0] == 'd') && name[1] == '_' ? 2 : 0;
    std::string out;
    for (std::size_t i = start; i < name.size(); ++i) {
        // ASCII letters and digits only, whatever the process locale.
        const char c = name[i];
        const char upper = GxAsciiUpper(c);
        if ((upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9')) out += upper;
    }
    for (const char* unnamed : {"UNKNOWN", "UNNAMED", "UNDEFINED", "NOTSPECIFIED"})
        if (out.compare(0, std::strlen(unnamed), unnamed) == 0) return "";
    return out;
}

bool IsWgs84Name(const std::string& datum) {
    return datum == "WGS84" || datum == "WGS1984" || datum == "WORLDGEODETICSYSTEM1984";
}

// text is what the system was built from. A catalogue system is written
// out as WKT whose DATUM is only the catalogue's branch, so only a datum the
// user's own WKT names counts.
DatumSide Describe(const CGxMapProjection& system, const std::string& argument,
                   const std::string& text) {
    DatumSide side;
    side.argument = argument;
    if (CGxDatumConverter::IsWebMercator(system)) {
        // The web Mercator's longitudes and latitudes are WGS 84's whatever
        // its sphere and its datum are called ("D_Google_Maps"), and the
        // converter takes them so.
        side.hasEllipsoid = true;
        side.ellipsoid = CGxEllipsoid("WGS 84", "", 6378137.0, 298.257223563);
        side.datum = "WGS84";
        return side;
    }
    side.hasEllipsoid = system.GetProjection()->GetAnonymousEllipsoid(side.ellipsoid);
    CGxDatumShift shift;
    system.GetDatumShift(shift);
    side.hasShift = shift.GetType() != CGxCartDef::eNoDatumShift;
    if (CGxPRJParser::IsPRJ(text)) {
        CGxPRJParser parser(text);
        parser.Parse(false);
        side.datum = NormalDatumName(parser.GetDatum());
    }
    return side;
}

bool NearWgs84Ellipsoid(const CGxEllipsoid& e) {
    return e.GetMajor() == 6378137.0 && std::fabs(e.GetInvFlatness() - 298.257223563) < 1e-2;
}

// A side without a shift is taken as lying on WGS 84: right for WGS 84
// itself, wrong by the size of its datum shift for every other datum.
bool LacksShift(const DatumSide& side) {
    if (side.hasShift) return false;
    if (!side.datum.empty()) return !IsWgs84Name(side.datum);
    const CGxEllipsoid wgs84("", "", 6378137.0, 298.257223563);
    return !side.ellipsoid.IsEquivalent(wgs84);
}

// Warns once when the conversion crosses datums but a side gives no shift
// to WGS 84, so that its coordinates are taken as WGS 84 ones.
void WarnAboutMissingShift(const GxIo& io, const DatumSide& source, const DatumSide& target,
                           const CGxDatumConverter& converter) {
    // LONG/LAT has no ellipsoid: its coordinates are taken on the other
    // system's datum, whatever that is (the help says so).
    if (!source.hasEllipsoid || !target.hasEllipsoid) return;
    const bool namesDiffer =
        !source.datum.empty() && !target.datum.empty() && source.datum != target.datum;
    if (converter.GetBypassXYZ() && !namesDiffer) return;
    const bool sourceLacks = LacksShift(source), targetLacks = LacksShift(target);
    if (!sourceLacks && !targetLacks) return;
    std::string subject;
    if (sourceLacks && targetLacks)
        subject = "neither " + GxPrintable(source.argument) + " nor " +
                  GxPrintable(target.argument) +
                  " has a datum shift to WGS 84 (no TOWGS84 clause), though their datums "
                  "differ: the conversion takes both as lying on WGS 84";
    else
        subject = GxPrintable((sourceLacks ? source : target).argument) +
                  " has no datum shift to WGS 84 (no TOWGS84 clause): the conversion between " +
                  GxPrintable(source.argument) + " and " + GxPrintable(target.argument) +
                  " takes it as lying on WGS 84";
    const bool nearWgs84 = (!sourceLacks || NearWgs84Ellipsoid(source.ellipsoid)) &&
                           (!targetLacks || NearWgs84Ellipsoid(target.ellipsoid));
    const std::string size =
        nearWgs84 ? "up to about 2 m (datums on the GRS 1980 ellipsoid, such as ETRS89 and "
                    "NAD83, lie within a metre or two of WGS 84)"
                  : "of tens to hundreds of metres (ED50 in Germany: about 125 m, Tokyo: about "
                    "460 m)";
    GxWarning(io, subject + ". Expect errors " + size +
                      ". Give the system as WKT or a .prj file with its TOWGS84 to convert "
                      "exactly.");
}

}  // namespace

int GxRunConvert(const GxArgs& args, const GxIo& io) {
    for (const std::string& arg : args) {
        if (GxIsHelp(arg)) return GxWrite(io.out, kHelp) ? kExitOk : kExitIo;
    }
    Options options;
    if (int status = ParseOptions(io, args, &options)) return status;

    std::string sourceText, targetText;
    std::unique_ptr<CGxMapProjection> source = GxOpenSystem(io, options.from, &sourceText);
    std::unique_ptr<CGxMapProjection> target = GxOpenSystem(io, options.to, &targetText);
    if (!source || !target) return kExitUsage;

    std::FILE* in = io.in;
    std::FILE* file = nullptr;
    std::string inputName = "standard input";
    std::uintmax_t size = 0;
    if (!options.file.empty() && options.file != "-") {
        file = std::fopen(options.file.c_str(), "rb");
        if (!file) {
            GxError(io, "cannot read " + GxPrintable(options.file) + ": " + GxErrnoText(errno));
            return kExitUsage;
        }
        struct stat info {};
        if (fstat(fileno(file), &info) == 0) {
            if (S_ISDIR(info.st_mode)) {
                std::fclose(file);
                GxError(io, "cannot read " + GxPrintable(options.file) + ": it is a directory");
                return kExitUsage;
            }
            if (S_ISREG(info.st_mode)) size = static_cast<std::uintmax_t>(info.st_size);
        }
        in = file;
        inputName = GxPrintable(options.file);
    }
    const FileCloser closer{file};

    const bool sourceGeo = IsGeographicalSide(*source);
    const bool targetGeo = IsGeographicalSide(*target);
    CGxDatumConverter converter(source.get(), target.get());
    converter.SetConversionType(static_cast<CGxDatumConverter::ETypeOfConversion>(
        (sourceGeo ? 2 : 0) + (targetGeo ? 1 : 0)));
    if (!source->IsLocal() && !target->IsLocal())
        WarnAboutMissingShift(io, Describe(*source, options.from, sourceText),
                              Describe(*target, options.to, targetText), converter);

    const bool inputGeo = options.inverse ? targetGeo : sourceGeo;
    const bool outputGeo = options.inverse ? sourceGeo : targetGeo;
    const int decimals =
        options.precision >= 0 ? options.precision : (outputGeo ? kDegreeDecimals : kUnitDecimals);
    const int heightDecimals = options.precision >= 0 ? options.precision : kUnitDecimals;
    // The library works in metres; with --native-units the tool converts
    // projected input from and output to each side's own unit.
    double inputUnit = 1.0, outputUnit = 1.0;
    if (options.nativeUnits) {
        const CGxMapProjection& inputSide = options.inverse ? *target : *source;
        const CGxMapProjection& outputSide = options.inverse ? *source : *target;
        if (!inputGeo) inputUnit = LinearUnit(inputSide);
        if (!outputGeo) outputUnit = LinearUnit(outputSide);
    }

    Progress progress(io.err, size);
    LineReader reader(in);
    std::string line, out;
    Row row;
    unsigned long lineNumber = 0, failed = 0;
    bool tooLong = false;
    LineReader::EResult result;
    while ((result = reader.Next(&line, &tooLong)) == LineReader::eLine) {
        ++lineNumber;
        progress.Line(reader.Consumed());
        const bool crlf = !tooLong && !line.empty() && line.back() == '\r';
        if (crlf) line.pop_back();
        const char* ending = crlf ? "\r\n" : "\n";
        const std::size_t first = line.find_first_not_of(" \t");
        if (!tooLong && (first == std::string::npos || line[first] == '#')) {
            out = line;
            out += ending;
            if (!GxWrite(io.out, out)) break;
            continue;
        }

        row = Row();
        if (tooLong)
            row.problem = "a line longer than 1 MiB";
        else
            ReadRow(line, options.twoD, &row);
        if (row.problem.empty() && inputGeo && !(std::fabs(row.v[1]) <= 90.0))
            row.problem = "latitude " + GxFormatNumber(row.v[1]) + " lies outside -90..90";
        if (row.problem.empty() && inputGeo && !(std::fabs(row.v[0]) <= kGxLongitudeLimit))
            row.problem = "longitude " + GxFormatNumber(row.v[0]) + " lies outside -720..720";
        if (row.problem.empty()) {
            if (!inputGeo) {
                row.v[0] *= inputUnit;
                row.v[1] *= inputUnit;
            }
            if (options.inverse)
                converter.InvConvert(row.v[0], row.v[1], row.v[2]);
            else
                converter.Convert(row.v[0], row.v[1], row.v[2]);
            if (!outputGeo) {
                row.v[0] /= outputUnit;
                row.v[1] /= outputUnit;
            }
            if (!std::isfinite(row.v[0]) || !std::isfinite(row.v[1]) || !std::isfinite(row.v[2]) ||
                (outputGeo && std::fabs(row.v[1]) > 90.0))
                row.problem = "the point has no image in the target system";
        }

        out.clear();
        const int written = row.count > 0 ? row.count : 2;
        if (row.separator.empty())
            row.separator = line.find_first_of(" \t") == std::string::npos &&
                                    line.find(',') != std::string::npos
                                ? ","
                                : " ";
        for (int k = 0; k < written; ++k) {
            if (k > 0) out += row.separator;
            if (!row.problem.empty())
                out += options.marker;
            else
                out += GxFixed(row.v[k], k < 2 ? decimals : heightDecimals);
        }
        if (row.count > 0) out.append(line, row.tail, std::string::npos);
        out += ending;
        if (!GxWrite(io.out, out)) break;
        if (!row.problem.empty()) {
            ++failed;
            GxError(io, inputName + ":" + std::to_string(lineNumber) + ": " + row.problem + ": " +
                            GxPrintable(line));
        }
    }
    // Output still in the stream's buffer fails only when it is flushed.
    if (std::fflush(io.out) != 0 || std::ferror(io.out)) {
        GxError(io, "cannot write the output: " + GxErrnoText(errno));
        return kExitIo;
    }
    if (result == LineReader::eError) {
        GxError(io, "cannot read " + inputName + ": " + GxErrnoText(reader.Error()));
        return kExitIo;
    }
    if (failed > 0) {
        GxError(io, std::to_string(failed) + " of " + std::to_string(lineNumber) +
                        " lines could not be converted");
        return kExitPartial;
    }
    return kExitOk;
}
