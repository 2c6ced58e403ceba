// The handle interface of the keyword-file library over the tree of ZpfTree.h.
//
// Every entry point first turns its handles back into nodes by their tag; a
// null or wrong-kind handle sets eZpfNullHandle and the call answers 0, null
// or an empty text. Null text arguments (names, paths, output pointers) are
// treated the same way.

#include "zpf/zpf.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <fstream>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "foundation/NumberText.h"
#include "zpf/ZpfTree.h"

namespace {

using gxzpf::As;
using gxzpf::Kind;

// The last error, one per thread like errno: a thread sees the outcome of its
// own calls only, and threads working on different files never disturb each
// other. Failing calls set it; successful calls leave it, except zpfLoadFile,
// zpfCreate and zpfWrite, which clear it first so that an error pending after
// them belongs to them.
//
// The state is trivially destructible: the catalogues write their custom files
// from the library's unload, after the thread's destructors have run, and the
// error must still be usable then. Messages longer than the buffer are cut.
struct ErrorState {
    int code = eZpfOk;
    char message[512] = {};
};

ErrorState& LastError() {
    static thread_local ErrorState state;
    return state;
}

void SetError(int code, const std::string& message) {
    ErrorState& e = LastError();
    e.code = code;
    const std::size_t n = std::min(message.size(), sizeof e.message - 1);
    message.copy(e.message, n);
    e.message[n] = '\0';
}

void ClearError() {
    ErrorState& e = LastError();
    e.code = eZpfOk;
    e.message[0] = '\0';
}

std::string Quote(const char* text) { return std::string("'") + text + "'"; }

// Handle checks that report a failure in the name of the calling function.
template <class Node>
Node* Need(void* handle, Kind kind, const char* function, const char* what) {
    Node* node = As<Node>(handle, kind);
    if (!node) SetError(eZpfNullHandle, std::string(function) + ": " + (handle ? "not a " : "null ") + what + " handle");
    return node;
}

gxzpf::File* NeedFile(void* h, const char* fn) { return Need<gxzpf::File>(h, Kind::File, fn, "file"); }
gxzpf::Target* NeedTarget(void* h, const char* fn) { return Need<gxzpf::Target>(h, Kind::Target, fn, "block"); }
gxzpf::Section* NeedSection(void* h, const char* fn) { return Need<gxzpf::Section>(h, Kind::Section, fn, "section"); }
gxzpf::Keyword* NeedKeyword(void* h, const char* fn) { return Need<gxzpf::Keyword>(h, Kind::Keyword, fn, "keyword"); }
gxzpf::Value* NeedValue(void* h, const char* fn) { return Need<gxzpf::Value>(h, Kind::Value, fn, "value"); }

bool NeedText(const void* text, const char* function, const char* what) {
    if (!text) SetError(eZpfNullHandle, std::string(function) + ": null " + what);
    return text != nullptr;
}

// The num-th (1-based) element of a list of owned nodes whose name is name,
// or any name when name is null.
template <class Node>
Node* NthNamed(const std::vector<std::unique_ptr<Node>>& nodes, const char* name, int num) {
    if (num < 1) return nullptr;
    for (const auto& node : nodes)
        if ((!name || node->name == name) && --num == 0) return node.get();
    return nullptr;
}

template <class Node>
Node* NotFound(const char* function, const std::string& what) {
    SetError(eZpfNotFound, std::string(function) + ": " + what + " not found");
    return nullptr;
}

gxzpf::Section* OpenSection(void* handle, const char* function) {
    gxzpf::Section* section = NeedSection(handle, function);
    if (section && !section->open) {
        SetError(eZpfState, std::string(function) + ": section '" + section->name + "' is not open for writing");
        return nullptr;
    }
    return section;
}

gxzpf::Keyword* AppendKeyword(gxzpf::Section& section, const char* name) {
    auto keyword = std::make_unique<gxzpf::Keyword>();
    keyword->name = name;
    keyword->section = &section;
    section.keywords.push_back(std::move(keyword));
    return section.keywords.back().get();
}

void AppendNumber(gxzpf::Keyword& keyword, double number) {
    auto value = std::make_unique<gxzpf::Value>();
    value->number = number;
    value->text = GxFormatNumberShortest(number);
    keyword.values.push_back(std::move(value));
}

void AppendText(gxzpf::Keyword& keyword, const std::string& text) {
    auto value = std::make_unique<gxzpf::Value>();
    value->isText = true;
    value->text = text;
    keyword.values.push_back(std::move(value));
}

gxzpf::Value* FindValue(void* section, const char* keyword, int occurrence, int valueNum, const void* out,
                        const char* function) {
    gxzpf::Section* s = NeedSection(section, function);
    if (!s || !NeedText(keyword, function, "keyword name") || !NeedText(out, function, "result pointer"))
        return nullptr;
    gxzpf::Keyword* k = NthNamed(s->keywords, keyword, occurrence);
    if (!k)
        return NotFound<gxzpf::Value>(function, "keyword " + Quote(keyword) + " (occurrence " +
                                                    std::to_string(occurrence) + ") in section '" + s->name + "'");
    if (valueNum < 1 || static_cast<std::size_t>(valueNum) > k->values.size())
        return NotFound<gxzpf::Value>(function, "value " + std::to_string(valueNum) + " of keyword " + Quote(keyword));
    return k->values[static_cast<std::size_t>(valueNum) - 1].get();
}

bool NumberOf(const gxzpf::Value& value, double* out, const char* function) {
    if (value.isText) {
        SetError(eZpfNotANumber, std::string(function) + ": the text \"" + value.text + "\" is not a number");
        return false;
    }
    *out = value.number;
    return true;
}

template <class Node>
int CountOf(const std::vector<std::unique_ptr<Node>>& nodes) {
    return nodes.size() > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(nodes.size());
}

}  // namespace

void* zpfLoadFile(const char* path) {
    ClearError();
    if (!NeedText(path, "zpfLoadFile", "path")) return nullptr;
    std::error_code ec;
    auto status = std::filesystem::status(path, ec);
    if (status.type() == std::filesystem::file_type::not_found) {
        SetError(eZpfNotFound, std::string("zpfLoadFile: no file ") + Quote(path));
        return nullptr;
    }
    // Folders, devices and pipes are refused: a device such as /dev/zero
    // would never end.
    if (!std::filesystem::is_regular_file(status)) {
        SetError(eZpfIo, std::string("zpfLoadFile: ") + Quote(path) + " is not a regular file");
        return nullptr;
    }
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    if (in) content << in.rdbuf();
    if (!in || in.bad()) {
        SetError(eZpfIo, std::string("zpfLoadFile: cannot read ") + Quote(path));
        return nullptr;
    }
    auto file = std::make_unique<gxzpf::File>();
    std::string message;
    if (!gxzpf::Parse(content.str(), *file, message)) {
        SetError(eZpfSyntax, std::string(path) + ": " + message);
        return nullptr;
    }
    return file.release();
}

void* zpfCreate() {
    ClearError();
    return new gxzpf::File();
}

int zpfWrite(void* file, const char* path) {
    ClearError();
    gxzpf::File* f = NeedFile(file, "zpfWrite");
    if (!f || !NeedText(path, "zpfWrite", "path")) return 0;
    std::string message;
    if (!gxzpf::WriteReplacing(path, gxzpf::Format(*f), message)) {
        SetError(eZpfIo, "zpfWrite: " + message);
        return 0;
    }
    return 1;
}

void zpfClose(void* file) {
    if (!file) return;
    delete NeedFile(file, "zpfClose");
}

int zpfPeekErrorGlb(std::string* message) {
    const ErrorState& e = LastError();
    if (message) *message = e.message;
    return e.code;
}

int zpfGetErrorGlb(std::string* message) {
    int code = zpfPeekErrorGlb(message);
    ClearError();
    return code;
}

void* zpfTargetByNameNum(void* file, const char* name, int num) {
    gxzpf::File* f = NeedFile(file, "zpfTargetByNameNum");
    if (!f || !NeedText(name, "zpfTargetByNameNum", "name")) return nullptr;
    if (gxzpf::Target* t = NthNamed(f->targets, name, num)) return t;
    return NotFound<void>("zpfTargetByNameNum", "block " + Quote(name) + " (occurrence " + std::to_string(num) + ")");
}

void* zpfAddTarget(void* file, const char* name) {
    gxzpf::File* f = NeedFile(file, "zpfAddTarget");
    if (!f || !NeedText(name, "zpfAddTarget", "name")) return nullptr;
    auto target = std::make_unique<gxzpf::Target>();
    target->name = name;
    f->targets.push_back(std::move(target));
    return f->targets.back().get();
}

void* zpfSectionByNameNum(void* target, const char* name, int num) {
    gxzpf::Target* t = NeedTarget(target, "zpfSectionByNameNum");
    if (!t || !NeedText(name, "zpfSectionByNameNum", "name")) return nullptr;
    if (gxzpf::Section* s = NthNamed(t->sections, name, num)) return s;
    return NotFound<void>("zpfSectionByNameNum", "section " + Quote(name) + " (occurrence " + std::to_string(num) +
                                                     ") in block '" + t->name + "'");
}

void* zpfSectionByNum(void* target, int num) {
    gxzpf::Target* t = NeedTarget(target, "zpfSectionByNum");
    if (!t) return nullptr;
    if (gxzpf::Section* s = NthNamed(t->sections, nullptr, num)) return s;
    return NotFound<void>("zpfSectionByNum", "section " + std::to_string(num) + " in block '" + t->name + "'");
}

int zpfGetNoSections(void* target) {
    gxzpf::Target* t = NeedTarget(target, "zpfGetNoSections");
    return t ? CountOf(t->sections) : 0;
}

int zpfGetNoInstances(void* target, const char* name) {
    gxzpf::Target* t = NeedTarget(target, "zpfGetNoInstances");
    if (!t || !NeedText(name, "zpfGetNoInstances", "name")) return 0;
    int count = 0;
    for (const auto& s : t->sections)
        if (s->name == name && count < INT_MAX) ++count;
    return count;
}

std::string zpfGetName(void* handle) {
    if (auto* t = As<gxzpf::Target>(handle, Kind::Target)) return t->name;
    if (auto* s = As<gxzpf::Section>(handle, Kind::Section)) return s->name;
    if (auto* k = As<gxzpf::Keyword>(handle, Kind::Keyword)) return k->name;
    SetError(eZpfNullHandle,
             std::string("zpfGetName: ") + (handle ? "not a block, section or keyword" : "null") + " handle");
    return std::string();
}

void* zpfAddSection(void* targetOrFile, const char* name) {
    const char* fn = "zpfAddSection";
    gxzpf::Target* t = As<gxzpf::Target>(targetOrFile, Kind::Target);
    if (!t) {
        gxzpf::File* f = As<gxzpf::File>(targetOrFile, Kind::File);
        if (!f) {
            SetError(eZpfNullHandle, std::string(fn) + ": " + (targetOrFile ? "not a" : "null") + " block or file handle");
            return nullptr;
        }
        if (f->targets.empty()) {
            SetError(eZpfState, std::string(fn) + ": the file has no block to hold a section");
            return nullptr;
        }
        t = f->targets.back().get();
    }
    if (!NeedText(name, fn, "name")) return nullptr;
    auto section = std::make_unique<gxzpf::Section>();
    section->name = name;
    section->open = true;
    t->sections.push_back(std::move(section));
    return t->sections.back().get();
}

int zpfEndSection(void* section) {
    gxzpf::Section* s = OpenSection(section, "zpfEndSection");
    if (!s) return 0;
    s->open = false;
    return 1;
}

int zpfPutParam(void* section, const char* keyword, double value) {
    gxzpf::Section* s = OpenSection(section, "zpfPutParam");
    if (!s || !NeedText(keyword, "zpfPutParam", "keyword name")) return 0;
    AppendNumber(*AppendKeyword(*s, keyword), value);
    return 1;
}

int zpfPutParam(void* section, const char* keyword, const std::string& value) {
    gxzpf::Section* s = OpenSection(section, "zpfPutParam");
    if (!s || !NeedText(keyword, "zpfPutParam", "keyword name")) return 0;
    AppendText(*AppendKeyword(*s, keyword), value);
    return 1;
}

int zpfPutParam(void* section, const char* keyword, const char* value) {
    if (!NeedText(value, "zpfPutParam", "text")) return 0;
    return zpfPutParam(section, keyword, std::string(value));
}

int zpfGetParam(void* section, const char* keyword, int occurrence, int valueNum, double* value) {
    const gxzpf::Value* v = FindValue(section, keyword, occurrence, valueNum, value, "zpfGetParam");
    return v && NumberOf(*v, value, "zpfGetParam") ? 1 : 0;
}

int zpfGetParam(void* section, const char* keyword, int occurrence, int valueNum, std::string* value) {
    const gxzpf::Value* v = FindValue(section, keyword, occurrence, valueNum, value, "zpfGetParam");
    if (!v) return 0;
    *value = v->text;
    return 1;
}

void* zpfKeywordByNameNum(void* section, const char* keyword, int occurrence) {
    gxzpf::Section* s = NeedSection(section, "zpfKeywordByNameNum");
    if (!s || !NeedText(keyword, "zpfKeywordByNameNum", "keyword name")) return nullptr;
    if (gxzpf::Keyword* k = NthNamed(s->keywords, keyword, occurrence)) return k;
    return NotFound<void>("zpfKeywordByNameNum", "keyword " + Quote(keyword) + " (occurrence " +
                                                     std::to_string(occurrence) + ") in section '" + s->name + "'");
}

int zpfGetNoParams(void* keyword) {
    gxzpf::Keyword* k = NeedKeyword(keyword, "zpfGetNoParams");
    return k ? CountOf(k->values) : 0;
}

void* zpfParamByNum(void* keyword, int num) {
    gxzpf::Keyword* k = NeedKeyword(keyword, "zpfParamByNum");
    if (!k) return nullptr;
    if (num < 1 || static_cast<std::size_t>(num) > k->values.size())
        return NotFound<void>("zpfParamByNum", "value " + std::to_string(num) + " of keyword '" + k->name + "'");
    return k->values[static_cast<std::size_t>(num) - 1].get();
}

int zpfGetInt(void* param, int* value) {
    gxzpf::Value* v = NeedValue(param, "zpfGetInt");
    if (!v || !NeedText(value, "zpfGetInt", "result pointer")) return 0;
    double number = 0.0;
    if (!NumberOf(*v, &number, "zpfGetInt")) return 0;
    // An integer is any number with a whole value in the range of int, so
    // "-45", "45.0" and "4.5e1" all read as -45 or 45; "12.5" is refused
    // rather than cut to 12.
    if (!(number >= INT_MIN && number <= INT_MAX) || std::trunc(number) != number) {
        SetError(eZpfNotANumber, "zpfGetInt: '" + v->text + "' is not an integer");
        return 0;
    }
    *value = static_cast<int>(number);
    return 1;
}

int zpfGetDouble(void* param, double* value) {
    gxzpf::Value* v = NeedValue(param, "zpfGetDouble");
    if (!v || !NeedText(value, "zpfGetDouble", "result pointer")) return 0;
    return NumberOf(*v, value, "zpfGetDouble") ? 1 : 0;
}

int zpfGetNoTargets(void* file) {
    gxzpf::File* f = NeedFile(file, "zpfGetNoTargets");
    return f ? CountOf(f->targets) : 0;
}

void* zpfTargetByNum(void* file, int num) {
    gxzpf::File* f = NeedFile(file, "zpfTargetByNum");
    if (!f) return nullptr;
    if (gxzpf::Target* t = NthNamed(f->targets, nullptr, num)) return t;
    return NotFound<void>("zpfTargetByNum", "block " + std::to_string(num));
}

int zpfGetNoKeywords(void* section) {
    gxzpf::Section* s = NeedSection(section, "zpfGetNoKeywords");
    return s ? CountOf(s->keywords) : 0;
}

void* zpfKeywordByNum(void* section, int num) {
    gxzpf::Section* s = NeedSection(section, "zpfKeywordByNum");
    if (!s) return nullptr;
    if (gxzpf::Keyword* k = NthNamed(s->keywords, nullptr, num)) return k;
    return NotFound<void>("zpfKeywordByNum", "keyword " + std::to_string(num) + " in section '" + s->name + "'");
}

void* zpfAddKeyword(void* section, const char* keyword) {
    gxzpf::Section* s = OpenSection(section, "zpfAddKeyword");
    if (!s || !NeedText(keyword, "zpfAddKeyword", "keyword name")) return nullptr;
    return AppendKeyword(*s, keyword);
}

namespace {

gxzpf::Keyword* KeywordOfOpenSection(void* keyword, const char* function) {
    gxzpf::Keyword* k = NeedKeyword(keyword, function);
    if (k && !(k->section && k->section->open)) {
        SetError(eZpfState, std::string(function) + ": keyword '" + k->name + "' is not in an open section");
        return nullptr;
    }
    return k;
}

}  // namespace

int zpfAddValue(void* keyword, double value) {
    gxzpf::Keyword* k = KeywordOfOpenSection(keyword, "zpfAddValue");
    if (!k) return 0;
    AppendNumber(*k, value);
    return 1;
}

int zpfAddValue(void* keyword, const std::string& value) {
    gxzpf::Keyword* k = KeywordOfOpenSection(keyword, "zpfAddValue");
    if (!k) return 0;
    AppendText(*k, value);
    return 1;
}

int zpfGetString(void* param, std::string* value) {
    gxzpf::Value* v = NeedValue(param, "zpfGetString");
    if (!v || !NeedText(value, "zpfGetString", "result pointer")) return 0;
    *value = v->text;
    return 1;
}

int zpfIsText(void* param) {
    gxzpf::Value* v = NeedValue(param, "zpfIsText");
    return v && v->isText ? 1 : 0;
}
