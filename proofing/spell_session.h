// One run of the "Spelling" command: from the cursor to the end and round to the
// cursor again, or through the selection, stopping at each word the checker does not
// know. The dialog that shows them lives in the front end; the walk, the changes and
// their one undo step are here. The walk goes in slices, so that a window stays
// responsive and the user can stop it in a big document.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/document.h"
#include "proofing/regions.h"

namespace zol {

class Speller;

struct Misspelling {
    int32_t line = 0;
    size_t begin = 0, end = 0;  // bytes of the line
    std::string word;
};

enum class SpellStep { Found, Finished, Paused };

// How much of the text one slice reads: small enough that a window answers the user
// in between, large enough that slicing costs nothing to speak of.
constexpr size_t kSpellSliceBytes = 256 * 1024;

class SpellSession {
public:
    SpellSession(Document& doc, Speller& speller);

    // Goes on from where the last stop left off, through at most `budget` bytes.
    SpellStep next(Misspelling& found, size_t budget = kSpellSliceBytes);
    // The answers to a word found by next().
    void ignore(const Misspelling& m);
    void ignoreAll(const Misspelling& m);
    // False (nothing changed) when the line would grow beyond its capacity.
    bool change(const Misspelling& m, const std::string& replacement);
    bool changeAll(const Misspelling& m, const std::string& replacement);
    // False when the user dictionary could not be written (the word is accepted
    // for this run all the same).
    bool addToDictionary(const Misspelling& m);

    Document& document() { return doc_; }
    Speller& checker() { return speller_; }
    // Whether there is anything to check at all (a source file may lack comments).
    bool source() const { return regions_.source(); }
    // Lines read so far and lines to read in all, for a progress display.
    int64_t linesDone() const { return linesDone_; }
    int64_t linesTotal() const { return linesTotal_; }

private:
    bool replace(int32_t line, size_t begin, size_t end, const std::string& replacement);
    void shiftStop(int32_t line, size_t at, long delta);

    Document& doc_;
    Speller& speller_;
    RegionScanner regions_;
    WordRules rules_;
    // The walk: the next byte to read, where it stops, and whether it went round.
    int32_t line_ = 0;
    size_t offset_ = 0;
    int32_t stopLine_ = 0;
    size_t stopOffset_ = 0;
    bool wrap_ = false;     // starts over at the top after the last line
    bool wrapped_ = false;
    int64_t linesDone_ = 0, linesTotal_ = 0;
    std::map<std::string, std::string> changeAll_;
    // The lines this run changed, as they were before: the one undo step gives them back.
    int32_t groupFirst_ = -1;
    std::vector<std::string> groupOriginal_;
    size_t groupDepth_ = 0;  // undo stack size with the run's record on top
};

}  // namespace zol
