// gxcart graticule: an SVG picture of the meridians and parallels of a
// coordinate system over its default area.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "Commands.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/ProjectionInfo.h"
#include "mapprojection/MapProjection.h"

namespace {

const char* const kHelp =
    "usage: gxcart graticule S [-o FILE.svg] [--step DEGREES]\n"
    "\n"
    "Draws the meridians and parallels of the coordinate system S over its\n"
    "default area as SVG, with the projection origin marked and the axes\n"
    "labelled in the system's units. Without -o the picture goes to standard\n"
    "output. The spacing of the meridians and of the parallels is chosen from\n"
    "the area unless --step gives one for both. Each line is one <path> of\n"
    "class 'meridian' or 'parallel' whose data-degrees attribute holds its\n"
    "longitude or latitude.\n"
    "\n"
    "At most 1000 meridians and 1000 parallels are drawn: a step that would give\n"
    "more is refused, and so is a system whose area reaches longitudes beyond\n"
    "+-720 degrees (no real system does).\n";

// Graticule spacings to choose from, degrees, and how many lines the larger
// extent should get at most.
constexpr double kNiceSteps[] = {0.01, 0.02, 0.05, 0.1, 0.2, 0.25, 0.5, 1,
                                 2,    5,    10,   15,  30,  45,   90};
constexpr double kMaxLinesPerDirection = 12;
// Bounds on what --step and a strange system can ask for: lines in each
// direction, the smallest step (about 0.1 m), the longitudes an area may
// reach, the shape of the area and the size of the picture.
constexpr double kMaxLines = 1000;
constexpr double kMinStep = 1e-6;
constexpr double kMaxAspect = 1e4;
constexpr std::size_t kMaxOutputBytes = 16u << 20;
// Points sampled along a line and across the area to find its extent.
constexpr int kLineSamples = 240;
constexpr int kAreaSamples = 64;
// A longitude extent wider than this is taken for the whole circle.
constexpr double kFullCircle = 350.0;
// Drawing size in pixels: the plot and the margins that hold the labels.
constexpr double kPlotWidth = 800, kMinPlotHeight = 200, kMaxPlotHeight = 1000;
constexpr double kMinPiecePixels = 0.5;
constexpr double kLeft = 110, kRight = 30, kTop = 30, kBottom = 60;

struct Box {
    double x0, y0, x1, y1;
};

struct Extent {
    double lonMin = HUGE_VAL, lonMax = -HUGE_VAL, latMin = HUGE_VAL, latMax = -HUGE_VAL;
    void Add(double lon, double lat) {
        if (!std::isfinite(lon) || !std::isfinite(lat)) return;
        lonMin = std::min(lonMin, lon);
        lonMax = std::max(lonMax, lon);
        latMin = std::min(latMin, lat);
        latMax = std::max(latMax, lat);
    }
    bool Valid() const { return lonMin <= lonMax && latMin <= latMax; }
};

// Longitudes and latitudes the area reaches, from the inverse projection of
// a grid of points over it.
Extent AreaExtent(const CGxProjection& projection, const Box& box) {
    Extent extent;
    for (int i = 0; i <= kAreaSamples; ++i) {
        for (int j = 0; j <= kAreaSamples; ++j) {
            double lon = NAN, lat = NAN;
            projection.Proj2Geo(box.x0 + (box.x1 - box.x0) * i / kAreaSamples,
                                box.y0 + (box.y1 - box.y0) * j / kAreaSamples, &lon, &lat);
            extent.Add(lon, lat);
        }
    }
    extent.latMin = std::max(extent.latMin, -90.0);
    extent.latMax = std::min(extent.latMax, 90.0);
    // An area around a pole reaches every longitude; the samples only come
    // close to the antimeridian from both sides.
    if (extent.lonMax - extent.lonMin > kFullCircle) {
        extent.lonMin = -180.0;
        extent.lonMax = 180.0;
    }
    return extent;
}

// The spacing of lines across a span of degrees.
double ChooseStep(double span) {
    for (double step : kNiceSteps)
        if (span / step <= kMaxLinesPerDirection) return step;
    return kNiceSteps[std::size(kNiceSteps) - 1];
}

// Clips the segment a-b to the box (Liang-Barsky); false when nothing of it
// lies inside.
bool Clip(const Box& box, double& ax, double& ay, double& bx, double& by) {
    double t0 = 0.0, t1 = 1.0;
    const double dx = bx - ax, dy = by - ay;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {ax - box.x0, box.x1 - ax, ay - box.y0, box.y1 - ay};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1) return false;
    }
    const double nax = ax + t0 * dx, nay = ay + t0 * dy;
    bx = ax + t1 * dx;
    by = ay + t1 * dy;
    ax = nax;
    ay = nay;
    return true;
}

// Projected units to picture pixels.
class Canvas {
public:
    explicit Canvas(const Box& area) : box(area) {
        const double ratio = (box.y1 - box.y0) / (box.x1 - box.x0);
        width = kPlotWidth;
        height = width * ratio;
        if (height > kMaxPlotHeight) {
            height = kMaxPlotHeight;
            width = height / ratio;
        }
        height = std::max(height, kMinPlotHeight);
    }
    double X(double x) const { return kLeft + (x - box.x0) / (box.x1 - box.x0) * width; }
    double Y(double y) const { return kTop + (box.y1 - y) / (box.y1 - box.y0) * height; }
    double Width() const { return width; }
    double Height() const { return height; }

private:
    Box box;
    double width, height;
};

std::string Px(double v) {
    return GxFixed(v, 2);
}

std::string Escape(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

// A graticule line as an SVG path of the pieces that fall inside the area;
// empty when none does. point(t) gives the projected point at t in [0, 1].
template <class PointAt>
std::string LinePath(const Box& box, const Canvas& canvas, PointAt point) {
    // A jump longer than this between neighbouring samples is a break of the
    // projection (an interrupted or wrapped line), not a piece of the line.
    const double maxJump = std::hypot(box.x1 - box.x0, box.y1 - box.y0) / 4;
    std::string d;
    double lastX = NAN, lastY = NAN;  // end of the piece being drawn, pixels
    double px = NAN, py = NAN;
    point(0.0, &px, &py);
    for (int i = 1; i <= kLineSamples; ++i) {
        double qx = NAN, qy = NAN;
        point(static_cast<double>(i) / kLineSamples, &qx, &qy);
        double ax = px, ay = py, bx = qx, by = qy;
        px = qx;
        py = qy;
        if (!std::isfinite(ax) || !std::isfinite(ay) || !std::isfinite(bx) || !std::isfinite(by) ||
            std::hypot(bx - ax, by - ay) > maxJump || !Clip(box, ax, ay, bx, by))
            continue;
        const double sx = canvas.X(ax), sy = canvas.Y(ay);
        // A line that only touches the area (a meridian through a corner of
        // the area) leaves pieces nobody could see; they are not drawn.
        if (std::hypot(canvas.X(bx) - sx, canvas.Y(by) - sy) < kMinPiecePixels) continue;
        if (!(std::fabs(sx - lastX) < 1e-6 && std::fabs(sy - lastY) < 1e-6))
            d += "M" + Px(sx) + " " + Px(sy) + " ";
        lastX = canvas.X(bx);
        lastY = canvas.Y(by);
        d += "L" + Px(lastX) + " " + Px(lastY) + " ";
    }
    if (!d.empty()) d.pop_back();
    return d;
}

// Round tick values for an axis from lo to hi, about six of them.
std::vector<double> Ticks(double lo, double hi) {
    const double raw = (hi - lo) / 6;
    const double magnitude = std::pow(10.0, std::floor(std::log10(raw)));
    double step = magnitude;
    for (double m : {1.0, 2.0, 5.0, 10.0})
        if (m * magnitude >= raw) {
            step = m * magnitude;
            break;
        }
    std::vector<double> ticks;
    // About six ticks; the bound also ends the loop where k * step no longer
    // grows (an area far from the origin for its size).
    const double first = std::ceil(lo / step);
    for (int i = 0; i < 20 && (first + i) * step <= hi; ++i) ticks.push_back((first + i) * step);
    return ticks;
}

std::string TickText(double v) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.10g", std::fabs(v) < 1e-9 ? 0.0 : v);
    return buffer;
}

std::string Degrees(double v) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.10g", std::fabs(v) < 1e-12 ? 0.0 : v);
    return buffer;
}

// The lines of one direction: k0 * step, (k0 + 1) * step, ... up to last.
struct Lines {
    double k0 = 0;
    long count = 0;
    bool tooMany = false;
};

Lines LinesBetween(double from, double last, double step) {
    Lines lines;
    lines.k0 = std::ceil(from / step - 1e-9);
    const double count = std::floor(last / step) - lines.k0 + 1;
    lines.tooMany = !(count <= kMaxLines);
    if (!lines.tooMany && count > 0) lines.count = static_cast<long>(count);
    return lines;
}

std::string TooMany(const char* what, double span, double step) {
    return std::string("graticule: a step of ") + Degrees(step) + " degrees gives more than " +
           Degrees(kMaxLines) + " " + what + " over " + Degrees(span) +
           " degrees: give a larger --step";
}

}  // namespace

int GxRunGraticule(const GxArgs& args, const GxIo& io) {
    std::string systemName, output;
    double step = 0.0;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        std::string value;
        if (GxIsHelp(arg)) {
            return GxWrite(io.out, kHelp) ? kExitOk : kExitIo;
        } else if (arg == "-o" || arg == "--output") {
            if (!GxOptionValue(io, args, i, &output)) return kExitUsage;
        } else if (arg == "--step") {
            if (!GxOptionValue(io, args, i, &value)) return kExitUsage;
            if (!GxReadNumber(value, &step) || step < kMinStep || step > 90) {
                GxError(io, "--step takes degrees from 0.000001 to 90, not " + GxPrintable(value));
                return kExitUsage;
            }
        } else if (systemName.empty()) {
            systemName = arg;
        } else {
            GxError(io, "graticule takes one coordinate system (see gxcart graticule --help)");
            return kExitUsage;
        }
    }
    if (systemName.empty()) {
        GxError(io, "graticule needs a coordinate system (see gxcart graticule --help)");
        return kExitUsage;
    }
    const std::unique_ptr<CGxMapProjection> system = GxOpenSystem(io, systemName);
    if (!system) return kExitUsage;
    const std::string shownName = GxPrintable(systemName);
    if (system->IsLocal()) {
        GxError(io, "graticule: " + shownName + " is a plane grid without longitude and latitude");
        return kExitPartial;
    }
    const CGxProjection& projection = *system->GetProjection();

    // The area and the lines are drawn in the algorithm's own easting and
    // northing, the terms the default area is given in.
    Box box{0, 0, 0, 0};
    projection.GetDefaultArea(&box.x0, &box.y0, &box.x1, &box.y1);
    const double aspect = (box.y1 - box.y0) / (box.x1 - box.x0);
    if (!(box.x1 > box.x0) || !(box.y1 > box.y0) || !std::isfinite(box.x1 - box.x0) ||
        !std::isfinite(box.y1 - box.y0) || !(aspect <= kMaxAspect && aspect >= 1 / kMaxAspect)) {
        GxError(io, "graticule: " + shownName + " has no area to draw");
        return kExitPartial;
    }
    const Extent extent = AreaExtent(projection, box);
    if (!extent.Valid()) {
        GxError(io,
                "graticule: no point of the area of " + shownName + " has a longitude/latitude");
        return kExitPartial;
    }
    // An absurd prime meridian or origin puts the whole area at longitudes
    // like 1e308, where no step could count the lines.
    if (!(std::fabs(extent.lonMin) <= kGxLongitudeLimit &&
          std::fabs(extent.lonMax) <= kGxLongitudeLimit)) {
        const double far =
            std::fabs(extent.lonMin) > std::fabs(extent.lonMax) ? extent.lonMin : extent.lonMax;
        GxError(io, "graticule: the area of " + shownName + " reaches longitude " +
                        GxFormatNumber(far) +
                        ", beyond +-720 degrees: the system's longitudes cannot be drawn");
        return kExitPartial;
    }
    // Meridians and parallels are spaced on their own unless --step says:
    // around a pole the longitudes span the full circle and the latitudes
    // only a few degrees.
    const double lonStep = step > 0.0 ? step : ChooseStep(extent.lonMax - extent.lonMin);
    const double latStep = step > 0.0 ? step : ChooseStep(extent.latMax - extent.latMin);

    // Where -180 and 180 are one meridian (around a pole, unlike on a plate
    // carree) it is drawn once.
    const double latMid = (extent.latMin + extent.latMax) / 2;
    double wx = NAN, wy = NAN, ex = NAN, ey = NAN;
    projection.Geo2Proj(extent.lonMin, latMid, &wx, &wy);
    projection.Geo2Proj(extent.lonMin + 360.0, latMid, &ex, &ey);
    const bool wraps =
        extent.lonMax - extent.lonMin > kFullCircle &&
        std::hypot(ex - wx, ey - wy) <= 1e-9 * std::hypot(box.x1 - box.x0, box.y1 - box.y0);
    const double lonEnd =
        wraps ? extent.lonMin + 360.0 - 1e-9 * lonStep : extent.lonMax + 1e-9 * lonStep;
    const Lines meridianLines = LinesBetween(extent.lonMin, lonEnd, lonStep);
    const Lines parallelLines =
        LinesBetween(extent.latMin, extent.latMax + 1e-9 * latStep, latStep);
    if (meridianLines.tooMany) {
        GxError(io, TooMany("meridians", extent.lonMax - extent.lonMin, lonStep));
        return kExitUsage;
    }
    if (parallelLines.tooMany) {
        GxError(io, TooMany("parallels", extent.latMax - extent.latMin, latStep));
        return kExitUsage;
    }

    const Canvas canvas(box);
    const double pictureWidth = kLeft + canvas.Width() + kRight;
    const double pictureHeight = kTop + canvas.Height() + kBottom;
    const bool geographical = system->IsGeographical();
    // The algorithm works in metres (or degrees) whatever unit the system
    // declares; the axes are labelled in the declared unit, so the tick
    // values are the metres divided by its factor.
    char unitName[CGxProjectionInfo::kUnitNameSize] = "";
    double unitFactor = 1.0;
    if (geographical || !system->GetUnit(CGxMapProjection::eProjectedUnit, &unitFactor, unitName) ||
        !(unitFactor > 0) || !std::isfinite(unitFactor)) {
        std::snprintf(unitName, sizeof unitName, "%s", geographical ? "degree" : "metre");
        unitFactor = 1.0;
    }
    const std::string unit = Escape(unitName);

    std::ostringstream svg;
    svg << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << Px(pictureWidth)
        << "\" height=\"" << Px(pictureHeight) << "\" viewBox=\"0 0 " << Px(pictureWidth) << " "
        << Px(pictureHeight) << "\" font-family=\"sans-serif\" font-size=\"12\">\n"
        << "<title>" << Escape(CGxMapProjection::ShortName(system->GetProjectionString()))
        << "</title>\n"
        << "<rect class=\"frame\" x=\"" << Px(kLeft) << "\" y=\"" << Px(kTop) << "\" width=\""
        << Px(canvas.Width()) << "\" height=\"" << Px(canvas.Height())
        << "\" fill=\"white\" stroke=\"black\"/>\n";

    // Meridians run from the southern to the northern edge of the extent,
    // parallels from its western to its eastern edge.
    svg << "<g fill=\"none\" stroke=\"#4a78b5\" stroke-width=\"1\">\n";
    int meridians = 0, parallels = 0;
    for (long i = 0; i < meridianLines.count; ++i) {
        const double lon = (meridianLines.k0 + static_cast<double>(i)) * lonStep;
        const std::string d = LinePath(box, canvas, [&](double t, double* x, double* y) {
            projection.Geo2Proj(lon, extent.latMin + t * (extent.latMax - extent.latMin), x, y);
        });
        if (d.empty()) continue;
        ++meridians;
        svg << "<path class=\"meridian\" data-degrees=\"" << Degrees(lon) << "\" d=\"" << d
            << "\"/>\n";
        if (static_cast<std::size_t>(svg.tellp()) > kMaxOutputBytes) break;
    }
    for (long i = 0; i < parallelLines.count; ++i) {
        const double lat = (parallelLines.k0 + static_cast<double>(i)) * latStep;
        const std::string d = LinePath(box, canvas, [&](double t, double* x, double* y) {
            projection.Geo2Proj(extent.lonMin + t * (extent.lonMax - extent.lonMin), lat, x, y);
        });
        if (d.empty()) continue;
        ++parallels;
        svg << "<path class=\"parallel\" data-degrees=\"" << Degrees(lat) << "\" d=\"" << d
            << "\"/>\n";
        if (static_cast<std::size_t>(svg.tellp()) > kMaxOutputBytes) break;
    }
    if (static_cast<std::size_t>(svg.tellp()) > kMaxOutputBytes) {
        GxError(io, "graticule: the picture would be larger than 16 MiB: give a larger --step");
        return kExitUsage;
    }
    svg << "</g>\n";

    double originLon = 0.0, originLat = 0.0, ox = NAN, oy = NAN;
    projection.GetOrigin(&originLon, &originLat);
    projection.Geo2Proj(originLon, originLat, &ox, &oy);
    if (std::isfinite(ox) && std::isfinite(oy) && ox >= box.x0 && ox <= box.x1 && oy >= box.y0 &&
        oy <= box.y1) {
        svg << "<circle class=\"origin\" cx=\"" << Px(canvas.X(ox)) << "\" cy=\""
            << Px(canvas.Y(oy)) << "\" r=\"4\" fill=\"#c0392b\"/>\n"
            << "<text class=\"origin-label\" x=\"" << Px(canvas.X(ox) + 6) << "\" y=\""
            << Px(canvas.Y(oy) - 6) << "\" fill=\"#c0392b\">origin " << Degrees(originLon) << ", "
            << Degrees(originLat) << "</text>\n";
    }

    svg << "<g class=\"ticks\" stroke=\"black\">\n";
    for (double t : Ticks(box.x0 / unitFactor, box.x1 / unitFactor)) {
        const double sx = canvas.X(t * unitFactor), base = kTop + canvas.Height();
        svg << "<line x1=\"" << Px(sx) << "\" y1=\"" << Px(base) << "\" x2=\"" << Px(sx)
            << "\" y2=\"" << Px(base + 5) << "\"/>\n"
            << "<text class=\"tick-label\" stroke=\"none\" text-anchor=\"middle\" x=\"" << Px(sx)
            << "\" y=\"" << Px(base + 18) << "\">" << TickText(t) << "</text>\n";
    }
    for (double t : Ticks(box.y0 / unitFactor, box.y1 / unitFactor)) {
        const double sy = canvas.Y(t * unitFactor);
        svg << "<line x1=\"" << Px(kLeft - 5) << "\" y1=\"" << Px(sy) << "\" x2=\"" << Px(kLeft)
            << "\" y2=\"" << Px(sy) << "\"/>\n"
            << "<text class=\"tick-label\" stroke=\"none\" text-anchor=\"end\" x=\""
            << Px(kLeft - 8) << "\" y=\"" << Px(sy + 4) << "\">" << TickText(t) << "</text>\n";
    }
    svg << "</g>\n";
    const char* xTitle = geographical ? "Longitude" : "Easting";
    const char* yTitle = geographical ? "Latitude" : "Northing";
    svg << "<text class=\"axis-label\" text-anchor=\"middle\" x=\""
        << Px(kLeft + canvas.Width() / 2) << "\" y=\"" << Px(pictureHeight - 12) << "\">" << xTitle
        << " (" << unit << ")</text>\n"
        << "<text class=\"axis-label\" text-anchor=\"middle\" transform=\"translate(18 "
        << Px(kTop + canvas.Height() / 2) << ") rotate(-90)\">" << yTitle << " (" << unit
        << ")</text>\n"
        << "<desc>" << meridians << " meridians every " << Degrees(lonStep) << " degrees and "
        << parallels << " parallels every " << Degrees(latStep) << " degrees</desc>\n"
        << "</svg>\n";

    const std::string text = svg.str();
    if (output.empty()) {
        if (!GxWrite(io.out, text) || std::fflush(io.out) != 0) {
            GxError(io, "cannot write the picture: " + GxErrnoText(errno));
            return kExitIo;
        }
        return kExitOk;
    }
    std::string problem;
    if (!GxWriteFile(output, text, &problem)) {
        GxError(io, GxPrintable(problem));
        return kExitIo;
    }
    return kExitOk;
}
