#include "files/save.h"

#include "engine/editor_events.h"
#include "engine/options.h"
#include "engine/undo.h"
#include "files/textfile.h"
#include "platform/paths.h"

namespace zol {
namespace {

bool saveTo(Document& doc, const std::string& path, TextFormat format) {
    if (vetoed(kEventBeforeSave, doc)) return false;
    const int backup = options().backupFiles ? options().backupFilesAs : -1;
    if (!writeFile(doc, path, format, backup, false, false)) return false;
    // "UndoAfterSave" off: what is on disk is where undo starts again.
    if (!options().undoAfterSave) {
        clearUndo(doc);
        clearRedo(doc);
    }
    sendDocumentEvent(kEventSaved, doc);
    return true;
}

}  // namespace

bool saveDocument(Document& doc) {
    if (!doc.hasFile) return false;
    return saveTo(doc, doc.fileName, doc.textFormat);
}

bool saveDocumentAs(Document& doc, const std::string& path, int formatNumber) {
    if (path.empty()) return false;
    const TextFormat format = textFormatOf(formatNumber).value_or(doc.textFormat);
    const std::string oldName = doc.fileName;
    const bool oldHasFile = doc.hasFile;
    const TextFormat oldFormat = doc.textFormat;
    // The writer stores the file time only for the document's own file.
    doc.fileName = fullPath(path);
    doc.hasFile = true;
    doc.textFormat = format;
    if (!saveTo(doc, doc.fileName, format)) {
        doc.fileName = oldName;
        doc.hasFile = oldHasFile;
        doc.textFormat = oldFormat;
        return false;
    }
    if (doc.fileName == oldName) return true;
    fileNameChanged(doc, false);
    return true;
}

void renameDocument(Document& doc, const std::string& path) {
    if (path.empty()) return;
    doc.fileName = fullPath(path);
    doc.hasFile = true;
    fileNameChanged(doc, false);
}

}  // namespace zol
