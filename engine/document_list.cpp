#include "engine/document_list.h"

namespace zol {
namespace {
DocumentList* g_list = nullptr;
}

DocumentList* documentList() { return g_list; }
void setDocumentList(DocumentList* list) { g_list = list; }

bool isOpenDocument(const Document* doc) {
    if (!doc || !g_list) return false;
    for (size_t i = 0, n = g_list->count(); i < n; ++i)
        if (g_list->at(i) == doc) return true;
    return false;
}

}  // namespace zol
