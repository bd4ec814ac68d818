#include "proofing/regions.h"

#include <algorithm>

#include "engine/case_map.h"
#include "syntax/doc_syntax.h"
#include "syntax/scanner.h"
#include "syntax/table.h"

namespace zol {
namespace {

// Longer runs of letters are data (encoded text, a hash spelt out), not words.
constexpr size_t kMaxProseWord = 64;

bool isLetter(char c) { return cpIsLetter(c); }
bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isUpper(char c) { return cpLower(c) != c; }
bool isWordish(char c) { return isLetter(c) || isDigit(c) || c == '_'; }
// An apostrophe inside a word ("don't"), typed or typographic.
bool isApostrophe(char c) { return c == '\'' || c == '\x92'; }

bool looksLikeAddress(std::string_view chunk) {
    return chunk.find("://") != std::string_view::npos || chunk.find('@') != std::string_view::npos ||
           chunk.find("www.") != std::string_view::npos;
}

// A word joined to its neighbours in a way prose never is: "file.txt", "a/b",
// "std::string", "p->next", "call(", "x2", "my_name".
bool joinedToCode(std::string_view t, size_t b, size_t e, size_t from, size_t to) {
    const char before = b > from ? t[b - 1] : ' ';
    const char before2 = b > from + 1 ? t[b - 2] : ' ';
    const char after = e < to ? t[e] : ' ';
    const char after2 = e + 1 < to ? t[e + 1] : ' ';
    if (isDigit(before) || before == '_' || isDigit(after) || after == '_' || after == '(') return true;
    for (char sep : {'.', '/'}) {
        if (before == sep && isWordish(before2)) return true;
        if (after == sep && isWordish(after2)) return true;
    }
    return (before == ':' && before2 == ':') || (after == ':' && after2 == ':') || (before == '>' && before2 == '-') ||
           (after == '-' && after2 == '>');
}

bool worthChecking(std::string_view word, const WordRules& rules) {
    if (word.size() < 2 || word.size() > kMaxProseWord) return false;
    const bool allUpper = std::none_of(word.begin(), word.end(), [](char c) { return isLetter(c) && !isUpper(c); });
    if (allUpper) return !rules.ignoreUppercase;
    // Capitals after the first letter make a name ("camelCase", "iPhone").
    return std::none_of(word.begin() + 1, word.end(), isUpper);
}

// After a printf directive's "%": its flags, width, precision, size and conversion.
size_t skipDirective(std::string_view t, size_t k, size_t to) {
    while (k < to && std::string_view("-+ #0123456789.*lhzjtL").find(t[k]) != std::string_view::npos) ++k;
    return std::min(k + 1, to);
}

void chunkWords(std::string_view t, size_t from, size_t to, const WordRules& rules, std::vector<WordSpan>& out) {
    size_t k = from;
    while (k < to) {
        const char c = t[k];
        if (c == '\\') {  // an escape: its letter belongs to no word
            k += 2;
            continue;
        }
        if (c == '%') {
            k = skipDirective(t, k + 1, to);
            continue;
        }
        if (!isLetter(c)) {
            ++k;
            continue;
        }
        size_t e = k + 1;
        while (e < to && (isLetter(t[e]) || (isApostrophe(t[e]) && e + 1 < to && isLetter(t[e + 1])))) ++e;
        if (!joinedToCode(t, k, e, from, to) && worthChecking(t.substr(k, e - k), rules)) out.push_back({k, e});
        k = e;
    }
}

}  // namespace

RegionScanner::RegionScanner(const Document& doc) {
    const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot);
    if (!d) return;
    def_ = std::make_unique<SyntaxHighlight>(*d);
    for (size_t slot = 1; slot < def_->colour.size(); ++slot) def_->colour[slot] = static_cast<uint8_t>(slot);
}

RegionScanner::~RegionScanner() = default;
RegionScanner::RegionScanner(RegionScanner&&) noexcept = default;
RegionScanner& RegionScanner::operator=(RegionScanner&&) noexcept = default;

const std::vector<uint8_t>& RegionScanner::mask(const Document& doc, int32_t line) {
    const std::string_view text = lineText(doc, line);
    mask_.assign(text.size(), 1);
    if (!def_ || text.empty()) return mask_;
    const int inComment = commentBitOf(doc, line - 1);
    scanLine(*def_, text, mask_.data(), inComment);
    for (uint8_t& b : mask_) b = (b == kColComment || b == kColString) ? 1 : 0;
    return mask_;
}

std::vector<WordSpan> proseWords(std::string_view text, const uint8_t* mask, const WordRules& rules) {
    std::vector<WordSpan> out;
    size_t i = 0;
    const size_t n = text.size();
    auto allowed = [&](size_t k) { return !mask || mask[k]; };
    while (i < n) {
        if (!allowed(i) || isBlank(text[i])) {
            ++i;
            continue;
        }
        size_t j = i;
        while (j < n && allowed(j) && !isBlank(text[j])) ++j;
        if (!looksLikeAddress(text.substr(i, j - i))) chunkWords(text, i, j, rules, out);
        i = j;
    }
    return out;
}

}  // namespace zol
