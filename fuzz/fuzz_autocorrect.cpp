// AutoCorrect lists ("zol.acr") from anywhere: reading never fails, what it writes
// reads back as the same list, and the rules take any word.
#include "proofing/autocorrect.h"

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
    const zol::AcrParse first = zol::parseAutoCorrect(input);
    const std::string written = zol::formatAutoCorrect(first.list);
    const zol::AcrParse again = zol::parseAutoCorrect(written);
    check(again.list.entries == first.list.entries);
    check(zol::formatAutoCorrect(again.list) == written);
    for (const auto& [wrong, right] : first.list.entries) {
        zol::correctedWord(first.list, wrong, true);
        zol::correctedWord(first.list, right.substr(0, right.find(' ')), false);
    }
    return 0;
}
