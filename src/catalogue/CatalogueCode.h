#pragma once

#include <cstdint>
#include <string>

#include "foundation/GxExport.h"

// A coordinate system's number in a public register: the EPSG dataset or
// ESRI's list of systems. Users write it as "EPSG:25832" (the register's name
// in any letter case) or as the OGC URN "urn:ogc:def:crs:EPSG::25832", with or
// without a dataset version between the last two colons
// ("urn:ogc:def:crs:EPSG:10.076:25832"); catalogue definitions carry it in
// the first form under the keyword "Code".
struct GxCatalogueCode {
    enum EAuthority : int { eNone = 0, eEpsg = 1, eEsri = 2 };

    EAuthority authority = eNone;
    std::uint32_t number = 0;

    bool operator==(const GxCatalogueCode& other) const {
        return authority == other.authority && number == other.number;
    }
    bool operator!=(const GxCatalogueCode& other) const { return !(*this == other); }
    // One integer per code, for hashing.
    std::uint64_t Key() const {
        return (static_cast<std::uint64_t>(authority) << 32) | static_cast<std::uint64_t>(number);
    }
};

// Reads a code in either form. The number is written in decimal digits
// without a sign, leading zeros or blanks and is below one thousand million.
// False, with out untouched, for any other text.
GXCART_API bool GxParseCatalogueCode(const std::string& text, GxCatalogueCode& out);

// The code as definitions carry it, "EPSG:25832"; empty for eNone.
GXCART_API std::string GxFormatCatalogueCode(const GxCatalogueCode& code);
