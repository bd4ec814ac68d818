// Language definitions from anywhere, loaded as the definition dialog loads them,
// written by its saver and loaded again: the second load must give back every field
// of every language the first one gave.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "platform/profile.h"
#include "platform/tempfile.h"
#include "syntax/edit_copy.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

const std::string& folder() {
    static const std::string dir = zol::createTempDir("zolfuzzhgl");
    return dir;
}

bool same(const zol::SyntaxEditLanguage& a, const zol::SyntaxEditLanguage& b) {
    return a.name == b.name && a.pattern == b.pattern && a.caseSensitive == b.caseSensitive &&
           a.unixTexKeywords == b.unixTexKeywords && a.fortranComment == b.fortranComment &&
           a.lineNumbers == b.lineNumbers && a.cobol == b.cobol && a.cobolCommentPos == b.cobolCommentPos &&
           a.maxLineLen == b.maxLineLen && a.cobolCommentChar == b.cobolCommentChar &&
           a.firstComment == b.firstComment && a.stringDelim == b.stringDelim && a.charDelim == b.charDelim &&
           a.quoteChar == b.quoteChar && a.preprocess == b.preprocess && a.multiComment == b.multiComment &&
           a.lineComment1 == b.lineComment1 && a.lineComment2 == b.lineComment2 &&
           a.openCloseDelim == b.openCloseDelim && a.delimiters == b.delimiters && a.operators == b.operators &&
           a.words == b.words && a.numbers == b.numbers && a.html == b.html && a.keywords == b.keywords &&
           a.colour == b.colour;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string source = folder() + "in.hgl", saved = folder() + "saved.hgl";
    {
        std::ofstream out(source, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    zol::flushProfileCache();
    const std::vector<zol::SyntaxEditLanguage> langs = zol::readEditCopy(source);
    if (langs.empty()) return 0;
    zol::SyntaxHighlightTable table;
    check(zol::saveDefinitions(table, saved, langs));
    const std::vector<zol::SyntaxEditLanguage> again = zol::readEditCopy(saved);
    check(again.size() == langs.size());
    for (size_t i = 0; i < langs.size(); ++i) check(same(langs[i], again[i]));
    return 0;
}
