// Writer of the keyword-file text.

#include <string>
#include <string_view>
#include <vector>

#include "zpf/ZpfTree.h"

namespace gxzpf {
namespace {

constexpr const char* kIndent = "    ";

void AppendQuoted(std::string& out, std::string_view text) {
    static const char* const kHex = "0123456789ABCDEF";
    out += '"';
    for (char c : text) {
        unsigned char u = static_cast<unsigned char>(c);
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\t':
                out += "\\t";
                break;
            case '\r':
                out += "\\r";
                break;
            default:
                // Other control bytes (NUL included) are escaped so the file
                // stays a text file; bytes above 0x7F (UTF-8) pass unchanged.
                if (u < 0x20 || u == 0x7F) {
                    out += "\\x";
                    out += kHex[u >> 4];
                    out += kHex[u & 0xF];
                } else {
                    out += c;
                }
        }
    }
    out += '"';
}

void AppendName(std::string& out, std::string_view name) {
    if (IsBareName(name))
        out += name;
    else
        AppendQuoted(out, name);
}

void AppendSection(std::string& out, const Section& section) {
    out += kIndent;
    AppendName(out, section.name);
    out += " {\n";
    for (const auto& keyword : section.keywords) {
        out += kIndent;
        out += kIndent;
        AppendName(out, keyword->name);
        out += " =";
        const char* separator = " ";
        for (std::size_t i = 0; i < keyword->ValueCount(); ++i) {
            const Value* value = keyword->ValueAt(i);
            out += separator;
            separator = ", ";
            // A number keeps the text it was read or made with, which reads
            // back as the same bits.
            if (value->isText)
                AppendQuoted(out, value->text);
            else
                out += value->text.View();
        }
        out += '\n';
    }
    out += kIndent;
    out += "}\n";
}

// Text of a file that was read goes out as it came in. Only the last line of
// a file can lack its line end; anything written after it starts a new line.
class Output {
public:
    explicit Output(const File& file) : file_(file) {}
    void Text(Span span) {
        if (span.end <= span.begin) return;
        LineStart();
        out_.append(file_.text, span.begin, span.end - span.begin);
    }
    void Texts(const std::vector<Span>& spans) {
        for (Span span : spans) Text(span);
    }
    void LineStart() {
        if (!out_.empty() && out_.back() != '\n') out_ += '\n';
    }
    std::string& Out() { return out_; }

private:
    const File& file_;
    std::string out_;
};

}  // namespace

std::string FormatSection(const Section& section) {
    std::string out;
    AppendSection(out, section);
    return out;
}

std::string Format(const File& file) {
    Output output(file);
    std::string& out = output.Out();
    bool first = true;
    for (const Target* target : file.targets) {
        output.LineStart();
        if (target->fromText) {
            output.Text(target->opening);
        } else {
            if (!first) out += '\n';
            AppendName(out, target->name);
            out += " {\n";
        }
        first = false;
        for (const Section* section : target->sections) {
            output.Texts(section->carried);
            if (section->fromText) {
                output.Text(section->leading);
                output.Text(section->own);
            } else {
                output.LineStart();
                AppendSection(out, *section);
            }
        }
        output.Texts(target->carried);
        if (target->fromText) output.Text(target->closing);
        // A block read without its closing brace gets one once sections
        // were added to it, or they would stand outside it.
        if (!target->fromText || (!target->closed && target->edited)) {
            output.LineStart();
            out += "}\n";
        }
    }
    output.Text(file.trailing);
    return std::move(out);
}

}  // namespace gxzpf
