// Reader of the keyword-file text (docs/keyword-files.md).
//
// The syntax is line oriented: every line is blank, a comment, the opening
// "NAME {" of a block or section, a closing "}", or a keyword line
// "NAME = value, value, ...". Only two levels exist (blocks hold sections,
// sections hold keywords), so the reader keeps a depth counter instead of a
// stack and cannot be driven into deep recursion by a hostile file. A problem
// is recorded with its line and reading goes on with the next line.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/NumberText.h"
#include "zpf/ZpfTree.h"

namespace gxzpf {
namespace {

// Quoted excerpts in messages are cut to this many characters, so that a
// megabyte of garbage gives a readable message.
constexpr std::size_t kShownLength = 40;

// Character classes of the reader, one table lookup per character.
enum CharClass : unsigned char {
    kNameChar = 1,     // may stand in a bare name: A-Z a-z 0-9 _ - .
    kPlainInText = 2,  // stands for itself inside a quoted text
    kEndsBare = 4,     // ends an unquoted value: blank , # " or a control byte
};

constexpr unsigned char ClassOf(unsigned char u) {
    const bool name = (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || (u >= '0' && u <= '9') ||
                      u == '_' || u == '-' || u == '.';
    const bool control = u < 0x20 || u == 0x7F;
    // Inside a quoted text: neither the closing quote, nor an escape, nor a
    // control character (tab excepted).
    const bool plain = u != '"' && u != '\\' && (!control || u == '\t');
    const bool endsBare = u == ' ' || u == '\t' || u == ',' || u == '#' || u == '"' || control;
    return static_cast<unsigned char>((name ? kNameChar : 0) | (plain ? kPlainInText : 0) |
                                      (endsBare ? kEndsBare : 0));
}

struct CharClasses {
    unsigned char of[256] = {};
    constexpr CharClasses() {
        for (int i = 0; i < 256; ++i) of[i] = ClassOf(static_cast<unsigned char>(i));
    }
};
constexpr CharClasses kClasses;

bool Is(char c, CharClass which) {
    return (kClasses.of[static_cast<unsigned char>(c)] & which) != 0;
}

bool IsNameChar(char c) {
    return Is(c, kNameChar);
}

bool IsPlainInText(char c) {
    return Is(c, kPlainInText);
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
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

// The value of a plain decimal ("-45", "6378137", "0.9996"), the form of
// nearly every number in the catalogues, read without the general number
// reader; false for any other form, which is left to that reader. A decimal
// of at most 15 digits is an integer below 2^53 divided by an exact power of
// ten, so the one correctly rounded division gives the double nearest to the
// text, the same bits the general reader gives.
constexpr int kPlainDigits = 15;
constexpr double kPowersOfTen[kPlainDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool ReadPlainDecimal(std::string_view text, double& value) {
    std::size_t i = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) ++i;
    std::uint64_t mantissa = 0;
    int digits = 0;
    int fraction = 0;
    const std::size_t whole = i;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && digits <= kPlainDigits;
         ++i, ++digits)
        mantissa = 10 * mantissa + static_cast<std::uint64_t>(text[i] - '0');
    if (i == whole) return false;
    if (i < text.size() && text[i] == '.') {
        const std::size_t first = ++i;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && digits <= kPlainDigits;
             ++i, ++digits, ++fraction)
            mantissa = 10 * mantissa + static_cast<std::uint64_t>(text[i] - '0');
        if (i == first) return false;
    }
    if (i != text.size() || digits > kPlainDigits) return false;
    const double magnitude = static_cast<double>(mantissa) / kPowersOfTen[fraction];
    value = negative ? -magnitude : magnitude;
    return true;
}

// A name or a text as read: a view of the line, or of the reader's scratch
// when escapes had to be decoded.
struct Piece {
    std::string_view text;
    bool decoded = false;

    File::Take Take() const { return decoded ? File::Take::Copy : File::Take::View; }
};

// Reads one line at a time into the tree. A problem costs the line it is on,
// or, inside a section, the whole section: a section with one bad line is not
// handed out half read. Everything else is still read. The text of every line
// belongs to exactly one element (a block's opening or closing, a section, or
// the end of the file), so the tree can be written again as it was read.
class LineReader {
public:
    LineReader(File& file, bool mayHoldNul) : file_(file), mayHoldNul_(mayHoldNul) {}

    void ReadLine(std::string_view line, std::size_t lineNo, std::size_t begin, std::size_t end) {
        line_ = line;
        pos_ = 0;
        lineNo_ = lineNo;
        lineBegin_ = begin;
        lineEnd_ = end;
        _SkipBlanks();
        if (_AtEnd()) return;
        if (mayHoldNul_ && line_.find('\0') != std::string_view::npos) {
            _Fail("NUL byte (not a text file?)");
            return;
        }
        if (line_[pos_] == '}') {
            ++pos_;
            _Close();
            _ExpectEnd("after '}'");
            return;
        }
        Piece name;
        if (!_ReadName(name)) return;
        _SkipBlanks();
        if (pos_ < line_.size() && line_[pos_] == '{') {
            ++pos_;
            _Open(name);
            _ExpectEnd("after '{'");
            return;
        }
        if (pos_ < line_.size() && line_[pos_] == '=') {
            ++pos_;
            _Keyword(name);
            return;
        }
        _Fail("expected '{' or '=' after " + ShowText(name.text));
    }

    // Called after the last line, with the length of the text: whatever is
    // still open was not closed.
    void Finish(std::size_t textEnd) {
        lineBegin_ = lineEnd_ = textEnd;
        if (depth_ == 2) {
            lineNo_ = section_->line;
            _Fail("section " + ShowText(section_->name) + " is not closed");
            _EndSection();
        }
        if (depth_ == 1) {
            lineNo_ = target_->line;
            lineBegin_ = target_->opening.begin;
            lineEnd_ = target_->opening.end;
            _Fail("block " + ShowText(target_->name) + " is not closed");
            target_->closing = Span{pendingBegin_, textEnd};
            pendingBegin_ = textEnd;
        }
        file_.trailing = Span{pendingBegin_, textEnd};
    }

    const std::string& FirstProblem() const { return first_; }

private:
    // Records a problem of the current line; inside a section the section is
    // lost with it. Answers false, so that readers can stop at once.
    bool _Fail(const std::string& what) {
        // A damaged section's text is recorded once, when it ends.
        if (depth_ == 2)
            damaged_ = true;
        else if (file_.unread.empty() || file_.unread.back().end != lineEnd_)
            file_.unread.push_back(Span{lineBegin_, lineEnd_});
        ++file_.problemCount;
        if (file_.problems.size() >= File::kKeptProblems) return false;
        std::string message = "line " + std::to_string(lineNo_) + ": " + what;
        if (depth_ == 2)
            message += "; section " + ShowText(section_->name) + " of line " +
                       std::to_string(section_->line) + " is skipped";
        if (file_.problemCount == 1) first_ = message;
        file_.problems.push_back(std::move(message));
        return false;
    }

    // End of the meaningful text: the line's end or a comment.
    bool _AtEnd() const { return pos_ >= line_.size() || line_[pos_] == '#'; }

    // The first position from pos on whose byte is not of the class. The
    // byte after a line (its line end, or the text's terminating NUL) is of
    // none of the classes scanned for (blanks, name characters, the plain
    // characters of a quoted text, those of an unquoted value), so the scan
    // needs no bounds check.
    template <class InRun>
    std::size_t _RunEnd(std::size_t pos, InRun inRun) const {
        const char* const text = line_.data();
        // Four bytes a round; each is looked at only when those before it
        // were in the run, so nothing past the byte that ends it is read.
        for (;; pos += 4) {
            if (!inRun(text[pos])) return pos;
            if (!inRun(text[pos + 1])) return pos + 1;
            if (!inRun(text[pos + 2])) return pos + 2;
            if (!inRun(text[pos + 3])) return pos + 3;
        }
    }

    void _SkipBlanks() {
        if (!IsBlank(line_.data()[pos_])) return;
        // Indentation and the blanks that align comments are runs of spaces:
        // eight at a time.
        constexpr std::uint64_t kEightSpaces = 0x2020202020202020u;
        std::size_t pos = pos_;
        for (std::uint64_t word; pos + sizeof word <= line_.size(); pos += sizeof word) {
            std::memcpy(&word, line_.data() + pos, sizeof word);
            if (word != kEightSpaces) break;
        }
        pos_ = _RunEnd(pos, IsBlank);
    }

    void _ExpectEnd(const char* where) {
        _SkipBlanks();
        if (!_AtEnd()) _Fail(std::string("unexpected ") + ShowChar(line_[pos_]) + " " + where);
    }

    bool _ReadName(Piece& name) {
        if (line_[pos_] == '"') return _ReadQuoted(name);
        std::size_t start = pos_;
        pos_ = _RunEnd(pos_, IsNameChar);
        if (pos_ == start) return _Fail("unexpected " + ShowChar(line_[pos_]));
        name = Piece{line_.substr(start, pos_ - start), false};
        return true;
    }

    // A quoted text from the opening quote at pos_; escapes are \" \\ \n \t
    // \r and \xHH. A text ends on its line: a missing closing quote is an
    // error, not a text running into the following lines. On an error, text
    // holds what was decoded up to it.
    bool _ReadQuoted(Piece& text) {
        const std::size_t start = ++pos_;
        // Most texts have no escapes: they are the characters up to the
        // closing quote, as the line holds them.
        const std::size_t run = _RunEnd(start, IsPlainInText);
        if (run < line_.size() && line_[run] == '"') {
            pos_ = run + 1;
            text = Piece{line_.substr(start, run - start), false};
            return true;
        }
        const bool read = _DecodeQuoted(scratch_);
        text = Piece{scratch_, true};
        return read;
    }

    bool _DecodeQuoted(std::string& out) {
        out.clear();
        while (pos_ < line_.size()) {
            // Plain characters are taken as one run.
            const std::size_t run = _RunEnd(pos_, IsPlainInText);
            out.append(line_.data() + pos_, run - pos_);
            pos_ = run;
            if (pos_ >= line_.size()) break;
            char c = line_[pos_++];
            if (c == '"') return true;
            if (c == '\\') {
                if (pos_ >= line_.size()) break;
                char e = line_[pos_++];
                switch (e) {
                    case '"':
                        out += '"';
                        break;
                    case '\\':
                        out += '\\';
                        break;
                    case 'n':
                        out += '\n';
                        break;
                    case 't':
                        out += '\t';
                        break;
                    case 'r':
                        out += '\r';
                        break;
                    case 'x': {
                        int hi = pos_ < line_.size() ? HexDigit(line_[pos_]) : -1;
                        int lo = pos_ + 1 < line_.size() ? HexDigit(line_[pos_ + 1]) : -1;
                        if (hi < 0 || lo < 0) return _Fail("\\x needs two hexadecimal digits");
                        out += static_cast<char>(hi * 16 + lo);
                        pos_ += 2;
                        break;
                    }
                    default:
                        return _Fail("unknown escape \\" + std::string(1, e) + " in a quoted text");
                }
                continue;
            }
            // Anything else that ends a run is a control character.
            return _Fail("control character " + ShowChar(c) + " in a quoted text (write it as \\x" +
                         ShowChar(c).substr(2) + ")");
        }
        return _Fail("unterminated string");
    }

    void _Open(const Piece& name) {
        if (depth_ == 0) {
            target_ = file_.AddTarget(name.text, name.Take());
            target_->fromText = true;
            target_->closed = false;
            target_->line = lineNo_;
            target_->opening = Span{pendingBegin_, lineEnd_};
            pendingBegin_ = lineEnd_;
            depth_ = 1;
            return;
        }
        if (depth_ == 2) {
            // Most often a forgotten closing brace: the section before ends
            // here, lost, and the new one is read.
            _Fail("section " + ShowText(section_->name) + " cannot hold another block " +
                  ShowText(name.text));
            _EndSection();
        }
        section_ = file_.NewSection(*target_, name.text, name.Take());
        section_->line = lineNo_;
        sectionStart_ = lineBegin_;
        damaged_ = false;
        depth_ = 2;
    }

    // Ends the open section at the current line's end. A good section takes
    // the pending text and its own lines; a damaged one leaves its lines
    // pending, so that they are written again ahead of what follows.
    void _EndSection() {
        if (damaged_) {
            target_->damaged.push_back(section_);
            file_.unread.push_back(Span{sectionStart_, lineEnd_});
        } else {
            section_->fromText = true;
            section_->leading = Span{pendingBegin_, sectionStart_};
            section_->own = Span{sectionStart_, lineEnd_};
            pendingBegin_ = lineEnd_;
            target_->sections.push_back(section_);
        }
        section_ = nullptr;
        depth_ = 1;
    }

    void _Close() {
        if (depth_ == 0) {
            _Fail("'}' without an open block");
        } else if (depth_ == 2) {
            _EndSection();
        } else {
            target_->closing = Span{pendingBegin_, lineEnd_};
            target_->closed = true;
            pendingBegin_ = lineEnd_;
            target_ = nullptr;
            depth_ = 0;
        }
    }

    void _Keyword(const Piece& name) {
        if (depth_ < 2) {
            _Fail("keyword " + ShowText(name.text) +
                  (depth_ == 0 ? " outside a block" : " outside a section"));
            return;
        }
        Keyword& keyword = *file_.AddKeyword(*section_, name.text, name.Take());
        keyword.line = lineNo_;
        _SkipBlanks();
        // "NAME =" with nothing after it is a keyword without values.
        if (_AtEnd()) return;
        for (;;) {
            if (!_ReadValue(*file_.AddValue(keyword))) return;
            _SkipBlanks();
            if (_AtEnd()) return;
            if (line_[pos_] != ',') {
                _Fail("expected ',' between values, found " + ShowChar(line_[pos_]));
                return;
            }
            ++pos_;
            _SkipBlanks();
        }
    }

    bool _ReadValue(Value& value) {
        if (_AtEnd() || line_[pos_] == ',') return _Fail("missing value");
        if (line_[pos_] == '"') {
            value.isText = true;
            Piece text;
            const bool read = _ReadQuoted(text);
            if (text.decoded)
                value.text.Keep(text.text);
            else
                value.text.Refer(text.text);
            return read;
        }
        std::size_t start = pos_;
        pos_ = _RunEnd(pos_, [](char c) { return !Is(c, kEndsBare); });
        if (pos_ == start) return _Fail("unexpected " + ShowChar(line_[pos_]));
        value.isText = false;
        const std::string_view number = line_.substr(start, pos_ - start);
        value.text.Refer(number);
        // Text values are always quoted; a bare word that is no number is a
        // mistake in the file, not a text.
        if (!ReadPlainDecimal(number, value.number) &&
            !GxParseWholeNumber(std::string(number), &value.number))
            return _Fail(ShowText(number) + " is not a number (quote text values)");
        return true;
    }

    File& file_;
    // Whether a line may hold a NUL byte: false when the whole text holds
    // none, which spares a search of every line.
    const bool mayHoldNul_;
    std::string_view line_;
    std::size_t pos_ = 0;
    std::size_t lineNo_ = 0;
    std::size_t lineBegin_ = 0;
    std::size_t lineEnd_ = 0;
    int depth_ = 0;
    Target* target_ = nullptr;
    Section* section_ = nullptr;
    bool damaged_ = false;
    std::size_t sectionStart_ = 0;
    // Start of the text not yet given to any element.
    std::size_t pendingBegin_ = 0;
    // Texts with escapes, decoded.
    std::string scratch_;
    std::string first_;
};

}  // namespace

bool Parse(std::string text, File& file, std::string& message) {
    file.Clear();
    message.clear();
    file.text = std::move(text);
    std::string_view all(file.text);
    LineReader reader(file, all.find('\0') != std::string_view::npos);
    // Editors on some systems start UTF-8 files with a byte-order mark; it
    // stays in the text written back.
    std::size_t begin = all.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
    std::size_t lineNo = 0;
    while (begin < all.size()) {
        ++lineNo;
        std::size_t eol = all.find('\n', begin);
        const std::size_t end = eol == std::string_view::npos ? all.size() : eol + 1;
        std::string_view line =
            all.substr(begin, (eol == std::string_view::npos ? all.size() : eol) - begin);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        reader.ReadLine(line, lineNo, begin, end);
        begin = end;
    }
    reader.Finish(all.size());
    message = reader.FirstProblem();
    return file.problemCount == 0;
}

void ReplaceSection(Section& old, Section& section) {
    Target& target = *old.target;
    auto& list = target.sections;
    list.erase(std::find(list.begin(), list.end(), &section));
    std::vector<Span> carried = old.carried;
    if (old.fromText) carried.push_back(old.leading);
    carried.insert(carried.end(), section.carried.begin(), section.carried.end());
    section.carried = std::move(carried);
    *std::find(list.begin(), list.end(), &old) = &section;
    target.edited = true;
    old.tag = Kind::Dead;
}

void RemoveSection(Section& section) {
    Target& target = *section.target;
    auto& list = target.sections;
    auto it = std::find(list.begin(), list.end(), &section);
    std::vector<Span>& next = (it + 1 == list.end()) ? target.carried : (*(it + 1))->carried;
    // The text above the section (comments, and the lines of damaged
    // sections before it) goes before whatever follows.
    std::vector<Span> carried = section.carried;
    if (section.fromText) carried.push_back(section.leading);
    next.insert(next.begin(), carried.begin(), carried.end());
    list.erase(it);
    target.edited = true;
    section.tag = Kind::Dead;
}

bool IsBareName(std::string_view name) {
    if (name.empty()) return false;
    for (char c : name)
        if (!IsNameChar(c)) return false;
    return true;
}

}  // namespace gxzpf
