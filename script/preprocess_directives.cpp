// The directives: #define and #undef, the conditional levels, #include, #error; #line
// and #pragma are accepted and have no effect.
#include <string_view>

#include "platform/file_io.h"
#include "platform/paths.h"
#include "script/preprocess_state.h"

namespace zol::pp {
namespace {

enum class Directive {
    Define = 1, Else, Elif, Endif, Error, If, Ifdef, Ifndef, Include, Line, Pragma, Undef,
};

// Sorted by name.
struct DirectiveName {
    const char* name;
    Directive directive;
};
constexpr DirectiveName kDirectives[] = {
    {"define", Directive::Define}, {"elif", Directive::Elif},       {"else", Directive::Else},
    {"endif", Directive::Endif},   {"error", Directive::Error},     {"if", Directive::If},
    {"ifdef", Directive::Ifdef},   {"ifndef", Directive::Ifndef},   {"include", Directive::Include},
    {"line", Directive::Line},     {"pragma", Directive::Pragma},   {"undef", Directive::Undef},
};

std::string readName(const std::string& s, size_t& i) {
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    const size_t b = i;
    while (i < s.size() && isIdChar(s[i])) ++i;
    return s.substr(b, i - b);
}

// The parameter list of "#define NAME(" ... ")" into m; list is the text between the
// parentheses.
void readParams(State& pp, const std::string& list, Macro& m) {
    size_t k = 0;
    while (k <= list.size()) {
        size_t c = list.find(',', k);
        if (c == std::string::npos) c = list.size();
        const std::string p = trim(list.substr(k, c - k));
        if (p == "...") {
            m.variadic = true;
        } else if (!p.empty()) {
            if (m.variadic) pp.fail(kErrDefine);
            m.params.push_back(p);
        } else if (c < list.size() || !m.params.empty()) {
            pp.fail(kErrDefine);
        }
        if (m.params.size() > static_cast<size_t>(kPpMaxMacroParams)) pp.fail(kErrTooManyMacroParams);
        k = c + 1;
    }
}

bool isIncludeNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || std::string_view("._\\/$-").find(c) != std::string_view::npos;
}

}  // namespace

void State::openLevel(bool cond) {
    if (static_cast<int>(levels.size()) >= kPpMaxIfLevels) fail(kErrIfDepth);
    const bool outer = skipping();
    levels.push_back(Level{outer || !cond, outer, !outer && cond});
}

void State::doDefine(const std::string& s, size_t i) {
    const std::string name = readName(s, i);
    if (name.empty() || !isIdStart(name[0])) fail(kErrDefine);
    Macro m;
    if (i < s.size() && s[i] == '(') {
        m.function = true;
        const size_t close = s.find(')', i);
        if (close == std::string::npos) fail(kErrMissingRParen);
        readParams(*this, s.substr(i + 1, close - i - 1), m);
        i = close + 1;
    }
    m.body = trim(s.substr(i));
    define(name, std::move(m));
}

void State::doInclude(const std::string& s, size_t i) {
    if (includeDepth >= kPpMaxIncludeDepth) fail(kErrIncludeDepth);
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    if (i >= s.size() || (s[i] != '"' && s[i] != '<')) fail(kErrUnknownDirective);
    const bool quoted = s[i] == '"';
    const char close = quoted ? '"' : '>';
    size_t e = i + 1;
    while (e < s.size() && isIncludeNameChar(s[e])) ++e;
    if (e >= s.size() || s[e] != close || e == i + 1) fail(kErrUnknownDirective);
    const std::string name = s.substr(i + 1, e - i - 1);
    std::string rel = name;
    for (char& c : rel)
        if (c == '\\') c = '/';
    const std::string path = quoted ? (mainFolder.empty() ? rel : joinPath(mainFolder, rel)) : joinPath(includeDir, rel);
    std::string text;
    if (!readWholeFile(path, text)) fail(kErrIncludeOpen);
    if (text.size() > static_cast<size_t>(kExpandedTextSize) * 64) fail(kErrFileTooLarge);
    out.fileNames.push_back(name);
    const int savedFile = file, savedLine = line;
    const bool savedComment = inComment;
    ++includeDepth;
    file = static_cast<int>(out.fileNames.size()) - 1;
    inComment = false;
    run(text);
    --includeDepth;
    file = savedFile;
    line = savedLine;
    inComment = savedComment;
}

// Handles a directive line; s starts after "#".
void State::directive(const std::string& s) {
    size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    const size_t b = i;
    while (i < s.size() && std::isalpha(static_cast<unsigned char>(s[i]))) ++i;
    const std::string word = s.substr(b, i - b);
    if (word.empty()) {
        if (trim(s.substr(i)).empty()) return;
        fail(kErrUnknownDirective);
    }
    const DirectiveName* d = nullptr;
    for (const DirectiveName& n : kDirectives)
        if (word == n.name) d = &n;
    if (!d) fail(kErrUnknownDirective);
    switch (d->directive) {
        case Directive::Define:
            if (!skipping()) doDefine(s, i);
            break;
        case Directive::Else: {
            if (levels.empty()) fail(kErrElse);
            Level& l = levels.back();
            l.skipping = l.outerSkipping || l.taken;
            l.taken = true;
            break;
        }
        case Directive::Elif: {
            if (levels.empty()) fail(kErrElif);
            Level& l = levels.back();
            if (l.outerSkipping || l.taken) {
                l.skipping = true;
            } else {
                l.taken = evalIf(s.substr(i));
                l.skipping = !l.taken;
            }
            break;
        }
        case Directive::Endif:
            if (levels.empty()) fail(kErrEndif);
            levels.pop_back();
            break;
        case Directive::Error:
            if (!skipping()) fail(kErrErrorDirective);
            break;
        case Directive::If:
            openLevel(skipping() ? false : evalIf(s.substr(i)));
            break;
        case Directive::Ifdef:
        case Directive::Ifndef: {
            const std::string name = readName(s, i);
            if (!skipping() && name.empty()) fail(kErrIfExpr);
            const bool def = macros.count(name) > 0;
            openLevel(d->directive == Directive::Ifdef ? def : !def);
            break;
        }
        case Directive::Include:
            if (!skipping()) doInclude(s, i);
            break;
        case Directive::Undef:
            if (!skipping()) macros.erase(readName(s, i));
            break;
        case Directive::Line:
        case Directive::Pragma:
            break;
    }
}

}  // namespace zol::pp
