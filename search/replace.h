// Replacing found text in a document: one hit at a time (one undo step each) or every
// hit of the document at once (one undo step for all of them).
#pragma once
#include <cstdint>
#include <string>

#include "search/find.h"

namespace zol {

// Selects a hit: anchor at its start, cursor and moving end at its end.
void selectHit(Document& doc, const DocumentHit& hit);

// Replaces a hit that was just found with `s` by the replacement (a template for a
// regular expression). The new text is left selected; an empty one deletes the hit.
// kSearchError for a read-only document or a line that would grow past its capacity.
int replaceHit(Document& doc, const Searcher& s, const DocumentHit& hit, const char* replacement);

struct ReplaceAllResult {
    int replaced = 0;      // hits replaced
    int skippedLines = 0;  // lines left alone because the result would not fit a line
    int32_t stoppedAt = -1; // line where a regular expression gave up, -1 when none
};

// Replaces every hit from the start of the document on. Returns kSearchFound when
// something was replaced, kSearchNotFound when nothing matched, kSearchError for a
// read-only document or a regular expression that gave up (nothing changed then).
int replaceAll(Document& doc, Searcher& s, const char* replacement, ReplaceAllResult& result);

}  // namespace zol
