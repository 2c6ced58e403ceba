// Reader of the keyword-file text (docs/keyword-files.md).
//
// The syntax is line oriented: every line is blank, a comment, the opening
// "NAME {" of a block or section, a closing "}", or a keyword line
// "NAME = value, value, ...". Only two levels exist (blocks hold sections,
// sections hold keywords), so the reader keeps a depth counter instead of a
// stack and cannot be driven into deep recursion by a hostile file. The first
// problem ends the reading; its message names the line.

#include "zpf/ZpfTree.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/NumberText.h"

namespace gxzpf {
namespace {

// Quoted excerpts in messages are cut to this many characters, so that a
// megabyte of garbage gives a readable message.
constexpr std::size_t kShownLength = 40;

bool IsNameChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
           c == '.';
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// A character that stands for itself inside a quoted text: neither the
// closing quote, nor an escape, nor a control character (tab excepted).
bool IsPlainInText(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    return c != '"' && c != '\\' && (u >= 0x20 || c == '\t') && u != 0x7F;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// A byte as a message shows it: the character itself when printable, else
// its code.
std::string ShowChar(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    if (u >= 0x21 && u < 0x7F) return std::string("'") + c + "'";
    char buf[8];
    std::snprintf(buf, sizeof buf, "0x%02X", u);
    return buf;
}

std::string ShowText(std::string_view text) {
    std::string shown;
    for (char c : text.substr(0, kShownLength)) {
        unsigned char u = static_cast<unsigned char>(c);
        shown += (u >= 0x20 && u < 0x7F) ? c : '?';
    }
    if (text.size() > kShownLength) shown += "...";
    return "'" + shown + "'";
}

// Reads one line at a time into the tree.
class LineReader {
public:
    explicit LineReader(File& file) : file_(file) {}

    bool ReadLine(std::string_view line, std::size_t lineNo) {
        line_ = line;
        pos_ = 0;
        lineNo_ = lineNo;
        _SkipBlanks();
        if (_AtEnd()) return true;
        if (line_[pos_] == '}') {
            ++pos_;
            return _Close() && _ExpectEnd("after '}'");
        }
        std::string name;
        if (!_ReadName(name)) return false;
        _SkipBlanks();
        if (pos_ < line_.size() && line_[pos_] == '{') {
            ++pos_;
            return _Open(std::move(name)) && _ExpectEnd("after '{'");
        }
        if (pos_ < line_.size() && line_[pos_] == '=') {
            ++pos_;
            return _Keyword(std::move(name));
        }
        return _Fail("expected '{' or '=' after " + ShowText(name));
    }

    // Called after the last line: every block must have been closed.
    bool Finish() {
        if (depth_ == 2) {
            lineNo_ = sectionLine_;
            return _Fail("section " + ShowText(file_.targets.back()->sections.back()->name) + " is not closed");
        }
        if (depth_ == 1) {
            lineNo_ = targetLine_;
            return _Fail("block " + ShowText(file_.targets.back()->name) + " is not closed");
        }
        return true;
    }

    const std::string& Message() const { return message_; }

private:
    bool _Fail(const std::string& what) {
        message_ = "line " + std::to_string(lineNo_) + ": " + what;
        return false;
    }

    // End of the meaningful text: the line's end or a comment.
    bool _AtEnd() const { return pos_ >= line_.size() || line_[pos_] == '#'; }

    void _SkipBlanks() {
        while (pos_ < line_.size() && IsBlank(line_[pos_])) ++pos_;
    }

    bool _ExpectEnd(const char* where) {
        _SkipBlanks();
        if (_AtEnd()) return true;
        return _Fail(std::string("unexpected ") + ShowChar(line_[pos_]) + " " + where);
    }

    bool _ReadName(std::string& name) {
        if (line_[pos_] == '"') return _ReadQuoted(name);
        std::size_t start = pos_;
        while (pos_ < line_.size() && IsNameChar(line_[pos_])) ++pos_;
        if (pos_ == start) return _Fail("unexpected " + ShowChar(line_[pos_]));
        name.assign(line_.data() + start, pos_ - start);
        return true;
    }

    // A quoted text from the opening quote at pos_; escapes are \" \\ \n \t
    // \r and \xHH. A text ends on its line: a missing closing quote is an
    // error, not a text running into the following lines.
    bool _ReadQuoted(std::string& out) {
        ++pos_;
        out.clear();
        while (pos_ < line_.size()) {
            // Plain characters are taken as one run.
            std::size_t run = pos_;
            while (run < line_.size() && IsPlainInText(line_[run])) ++run;
            out.append(line_.data() + pos_, run - pos_);
            pos_ = run;
            if (pos_ >= line_.size()) break;
            char c = line_[pos_++];
            if (c == '"') return true;
            if (c == '\\') {
                if (pos_ >= line_.size()) break;
                char e = line_[pos_++];
                switch (e) {
                    case '"': out += '"'; break;
                    case '\\': out += '\\'; break;
                    case 'n': out += '\n'; break;
                    case 't': out += '\t'; break;
                    case 'r': out += '\r'; break;
                    case 'x': {
                        int hi = pos_ < line_.size() ? HexDigit(line_[pos_]) : -1;
                        int lo = pos_ + 1 < line_.size() ? HexDigit(line_[pos_ + 1]) : -1;
                        if (hi < 0 || lo < 0) return _Fail("\\x needs two hexadecimal digits");
                        out += static_cast<char>(hi * 16 + lo);
                        pos_ += 2;
                        break;
                    }
                    default: return _Fail("unknown escape \\" + std::string(1, e) + " in a quoted text");
                }
                continue;
            }
            // Anything else that ends a run is a control character.
            return _Fail("control character " + ShowChar(c) + " in a quoted text (write it as \\x" +
                         ShowChar(c).substr(2) + ")");
        }
        return _Fail("unterminated string");
    }

    bool _Open(std::string name) {
        if (depth_ == 0) {
            file_.AddTarget(std::move(name));
            targetLine_ = lineNo_;
        } else if (depth_ == 1) {
            file_.AddSection(*file_.targets.back(), std::move(name));
            sectionLine_ = lineNo_;
        } else {
            return _Fail("section " + ShowText(file_.targets.back()->sections.back()->name) +
                         " cannot hold another block " + ShowText(name));
        }
        ++depth_;
        return true;
    }

    bool _Close() {
        if (depth_ == 0) return _Fail("'}' without an open block");
        --depth_;
        return true;
    }

    bool _Keyword(std::string name) {
        if (depth_ < 2)
            return _Fail("keyword " + ShowText(name) + (depth_ == 0 ? " outside a block" : " outside a section"));
        Keyword& keyword = *file_.AddKeyword(*file_.targets.back()->sections.back(), std::move(name));
        _SkipBlanks();
        // "NAME =" with nothing after it is a keyword without values.
        if (!_AtEnd()) {
            for (;;) {
                if (!_ReadValue(*file_.AddValue(keyword))) return false;
                _SkipBlanks();
                if (_AtEnd()) break;
                if (line_[pos_] != ',') return _Fail("expected ',' between values, found " + ShowChar(line_[pos_]));
                ++pos_;
                _SkipBlanks();
            }
        }
        return true;
    }

    bool _ReadValue(Value& value) {
        if (_AtEnd() || line_[pos_] == ',') return _Fail("missing value");
        if (line_[pos_] == '"') {
            value.isText = true;
            return _ReadQuoted(value.text);
        }
        std::size_t start = pos_;
        while (pos_ < line_.size()) {
            char c = line_[pos_];
            unsigned char u = static_cast<unsigned char>(c);
            if (IsBlank(c) || c == ',' || c == '#' || c == '"' || u < 0x20 || u == 0x7F) break;
            ++pos_;
        }
        if (pos_ == start) return _Fail("unexpected " + ShowChar(line_[pos_]));
        value.isText = false;
        value.text.assign(line_.data() + start, pos_ - start);
        // Text values are always quoted; a bare word that is no number is a
        // mistake in the file, not a text.
        if (!GxParseWholeNumber(value.text, &value.number))
            return _Fail(ShowText(value.text) + " is not a number (quote text values)");
        return true;
    }

    File& file_;
    std::string_view line_;
    std::size_t pos_ = 0;
    std::size_t lineNo_ = 0;
    int depth_ = 0;
    std::size_t targetLine_ = 0;
    std::size_t sectionLine_ = 0;
    std::string message_;
};

}  // namespace

bool Parse(const std::string& text, File& file, std::string& message) {
    file.Clear();
    message.clear();
    LineReader reader(file);
    std::string_view rest(text);
    // Editors on some systems start UTF-8 files with a byte-order mark.
    if (rest.substr(0, 3) == "\xEF\xBB\xBF") rest.remove_prefix(3);
    std::size_t lineNo = 0;
    bool ok = true;
    while (ok && !rest.empty()) {
        ++lineNo;
        std::size_t eol = rest.find('\n');
        std::string_view line = rest.substr(0, eol);
        rest.remove_prefix(eol == std::string_view::npos ? rest.size() : eol + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.find('\0') != std::string_view::npos) {
            message = "line " + std::to_string(lineNo) + ": NUL byte (not a text file?)";
            ok = false;
            break;
        }
        ok = reader.ReadLine(line, lineNo);
    }
    if (ok) ok = reader.Finish();
    if (!ok) {
        if (message.empty()) message = reader.Message();
        file.Clear();
    }
    return ok;
}

bool IsBareName(const std::string& name) {
    if (name.empty()) return false;
    for (char c : name)
        if (!IsNameChar(c)) return false;
    return true;
}

}  // namespace gxzpf
