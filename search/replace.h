// Replacing found text in a document: one hit at a time (one undo step each), every
// hit of the document or of the selection at once (one undo step for all of them), or
// hit by hit with a question before each.
#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "engine/shell.h"
#include "search/find.h"

namespace zol {

// Selects a hit: anchor at its start, cursor and moving end at its end.
void selectHit(Document& doc, const DocumentHit& hit);

// Replaces a hit that was just found with `s` by the replacement (a template for a
// regular expression). The new text is left selected; an empty one deletes the hit.
// kSearchError for a read-only document or a line that would grow past its capacity.
int replaceHit(Document& doc, const Searcher& s, const DocumentHit& hit, const char* replacement);

// The part of a document a replacement covers. A character scope runs from `from` to
// `to`; a column scope covers columns [left, right) of the lines from.line..to.line,
// beginning at from.col on the first of them. Hits must lie wholly inside.
struct ReplaceScope {
    Pos from, to;
    bool column = false;
    int left = 0, right = 0;
    bool selection = false;  // selected again afterwards, over its new text
};
ReplaceScope wholeDocumentScope(const Document& doc);
// The selection as a scope; false when nothing is selected.
bool selectionScope(const Document& doc, ReplaceScope& scope);

// Replaces every hit in line[lo, hi) and puts the whole new line into out. A hit must
// end by hi; "$" matches there. The number of hits, or kSearchError when a regular
// expression gave up.
int replaceInSpan(Searcher& s, std::string_view line, size_t lo, size_t hi, const char* replacement,
                  std::string& out);

struct ReplaceAllResult {
    int replaced = 0;      // hits replaced
    int skippedLines = 0;  // lines left alone because the result would not fit a line
    int32_t stoppedAt = -1; // line where a regular expression gave up, -1 when none
};

// Replaces every hit of the scope (null: the whole document). Returns kSearchFound
// when something was replaced, kSearchNotFound when nothing matched, kSearchError for a
// read-only document or a regular expression that gave up (nothing changed then).
int replaceAll(Document& doc, Searcher& s, const char* replacement, ReplaceAllResult& result,
               const ReplaceScope* scope = nullptr);

// Walks the hits of the scope from its start, each selected before `ask` decides:
// Yes replaces it (one undo step), No leaves it, All replaces it and every later one
// (one undo step), Cancel stops. Results as for replaceAll; kSearchFound when anything
// was replaced. A selection scope ends selected, grown or shrunk with its text.
using ReplaceAskFn = std::function<ReplacePromptAnswer(Document& doc)>;
int replacePrompted(Document& doc, Searcher& s, const char* replacement, const ReplaceScope& scope,
                    const ReplaceAskFn& ask, ReplaceAllResult& result);

}  // namespace zol
