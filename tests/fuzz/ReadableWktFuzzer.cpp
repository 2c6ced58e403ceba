// The indented display form of any text, balanced or not.

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "wkt/PRJParser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = gxfuzz::Text(data, size);
    std::string readable;
    CGxPRJParser::FormatAsReadableWKT(text, readable);
    CGxPRJParser::_MatchBrackets(text);
    CGxPRJParser::_MatchCommas(text);
    CGxPRJParser::_GetBracketLevel(text);
    return 0;
}
