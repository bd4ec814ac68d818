// Language definitions from anywhere, loaded as the definition dialog loads them,
// written by its saver and loaded again: the second load must give back every field
// of every language the first one gave.
#include <cstddef>
#include <cstdint>
#include <cstdio>
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

// The first field in which two languages differ, or nullptr.
const char* differingField(const zol::SyntaxEditLanguage& a, const zol::SyntaxEditLanguage& b) {
#define ZOL_FIELD(f) \
    if (!(a.f == b.f)) return #f;
    ZOL_FIELD(name) ZOL_FIELD(pattern) ZOL_FIELD(caseSensitive) ZOL_FIELD(unixTexKeywords) ZOL_FIELD(fortranComment)
    ZOL_FIELD(lineNumbers) ZOL_FIELD(cobol) ZOL_FIELD(cobolCommentPos) ZOL_FIELD(maxLineLen)
    ZOL_FIELD(cobolCommentChar) ZOL_FIELD(firstComment) ZOL_FIELD(stringDelim) ZOL_FIELD(charDelim)
    ZOL_FIELD(quoteChar) ZOL_FIELD(preprocess) ZOL_FIELD(multiComment) ZOL_FIELD(lineComment1)
    ZOL_FIELD(lineComment2) ZOL_FIELD(openCloseDelim) ZOL_FIELD(delimiters) ZOL_FIELD(operators) ZOL_FIELD(words)
    ZOL_FIELD(numbers) ZOL_FIELD(html) ZOL_FIELD(keywords) ZOL_FIELD(colour)
#undef ZOL_FIELD
    return nullptr;
}

// Files that cannot come back unchanged: a CR inside a line is text to the loader,
// but the profile writer turns it into a blank, since a written CR would end the
// line; and a NUL ends a value as the dialog holds it.
bool unwritable(const uint8_t* data, size_t size) {
    for (size_t i = 0; i < size; ++i)
        if (data[i] == '\0' || (data[i] == '\r' && (i + 1 == size || data[i + 1] != '\n'))) return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (unwritable(data, size)) return 0;
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
    for (size_t i = 0; i < langs.size(); ++i) {
        if (const char* field = differingField(langs[i], again[i])) {
            std::fprintf(stderr, "language %zu reads back with another %s\n", i, field);
            std::abort();
        }
    }
    return 0;
}
