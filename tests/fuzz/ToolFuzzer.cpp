// The layers around the library with hostile strings: the gxcart tool's
// convert and graticule commands run in process on memory streams, and the
// local grid and the datum converter built from any two projection strings
// and fed any numbers.
//
// Input: one selector byte, then the first string, a NUL, the second string,
// a NUL and the rest (the input file of convert, or numbers for the others;
// it may hold NULs itself).

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "Commands.h"
#include "FuzzSupport.h"
#include "datum/DatumConverter.h"
#include "foundation/NumberText.h"
#include "mapprojection/Cartography.h"

namespace {

struct Parts {
    unsigned selector = 0;
    std::string first, second, rest;
};

Parts Split(const std::uint8_t* data, std::size_t size) {
    Parts parts;
    if (size == 0) return parts;
    parts.selector = data[0];
    const std::string text = gxfuzz::Text(data + 1, size - 1);
    const std::size_t a = text.find('\0');
    parts.first = text.substr(0, a);
    if (a == std::string::npos) return parts;
    const std::size_t b = text.find('\0', a + 1);
    parts.second = text.substr(a + 1, b == std::string::npos ? std::string::npos : b - a - 1);
    if (b != std::string::npos) parts.rest = text.substr(b + 1);
    return parts;
}

// Numbers of the rest, read the way the library reads them, with the edges
// no formula can map mixed in: every fourth value is taken from a table
// chosen by the selector.
std::vector<double> Numbers(const Parts& parts) {
    static const double kEdges[] = {0.0,    -0.0,   90.0,     -90.0,     180.0, 1e308,
                                    -1e308, 5e-324, HUGE_VAL, -HUGE_VAL, NAN,   6378137.0};
    std::vector<double> values;
    const char* p = parts.rest.c_str();
    for (int i = 0; i < 32 && *p; ++i) {
        std::size_t used = 0;
        const double v = GxParseNumber(p, &used);
        values.push_back(i % 4 == 3 ? kEdges[(parts.selector + i) % std::size(kEdges)] : v);
        p += used > 0 ? used : 1;
    }
    while (values.size() < 8) values.push_back(kEdges[values.size() % std::size(kEdges)]);
    return values;
}

// The one exception the library throws: the bare "UTM", which names no zone.
bool IsBareUtm(const std::string& text) {
    const std::string s(text.c_str());
    const auto first = s.find_first_not_of(" \t\r\n\f\v");
    if (first == std::string::npos) return false;
    const auto last = s.find_last_not_of(" \t\r\n\f\v");
    return s.compare(first, last - first + 1, "UTM") == 0;
}

std::FILE* Sink() {
    static std::FILE* sink = std::fopen("/dev/null", "w");
    return sink;
}

void RunConvert(const Parts& parts) {
    GxArgs args = {"--from", parts.first, "--to", parts.second};
    if (parts.selector & 0x04) args.push_back("--inverse");
    if (parts.selector & 0x08) args.push_back("--native-units");
    if (parts.selector & 0x10) args.push_back("--2d");
    if (parts.selector & 0x20) args.insert(args.end(), {"--precision", "17"});
    std::string input = parts.rest;
    // fmemopen refuses an empty buffer; one line feed reads the same.
    if (input.empty()) input = "\n";
    std::FILE* in = fmemopen(&input[0], input.size(), "r");
    if (!in) return;
    GxRunConvert(args, GxIo{in, Sink(), Sink()});
    std::fclose(in);
}

void RunGraticule(const Parts& parts) {
    // An argument that starts with '-' would be taken for an option (-o
    // writes a file).
    if (parts.first.empty() || parts.first[0] == '-') return;
    GxArgs args = {parts.first};
    if (parts.selector & 0x04) args.insert(args.end(), {"--step", parts.second});
    GxRunGraticule(args, GxIo{stdin, Sink(), Sink()});
}

void RunCartography(const Parts& parts) {
    const std::vector<double> v = Numbers(parts);
    try {
        CGxCartography grid(parts.first.c_str(), v[0], v[1], v[2]);
        double a = 0, b = 0, c = 0, d = 0;
        for (std::size_t i = 3; i + 1 < v.size(); i += 2) {
            grid.Geo2Xy(v[i], v[i + 1], &a, &b);
            grid.Xy2Geo(a, b, &c, &d);
            grid.Proj2Xy(v[i], v[i + 1], &a, &b);
            grid.Xy2Proj(a, b, &c, &d);
            grid.GetTrueNorth(v[i], v[i + 1]);
        }
        grid.GetProjectionNorth();
        CGxCartography copy(grid);
        copy = grid;
        copy.Geo2Xy(v[0], v[1], &a, &b);
        CGxCartography other(parts.second.c_str(), v[1], v[0], v[3]);
        grid.ConvertFrom(other, v[4], v[5], &a, &b);
    } catch (const std::out_of_range&) {
        if (!IsBareUtm(parts.first) && !IsBareUtm(parts.second)) std::abort();
    }
}

void RunDatumConverter(const Parts& parts) {
    std::vector<double> v = Numbers(parts);
    try {
        CGxDatumConverter converter(parts.first.c_str(), parts.second.c_str());
        for (int type = -1; type <= 4; ++type) {
            converter.SetConversionType(static_cast<CGxDatumConverter::ETypeOfConversion>(type));
            for (std::size_t i = 0; i + 2 < v.size(); i += 3) {
                double x = v[i], y = v[i + 1], z = v[i + 2];
                converter.Convert(x, y, z);
                converter.InvConvert(x, y, z);
                converter.Convert(x, y);
            }
        }
        converter.SetConversionType(
            static_cast<CGxDatumConverter::ETypeOfConversion>(parts.selector % 4));
        std::vector<double> xs(v.begin(), v.begin() + 2), ys(v.begin() + 2, v.begin() + 4),
            hs(v.begin() + 4, v.begin() + 6);
        converter.Convert(xs.data(), ys.data(), hs.data(), xs.size());
        converter.InvConvert(xs.data(), ys.data(), nullptr, xs.size());
        const auto shiftType =
            static_cast<CGxCartDef::ETypeOfDatumShift>((parts.selector >> 2) % 3);
        converter.SetDatumShift(shiftType, v.data(), (parts.selector & 0x10) != 0);
        converter.InvertOrder();
        double X = v[0], Y = v[1], Z = v[2];
        converter.DatumShift(X, Y, Z);
        converter.InvDatumShift(X, Y, Z);
        converter.BypassXYZ();
        converter.Convert(X, Y, Z);
        converter.ResetBypassXYZ();
        CGxDatumConverter copy(converter);
        copy.InvConvert(X, Y, Z);
    } catch (const std::out_of_range&) {
        if (!IsBareUtm(parts.first) && !IsBareUtm(parts.second)) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Parts parts = Split(data, size);
    switch (parts.selector & 3) {
        case 0:
            RunConvert(parts);
            break;
        case 1:
            RunGraticule(parts);
            break;
        case 2:
            RunCartography(parts);
            break;
        default:
            RunDatumConverter(parts);
            break;
    }
    return 0;
}
