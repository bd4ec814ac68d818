// "CodeCmpl.ini" from anywhere: reading never fails, every candidate it yields has a
// name, and accepting one puts its text into a document without breaking it.
#include "engine/document.h"
#include "engine/edit.h"
#include "proofing/completion.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const zol::CmplParse parsed = zol::parseCodeCompletion(input);
    size_t tried = 0;
    for (const zol::CompletionSection& s : parsed.sections) {
        for (const zol::Candidate& c : s.items) {
            check(!c.text.empty());
            if (++tried > 16) continue;
            zol::Document doc;
            zol::insertText(doc, "  x");
            const zol::CompletionPrefix p = zol::completionPrefix(doc);
            if (zol::acceptCandidate(doc, p, c)) check(doc.cursor.line <= zol::lastLine(doc));
        }
    }
    return 0;
}
