// Definitions from literal ini text, and styled colour strings for the syntax tests.
#pragma once
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"
#include "engine/edit.h"
#include "platform/profile.h"
#include "syntax/scanner.h"
#include "syntax/table.h"
#include "tests/support/documents.h"
#include "tests/support/fake_shell.h"
#include "tests/support/files.h"
#include "tests/support/temp_dir.h"

namespace zol::test {

// A folder for the files a test writes, removed when the program ends.
inline const std::string& scratchDir() {
    static const TempDir dir("zolsyntax");
    return dir.dir();
}

// Writes text to a scratch file of that name and returns its path.
inline std::string writeScratch(std::string_view name, std::string_view text) {
    const std::string path = scratchDir() + std::string(name);
    writeBytes(path, text);
    flushProfileCache();
    return path;
}

// One definition from the body of a section.
inline SyntaxHighlight defOf(std::string_view body) {
    const std::string path = writeScratch("one.hgl", "[Lang]\n" + std::string(body));
    return loadDefinition("Lang", path);
}

// The colours of one line as golden/README.md writes them, "{kw}int{} main{dl}(": each
// character under the mark of the slot that coloured it, whatever palette colour the
// definition gives that slot.
inline std::string styled(SyntaxHighlight d, std::string_view text, int inComment = 0, int* result = nullptr) {
    static const char* const names[] = {"?", "cm", "pp", "str", "num", "dl", "op", "kw", "", "bg", "ln"};
    for (size_t s = 1; s < std::size(names); ++s) d.colour[s] = static_cast<uint8_t>(s);
    std::vector<uint8_t> slots(text.size(), 0);
    const int r = scanLine(d, text, slots.data(), inComment);
    if (result) *result = r;
    std::string out;
    uint8_t current = kColText;
    for (size_t i = 0; i < text.size(); ++i) {
        if (slots[i] != current) {
            current = slots[i];
            out += "{" + std::string(names[current < std::size(names) ? current : 0]) + "}";
        }
        out += text[i];
        if (text[i] == '{') out += '{';
    }
    return out;
}

}  // namespace zol::test
