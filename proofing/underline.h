// The words the view underlines as misspelt: in documents without a language when
// "UnderlineText" is on, in comments and strings of source files when
// "UnderlineSource" is. The word the cursor stands in is left alone while it is typed.
#pragma once
#include <cstdint>
#include <vector>

#include "proofing/regions.h"

namespace zol {

class Speller;

class MisspeltFinder {
public:
    // Finds nothing when the settings say no or no dictionary can be had.
    explicit MisspeltFinder(const Document& doc);
    bool active() const { return speller_ != nullptr; }
    std::vector<WordSpan> line(const Document& doc, int32_t line);

private:
    RegionScanner regions_;
    Speller* speller_ = nullptr;
    WordRules rules_;
};

}  // namespace zol
