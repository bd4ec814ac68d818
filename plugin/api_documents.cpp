// The documents of the exported interface: the list, files and flags.
#include <algorithm>
#include <cstdlib>

#include "engine/doc_access.h"
#include "engine/document_list.h"
#include "engine/editor_events.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "files/save.h"
#include "files/textfile.h"
#include "platform/paths.h"
#include "plugin/api_guard.h"

namespace zol {

Document* docOf(HDOC h) {
    auto* doc = static_cast<Document*>(h);
    if (!doc) return nullptr;
    // Without an application (a bare engine) any non-null handle is taken as given.
    if (!documentList()) return doc;
    return isOpenDocument(doc) ? doc : nullptr;
}

char* allocCopy(std::string_view text) {
    char* p = static_cast<char*>(std::malloc(text.size() + 1));
    if (!p) return nullptr;
    std::memcpy(p, text.data(), text.size());
    p[text.size()] = '\0';
    return p;
}

namespace {

// Index of doc in the list, -1 when absent.
long indexOf(Document* doc) {
    DocumentList* list = documentList();
    if (!list || !doc) return -1;
    for (size_t i = 0, n = list->count(); i < n; ++i)
        if (list->at(i) == doc) return static_cast<long>(i);
    return -1;
}

Document* neighbour(HDOC h, long step) {
    const long i = indexOf(docOf(h));
    if (i < 0) return nullptr;
    return documentList()->at(static_cast<size_t>(i + step));
}

// Name copy shared by the file-name getters: 0 for bad arguments (buffer emptied when
// it has room), -1 when there is no name to give, else 1.
int copyName(HDOC h, char* buffer, int size, bool extensionOnly) {
    if (buffer && size >= 1) buffer[0] = '\0';
    Document* doc = docOf(h);
    if (!doc || !buffer || size < 2) return 0;
    if (!doc->hasFile) return -1;
    if (!extensionOnly) {
        copyOut(buffer, size, doc->fileName);
        return 1;
    }
    const std::string_view file = fileNamePart(doc->fileName);
    const size_t dot = file.rfind('.');
    if (dot == std::string_view::npos || dot + 1 == file.size()) return -1;
    copyOut(buffer, size, file.substr(dot + 1));
    return 1;
}

}  // namespace
}  // namespace zol

using namespace zol;

BOOL ZOLAPI Zol_IsDocument(HDOC h) {
    return guarded<BOOL>(0, [&] { return h && documentList() && isOpenDocument(static_cast<Document*>(h)); });
}

HDOC ZOLAPI Zol_GetActiveDocument(void) {
    return guarded<HDOC>(nullptr, [] { return documentList() ? handleOf(documentList()->active()) : nullptr; });
}

void ZOLAPI Zol_SetActiveDocument(HDOC h) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (doc && documentList() && documentList()->active() != doc) documentList()->activate(doc);
    });
}

HDOC ZOLAPI Zol_NewDocument(void) {
    return guarded<HDOC>(nullptr, [] { return documentList() ? handleOf(documentList()->create()) : nullptr; });
}

HDOC ZOLAPI Zol_OpenDocument(const char* path) {
    return guarded<HDOC>(nullptr, [&]() -> HDOC {
        if (!path || !*path || !documentList()) return nullptr;
        return documentList()->open(path);
    });
}

BOOL ZOLAPI Zol_CloseDocument(HDOC h) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!h) return 1;
        Document* doc = docOf(h);
        if (!doc) return 1;
        return documentList()->close(doc) ? 1 : 0;
    });
}

void ZOLAPI Zol_DestroyDocument(HDOC h) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc || !documentList()) return;
        setModified(*doc, false);
        documentList()->destroy(doc);
    });
}

ZOL_WND ZOLAPI Zol_GetDocWndHandle(HDOC h) {
    return guarded<ZOL_WND>(0, [&]() -> ZOL_WND {
        const Document* doc = docOf(h);
        return doc && doc->view ? doc->view->windowHandle() : 0;
    });
}

int ZOLAPI Zol_GetNumberOfDocuments(void) {
    return guarded<int>(0, [] { return documentList() ? static_cast<int>(documentList()->count()) : 0; });
}

HDOC ZOLAPI Zol_GetFirstDocument(void) {
    return guarded<HDOC>(nullptr, [] { return documentList() ? handleOf(documentList()->at(0)) : nullptr; });
}

HDOC ZOLAPI Zol_GetLastDocument(void) {
    return guarded<HDOC>(nullptr, []() -> HDOC {
        DocumentList* list = documentList();
        if (!list || list->count() == 0) return nullptr;
        return list->at(list->count() - 1);
    });
}

HDOC ZOLAPI Zol_GetNextDocument(HDOC h) {
    return guarded<HDOC>(nullptr, [&] { return handleOf(neighbour(h, 1)); });
}

HDOC ZOLAPI Zol_GetPrevDocument(HDOC h) {
    return guarded<HDOC>(nullptr, [&]() -> HDOC {
        if (indexOf(docOf(h)) <= 0) return nullptr;
        return neighbour(h, -1);
    });
}

BOOL ZOLAPI Zol_ReadFile(HDOC h, const char* path) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        Document* doc = docOf(h);
        if (!doc || doc->readOnly || !path || !*path) return 0;
        return readFile(*doc, path, true);
    });
}

BOOL ZOLAPI Zol_SaveFile(HDOC h, int /*reserved*/) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        Document* doc = docOf(h);
        if (!doc) return 0;
        return saveDocument(*doc);
    });
}

BOOL ZOLAPI Zol_WriteFile(HDOC h, const char* path, int format, BOOL blockOnly) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        Document* doc = docOf(h);
        if (!doc || !path || !*path) return 0;
        return writeFile(*doc, path, textFormatOf(format).value_or(doc->textFormat), -1, blockOnly != 0, true);
    });
}

BOOL ZOLAPI Zol_GetDocumentName(HDOC h, char* buffer, int size) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (buffer && size >= 1) buffer[0] = '\0';
        Document* doc = docOf(h);
        if (!doc || !buffer || size < 2) return 0;
        copyOut(buffer, size, fileNamePart(doc->fileName));
        return 1;
    });
}

int ZOLAPI Zol_GetFileName(HDOC h, char* buffer, int size) {
    return guarded<int>(0, [&] { return copyName(h, buffer, size, false); });
}

int ZOLAPI Zol_GetFileExtension(HDOC h, char* buffer, int size) {
    return guarded<int>(0, [&] { return copyName(h, buffer, size, true); });
}

void ZOLAPI Zol_SetFileName(HDOC h, const char* path) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (doc && path && *path) renameDocument(*doc, path);
    });
}

int ZOLAPI Zol_GetTextFileFormat(HDOC h) {
    return guarded<int>(0, [&] {
        Document* doc = docOf(h);
        return doc ? static_cast<int>(doc->textFormat) : 0;
    });
}

void ZOLAPI Zol_SetTextFileFormat(HDOC h, int format) {
    guardedVoid([&] { setTextFileFormat(docOf(h), format); });
}

BOOL ZOLAPI Zol_IsModified(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::modified); });
}

void ZOLAPI Zol_SetModified(HDOC h, BOOL modified) {
    guardedVoid([&] {
        if (Document* doc = docOf(h)) setModified(*doc, modified != 0);
    });
}

BOOL ZOLAPI Zol_IsReadOnly(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::readOnly); });
}

void ZOLAPI Zol_SetReadOnly(HDOC h, BOOL readOnly) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc) return;
        doc->readOnly = readOnly != 0;
        if (doc->view) {
            doc->view->refreshCaption();
            doc->view->refreshStatus();
        }
    });
}

BOOL ZOLAPI Zol_IsOutputWindow(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::outputWindow); });
}

void ZOLAPI Zol_SetOutputWindow(HDOC h, BOOL output) {
    guardedVoid([&] {
        if (Document* doc = docOf(h)) doc->outputWindow = output != 0;
    });
}

BOOL ZOLAPI Zol_IsMacroRecording(HDOC h) {
    return guarded<BOOL>(0, [&] {
        Document* doc = docOf(h);
        return doc && doc->recorder != Recorder::Idle;
    });
}

BOOL ZOLAPI Zol_IsMacroRunning(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::macroRunning); });
}
