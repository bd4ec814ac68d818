#include "files/prompts.h"

#include "engine/options.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "platform/fileinfo.h"

namespace zol {

int checkFileTime(const std::vector<Document*>& docs, const ReloadFn& reload) {
    if (!options().checkFileTime) return 0;
    int reloaded = 0;
    for (Document* doc : docs) {
        if (!doc || !doc->hasFile) continue;
        const uint32_t now = fileTime32(doc->fileName);
        if (now == 0 || now == doc->fileTime) continue;
        if (doc->fileTime == 0) {
            doc->fileTime = now;
            continue;
        }
        const char* text = doc->modified ? filemsg::kReloadModified : filemsg::kReloadUnchanged;
        const Answer a = shell().ask(filemsg::withFileName(text, doc->fileName), false);
        if (a == Answer::Yes) {
            const bool ok = reload ? reload(*doc) : readFile(*doc, doc->fileName, options().detectFileFormat);
            if (ok) ++reloaded;
        }
        doc->fileTime = now;
    }
    return reloaded;
}

Answer askSaveChanges(const Document& doc) {
    if (!doc.modified) return Answer::No;
    return shell().ask(filemsg::withFileName(filemsg::kSaveChanges, doc.fileName), true);
}

}  // namespace zol
