// Where proofing may look: in a document with a language definition only its comments
// and strings, as the highlighting scanner sees them; elsewhere all text. And the words
// in those places that are worth checking.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol {

struct SyntaxHighlight;

class RegionScanner {
public:
    explicit RegionScanner(const Document& doc);
    ~RegionScanner();
    RegionScanner(RegionScanner&&) noexcept;
    RegionScanner& operator=(RegionScanner&&) noexcept;

    // The document is source code: only comments and strings are prose.
    bool source() const { return def_ != nullptr; }
    // One byte per byte of line `line` of doc: non-zero where prose may stand.
    const std::vector<uint8_t>& mask(const Document& doc, int32_t line);

private:
    // The document's definition with every colour slot painting its own number, so
    // that the scanner's output tells comments and strings from code.
    std::unique_ptr<SyntaxHighlight> def_;
    std::vector<uint8_t> mask_;
};

// A word of prose: bytes [begin, end) of a line.
struct WordSpan {
    size_t begin, end;
};

struct WordRules {
    bool ignoreUppercase = true;  // words in capitals only ("NULL", "TODO")
};

// The words of text worth checking, where mask (when given) allows: runs of letters
// with apostrophes inside. Left out: what reads as code or a name even in prose
// (words joined to digits, underscores, dots or slashes, inner capitals as in
// "camelCase"), single letters, escapes and printf directives in strings, addresses.
std::vector<WordSpan> proseWords(std::string_view text, const uint8_t* mask, const WordRules& rules);

}  // namespace zol
