#include "syntax/doc_syntax.h"

#include "engine/document_list.h"
#include "engine/edit.h"
#include "engine/shell.h"
#include "syntax/scanner.h"

namespace zol {

int32_t updateCommentStates(Document& doc, int32_t first, int32_t count) {
    const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot);
    LineList& ll = doc.lines;
    if (!d || first > ll.lastIndex) return 0;
    if (first < 0) first = 0;
    LineRef r = ll.find(first);
    int prev = first == 0 ? 0 : ll.header(ll.prev(r)).comment;
    int32_t done = 0;
    for (int32_t i = first; r != kNoLine; ++i, r = ll.next(r)) {
        const auto bit = static_cast<uint8_t>(commentState(*d, ll.text(r), prev));
        LineHeader& h = ll.header(r);
        ++done;
        if (i >= first + count && h.comment == bit) break;
        h.comment = bit;
        prev = bit;
    }
    return done;
}

void recomputeCommentStates(Document& doc) {
    LineList& ll = doc.lines;
    const SyntaxHighlight* d = definitionAt(syntaxTable(), doc.syntaxSlot);
    int prev = 0;
    for (LineRef r = ll.first; r != kNoLine; r = ll.next(r)) {
        prev = d ? commentState(*d, ll.text(r), prev) : 0;
        ll.header(r).comment = static_cast<uint8_t>(prev);
    }
}

void setDocumentSyntax(Document& doc, int slot) {
    if (!definitionAt(syntaxTable(), slot)) slot = 0;
    if (slot == doc.syntaxSlot) return;
    doc.syntaxSlot = slot;
    recomputeCommentStates(doc);
    if (doc.view) doc.view->redraw();
}

void followFileName(Document& doc, bool textReplaced) {
    const int slot = findDefinitionForFile(syntaxTable(), doc.fileName);
    if (textReplaced && slot == doc.syntaxSlot) {
        recomputeCommentStates(doc);
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

void afterEdit(Document& doc, int32_t line, int32_t /*removed*/, int32_t added) {
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
