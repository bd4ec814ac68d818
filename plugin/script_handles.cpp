#include "plugin/script_handles.h"

#include "engine/document.h"
#include "engine/document_list.h"
#include "engine/shell.h"

namespace zol {
namespace {

// A document's token comes from its serial number, which no later document reuses.
// The serial is spread over 31 bits (times an odd number: one to one) so that the small
// numbers a script might make up name no document. A document's window has its token
// with the top bit set, so that one never passes for a document; the main window has
// the shell's token, as the operating-system family of built-ins gives it.
constexpr uint32_t kWindowBit = 0x80000000u;
constexpr uint32_t kSpread = 0x9E3779B1u;

uint32_t tokenOf(const Document& d) {
    // Serials past the tokens' range (two thousand million documents on) get none.
    if (d.serial >= kWindowBit) return 0;
    return (static_cast<uint32_t>(d.serial) * kSpread) & ~kWindowBit;
}

Document* openDocumentWithToken(uint32_t token) {
    DocumentList* list = documentList();
    if (!list || token == 0 || (token & kWindowBit)) return nullptr;
    for (size_t i = 0, n = list->count(); i < n; ++i)
        if (Document* d = list->at(i); d && tokenOf(*d) == token) return d;
    return nullptr;
}

}  // namespace

uint32_t scriptDocToken(HDOC doc) { return doc ? tokenOf(*static_cast<const Document*>(doc)) : 0; }

HDOC scriptDoc(uint32_t token) { return openDocumentWithToken(token); }

uint32_t scriptWindowToken(ZOL_WND window) {
    DocumentList* list = documentList();
    if (!list || window == 0) return 0;
    if (window == list->mainWindow()) return kMainWindowToken;
    for (size_t i = 0, n = list->count(); i < n; ++i) {
        Document* d = list->at(i);
        if (d && Zol_GetDocWndHandle(d) == window) return kWindowBit | scriptDocToken(d);
    }
    return 0;
}

ZOL_WND scriptWindow(uint32_t token) {
    if (token == kMainWindowToken) return documentList() ? documentList()->mainWindow() : 0;
    if (!(token & kWindowBit)) return 0;
    return Zol_GetDocWndHandle(openDocumentWithToken(token & ~kWindowBit));
}

}  // namespace zol
