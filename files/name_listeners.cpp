#include <vector>

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
    for (FileNameListener fn : listeners()) fn(doc, textReplaced);
}

}  // namespace zol
