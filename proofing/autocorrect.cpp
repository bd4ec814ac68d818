#include "proofing/autocorrect.h"

#include <algorithm>

#include "engine/case_map.h"
#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/edit.h"
#include "engine/shell.h"
#include "platform/file_io.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "proofing/messages.h"
#include "proofing/regions.h"
#include "proofing/text.h"

namespace zol {
namespace {

constexpr const char* kAcrFile = "zol.acr";
// The broken lines a load names before it says "and more".
constexpr size_t kBrokenLinesNamed = 10;

const char kAcrHeader[] =
    "# Zolder AutoCorrect list: the wrong word, a tab, the right word; one entry a line.\n"
    "# Name=1 or Name=0 turns a rule on or off. An entry whose two words are the same\n"
    "# keeps the rules off that word.\n";

struct OptionKey {
    const char* name;
    bool AutoCorrectOptions::*field;
};
const OptionKey kOptionKeys[] = {
    {"CorrectTwoInitCaps", &AutoCorrectOptions::twoCapitals},
    {"CapitalizeSentence", &AutoCorrectOptions::capitalize},
    {"CorrectCapsLock", &AutoCorrectOptions::capsLock},
    {"ReplaceText", &AutoCorrectOptions::replaceText},
};

bool isLetter(char c) { return cpIsLetter(c); }
bool isUpper(char c) { return isLetter(c) && cpLower(c) != c; }
bool isLower(char c) { return isLetter(c) && cpUpper(c) != c; }
bool isApostrophe(char c) { return c == '\'' || c == '\x92'; }
// Characters that make a word part of a name when they touch it.
bool isNamePart(char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '_'; }

bool parseOption(std::string_view line, AutoCorrectOptions& o) {
    const size_t eq = line.find('=');
    const std::string_view name = prooftext::trim(line.substr(0, eq)), value = prooftext::trim(line.substr(eq + 1));
    if (value != "0" && value != "1") return false;
    for (const OptionKey& k : kOptionKeys)
        if (equalsNoCase(name, k.name)) {
            o.*k.field = value == "1";
            return true;
        }
    return false;
}

bool parseEntry(std::string_view line, AutoCorrectList& list) {
    const size_t tab = line.find('\t');
    const std::string_view wrong = prooftext::trim(line.substr(0, tab)), right = prooftext::trim(line.substr(tab + 1));
    auto control = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
    if (wrong.empty() || right.empty() || wrong.size() > proofmsg::kMaxAcrEntry ||
        right.size() > proofmsg::kMaxAcrEntry || wrong.find(' ') != std::string_view::npos ||
        std::any_of(wrong.begin(), wrong.end(), control) || std::any_of(right.begin(), right.end(), control))
        return false;
    list.entries[std::string(wrong)] = std::string(right);
    return true;
}

std::string withCaseOf(std::string_view typed, std::string right) {
    const bool allUpper = typed.size() > 1 && std::all_of(typed.begin(), typed.end(), [](char c) { return !isLower(c); });
    if (allUpper) std::transform(right.begin(), right.end(), right.begin(), cpUpper);
    else if (isUpper(typed[0])) right[0] = cpUpper(right[0]);
    return right;
}

std::string lowered(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(), cpLower);
    return out;
}

// "tHIS": the first letter small, every other one a capital.
bool capsLockShape(std::string_view w) {
    return w.size() >= 4 && isLower(w[0]) && std::all_of(w.begin() + 1, w.end(), [](char c) { return !isLower(c); });
}

// "THis": two capitals, then small letters; "CDs" is a plural, not a slip.
bool twoCapitalsShape(std::string_view w) {
    return w.size() >= 3 && isUpper(w[0]) && isUpper(w[1]) && w.substr(2) != "s" &&
           std::all_of(w.begin() + 2, w.end(), [](char c) { return !isUpper(c); }) &&
           std::any_of(w.begin() + 2, w.end(), isLower);
}

}  // namespace

AcrParse parseAutoCorrect(std::string_view text) {
    AcrParse out;
    int number = 0;
    for (std::string_view raw : splitLines(text, FinalLineEnd::EndsLastRow)) {
        ++number;
        const std::string_view line = prooftext::trim(raw);
        if (line.empty()) continue;
        if (line[0] == '#') {
            if (std::string_view(kAcrHeader).find(raw) == std::string_view::npos) out.list.kept.emplace_back(raw);
            continue;
        }
        const bool ok = raw.find('\t') != std::string_view::npos ? parseEntry(raw, out.list)
                        : line.find('=') != std::string_view::npos ? parseOption(line, out.list.options)
                                                                    : false;
        if (!ok) {
            out.brokenLines.push_back(number);
            out.list.kept.emplace_back(raw);
        }
    }
    return out;
}

std::string formatAutoCorrect(const AutoCorrectList& list) {
    std::string out = kAcrHeader;
    for (const std::string& k : list.kept) out += k + "\n";
    for (const OptionKey& k : kOptionKeys) out += std::string(k.name) + "=" + (list.options.*k.field ? "1\n" : "0\n");
    for (const auto& [wrong, right] : list.entries) out += wrong + "\t" + right + "\n";
    return out;
}

namespace {
// True when zol.acr is there but could not be read: saving would replace the user's list
// with what little was typed since.
bool& listUnreadable() {
    static bool unreadable = false;
    return unreadable;
}
// The list as it was read, so that an unchanged list leaves the user's file alone.
AutoCorrectList& loadedList() {
    static AutoCorrectList l;
    return l;
}
}  // namespace

AutoCorrectList& autoCorrect() {
    static AutoCorrectList l;
    return l;
}

std::string autoCorrectPath() { return joinPath(homeDir(), kAcrFile); }

void loadAutoCorrect() {
    std::string text;
    const std::string path = autoCorrectPath();
    const bool read = readWholeFile(path, text);
    listUnreadable() = !read && fileExists(path);
    if (listUnreadable()) shell().message(proofmsg::fill(proofmsg::kAcrUnreadable, path));
    AcrParse p = parseAutoCorrect(read ? text : std::string());
    autoCorrect() = p.list;
    loadedList() = std::move(p.list);
    if (p.brokenLines.empty()) return;
    std::string numbers;
    for (size_t i = 0; i < p.brokenLines.size() && i < kBrokenLinesNamed; ++i)
        numbers += (i ? ", " : "") + std::to_string(p.brokenLines[i]);
    if (p.brokenLines.size() > kBrokenLinesNamed) numbers += " and " + std::to_string(p.brokenLines.size() - kBrokenLinesNamed) + " more";
    shell().message(proofmsg::fill(proofmsg::kAcrBrokenLines, numbers));
}

bool saveAutoCorrect() {
    const AutoCorrectList& l = autoCorrect();
    const AutoCorrectList& was = loadedList();
    if (l.entries == was.entries && l.options.twoCapitals == was.options.twoCapitals &&
        l.options.capitalize == was.options.capitalize && l.options.capsLock == was.options.capsLock &&
        l.options.replaceText == was.options.replaceText)
        return true;
    if (listUnreadable() || !replaceFile(autoCorrectPath(), formatAutoCorrect(l))) {
        shell().message(proofmsg::fill(proofmsg::kAcrNotSaved, autoCorrectPath()));
        return false;
    }
    loadedList() = l;
    return true;
}

std::string correctedWord(const AutoCorrectList& list, std::string_view word, bool sentenceStart) {
    if (word.empty()) return {};
    const AutoCorrectOptions& o = list.options;
    const auto& entries = list.entries;
    if (auto ex = entries.find(std::string(word)); ex != entries.end() && ex->second == word) return {};
    std::string out;
    if (o.replaceText) {
        if (auto it = entries.find(std::string(word)); it != entries.end()) out = it->second;
        else if (auto low = entries.find(lowered(word)); low != entries.end() && low->first != low->second)
            out = withCaseOf(word, low->second);
    }
    if (out.empty()) {
        out = word;
        if (o.capsLock && capsLockShape(out)) {
            out = lowered(out);
            out[0] = cpUpper(out[0]);
        } else if (o.twoCapitals && twoCapitalsShape(out)) {
            out[1] = cpLower(out[1]);
        }
    }
    if (o.capitalize && sentenceStart && isLower(out[0]) &&
        std::all_of(word.begin(), word.end(), [](char c) { return !isUpper(c); }))
        out[0] = cpUpper(out[0]);
    return out == word ? std::string() : out;
}

namespace {

// The end of a sentence just before `at` on its line (blanks and opening quotes
// skipped): ".", "!" or "?" after a word of two letters or more ("e.g." ends none). The
// start of a line is none: it is as often code typed into a plain file as prose.
bool sentenceEndsBefore(std::string_view t, size_t at) {
    size_t k = at;
    while (k > 0 && (t[k - 1] == ' ' || t[k - 1] == '\t' || t[k - 1] == '"' || t[k - 1] == '(')) --k;
    if (k == 0 || k == at) return false;
    const char c = t[k - 1];
    if (c != '.' && c != '!' && c != '?') return false;
    size_t w = k - 1;
    while (w > 0 && isLetter(t[w - 1])) --w;
    return (k - 1) - w >= 2;
}

}  // namespace

bool autoCorrectTyped(Document& doc, const AutoCorrectList& list, bool enderTyped) {
    const int32_t line = doc.cursor.line;
    const std::string text(lineText(doc, line));
    const size_t at = locateColumn(text, doc.cursor.col).offset;
    if (at == 0 || at > text.size() || doc.readOnly) return false;
    if (!enderTyped && at < text.size() && isNamePart(text[at])) return false;
    const std::string ender = enderTyped ? text.substr(at - 1, 1) : std::string();
    if (enderTyped && (isNamePart(ender[0]) || isApostrophe(ender[0]) || ender[0] == '(')) return false;
    const size_t e = enderTyped ? at - 1 : at;
    size_t b = e;
    while (b > 0 && (isLetter(text[b - 1]) || (isApostrophe(text[b - 1]) && b >= 2 && isLetter(text[b - 2])))) --b;
    if (b == e || (b > 0 && (isNamePart(text[b - 1]) || text[b - 1] == '.' || text[b - 1] == '\\'))) return false;
    RegionScanner regions(doc);
    if (!regions.mask(doc, line)[b]) return false;
    const std::string fixed =
        correctedWord(list, std::string_view(text).substr(b, e - b), sentenceEndsBefore(text, b));
    if (fixed.empty()) return false;
    // An undo step of its own: neither the typing before nor after folds into it. It
    // takes the character that ended the word along, so that Undo leaves the cursor
    // after it, where the typing goes on.
    doc.lastCmd = doc.prevCmd = idOf(Cmd::NullCmd);
    return replaceRange(doc, makePos(columnOfOffset(text, b), line), makePos(columnOfOffset(text, at), line),
                        fixed + ender);
}

}  // namespace zol
