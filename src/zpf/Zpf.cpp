// The handle interface of the keyword-file library over the tree of ZpfTree.h.
//
// Every entry point first turns its handles back into nodes by their tag; a
// null or wrong-kind handle sets eZpfNullHandle and the call answers 0, null
// or an empty text. Null text arguments (names, paths, output pointers) are
// treated the same way.

#include "zpf/zpf.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <type_traits>

#include "foundation/NumberText.h"
#include "zpf/FileReplace.h"
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
    static constexpr std::size_t kSize = 512;
    int code = eZpfOk;
    char message[kSize] = {};
    // A keyword look-up that finds nothing leaves its message in parts, put
    // together when it is read: a definition asks for every optional keyword
    // of its type, and why one is absent is rarely asked. lookUp names the
    // function; null when message is complete.
    const char* lookUp = nullptr;
    int occurrence = 0;
    std::size_t keywordSize = 0;
    std::size_t sectionSize = 0;
    char keyword[kSize] = {};
    char section[kSize] = {};
};

// Out of line, so that a caller finds the thread's state once rather than at
// every use (each is a call into the dynamic loader's TLS lookup).
[[gnu::noinline]] ErrorState& LastError() {
    static thread_local ErrorState state;
    return state;
}

// The message is assembled from its pieces straight into the thread's
// buffer: failed look-ups are routine (a definition asks for every optional
// keyword of its type), so reporting one allocates nothing. The pieces are
// mostly literals, whose length is known here and whose copy is a few moves.
class MessageBuilder {
public:
    explicit MessageBuilder(char (&buffer)[ErrorState::kSize]) : buffer_(buffer) {}
    ~MessageBuilder() { buffer_[n_] = '\0'; }
    MessageBuilder(const MessageBuilder&) = delete;
    MessageBuilder& operator=(const MessageBuilder&) = delete;

    template <std::size_t N>
    void Add(const char (&literal)[N]) {
        if (N - 1 <= _Room()) {
            std::memcpy(buffer_ + n_, literal, N - 1);
            n_ += N - 1;
        } else {
            Add(std::string_view(literal, N - 1));
        }
    }
    void Add(std::string_view piece) {
        // Messages longer than the buffer are cut.
        const std::size_t take = std::min(piece.size(), _Room());
        std::memcpy(buffer_ + n_, piece.data(), take);
        n_ += take;
    }

private:
    std::size_t _Room() const { return ErrorState::kSize - 1 - n_; }

    char* buffer_;
    std::size_t n_ = 0;
};

template <class... Pieces>
void SetError(int code, const Pieces&... pieces) {
    ErrorState& e = LastError();
    e.code = code;
    e.lookUp = nullptr;
    MessageBuilder message(e.message);
    (message.Add(pieces), ...);
}

// An occurrence or position as message text.
class Count {
public:
    explicit Count(long long n)
        : size_(static_cast<std::size_t>(std::to_chars(text_, text_ + sizeof text_, n).ptr -
                                         text_)) {}
    operator std::string_view() const { return {text_, size_}; }

private:
    char text_[24];
    std::size_t size_;
};

void ClearError() {
    ErrorState& e = LastError();
    e.code = eZpfOk;
    e.lookUp = nullptr;
    e.message[0] = '\0';
}

// Keeps what the message of a keyword that function did not find needs.
void KeywordNotFound(const char* function, const char* keyword, int occurrence,
                     const gxzpf::Section& section) {
    ErrorState& e = LastError();
    e.code = eZpfNotFound;
    e.lookUp = function;
    e.occurrence = occurrence;
    // Longer parts could not show in the message.
    e.keywordSize = std::min(std::strlen(keyword), ErrorState::kSize);
    std::memcpy(e.keyword, keyword, e.keywordSize);
    e.sectionSize = std::min(section.name.size(), ErrorState::kSize);
    std::memcpy(e.section, section.name.data(), e.sectionSize);
}

// The last error's message, put together first where it was left in parts.
const char* ErrorMessage() {
    ErrorState& e = LastError();
    if (e.lookUp) {
        const Count occurrence(e.occurrence);
        MessageBuilder message(e.message);
        message.Add(e.lookUp);
        message.Add(": keyword '");
        message.Add(std::string_view(e.keyword, e.keywordSize));
        message.Add("' (occurrence ");
        message.Add(occurrence);
        message.Add(") in section '");
        message.Add(std::string_view(e.section, e.sectionSize));
        message.Add("' not found");
        e.lookUp = nullptr;
    }
    return e.message;
}

// Handle checks that report a failure in the name of the calling function.
// The check is on the path of every call, the report is not.
[[gnu::noinline, gnu::cold]] void BadHandle(const void* handle, const char* function,
                                            const char* what) {
    SetError(eZpfNullHandle, function, ": ", handle ? "not a " : "null ", what, " handle");
}

template <class Node>
Node* Need(void* handle, Kind kind, const char* function, const char* what) {
    Node* node = As<Node>(handle, kind);
    if (!node) BadHandle(handle, function, what);
    return node;
}

gxzpf::File* NeedFile(void* h, const char* fn) {
    return Need<gxzpf::File>(h, Kind::File, fn, "file");
}
gxzpf::Target* NeedTarget(void* h, const char* fn) {
    return Need<gxzpf::Target>(h, Kind::Target, fn, "block");
}
gxzpf::Section* NeedSection(void* h, const char* fn) {
    return Need<gxzpf::Section>(h, Kind::Section, fn, "section");
}
gxzpf::Keyword* NeedKeyword(void* h, const char* fn) {
    return Need<gxzpf::Keyword>(h, Kind::Keyword, fn, "keyword");
}
gxzpf::Value* NeedValue(void* h, const char* fn) {
    return Need<gxzpf::Value>(h, Kind::Value, fn, "value");
}

[[gnu::noinline, gnu::cold]] void NullText(const char* function, const char* what) {
    SetError(eZpfNullHandle, function, ": null ", what);
}

bool NeedText(const void* text, const char* function, const char* what) {
    if (!text) NullText(function, what);
    return text != nullptr;
}

// The num-th (1-based) node of a list.
template <class List>
auto Nth(const List& nodes, int num) -> std::decay_t<decltype(nodes[0])> {
    if (num < 1 || static_cast<std::size_t>(num) > nodes.size()) return nullptr;
    return nodes[static_cast<std::size_t>(num) - 1];
}

// The num-th (1-based) node of a list whose name is name.
template <class Node>
Node* NthNamed(const std::vector<Node*>& nodes, const char* name, int num) {
    if (num < 1) return nullptr;
    const std::string_view wanted(name);
    for (Node* node : nodes)
        if (node->name.View() == wanted && --num == 0) return node;
    return nullptr;
}

// The num-th (1-based) keyword of a section whose name is name. Catalogues
// ask for every keyword of a definition, present or not, so this is the
// look-up that counts: it compares the keys made when the keywords were read
// and touches the names themselves only for long ones.
gxzpf::Keyword* NthKeyword(const gxzpf::Section& section, const char* name, int num) {
    if (num < 1) return nullptr;
    const std::string_view wanted(name);
    const gxzpf::NameKey key = gxzpf::NameKey::Of(wanted.data(), wanted.size());
    for (gxzpf::Keyword* keyword : section.keywords)
        if (keyword->Named(wanted, key) && --num == 0) return keyword;
    return nullptr;
}

// Reports that what (given in pieces) is absent and answers null.
template <class... Pieces>
void* NotFound(const char* function, const Pieces&... what) {
    SetError(eZpfNotFound, function, ": ", what..., " not found");
    return nullptr;
}

gxzpf::Section* OpenSection(void* handle, const char* function) {
    gxzpf::Section* section = NeedSection(handle, function);
    if (section && !section->open) {
        SetError(eZpfState, function, ": section '", section->name, "' is not open for writing");
        return nullptr;
    }
    return section;
}

gxzpf::Keyword* AppendKeyword(gxzpf::Section& section, const char* name) {
    return section.file->AddKeyword(section, name);
}

void AppendNumber(gxzpf::Keyword& keyword, double number) {
    gxzpf::Value* value = keyword.section->file->AddValue(keyword);
    value->number = number;
    value->text.Keep(GxFormatNumberShortest(number));
}

void AppendText(gxzpf::Keyword& keyword, const std::string& text) {
    gxzpf::Value* value = keyword.section->file->AddValue(keyword);
    value->isText = true;
    value->text.Keep(text);
}

gxzpf::Value* FindValue(void* section, const char* keyword, int occurrence, int valueNum,
                        const void* out, const char* function) {
    gxzpf::Section* s = NeedSection(section, function);
    if (!s || !NeedText(keyword, function, "keyword name") ||
        !NeedText(out, function, "result pointer"))
        return nullptr;
    gxzpf::Keyword* k = NthKeyword(*s, keyword, occurrence);
    if (!k) {
        KeywordNotFound(function, keyword, occurrence, *s);
        return nullptr;
    }
    if (valueNum >= 1 && static_cast<std::size_t>(valueNum) <= k->ValueCount())
        return k->ValueAt(static_cast<std::size_t>(valueNum) - 1);
    return static_cast<gxzpf::Value*>(
        NotFound(function, "value ", Count(valueNum), " of keyword '", keyword, "'"));
}

bool NumberOf(const gxzpf::Value& value, double* out, const char* function) {
    if (value.isText) {
        SetError(eZpfNotANumber, function, ": the text \"", value.text, "\" is not a number");
        return false;
    }
    *out = value.number;
    return true;
}

int CountOf(std::size_t count) {
    return count > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(count);
}

}  // namespace

void* zpfLoadFile(const char* path) {
    ClearError();
    if (!NeedText(path, "zpfLoadFile", "path")) return nullptr;
    std::error_code ec;
    auto status = std::filesystem::status(path, ec);
    if (status.type() == std::filesystem::file_type::not_found) {
        SetError(eZpfNotFound, "zpfLoadFile: no file '", path, "'");
        return nullptr;
    }
    // Folders, devices and pipes are refused: a device such as /dev/zero
    // would never end.
    if (!std::filesystem::is_regular_file(status)) {
        SetError(eZpfIo, "zpfLoadFile: '", path, "' is not a regular file");
        return nullptr;
    }
    try {
        std::string content;
        if (!gxzpf::ReadWhole(path, content)) {
            SetError(eZpfIo, "zpfLoadFile: cannot read '", path, "'");
            return nullptr;
        }
        // A malformed part is skipped and listed with the file; what could be
        // read is there, and no error is pending.
        auto file = std::make_unique<gxzpf::File>();
        std::string firstProblem;
        gxzpf::Parse(std::move(content), *file, firstProblem);
        file->path = path;
        return file.release();
    } catch (const std::bad_alloc&) {
        SetError(eZpfIo, "zpfLoadFile: '", path, "' is too large to be read");
        return nullptr;
    }
}

void* zpfCreate() {
    ClearError();
    return new gxzpf::File();
}

int zpfWrite(void* file, const char* path, std::string* keptAs) {
    ClearError();
    if (keptAs) keptAs->clear();
    gxzpf::File* f = NeedFile(file, "zpfWrite");
    if (!f || !NeedText(path, "zpfWrite", "path")) return 0;
    try {
        std::string message;
        std::string kept;
        if (!gxzpf::KeepUnreadable(path, kept, message) ||
            !gxzpf::WriteReplacing(path, gxzpf::Format(*f), message)) {
            SetError(eZpfIo, "zpfWrite: ", message);
            return 0;
        }
        if (keptAs) *keptAs = kept;
        return 1;
    } catch (const std::bad_alloc&) {
        SetError(eZpfIo, "zpfWrite: '", path, "': out of memory");
        return 0;
    }
}

void zpfClose(void* file) {
    if (!file) return;
    delete NeedFile(file, "zpfClose");
}

int zpfPeekErrorGlb(std::string* message) {
    if (message) *message = ErrorMessage();
    const ErrorState& e = LastError();
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
    return NotFound("zpfTargetByNameNum", "block '", name, "' (occurrence ", Count(num), ")");
}

void* zpfAddTarget(void* file, const char* name) {
    gxzpf::File* f = NeedFile(file, "zpfAddTarget");
    if (!f || !NeedText(name, "zpfAddTarget", "name")) return nullptr;
    return f->AddTarget(name);
}

void* zpfSectionByNameNum(void* target, const char* name, int num) {
    gxzpf::Target* t = NeedTarget(target, "zpfSectionByNameNum");
    if (!t || !NeedText(name, "zpfSectionByNameNum", "name")) return nullptr;
    if (gxzpf::Section* s = NthNamed(t->sections, name, num)) return s;
    return NotFound("zpfSectionByNameNum", "section '", name, "' (occurrence ", Count(num),
                    ") in block '", t->name, "'");
}

void* zpfSectionByNum(void* target, int num) {
    gxzpf::Target* t = NeedTarget(target, "zpfSectionByNum");
    if (!t) return nullptr;
    if (gxzpf::Section* s = Nth(t->sections, num)) return s;
    return NotFound("zpfSectionByNum", "section ", Count(num), " in block '", t->name, "'");
}

int zpfGetNoSections(void* target) {
    gxzpf::Target* t = NeedTarget(target, "zpfGetNoSections");
    return t ? CountOf(t->sections.size()) : 0;
}

int zpfGetNoInstances(void* target, const char* name) {
    gxzpf::Target* t = NeedTarget(target, "zpfGetNoInstances");
    if (!t || !NeedText(name, "zpfGetNoInstances", "name")) return 0;
    int count = 0;
    const std::string_view wanted(name);
    for (const gxzpf::Section* s : t->sections)
        if (s->name.View() == wanted && count < INT_MAX) ++count;
    return count;
}

std::string zpfGetName(void* handle) {
    if (auto* t = As<gxzpf::Target>(handle, Kind::Target)) return t->name.Str();
    if (auto* s = As<gxzpf::Section>(handle, Kind::Section)) return s->name.Str();
    if (auto* k = As<gxzpf::Keyword>(handle, Kind::Keyword)) return k->name.Str();
    SetError(eZpfNullHandle, "zpfGetName: ", handle ? "not a block, section or keyword" : "null",
             " handle");
    return std::string();
}

void* zpfAddSection(void* targetOrFile, const char* name) {
    const char* fn = "zpfAddSection";
    gxzpf::Target* t = As<gxzpf::Target>(targetOrFile, Kind::Target);
    if (!t) {
        gxzpf::File* f = As<gxzpf::File>(targetOrFile, Kind::File);
        if (!f) {
            SetError(eZpfNullHandle, fn, ": ", targetOrFile ? "not a" : "null",
                     " block or file handle");
            return nullptr;
        }
        if (f->targets.empty()) {
            SetError(eZpfState, fn, ": the file has no block to hold a section");
            return nullptr;
        }
        t = f->targets.back();
    }
    if (!NeedText(name, fn, "name")) return nullptr;
    gxzpf::Section* section = t->file->AddSection(*t, name);
    section->open = true;
    return section;
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

int zpfGetParam(void* section, const char* keyword, int occurrence, int valueNum,
                std::string* value) {
    const gxzpf::Value* v = FindValue(section, keyword, occurrence, valueNum, value, "zpfGetParam");
    if (!v) return 0;
    value->assign(v->text.data(), v->text.size());
    return 1;
}

void* zpfKeywordByNameNum(void* section, const char* keyword, int occurrence) {
    gxzpf::Section* s = NeedSection(section, "zpfKeywordByNameNum");
    if (!s || !NeedText(keyword, "zpfKeywordByNameNum", "keyword name")) return nullptr;
    if (gxzpf::Keyword* k = NthKeyword(*s, keyword, occurrence)) return k;
    KeywordNotFound("zpfKeywordByNameNum", keyword, occurrence, *s);
    return nullptr;
}

int zpfGetNoParams(void* keyword) {
    gxzpf::Keyword* k = NeedKeyword(keyword, "zpfGetNoParams");
    return k ? CountOf(k->ValueCount()) : 0;
}

void* zpfParamByNum(void* keyword, int num) {
    gxzpf::Keyword* k = NeedKeyword(keyword, "zpfParamByNum");
    if (!k) return nullptr;
    if (num >= 1 && static_cast<std::size_t>(num) <= k->ValueCount())
        return k->ValueAt(static_cast<std::size_t>(num) - 1);
    return NotFound("zpfParamByNum", "value ", Count(num), " of keyword '", k->name, "'");
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
        SetError(eZpfNotANumber, "zpfGetInt: '", v->text, "' is not an integer");
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
    return f ? CountOf(f->targets.size()) : 0;
}

void* zpfTargetByNum(void* file, int num) {
    gxzpf::File* f = NeedFile(file, "zpfTargetByNum");
    if (!f) return nullptr;
    if (gxzpf::Target* t = Nth(f->targets, num)) return t;
    return NotFound("zpfTargetByNum", "block ", Count(num));
}

int zpfGetNoKeywords(void* section) {
    gxzpf::Section* s = NeedSection(section, "zpfGetNoKeywords");
    return s ? CountOf(s->keywords.size()) : 0;
}

void* zpfKeywordByNum(void* section, int num) {
    gxzpf::Section* s = NeedSection(section, "zpfKeywordByNum");
    if (!s) return nullptr;
    if (gxzpf::Keyword* k = Nth(s->keywords, num)) return k;
    return NotFound("zpfKeywordByNum", "keyword ", Count(num), " in section '", s->name, "'");
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
        SetError(eZpfState, function, ": keyword '", k->name, "' is not in an open section");
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
    value->assign(v->text.data(), v->text.size());
    return 1;
}

int zpfIsText(void* param) {
    gxzpf::Value* v = NeedValue(param, "zpfIsText");
    return v && v->isText ? 1 : 0;
}

int zpfGetNoProblems(void* file) {
    gxzpf::File* f = NeedFile(file, "zpfGetNoProblems");
    return f ? CountOf(f->problemCount) : 0;
}

std::string zpfGetProblem(void* file, int num) {
    gxzpf::File* f = NeedFile(file, "zpfGetProblem");
    if (!f) return std::string();
    if (const std::string* problem = num >= 1 && static_cast<std::size_t>(num) <= f->problems.size()
                                         ? &f->problems[static_cast<std::size_t>(num) - 1]
                                         : nullptr)
        return f->path.empty() ? *problem : f->path + ": " + *problem;
    NotFound("zpfGetProblem", "problem ", Count(num));
    return std::string();
}

int zpfGetNoDamagedSections(void* target) {
    gxzpf::Target* t = NeedTarget(target, "zpfGetNoDamagedSections");
    return t ? CountOf(t->damaged.size()) : 0;
}

void* zpfDamagedSectionByNum(void* target, int num) {
    gxzpf::Target* t = NeedTarget(target, "zpfDamagedSectionByNum");
    if (!t) return nullptr;
    if (gxzpf::Section* s = Nth(t->damaged, num)) return s;
    return NotFound("zpfDamagedSectionByNum", "damaged section ", Count(num), " in block '",
                    t->name, "'");
}

int zpfGetLine(void* handle) {
    std::size_t line = 0;
    if (auto* t = As<gxzpf::Target>(handle, Kind::Target))
        line = t->line;
    else if (auto* s = As<gxzpf::Section>(handle, Kind::Section))
        line = s->line;
    else if (auto* k = As<gxzpf::Keyword>(handle, Kind::Keyword))
        line = k->line;
    else
        SetError(eZpfNullHandle,
                 "zpfGetLine: ", handle ? "not a block, section or keyword" : "null", " handle");
    return CountOf(line);
}

namespace {

// A section listed in its block (a damaged one is not).
gxzpf::Section* ListedSection(void* handle, const char* function) {
    gxzpf::Section* s = NeedSection(handle, function);
    if (!s) return nullptr;
    const auto& list = s->target->sections;
    if (std::find(list.begin(), list.end(), s) == list.end()) {
        SetError(eZpfState, function, ": section '", s->name, "' is not listed in a block");
        return nullptr;
    }
    return s;
}

}  // namespace

int zpfRemoveSection(void* section) {
    gxzpf::Section* s = ListedSection(section, "zpfRemoveSection");
    if (!s) return 0;
    gxzpf::RemoveSection(*s);
    return 1;
}

int zpfReplaceSection(void* old, void* section) {
    gxzpf::Section* o = ListedSection(old, "zpfReplaceSection");
    gxzpf::Section* s = o ? ListedSection(section, "zpfReplaceSection") : nullptr;
    if (!s) return 0;
    if (o == s || o->target != s->target) {
        SetError(eZpfState, "zpfReplaceSection: the sections must be two of one block");
        return 0;
    }
    gxzpf::ReplaceSection(*o, *s);
    return 1;
}

int zpfFormat(void* handle, std::string* text) {
    if (auto* s = As<gxzpf::Section>(handle, Kind::Section)) {
        if (!NeedText(text, "zpfFormat", "result pointer")) return 0;
        *text = gxzpf::FormatSection(*s);
        return 1;
    }
    gxzpf::File* f = NeedFile(handle, "zpfFormat");
    if (!f || !NeedText(text, "zpfFormat", "result pointer")) return 0;
    *text = gxzpf::Format(*f);
    return 1;
}

namespace {

// Why a keyword does not have the shape asked for; "" when it has.
std::string ShapeProblem(const gxzpf::Keyword& k, int minValues, int maxValues, bool numbersOnly) {
    // Messages are made only for a failure: catalogues check every keyword.
    auto where = [&k] {
        return "line " + std::to_string(k.line) + ": keyword '" + k.name.Str() + "' ";
    };
    const std::size_t count = k.ValueCount();
    if (count < static_cast<std::size_t>(std::max(minValues, 0)) ||
        count > static_cast<std::size_t>(std::max(maxValues, 0))) {
        const char* kind = numbersOnly ? " number" : " value";
        const bool one = minValues == maxValues && minValues == 1;
        const std::string expected =
            minValues == maxValues
                ? (one ? std::string("one") : std::to_string(minValues)) + kind + (one ? "" : "s")
                : std::to_string(minValues) + " to " + std::to_string(maxValues) + kind + "s";
        const std::string held = count == 0
                                     ? std::string("no value")
                                     : std::to_string(count) + (count == 1 ? " value" : " values");
        return where() + "holds " + held + " where " + expected + (one ? " is" : " are") +
               " expected";
    }
    for (std::size_t i = 0; numbersOnly && i < count; ++i) {
        const gxzpf::Value* v = k.ValueAt(i);
        if (v->isText)
            return where() + "holds the text \"" + std::string(v->text.View().substr(0, 40)) +
                   "\" where a number is expected";
    }
    return std::string();
}

bool ReportShape(std::string text, std::string* problem) {
    if (text.empty()) return true;
    SetError(text.find("the text") != std::string::npos ? eZpfNotANumber : eZpfValueCount,
             "zpfCheckParam: ", text);
    if (problem) *problem = std::move(text);
    return false;
}

}  // namespace

int zpfCheckParam(void* section, const char* keyword, int minValues, int maxValues, int numbersOnly,
                  std::string* problem) {
    gxzpf::Section* s = NeedSection(section, "zpfCheckParam");
    if (!s || !NeedText(keyword, "zpfCheckParam", "keyword name")) return 0;
    const gxzpf::Keyword* k = NthKeyword(*s, keyword, 1);
    if (!k) return 1;
    return ReportShape(ShapeProblem(*k, minValues, maxValues, numbersOnly != 0), problem) ? 1 : 0;
}

int zpfCheckParams(void* section, const ZpfParamShape* shapes, int count, std::string* problem) {
    gxzpf::Section* s = NeedSection(section, "zpfCheckParams");
    if (!s || (count > 0 && !NeedText(shapes, "zpfCheckParams", "shape list"))) return 0;
    // One pass over the keywords; each shape applies to the first keyword of
    // its name only, as readers take the first occurrence. The shapes are
    // chained by the length of their names (in list order within a chain),
    // so a keyword is compared only with the shapes of its length.
    constexpr int kMostShapes = 64;
    constexpr int kChains = 32;
    if (count > kMostShapes) count = kMostShapes;
    // Filled for the shapes in use only: a catalogue section checks about
    // fifteen.
    struct Wanted {
        const char* name;
        std::size_t size;
        gxzpf::NameKey key;
        bool open;
        signed char next;
    };
    Wanted wanted[kMostShapes];
    signed char first[kChains];
    std::memset(first, -1, sizeof first);
    for (int i = count - 1; i >= 0; --i) {
        Wanted& w = wanted[i];
        w.open = shapes[i].keyword != nullptr;
        if (!w.open) continue;
        w.name = shapes[i].keyword;
        w.size = std::strlen(w.name);
        w.key = gxzpf::NameKey::Of(w.name, w.size);
        signed char& chain = first[w.size % kChains];
        w.next = chain;
        chain = static_cast<signed char>(i);
    }
    for (const gxzpf::Keyword* k : s->keywords) {
        for (int i = first[k->name.size() % kChains]; i >= 0; i = wanted[i].next) {
            Wanted& w = wanted[i];
            if (!w.open || !k->Named(std::string_view(w.name, w.size), w.key)) continue;
            w.open = false;  // later occurrences are not read
            const ZpfParamShape& shape = shapes[i];
            const std::size_t n = k->ValueCount();
            bool fits = n >= static_cast<std::size_t>(std::max(shape.minValues, 0)) &&
                        n <= static_cast<std::size_t>(std::max(shape.maxValues, 0));
            for (std::size_t v = 0; fits && shape.numbersOnly && v < n; ++v)
                fits = !k->ValueAt(v)->isText;
            if (!fits && !ReportShape(ShapeProblem(*k, shape.minValues, shape.maxValues,
                                                   shape.numbersOnly != 0),
                                      problem))
                return 0;
            break;
        }
    }
    return 1;
}
