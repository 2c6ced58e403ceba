// PROJ.4 text of any projection string, with the shift taken from the text or
// given as a list of 0 to 7 values (chosen by the first input byte).

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "wkt/ProjTranslator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const int count = data[0] % 8;
    const std::string text = gxfuzz::Text(data + 1, size - 1);
    double towgs84[7] = {-87, -98, -121, 0.5, -0.25, 1e300, -3.5};
    CGxProjTranslator::Convert2Proj4(text, towgs84, count);
    CGxProjTranslator::Convert2Proj4(text, nullptr, 0);
    return 0;
}
