// A document's language definition and the comment bit carried in each line record.
// Each line's bit is commentState(its text, the bit of the line before); line -1
// counts as 0. With slot 0 every bit is 0. The bits are worked out from the top as far
// as they are asked for (doc.commentsKnown marks how far), and edits keep the known
// ones current.
#pragma once
#include <cstdint>

#include "engine/document.h"

namespace zol {

// Brings the bits of the lines up to `through` up to date.
void ensureCommentStates(const Document& doc, int32_t through);
// The bit of `line`, worked out if need be; 0 for a line before the first.
int commentBitOf(const Document& doc, int32_t line);
// Recomputes the known lines from first .. first + count - 1, then goes on until a
// line's bit comes out as it was stored, or the known lines end. Returns the number of
// lines computed.
int32_t updateCommentStates(Document& doc, int32_t first, int32_t count);
// Gives the document a definition slot (0..20); its bits are worked out anew.
void setDocumentSyntax(Document& doc, int slot);
// The definition matching the document's file name. textReplaced says the lines were
// replaced wholesale, so the bits must be worked out anew even when the slot stays.
void followFileName(Document& doc, bool textReplaced);
// After the table was loaded again: every open document takes its definition anew from
// its file name, forgets its bits and is redrawn, even when its slot stays.
void followReloadedDefinitions();
// Keeps the bits current after every edit; installing twice is harmless.
void installCommentStateTracking();

}  // namespace zol
