// A document's language definition and the comment bit carried in each line record.
// Each line's bit is commentState(its text, the bit of the line before); line -1
// counts as 0. With slot 0 every bit is 0.
#pragma once
#include <cstdint>

#include "engine/document.h"

namespace zol {

// Recomputes lines first .. first + count - 1, then goes on until a line's bit comes
// out as it was stored (or the document ends). Returns the number of lines computed.
int32_t updateCommentStates(Document& doc, int32_t first, int32_t count);
// Every line's bit from the top.
void recomputeCommentStates(Document& doc);
// Gives the document a definition slot (0..20) and brings the bits in line with it.
void setDocumentSyntax(Document& doc, int slot);
// The definition matching the document's file name. textReplaced says the lines were
// replaced wholesale, so the bits must be computed even when the slot stays.
void followFileName(Document& doc, bool textReplaced);
// After the table was loaded again: every open document takes its definition anew from
// its file name, recomputes its bits and is redrawn, even when its slot stays.
void followReloadedDefinitions();
// Keeps the bits current after every edit; installing twice is harmless.
void installCommentStateTracking();

}  // namespace zol
