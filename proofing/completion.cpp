#include "proofing/completion.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "engine/case_map.h"
#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/edit.h"
#include "engine/shell.h"
#include "engine/words.h"
#include "platform/file_io.h"
#include "platform/paths.h"
#include "proofing/messages.h"
#include "proofing/text.h"
#include "script/builtin_table.h"
#include "syntax/table.h"

namespace zol {
namespace {

constexpr const char* kCmplFile = "CodeCmpl.ini";
constexpr std::string_view kEndSnippet = "EndSnippet";
constexpr char kCaretMark = '^';

using prooftext::trim;

std::vector<std::string_view> blankSeparated(std::string_view s) {
    std::vector<std::string_view> out;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
        size_t j = i;
        while (j < s.size() && s[j] != ' ' && s[j] != '\t') ++j;
        if (j > i) out.push_back(s.substr(i, j - i));
        i = j;
    }
    return out;
}

// The function's name: the word just before the prototype's "(".
std::string functionName(std::string_view proto) {
    const size_t paren = proto.find('(');
    if (paren == std::string_view::npos) return {};
    size_t e = paren;
    while (e > 0 && proto[e - 1] == ' ') --e;
    size_t b = e;
    while (b > 0 && isWordChar(proto[b - 1])) --b;
    return std::string(proto.substr(b, e - b));
}

std::string lineProblem(int number) { return proofmsg::fill(proofmsg::kCmplBrokenLine, std::to_string(number)); }

// A snippet's lines up to its "EndSnippet"; false when a section or the file ends first.
bool readSnippet(const std::vector<std::string_view>& lines, size_t& i, std::string& body) {
    for (size_t j = i + 1; j < lines.size(); ++j) {
        const std::string_view t = trim(lines[j]);
        if (t == kEndSnippet) {
            i = j;
            return true;
        }
        if (!t.empty() && t[0] == '[') {
            i = j - 1;
            return false;
        }
        if (j > i + 1) body += '\n';
        body += lines[j];
    }
    i = lines.size();
    return false;
}

bool setKey(CompletionSection& s, std::string_view key, std::string_view value) {
    if (equalsNoCase(key, "FilePattern")) s.filePattern = value;
    else if (equalsNoCase(key, "Folder")) s.folder = value;
    else if (equalsNoCase(key, "BuiltIns")) s.builtIns = value == "1" || equalsNoCase(value, "yes");
    else if (equalsNoCase(key, "Keywords"))
        for (std::string_view k : blankSeparated(value)) s.items.push_back({std::string(k), {}, CandidateKind::Keyword, {}});
    else if (equalsNoCase(key, "Function")) {
        std::string name = functionName(value);
        if (name.empty()) return false;
        s.items.push_back({std::move(name), std::string(value), CandidateKind::Function, {}});
    } else
        return false;
    return true;
}

}  // namespace

CmplParse parseCodeCompletion(std::string_view text) {
    CmplParse out;
    const std::vector<std::string_view> lines = splitLines(text, FinalLineEnd::EndsLastRow);
    CompletionSection* cur = nullptr;
    for (size_t i = 0; i < lines.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        const std::string_view t = trim(lines[i]);
        if (t.empty() || t[0] == ';' || t[0] == '#') continue;
        if (t[0] == '[') {
            const size_t close = t.find(']');
            if (close == std::string_view::npos) {
                out.problems.push_back(lineProblem(number));
                cur = nullptr;  // what follows belongs to no section it could name
                continue;
            }
            out.sections.push_back({std::string(trim(t.substr(1, close - 1))), {}, {}, false, {}});
            cur = &out.sections.back();
            continue;
        }
        const size_t eq = t.find('=');
        const std::string_view key = trim(t.substr(0, eq)), value = eq == std::string_view::npos ? "" : trim(t.substr(eq + 1));
        if (eq != std::string_view::npos && cur && equalsNoCase(key, "Snippet") && !value.empty()) {
            std::string body;
            if (!readSnippet(lines, i, body)) {
                out.problems.push_back(proofmsg::fill(proofmsg::kCmplUnterminated, value, std::to_string(number)));
                continue;
            }
            const std::string first(trim(body.substr(0, body.find('\n'))));
            cur->items.push_back({std::string(value), first, CandidateKind::Snippet, std::move(body)});
            continue;
        }
        if (eq == std::string_view::npos || !cur || !setKey(*cur, key, value)) out.problems.push_back(lineProblem(number));
    }
    return out;
}

std::string codeCompletionPath() { return joinPath(homeDir(), kCmplFile); }

const CmplParse& codeCompletionFile() {
    static std::string seen;
    static bool read = false;
    static CmplParse parsed;
    std::string text;
    readWholeFile(codeCompletionPath(), text);
    if (read && text == seen) return parsed;
    read = true;
    seen = std::move(text);
    parsed = parseCodeCompletion(seen);
    // Told once for each version of the file.
    std::string problems;
    for (const std::string& p : parsed.problems) problems += (problems.empty() ? "" : "\n") + p;
    if (!problems.empty()) shell().message(problems);
    return parsed;
}

const CompletionSection* sectionFor(const CmplParse& file, const Document& doc) {
    const std::string_view name = fileNamePart(doc.fileName);
    const CompletionSection* byPattern = nullptr;
    for (const CompletionSection& s : file.sections) {
        if (s.filePattern.empty() || !patternMatches(s.filePattern, name)) continue;
        if (s.folder.empty()) {
            if (!byPattern) byPattern = &s;
            continue;
        }
        const std::string folder = joinPath(homeDir(), s.folder) + "/";
        if (doc.fileName.compare(0, folder.size(), folder) == 0) return &s;
    }
    if (byPattern) return byPattern;
    if (const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot))
        for (const CompletionSection& s : file.sections)
            if (s.filePattern.empty() && equalsNoCase(s.name, d->name)) return &s;
    return nullptr;
}

CompletionPrefix completionPrefix(const Document& doc) {
    CompletionPrefix p;
    p.line = doc.cursor.line;
    const std::string_view text = lineText(doc, p.line);
    p.end = std::min(locateColumn(text, doc.cursor.col).offset, text.size());
    p.begin = p.end;
    while (p.begin > 0 && isWordChar(text[p.begin - 1])) --p.begin;
    p.text = text.substr(p.begin, p.end - p.begin);
    return p;
}

namespace {

class Gatherer {
public:
    void add(Candidate c) {
        if (names_.insert(c.text).second) out_.push_back(std::move(c));
    }
    // The words of one line, until the budget is spent.
    void words(std::string_view line) {
        size_t i = 0;
        while (i < line.size()) {
            if (!isWordChar(line[i])) {
                ++i;
                continue;
            }
            size_t j = i;
            while (j < line.size() && isWordChar(line[j])) ++j;
            const std::string_view w = line.substr(i, j - i);
            if (w.size() >= kMinCompletionWord && !(w[0] >= '0' && w[0] <= '9') && words_.insert(w).second &&
                !names_.count(w))
                out_.push_back({std::string(w), {}, CandidateKind::Word, {}});
            i = j;
        }
        budget_ -= std::min(budget_, line.size() + 1);
    }
    bool spent() const { return budget_ == 0; }
    std::vector<Candidate> take() { return std::move(out_); }

private:
    std::vector<Candidate> out_;
    std::set<std::string, std::less<>> names_;  // of everything but the documents' words
    std::unordered_set<std::string_view> words_;
    size_t budget_ = kWordScanBytes;
};

void sectionCandidates(Gatherer& g, const CompletionSection& s) {
    for (CandidateKind kind : {CandidateKind::Snippet, CandidateKind::Function, CandidateKind::Keyword}) {
        for (const Candidate& c : s.items)
            if (c.kind == kind) g.add(c);
        if (kind == CandidateKind::Function && s.builtIns)
            for (const BuiltinEntry& b : builtinList())
                g.add({std::string(b.name), std::string(b.prototype), CandidateKind::Function, {}});
    }
}

void definitionKeywords(Gatherer& g, const Document& doc) {
    const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot);
    if (!d) return;
    for (size_t n = 1; n < d->keywords.size(); ++n)
        for (size_t k = 0; k + n <= d->keywords[n].size(); k += n)
            g.add({d->keywords[n].substr(k, n), {}, CandidateKind::Keyword, {}});
}

// The document's lines outward from the cursor, the nearest first.
void documentWords(Gatherer& g, const Document& doc) {
    const int32_t last = lastLine(doc);
    const int32_t at = std::clamp(doc.cursor.line, 0, last);
    for (int32_t d = 0; !g.spent() && (at - d >= 0 || at + d <= last); ++d) {
        if (at - d >= 0) g.words(lineText(doc, at - d));
        if (d > 0 && at + d <= last && !g.spent()) g.words(lineText(doc, at + d));
    }
}

}  // namespace

std::vector<Candidate> gatherCandidates(const Document& doc, const std::vector<const Document*>& others) {
    Gatherer g;
    if (const CompletionSection* s = sectionFor(codeCompletionFile(), doc)) sectionCandidates(g, *s);
    definitionKeywords(g, doc);
    documentWords(g, doc);
    for (const Document* o : others)
        if (o && o != &doc && !g.spent()) documentWords(g, *o);
    return g.take();
}

std::vector<const Candidate*> filterCandidates(const std::vector<Candidate>& all, std::string_view prefix,
                                               size_t limit) {
    std::vector<const Candidate*> same, other;
    for (const Candidate& c : all) {
        if (c.text.size() < prefix.size() || (c.kind == CandidateKind::Word && c.text == prefix)) continue;
        const std::string_view head = std::string_view(c.text).substr(0, prefix.size());
        if (head == prefix) same.push_back(&c);
        else if (std::equal(head.begin(), head.end(), prefix.begin(), [](char a, char b) { return cpLower(a) == cpLower(b); }))
            other.push_back(&c);
    }
    auto order = [](const Candidate* a, const Candidate* b) {
        return a->kind != b->kind ? a->kind < b->kind : a->text < b->text;
    };
    // Only the first `limit` need their order: a popup of fifty thousand words shows a few hundred.
    // Selecting them first keeps the cost linear: a heap of the first ones (partial
    // sort) is rebuilt for every word that arrives in falling order, as half of a
    // document's words do when they are gathered outward from the cursor.
    auto firstInOrder = [&](std::vector<const Candidate*>& v, size_t n) {
        n = std::min(n, v.size());
        const auto nth = v.begin() + static_cast<std::ptrdiff_t>(n);
        if (nth != v.end()) std::nth_element(v.begin(), nth, v.end(), order);
        std::sort(v.begin(), nth, order);
        v.resize(n);
    };
    firstInOrder(same, limit);
    firstInOrder(other, limit - same.size());
    same.insert(same.end(), other.begin(), other.end());
    return same;
}

namespace {

// The text to put in and the byte within it where the cursor goes.
std::string insertionText(const Candidate& c, std::string_view indent, size_t& caret) {
    caret = std::string::npos;
    if (c.kind == CandidateKind::Function) {
        const size_t open = c.detail.find('('), close = c.detail.rfind(')');
        const std::string_view params =
            open != std::string::npos && close > open ? trim(std::string_view(c.detail).substr(open + 1, close - open - 1)) : "";
        caret = params.empty() || params == "void" ? c.text.size() + 2 : c.text.size() + 1;
        return c.text + "()";
    }
    if (c.kind != CandidateKind::Snippet) return c.text;
    std::string out;
    for (size_t i = 0; i < c.body.size(); ++i) {
        const char ch = c.body[i];
        if (ch == kCaretMark && i + 1 < c.body.size() && c.body[i + 1] == kCaretMark) {
            out += kCaretMark;
            ++i;
        } else if (ch == kCaretMark && caret == std::string::npos) {
            caret = out.size();
        } else if (ch == '\n') {
            out += "\r\n";
            out += indent;
        } else {
            out += ch;
        }
    }
    return out;
}

}  // namespace

bool acceptCandidate(Document& doc, const CompletionPrefix& prefix, const Candidate& c) {
    if (doc.readOnly || prefix.line > lastLine(doc)) return false;
    const std::string line(lineText(doc, prefix.line));
    if (prefix.end > line.size()) return false;
    size_t indentEnd = 0;
    while (indentEnd < line.size() && (line[indentEnd] == ' ' || line[indentEnd] == '\t')) ++indentEnd;
    size_t caret = 0;
    const std::string text = insertionText(c, std::string_view(line).substr(0, indentEnd), caret);
    doc.lastCmd = idOf(Cmd::CodeCompletion);
    doc.prevCmd = idOf(Cmd::NullCmd);
    if (!replaceRange(doc, makePos(columnOfOffset(line, prefix.begin), prefix.line),
                      makePos(columnOfOffset(line, prefix.end), prefix.line), text))
        return false;
    if (caret == std::string::npos) return true;
    const std::string_view before = std::string_view(text).substr(0, caret);
    const size_t breaks = static_cast<size_t>(std::count(before.begin(), before.end(), '\n'));
    const int32_t caretLine = prefix.line + static_cast<int32_t>(breaks);
    const size_t byte = breaks == 0 ? prefix.begin + caret : before.size() - (before.rfind('\n') + 1);
    setCursor(doc, makePos(columnOfOffset(lineText(doc, caretLine), byte), caretLine));
    return true;
}

}  // namespace zol
