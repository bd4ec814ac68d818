#include "files/doc_names.h"

#include <cstdio>

#include "files/messages.h"

namespace zol {
namespace {

int newDocumentCount = 0;

}  // namespace

std::string newDocumentName(int counter, std::string_view ext) {
    char head[32];
    std::snprintf(head, sizeof head, counter < 100 ? "noname%02d." : "nnam%04d.", counter);
    return head + std::string(ext.substr(0, filemsg::kMaxNewFileExtension));
}

std::string nextNewDocumentName(std::string_view ext) { return newDocumentName(++newDocumentCount, ext); }

}  // namespace zol
