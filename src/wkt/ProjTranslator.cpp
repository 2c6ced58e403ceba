#include "wkt/ProjTranslator.h"

#include <fstream>
#include <memory>
#include <stdexcept>

#include "datum/DatumShift.h"
#include "definitions/MapProjData.h"
#include "definitions/ProjectionTypes.h"
#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;

void _AppendItem(std::string& out, const char* key, double value) {
    out += key;
    out += GxFormatNumber(value);
    out += ' ';
}

const char* const kUndefined = "+proj=undef ";

}  // namespace

std::string CGxProjTranslator::Convert2Proj4(const std::string& projectionString,
                                             double* const towgs84, int count) {
    // The bare "UTM" names no zone: no system, so no text.
    std::unique_ptr<CGxMapProjection> system;
    try {
        system.reset(new CGxMapProjection(projectionString));
    } catch (const std::out_of_range&) {
        return std::string();
    }

    // The normalised string is WKT for every georeferenced system (a
    // catalogue name has been written out); parsing it also completes the
    // parameter a Mercator or polar text may leave to the other form (the
    // parallel of a scale, or the scale of a parallel).
    CGxPRJParser parser(system->GetProjectionString());
    parser.Parse(false);
    const EType type = parser.GetProjectionType();

    std::string linearUnit;
    double u = kGxUnset;
    parser.GetProjUnit(linearUnit, u);
    std::string angularUnit;
    double angularFactor = kGxUnset;
    parser.GetAngularUnit(angularUnit, angularFactor);
    std::string primeMeridian;
    double pm = kGxUnset;
    parser.GetPrimeMeridian(primeMeridian, pm);
    // A text without PRIMEM lies on Greenwich, as when its grid is built.
    if (GxIsUnset(pm)) pm = 0.0;
    // Degrees per angular unit.
    const double r = angularFactor * 180.0 / 3.141592653589793;

    const CGxProjection* algorithm = system->GetProjection();
    if (!algorithm) return std::string();
    // An algorithm without figure leaves the default one (a = 1, b = 0) to
    // be written.
    CGxEllipsoid ellipsoid;
    algorithm->GetAnonymousEllipsoid(ellipsoid);

    // A system PROJ.4 cannot state answers a bare "+proj=undef ".
    if (type == CGxMapProjData::eInvalidProjection) return kUndefined;
    const GxProjectionType* row = GxProjectionTypeOf(type);
    if (row && row->proj4.whole) return row->proj4.whole;

    std::string out;
    out.reserve(256);
    // A type without projection items (the plane system, a value without a
    // row) starts with its figure.
    if (row && row->proj4.proj) {
        const GxProj4Form& form = row->proj4;
        const std::string name = parser.GetProjectionTypeName();
        const char* proj = form.proj;
        for (const char* other : form.otherProjNames) {
            if (name == other) proj = form.otherProj;
        }
        out += proj;
        for (const GxProj4Item& item : form.items) {
            const double written =
                item.kind == EGxProj4Value::eFixed ? item.fixed : parser.GetWktParameter(item.slot);
            double value = written;
            switch (item.kind) {
                case EGxProj4Value::eAngle:
                    value = written * r;
                    break;
                case EGxProj4Value::eLongitude:
                    value = written * r + pm;
                    break;
                case EGxProj4Value::eLength:
                    value = written * u;
                    break;
                case EGxProj4Value::ePoleOfOrigin:
                    value = written < 0.0 ? -90.0 : 90.0;
                    break;
                case EGxProj4Value::eScale:
                case EGxProj4Value::eFixed:
                    break;
            }
            _AppendItem(out, item.key, value);
        }
    }

    _AppendItem(out, "+a=", ellipsoid.GetMajor());
    _AppendItem(out, "+b=", ellipsoid.GetMinor());

    constexpr int kShiftValues = CGxDatumShift::kParameterCount;
    if (towgs84 && count >= 1) {
        out += "+towgs84=";
        out += GxFormatNumber(towgs84[0]);
        for (int i = 1; i < kShiftValues; ++i) {
            out += ',';
            out += GxFormatNumber(i < count ? towgs84[i] : 0.0);
        }
        out += ' ';
    } else {
        CGxDatumShift shift;
        parser.GetDatumShift(shift);
        if (shift.GetType() != CGxCartDef::eNoDatumShift) {
            out += "+towgs84=";
            out += GxFormatNumber(shift[0]);
            for (int i = 1; i < kShiftValues; ++i) {
                out += ',';
                out += GxFormatNumber(shift[i]);
            }
            out += ' ';
        }
    }

    if (!GxIsUnset(u)) {
        if (u == 1.0)
            out += "+units=m ";
        else
            _AppendItem(out, "+to_meter=", u);
    }
    out += "+no_defs  no_defs <>";
    return out;
}

std::string CGxProjTranslator::ConvertPRJFile2Proj4(const std::string& path, double* const towgs84,
                                                    int count) {
    std::string line;
    std::ifstream file(path);
    if (file && std::getline(file, line)) {
        // A file written with DOS line ends keeps its carriage return here,
        // which a text-mode read would have dropped.
        if (!line.empty() && line.back() == '\r') line.pop_back();
    } else {
        line.clear();
    }
    return Convert2Proj4(line, towgs84, count);
}
