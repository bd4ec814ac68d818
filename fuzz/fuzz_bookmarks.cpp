// Named-bookmark values from the settings file: any text either parses into an entry
// whose saved form parses back to the same entry, or is refused.
#include "engine/bookmarks.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    zol::NamedBookmark b;
    if (!zol::parseNamedBookmark(input, b)) return 0;
    if (b.pos.col < 0 || b.pos.col > zol::kMaxColumns || b.pos.line < 0) std::abort();
    if (b.name.find('"') != std::string::npos || b.file.find('"') != std::string::npos) return 0;
    if (b.name.empty() || b.file.empty()) return 0;
    const std::string saved = "\"" + b.name + "\" \"" + b.file + "\" " + std::to_string(b.pos.col) + " " +
                              std::to_string(b.pos.line);
    zol::NamedBookmark again;
    if (!zol::parseNamedBookmark(saved, again) || again.name != b.name || again.file != b.file || again.pos != b.pos)
        std::abort();
    return 0;
}
