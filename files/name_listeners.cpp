#include <vector>

#include "engine/editor_events.h"
#include "engine/wordwrap.h"
#include "files/textfile.h"

namespace zol {
namespace {

std::vector<FileNameListener>& listeners() {
    static std::vector<FileNameListener> v;
    return v;
}

}  // namespace

void addFileNameListener(FileNameListener fn) {
    for (FileNameListener f : listeners())
        if (f == fn) return;
    listeners().push_back(fn);
}

void fileNameChanged(Document& doc, bool textReplaced) {
    applyWrapRule(doc);
    for (FileNameListener fn : listeners()) fn(doc, textReplaced);
    sendDocumentEvent(kEventFileNamed, doc, reinterpret_cast<intptr_t>(doc.fileName.c_str()));
}

}  // namespace zol
