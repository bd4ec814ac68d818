#include <algorithm>

#include "engine/columns.h"
#include "engine/shell.h"
#include "files/autosave.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "platform/durable_write.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

void putWholeText(const Document& doc, DurableReplace& out, std::string_view eol) {
    const LineList& ll = doc.lines;
    for (LineRef r = ll.first; r != kNoLine;) {
        putBytes(out, ll.text(r));
        r = ll.next(r);
        if (r != kNoLine) putBytes(out, eol);
    }
}

size_t offsetAt(std::string_view line, int col) { return locateColumn(line, col).offset; }

// The selected text: a character selection from its earlier to its later end, a column
// selection as the same columns of every line it spans.
void putSelection(const Document& doc, DurableReplace& out, std::string_view eol) {
    const LineList& ll = doc.lines;
    Pos from = earlier(doc.selAnchor, doc.selEnd);
    Pos to = later(doc.selAnchor, doc.selEnd);
    from.line = std::clamp<int32_t>(from.line, 0, ll.lastIndex);
    to.line = std::clamp<int32_t>(to.line, 0, ll.lastIndex);
    LineRef r = ll.find(from.line);
    if (doc.selMode == SelMode::Column) {
        const int left = std::min(doc.selAnchor.col, doc.selEnd.col);
        const int right = std::max(doc.selAnchor.col, doc.selEnd.col);
        for (int32_t i = from.line; i <= to.line; ++i, r = ll.next(r)) {
            const std::string_view t = ll.text(r);
            const size_t a = offsetAt(t, left);
            const size_t b = std::max(a, offsetAt(t, right));
            if (i > from.line) putBytes(out, eol);
            putBytes(out, t.substr(a, b - a));
        }
        return;
    }
    std::string_view t = ll.text(r);
    const size_t a = offsetAt(t, from.col);
    if (from.line == to.line) {
        putBytes(out, t.substr(a, std::max(a, offsetAt(t, to.col)) - a));
        return;
    }
    putBytes(out, t.substr(a));
    for (int32_t i = from.line + 1; i <= to.line; ++i) {
        r = ll.next(r);
        t = ll.text(r);
        putBytes(out, eol);
        putBytes(out, i == to.line ? t.substr(0, offsetAt(t, to.col)) : t);
    }
}

}  // namespace

std::string backupName(std::string_view path, int style) {
    std::string out(path);
    if (style == 0) {
        const size_t sep = path.find_last_of("/\\");
        const size_t start = sep == std::string_view::npos ? 0 : sep + 1;
        const size_t dot = path.rfind('.');
        if (dot != std::string_view::npos && dot > start) out.resize(dot);
    }
    return out + ".bak";
}

bool isReadOnlyFile(const std::string& path) {
    const FileAttributes a = fileAttributes(path);
    return a.exists && !a.isDirectory && a.readOnly;
}

bool writeFile(Document& doc, const std::string& path, TextFormat format, int backupStyle, bool blockOnly,
               bool keepModified) {
    if (blockOnly && !doc.selExists) return false;
    const FileAttributes attrs = fileAttributes(path);
    if (path.empty() || attrs.isDirectory) {
        shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, path));
        return false;
    }
    if (isReadOnlyFile(path)) {
        shell().message(filemsg::withFileName(filemsg::kReadOnlyTarget, path));
        return false;
    }

    DurableReplace out;
    if (beginReplace(out, path) != ReplaceResult::Replaced) {
        shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, path));
        return false;
    }
    const std::string_view eol = lineEndOf(format);
    if (blockOnly) putSelection(doc, out, eol); else putWholeText(doc, out, eol);
    const bool backup = backupStyle >= 0;
    const std::string bak = backup ? backupName(out.target, backupStyle) : std::string();
    const InPlaceReason inPlace = out.inPlace;
    switch (finishReplace(out, bak)) {
    case ReplaceResult::Replaced: break;
    case ReplaceResult::WriteFailed: shell().message(filemsg::kWriteError); return false;
    case ReplaceResult::BackupFailed: shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, bak)); return false;
    default: shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, path)); return false;
    }
    if (inPlace == InPlaceReason::Folder) shell().message(filemsg::withFileName(filemsg::kSavedInPlace, path));

    if (!blockOnly) {
        const bool wasModified = doc.modified;
        setModified(doc, false);
        if (keepModified) setModified(doc, wasModified);
        if (doc.hasFile && fullPath(doc.fileName) == fullPath(path)) doc.fileTime = fileTime32(path);
        // Saved text needs no side file any more.
        if (!doc.modified) removeAutoSaveFile(doc);
    }
    return true;
}

}  // namespace zol
