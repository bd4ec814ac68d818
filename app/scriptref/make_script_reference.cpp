// Rewrites what script/builtins.def generates in the source tree: the prototype block of
// every shipped script header and the built-in reference in docs/scripts.md. Run by the
// build target script_reference after the list changed; a test tells when it is due.
#include <cstdio>
#include <string>

#include "platform/file_io.h"
#include "script/builtin_reference.h"

namespace {

// Puts body into the block of the file at path; false when the file or its markers are
// missing or it cannot be written.
bool rewrite(const std::string& path, const zol::GeneratedBlock& block, const std::string& body) {
    std::string text;
    const bool read = zol::readWholeFile(path, text);
    const std::string before = text;
    if (!read || !zol::replaceGeneratedBlock(text, block, body)) {
        std::fprintf(stderr, "make_script_reference: %s lacks the line \"%.*s\"\n", path.c_str(),
                     static_cast<int>(block.begin.size()), block.begin.data());
        return false;
    }
    if (text == before) return true;
    if (!zol::replaceFile(path, text)) {
        std::fprintf(stderr, "make_script_reference: cannot write %s\n", path.c_str());
        return false;
    }
    std::printf("rewrote %s\n", path.c_str());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_script_reference SOURCE_DIR\n");
        return 2;
    }
    const std::string root = argv[1];
    bool ok = true;
    for (const std::string& h : zol::builtinHeaders())
        ok &= rewrite(root + "/data/script/include/" + h, zol::kHeaderBlock, zol::builtinPrototypes(h));
    ok &= rewrite(root + "/docs/scripts.md", zol::kReferenceBlock, zol::builtinReference());
    return ok ? 0 : 1;
}
