#include "script/macro_section.h"

#include <memory>
#include <new>
#include <utility>

#include "config/keyfile_words.h"
#include "engine/command_table.h"

namespace zol {
namespace {

constexpr uint16_t kSectionVersion = 1;  // written, never checked

// False when the bytes end early; lowMemory tells that some steps were left out.
bool readMacros(KeyFileReader& in, MacroTable& table, bool& lowMemory) {
    in.skip(2);  // version
    const uint16_t count = in.u16();
    for (uint16_t i = 0; i < count && !in.failed; ++i) {
        Macro m;
        m.used = true;
        m.name = in.field(kMacroNameSize);
        m.description = in.field(kMacroDescriptionSize);
        const uint16_t id = in.u16();
        const uint16_t steps = in.u16();
        if (!in.has(size_t{4} * steps)) break;
        if (id < kFirstMacroId || id > kLastMacroId) {
            in.skip(size_t{4} * steps);
            continue;
        }
        try {
            m.steps.resize(steps);
        } catch (const std::bad_alloc&) {
            lowMemory = true;
            in.skip(size_t{4} * steps);
            continue;
        }
        for (MacroStep& s : m.steps) {
            s.command = in.u16();
            s.param = in.u16();
        }
        table.slots[id - kFirstMacroId] = std::move(m);
    }
    return !in.failed;
}

}  // namespace

std::string macroSectionBytes(const MacroTable& table) {
    uint16_t count = 0;
    for (const Macro& m : table.slots) count = static_cast<uint16_t>(count + (m.used ? 1 : 0));
    std::string out;
    put16(out, kSectionVersion);
    put16(out, count);
    for (size_t slot = 0; slot < table.slots.size(); ++slot) {
        const Macro& m = table.slots[slot];
        if (!m.used) continue;
        putField(out, m.name, kMacroNameSize);
        putField(out, m.description, kMacroDescriptionSize);
        put16(out, static_cast<uint16_t>(kFirstMacroId + slot));
        put16(out, static_cast<uint16_t>(m.steps.size()));
        for (const MacroStep& s : m.steps) {
            put16(out, s.command);
            put16(out, s.param);
        }
    }
    return out;
}

KeyFileStatus readMacroSection(std::string_view section, MacroTable& table) {
    auto fresh = std::make_unique<MacroTable>();
    KeyFileReader in{section};
    bool lowMemory = false;
    if (!readMacros(in, *fresh, lowMemory)) return KeyFileStatus::ReadError;
    table = std::move(*fresh);
    return lowMemory ? KeyFileStatus::NoMemory : KeyFileStatus::Ok;
}

std::string keyFileBytes(const KeyMap& map, const MacroTable& table) {
    return keyFileBytes(map, std::string_view(macroSectionBytes(table)));
}

KeyFileStatus parseKeyFile(std::string_view bytes, KeyMap& map, MacroTable& table) {
    return parseKeyFile(bytes, map, [&table](std::string_view section) { return readMacroSection(section, table); });
}

}  // namespace zol
