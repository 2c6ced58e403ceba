// Reader of the keyword-file text (docs/keyword-files.md).
//
// The syntax is line oriented: every line is blank, a comment, the opening
// "NAME {" of a block or section, a closing "}", or a keyword line
// "NAME = value, value, ...". Only two levels exist (blocks hold sections,
// sections hold keywords), so the reader keeps a depth counter instead of a
// stack and cannot be driven into deep recursion by a hostile file. A problem
// is recorded with its line and reading goes on with the next line.

#include "zpf/ZpfTree.h"

#include <algorithm>
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

// Reads one line at a time into the tree. A problem costs the line it is on,
// or, inside a section, the whole section: a section with one bad line is not
// handed out half read. Everything else is still read. The text of every line
// belongs to exactly one element (a block's opening or closing, a section, or
// the end of the file), so the tree can be written again as it was read.
class LineReader {
public:
    explicit LineReader(File& file) : file_(file) {}

    void ReadLine(std::string_view line, std::size_t lineNo, std::size_t begin, std::size_t end) {
        line_ = line;
        pos_ = 0;
        lineNo_ = lineNo;
        lineBegin_ = begin;
        lineEnd_ = end;
        _SkipBlanks();
        if (_AtEnd()) return;
        if (line_.find('\0') != std::string_view::npos) {
            _Fail("NUL byte (not a text file?)");
            return;
        }
        if (line_[pos_] == '}') {
            ++pos_;
            _Close();
            _ExpectEnd("after '}'");
            return;
        }
        std::string name;
        if (!_ReadName(name)) return;
        _SkipBlanks();
        if (pos_ < line_.size() && line_[pos_] == '{') {
            ++pos_;
            _Open(std::move(name));
            _ExpectEnd("after '{'");
            return;
        }
        if (pos_ < line_.size() && line_[pos_] == '=') {
            ++pos_;
            _Keyword(std::move(name));
            return;
        }
        _Fail("expected '{' or '=' after " + ShowText(name));
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

    void _SkipBlanks() {
        while (pos_ < line_.size() && IsBlank(line_[pos_])) ++pos_;
    }

    void _ExpectEnd(const char* where) {
        _SkipBlanks();
        if (!_AtEnd()) _Fail(std::string("unexpected ") + ShowChar(line_[pos_]) + " " + where);
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

    void _Open(std::string name) {
        if (depth_ == 0) {
            target_ = file_.AddTarget(std::move(name));
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
                  ShowText(name));
            _EndSection();
        }
        section_ = file_.NewSection(*target_, std::move(name));
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

    void _Keyword(std::string name) {
        if (depth_ < 2) {
            _Fail("keyword " + ShowText(name) +
                  (depth_ == 0 ? " outside a block" : " outside a section"));
            return;
        }
        Keyword& keyword = *file_.AddKeyword(*section_, std::move(name));
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
    std::size_t lineBegin_ = 0;
    std::size_t lineEnd_ = 0;
    int depth_ = 0;
    Target* target_ = nullptr;
    Section* section_ = nullptr;
    bool damaged_ = false;
    std::size_t sectionStart_ = 0;
    // Start of the text not yet given to any element.
    std::size_t pendingBegin_ = 0;
    std::string first_;
};

}  // namespace

bool Parse(std::string text, File& file, std::string& message) {
    file.Clear();
    message.clear();
    file.text = std::move(text);
    LineReader reader(file);
    std::string_view all(file.text);
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

bool IsBareName(const std::string& name) {
    if (name.empty()) return false;
    for (char c : name)
        if (!IsNameChar(c)) return false;
    return true;
}

}  // namespace gxzpf
