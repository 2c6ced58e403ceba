#include "wkt/WktTokenizer.h"

CGxWktTokenizer::CGxWktTokenizer(const std::string& text_, std::size_t start)
    : text(text_), position(start), exhausted(start >= text_.size()) {}

std::string CGxWktTokenizer::Next(const char* delimiters) {
    if (exhausted || position >= text.size()) {
        exhausted = true;
        return std::string();
    }
    if (delimiters == nullptr || *delimiters == '\0') {
        std::string all = text.substr(position);
        position = text.size();
        return all;
    }
    const std::size_t begin = text.find_first_not_of(delimiters, position);
    if (begin == std::string::npos) {
        exhausted = true;
        position = text.size();
        return std::string();
    }
    std::size_t end = text.find_first_of(delimiters, begin);
    if (end == std::string::npos) end = text.size();
    // Step over the delimiter that ended the token; at the end of the text
    // this leaves the position at the end.
    position = end < text.size() ? end + 1 : end;
    return text.substr(begin, end - begin);
}

std::string CGxWktTokenizer::Rest() const {
    if (exhausted || position >= text.size()) return std::string();
    return text.substr(position);
}
