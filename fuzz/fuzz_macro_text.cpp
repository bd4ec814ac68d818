// Edited macro texts from anywhere: the parser never crashes, reports a line that
// exists, and what it reads writes back to a text that reads as the same steps.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "script/macro_text.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    std::vector<zol::MacroStep> steps;
    const zol::MacroParseError err = zol::textToSteps(input, steps);
    if (err.line != 0) {
        check(steps.empty());
        check(err.line <= 1 + std::count(input.begin(), input.end(), '\n'));
        return 0;
    }
    std::string text;
    if (zol::stepsToText(steps, text) != zol::MacroTextStatus::Ok) return 0;
    std::vector<zol::MacroStep> again;
    check(zol::textToSteps(text, again).line == 0);
    check(again == steps);
    return 0;
}
