// A tool's argument line and the facts its macros stand for, from one input: the
// expansion stays within the argument buffer, and a path quoted for the splitter comes
// back from it as one word, unchanged.
#include "script/run_script.h"
#include "tools/arguments.h"
#include "tools/messages.h"
#include "tools/user_tools.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// Fields separated by NUL bytes: line, file path, line number, column, word, folders.
std::vector<std::string> fields(const uint8_t* data, size_t size) {
    std::vector<std::string> out(1);
    for (size_t i = 0; i < size; ++i) {
        if (data[i] == 0 && out.size() < 7) out.emplace_back();
        else out.back() += static_cast<char>(data[i]);
    }
    out.resize(7);
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<std::string> f = fields(data, size);
    const zol::ArgumentFacts facts{f[1], f[2], f[3], f[4], f[5], f[6]};
    for (int mode : {zol::kQuoteWithBlanks, zol::kQuoteNever, zol::kQuoteAlways}) {
        const std::optional<std::string> line = zol::expandArguments(f[0], facts, mode);
        if (line && line->size() > zol::toolmsg::kArgumentLineMax) std::abort();
    }
    // A path alone, always quoted, is one word again after splitting.
    if (!facts.filePath.empty() && facts.filePath.find('\0') == std::string::npos) {
        const std::optional<std::string> quoted = zol::expandArguments("$(FilePath)", facts, zol::kQuoteAlways);
        if (quoted) {
            const std::vector<std::string> words = zol::splitArgumentLine(*quoted);
            if (words.size() != 1 || words[0] != facts.filePath) std::abort();
        }
    }
    return 0;
}
