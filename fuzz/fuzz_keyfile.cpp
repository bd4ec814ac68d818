// Key files from anywhere: reading never crashes, keeps every table within its
// capacity, and what was read writes back to bytes that read the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "script/macro_section.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

bool sameMacros(const zol::MacroTable& a, const zol::MacroTable& b) {
    for (size_t i = 0; i < a.slots.size(); ++i) {
        const zol::Macro& x = a.slots[i];
        const zol::Macro& y = b.slots[i];
        if (x.used != y.used) return false;
        if (x.used && (x.name != y.name || x.description != y.description || x.steps != y.steps)) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    zol::KeyMap map;
    auto table = std::make_unique<zol::MacroTable>();
    const zol::KeyFileStatus status = zol::parseKeyFile(input, map, *table);
    if (status != zol::KeyFileStatus::Ok) return 0;
    for (int t = 0; t < zol::kKeyTables; ++t) check(map.tables[t].size() <= zol::keyTableCapacity(t));

    const std::string written = zol::keyFileBytes(map, *table);
    zol::KeyMap map2;
    auto table2 = std::make_unique<zol::MacroTable>();
    check(zol::parseKeyFile(written, map2, *table2) == zol::KeyFileStatus::Ok);
    check(map2.tables == map.tables);
    check(sameMacros(*table, *table2));
    check(zol::keyFileBytes(map2, *table2) == written);
    return 0;
}
