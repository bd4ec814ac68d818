#include "syntax/doc_syntax.h"

#include "engine/document_list.h"
#include "engine/edit.h"
#include "engine/shell.h"
#include "syntax/scanner.h"

namespace zol {

void ensureCommentStates(const Document& doc, int32_t through) {
    const LineList& ll = doc.lines;
    if (through > ll.lastIndex) through = ll.lastIndex;
    if (through < doc.commentsKnown) return;
    const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot);
    int32_t i = doc.commentsKnown;
    LineRef r = ll.find(i);
    int prev = i == 0 ? 0 : ll.header(ll.prev(r)).comment;
    for (; i <= through; ++i, r = ll.next(r)) {
        prev = d ? commentState(*d, ll.text(r), prev) : 0;
        ll.header(r).comment = static_cast<uint8_t>(prev);
    }
    doc.commentsKnown = through + 1;
}

int commentBitOf(const Document& doc, int32_t line) {
    if (line < 0) return 0;
    ensureCommentStates(doc, line);
    return doc.lines.header(doc.lines.find(line)).comment;
}

int32_t updateCommentStates(Document& doc, int32_t first, int32_t count) {
    const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot);
    LineList& ll = doc.lines;
    if (first < 0) first = 0;
    if (!d || first > ll.lastIndex || first >= doc.commentsKnown) return 0;
    LineRef r = ll.find(first);
    int prev = first == 0 ? 0 : ll.header(ll.prev(r)).comment;
    int32_t done = 0;
    for (int32_t i = first; r != kNoLine && i < doc.commentsKnown; ++i, r = ll.next(r)) {
        const auto bit = static_cast<uint8_t>(commentState(*d, ll.text(r), prev));
        LineHeader& h = ll.header(r);
        ++done;
        if (i >= first + count && h.comment == bit) break;
        h.comment = bit;
        prev = bit;
    }
    return done;
}

namespace {

void forgetCommentStates(Document& doc) { doc.commentsKnown = 0; }

}  // namespace

void setDocumentSyntax(Document& doc, int slot) {
    if (!definitionAt(syntaxTable(), slot)) slot = 0;
    if (slot == doc.syntaxSlot) return;
    doc.syntaxSlot = slot;
    forgetCommentStates(doc);
    if (doc.view) doc.view->redraw();
}

void followFileName(Document& doc, bool textReplaced) {
    const int slot = findDefinitionForFile(syntaxTable(), doc.fileName);
    if (textReplaced && slot == doc.syntaxSlot) {
        forgetCommentStates(doc);
        return;
    }
    setDocumentSyntax(doc, slot);
}

void followReloadedDefinitions() {
    const DocumentList* list = documentList();
    if (!list) return;
    for (size_t i = 0; Document* doc = list->at(i); ++i) {
        followFileName(*doc, true);
        if (doc->view) doc->view->redraw();
    }
}

namespace {

// The known lines after the change move with it; a change reaching into them leaves
// known only what lies before it and its first line, which is recomputed next.
void afterEdit(Document& doc, int32_t line, int32_t removed, int32_t added) {
    if (doc.commentsKnown > line + removed)
        doc.commentsKnown += added - removed;
    else if (doc.commentsKnown > line)
        doc.commentsKnown = line + 1;
    updateCommentStates(doc, line, added + 1);
}

}  // namespace

void installCommentStateTracking() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    addChangeListener(&afterEdit);
}

}  // namespace zol
