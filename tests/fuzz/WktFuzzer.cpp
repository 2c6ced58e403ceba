// The whole WKT path: read a text, build the algorithm and the definition it
// names, write the system back and read what was written.

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "wkt/PRJParser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = gxfuzz::Text(data, size);
    CGxPRJParser::IsPRJ(text);
    CGxPRJParser::ShortName(text);
    CGxPRJParser::DatumName(text);

    for (bool sortParallels : {false, true}) {
        CGxPRJParser parser(text);
        const bool parsed = parser.Parse(sortParallels);
        std::string written;
        parser.Format(written);
        char small[96];
        parser.Format(small, sizeof small);
        if (!parsed) continue;

        std::string name, unitName;
        double value, unitFactor;
        const int n = parser.GetNoOfParameters();
        for (int i = -1; i <= n; ++i) parser.GetParameter(i, name, value, unitName, unitFactor);
        parser.GetProjectionTypeTitle();

        gxfuzz::ProjectionPtr projection(parser.CreateMapProjection());
        if (!projection) continue;
        gxfuzz::ExerciseAlgorithm(*projection);
        gxfuzz::ProjectionPtr copy(projection->Clone());

        CGxPRJParser fromAlgorithm(copy.get());
        std::string again;
        if (fromAlgorithm.Format(again)) {
            CGxPRJParser reread(again);
            reread.Parse(sortParallels);
        }
    }
    return 0;
}
