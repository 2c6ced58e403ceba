#include "CliSupport.h"

#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "foundation/NumberText.h"
#include "mapprojection/MapProjection.h"

namespace {

bool EndsWithPrj(const std::string& text) {
    if (text.size() < 4) return false;
    std::string tail = text.substr(text.size() - 4);
    for (char& c : tail) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return tail == ".prj";
}

}  // namespace

std::string GxSystemText(const std::string& argument) {
    std::error_code ec;
    if (!EndsWithPrj(argument) || !std::filesystem::is_regular_file(argument, ec)) return argument;
    std::ifstream file(argument, std::ios::binary);
    std::string line;
    std::getline(file, line);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

std::unique_ptr<CGxMapProjection> GxOpenSystem(const std::string& argument) {
    const std::string text = GxSystemText(argument);
    std::unique_ptr<CGxMapProjection> system;
    try {
        system = std::make_unique<CGxMapProjection>(text);
    } catch (const std::out_of_range&) {
        GxError("\"UTM\" names no zone: give one, for example UTM-32");
        return nullptr;
    }
    if (!system->GetProjection()) {
        GxError("unknown coordinate system: " + argument);
        return nullptr;
    }
    return system;
}

bool GxReadNumber(const std::string& text, double* value) {
    double v = 0.0;
    if (!GxParseWholeNumber(text, &v) || !std::isfinite(v)) return false;
    *value = v;
    return true;
}

std::string GxFixed(double value, int decimals) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    std::string text = buffer;
    // The C library writes a decimal comma in some locales; this tool never
    // changes the locale, but a host's environment must not change its files.
    for (char& c : text)
        if (c == ',') c = '.';
    if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') text.erase(0, 1);
    return text;
}

void GxError(const std::string& message) {
    std::fprintf(stderr, "gxcart: %s\n", message.c_str());
}

bool GxOptionValue(const GxArgs& args, std::size_t& i, std::string* value) {
    if (i + 1 >= args.size()) {
        GxError("option " + args[i] + " needs a value");
        return false;
    }
    *value = args[++i];
    return true;
}

bool GxIsHelp(const std::string& arg) {
    return arg == "--help" || arg == "-h";
}
