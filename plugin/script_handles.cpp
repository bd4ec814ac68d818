#include "plugin/script_handles.h"

#include "engine/document.h"
#include "engine/document_list.h"

namespace zol {
namespace {

// A document's token is its serial number, which no later document reuses; window
// tokens carry the top bit so that one never passes for a document.
constexpr uint32_t kWindowBit = 0x80000000u;
constexpr uint32_t kMainWindowToken = kWindowBit;

Document* openDocumentWithSerial(uint32_t serial) {
    DocumentList* list = documentList();
    if (!list || serial == 0) return nullptr;
    for (size_t i = 0, n = list->count(); i < n; ++i)
        if (Document* d = list->at(i); d && d->serial == serial) return d;
    return nullptr;
}

}  // namespace

uint32_t scriptDocToken(HDOC doc) {
    const auto* d = static_cast<const Document*>(doc);
    // A serial past the tokens' range (two thousand million documents on) gets no handle.
    return d && d->serial < kWindowBit ? static_cast<uint32_t>(d->serial) : 0;
}

HDOC scriptDoc(uint32_t token) {
    if (token & kWindowBit) return nullptr;
    return openDocumentWithSerial(token);
}

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
    if (!(token & kWindowBit)) return 0;
    if (token == kMainWindowToken) return documentList() ? documentList()->mainWindow() : 0;
    return Zol_GetDocWndHandle(openDocumentWithSerial(token & ~kWindowBit));
}

}  // namespace zol
