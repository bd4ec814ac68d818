// Random "syntax.hgl" files and random lines through the loader, the scanner and the
// comment-state routine: nothing may crash, every colour is a palette index, and the
// table keeps to its capacity.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "platform/profile.h"
#include "platform/tempfile.h"
#include "syntax/scanner.h"
#include "syntax/table.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

const std::string& scratchFile() {
    static const std::string path = zol::createTempDir("zolfuzzsyn") + "syntax.hgl";
    return path;
}

}  // namespace

// The input is the file, then a zero byte, then the lines to scan separated by LF.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t cut = input.find('\0');
    const std::string file = input.substr(0, cut);
    const std::string lines = cut == std::string::npos ? std::string("a /* b\n*/ \"c\\\" // d") : input.substr(cut + 1);
    {
        std::ofstream out(scratchFile(), std::ios::binary | std::ios::trunc);
        out << file;
    }
    zol::flushProfileCache();

    zol::SyntaxHighlightTable table;
    const int loaded = zol::loadDefinitions(table, scratchFile());
    check(loaded >= 0 && loaded <= zol::kSyntaxSlots);
    std::vector<uint8_t> out;
    for (int slot = 0; slot <= loaded; ++slot) {
        const zol::SyntaxHighlight* d = zol::definitionAt(table, slot);
        check((slot == 0) == (d == nullptr));
        if (d) {
            check(d->pattern.size() < zol::kPatternSize);
            check(d->cobolCommentPos >= 0 && d->cobolCommentPos <= 999 && d->maxLineLen >= 0);
            for (int s = 1; s <= zol::kColourSlots; ++s) check(d->colour[s] <= zol::kMaxColourIndex);
            for (int n = 1; n <= zol::kMaxKeywordLen; ++n) check(d->keywords[n].size() % static_cast<size_t>(n) == 0);
        }
        int bit = 0;
        size_t start = 0;
        while (start <= lines.size()) {
            size_t end = lines.find('\n', start);
            if (end == std::string::npos) end = lines.size();
            const std::string_view line(lines.data() + start, end - start);
            out.assign(line.size(), 0xEE);
            const int state = zol::commentState(table, slot, line, bit);
            bit = zol::scanLine(table, slot, line, out.data(), bit);
            check(bit == 0 || bit == 1);
            check(state == 0 || state == 1);
            for (uint8_t c : out) check(c <= zol::kMaxColourIndex);
            zol::findDefinitionForFile(table, line);
            start = end + 1;
        }
    }
    return 0;
}
