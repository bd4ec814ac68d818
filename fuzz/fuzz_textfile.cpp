// Reads arbitrary bytes as a text file and writes them back. Unless a line had to be
// split, the written file must equal the input with NUL bytes turned into blanks and
// every line end made the line end of the detected format.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "engine/columns.h"
#include "engine/document.h"
#include "engine/line_list.h"
#include "files/textfile.h"
#include "platform/file_io.h"
#include "platform/tempfile.h"

namespace {

const std::string& scratchDir() {
    static const std::string dir = zol::createTempDir("zolfuzz");
    return dir;
}

std::string expectedOutput(std::string_view in, zol::TextFormat format) {
    using zol::TextFormat;
    const std::string_view eol = format == TextFormat::Unix ? "\n" : format == TextFormat::Mac ? "\r" : "\r\n";
    std::string out;
    out.reserve(in.size() * 2);
    for (size_t i = 0; i < in.size(); ++i) {
        const char c = in[i];
        if (c == '\r' || c == '\n') {
            if (c == '\r' && i + 1 < in.size() && in[i + 1] == '\n') ++i;
            out += eol;
        } else {
            out += c == '\0' ? ' ' : c;
        }
    }
    return out;
}

void check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string& dir = scratchDir();
    check(!dir.empty());
    const std::string in = dir + "in.txt";
    const std::string out = dir + "out.txt";
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::FILE* f = std::fopen(in.c_str(), "wb");
    check(f && std::fwrite(data, 1, size, f) == size && std::fclose(f) == 0);

    zol::Document doc;
    zol::ReadReport rep;
    check(zol::readFile(doc, in, true, &rep));
    check(rep.binary == (std::memchr(data, 0, size) != nullptr));
    for (zol::LineRef r = doc.lines.first; r != zol::kNoLine; r = doc.lines.next(r)) {
        const std::string_view line = doc.lines.text(r);
        check(line.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos);
        check(zol::lineWidth(line) <= zol::kMaxColumns);
    }

    check(zol::writeFile(doc, out, doc.textFormat, -1, false, false));
    if (!rep.split) {
        std::string written;
        check(zol::readWholeFile(out, written));
        check(written == expectedOutput(bytes, doc.textFormat));
    }
    return 0;
}
