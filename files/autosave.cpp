#include "files/autosave.h"

#include <cstdio>

#include "engine/shell.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "platform/dirsearch.h"
#include "platform/durable_write.h"
#include "platform/file_io.h"
#include "platform/clock.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

constexpr unsigned kSideFileMode = 0600;
constexpr unsigned kNameMask = 0x7FFF;  // low 15 bits of the drawn number

std::string sideFileName(unsigned n) {
    char name[16];
    std::snprintf(name, sizeof name, "~zol%04x.asd", n & kNameMask);
    return name;
}

std::string chooseName(const std::string& folder) {
    for (int i = 0; i < kAutoSaveNameDraws; ++i) {
        const std::string path = joinPath(folder, sideFileName(randomNumber()));
        if (!fileExists(path)) return path;
    }
    return {};
}

// The bytes a save of the whole document in its own format would write.
std::string documentBytes(const Document& doc) {
    const std::string_view eol = lineEndOf(doc.textFormat);
    std::string out;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) {
        if (r != doc.lines.first) out += eol;
        out += doc.lines.text(r);
    }
    return out;
}

}  // namespace

int autoSaveDocuments(const std::vector<Document*>& docs, const std::string& folder) {
    std::vector<Document*> saving;
    std::vector<std::string> bytes;
    std::vector<FileToWrite> files;
    for (Document* doc : docs) {
        if (!doc->modified) continue;
        // A fresh name is taken only if nobody took it since it was drawn.
        const bool fresh = doc->autoSaveFile.empty();
        if (fresh) doc->autoSaveFile = chooseName(folder);
        if (doc->autoSaveFile.empty()) continue;
        saving.push_back(doc);
        bytes.push_back(documentBytes(*doc));
        files.push_back({doc->autoSaveFile, {}, fresh, kSideFileMode});
    }
    for (size_t i = 0; i < files.size(); ++i) files[i].data = bytes[i];
    writeFilesTogether(files);
    int written = 0;
    for (size_t i = 0; i < files.size(); ++i) {
        if (files[i].written) {
            ++written;
            continue;
        }
        if (!files[i].createOnly) removeFile(files[i].path);
        saving[i]->autoSaveFile.clear();
    }
    return written;
}

bool autoSaveDocument(Document& doc, const std::string& folder) { return autoSaveDocuments({&doc}, folder) == 1; }

void removeAutoSaveFile(Document& doc) {
    if (doc.autoSaveFile.empty()) return;
    removeFile(doc.autoSaveFile);
    doc.autoSaveFile.clear();
}

std::string recoveredName(int n) { return (n < 10 ? "Recover" : "Recov") + std::to_string(n); }

int recoverAutoSaved(const std::string& folder, const std::function<Document*()>& create,
                     const std::function<void(Document*)>& discard) {
    int n = 0;
    for (const FoundFile& f : findFiles(joinPath(folder, kAutoSavePattern), false)) {
        if (f.isDirectory) continue;
        const std::string path = joinPath(folder, f.name);
        Document* doc = create();
        if (!doc) break;
        ReadReport report;
        if (!readFile(*doc, path, true, &report)) {
            discard(doc);
            continue;
        }
        doc->fileName = recoveredName(++n);
        doc->hasFile = false;
        doc->fileTime = 0;
        // The side file's own permissions say nothing about the document.
        doc->readOnly = report.binary;
        setModified(*doc, true);
        removeFile(path);
    }
    if (n > 0) shell().message(filemsg::kRecovered);
    return n;
}

}  // namespace zol
