// One line of a tool's output: whatever it holds, the parser answers within its limits
// and gives the same answer for the line however it is held.
#include "tools/message_parse.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    // The first byte picks the name buffer's size, the rest is the line.
    const size_t capacity = 1 + data[0] % 96;
    const std::string line(reinterpret_cast<const char*>(data + 1), size - 1);
    zol::MessageLocation at;
    const bool found = zol::parseMessageLine(line, at, capacity);
    if (at.name.size() > capacity - 1) std::abort();
    if (found && (at.name.empty() || at.line == 0)) std::abort();
    if (!found && at.column != 0) std::abort();
    zol::MessageLocation again;
    if (zol::parseMessageLine(std::string(line), again, capacity) != found || again.name != at.name ||
        again.line != at.line || again.column != at.column)
        std::abort();
    return 0;
}
