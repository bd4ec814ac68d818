#include "proofing/underline.h"

#include <string>

#include "config/settings.h"
#include "engine/columns.h"
#include "proofing/speller.h"

namespace zol {

MisspeltFinder::MisspeltFinder(const Document& doc) : regions_(doc) {
    const SpellingSettings& s = settings().spelling;
    if (doc.outputWindow || !(regions_.source() ? s.underlineSource : s.underlineText)) return;
    speller_ = speller();
    rules_.ignoreUppercase = s.ignoreUppercase;
}

std::vector<WordSpan> MisspeltFinder::line(const Document& doc, int32_t line) {
    std::vector<WordSpan> out;
    if (!speller_) return out;
    const std::string_view text = lineText(doc, line);
    const size_t cursor = line == doc.cursor.line ? locateColumn(text, doc.cursor.col).offset : std::string::npos;
    for (const WordSpan& w : proseWords(text, regions_.mask(doc, line).data(), rules_)) {
        if (cursor != std::string::npos && w.begin <= cursor && cursor <= w.end) continue;
        if (!speller_->correct(text.substr(w.begin, w.end - w.begin))) out.push_back(w);
    }
    return out;
}

}  // namespace zol
