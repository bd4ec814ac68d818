// Key maps and macro tables made up from the input, written by the key file's saver
// and read back by its loader: the loader must take the file and give back the same
// bindings and macros, and writing those again must give the same bytes.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "config/keyfile.h"
#include "script/macro_section.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

// Names and descriptions as a dialog gives them: no NUL, within their field.
std::string fieldText(FuzzedDataProvider& in, size_t size) {
    std::string s = in.ConsumeRandomLengthString(size - 1);
    for (char& c : s)
        if (c == '\0') c = ' ';
    return s;
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
    FuzzedDataProvider in(data, size);
    zol::KeyMap map;
    for (int t = 0; t < zol::kKeyTables; ++t) {
        const size_t n = in.ConsumeIntegralInRange<size_t>(0, zol::keyTableCapacity(t));
        for (size_t i = 0; i < n && in.remaining_bytes() >= 4; ++i)
            map.tables[t].push_back({in.ConsumeIntegral<uint16_t>(), in.ConsumeIntegral<uint16_t>()});
    }
    auto table = std::make_unique<zol::MacroTable>();
    while (in.remaining_bytes() > 0) {
        zol::Macro& m = table->slots[in.ConsumeIntegralInRange<size_t>(0, table->slots.size() - 1)];
        m.used = true;
        m.name = fieldText(in, zol::kMacroNameSize);
        m.description = fieldText(in, zol::kMacroDescriptionSize);
        m.steps.clear();
        for (size_t n = in.ConsumeIntegralInRange<size_t>(0, 300); n > 0 && in.remaining_bytes() >= 4; --n)
            m.steps.push_back({in.ConsumeIntegral<uint16_t>(), in.ConsumeIntegral<uint16_t>()});
    }

    const std::string written = zol::keyFileBytes(map, *table);
    zol::KeyMap map2;
    auto table2 = std::make_unique<zol::MacroTable>();
    check(zol::parseKeyFile(written, map2, *table2) == zol::KeyFileStatus::Ok);
    check(map2.tables == map.tables);
    check(sameMacros(*table, *table2));
    check(zol::keyFileBytes(map2, *table2) == written);
    return 0;
}
