#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "config/keyfile.h"
#include "config/keymap_messages.h"
#include "engine/shell.h"

namespace zol {
namespace {

void put16(std::string& out, uint16_t v) {
    out += static_cast<char>(v & 0xFF);
    out += static_cast<char>(v >> 8);
}

void put32(std::string& out, size_t at, uint32_t v) {
    for (int i = 0; i < 4; ++i) out[at + static_cast<size_t>(i)] = static_cast<char>((v >> (8 * i)) & 0xFF);
}

// A NUL-terminated text in a field of size bytes, the rest zero.
void putField(std::string& out, const std::string& text, size_t size) {
    const size_t n = std::min(text.size(), size - 1);
    out.append(text, 0, n);
    out.append(size - n, '\0');
}

void putMacros(std::string& out, const MacroTable& table) {
    uint16_t count = 0;
    for (const Macro& m : table.slots) count = static_cast<uint16_t>(count + (m.used ? 1 : 0));
    put16(out, 1);
    put16(out, count);
    for (size_t slot = 0; slot < table.slots.size(); ++slot) {
        const Macro& m = table.slots[slot];
        if (!m.used) continue;
        putField(out, m.name, kMacroNameSize);
        putField(out, m.description, kMacroDescriptionSize);
        put16(out, static_cast<uint16_t>(1000 + slot));
        put16(out, static_cast<uint16_t>(m.steps.size()));
        for (const MacroStep& s : m.steps) {
            put16(out, s.command);
            put16(out, s.param);
        }
    }
}

std::string withPath(std::string_view text, std::string_view path) {
    const size_t at = text.find("%s");
    if (at == std::string_view::npos) return std::string(text);
    return std::string(text.substr(0, at)).append(path).append(text.substr(at + 2));
}

}  // namespace

std::string keyFileBytes(const KeyMap& map, const MacroTable& table) {
    std::string out(kKeyFileMagic, 8);
    out.append(kKeyMapSectionOffset - 8, '\0');
    put32(out, 12, kKeyMapSectionOffset);
    put16(out, 1);
    put16(out, kKeyTables - 1);
    for (const std::vector<KeyMapEntry>& t : map.tables) {
        put16(out, static_cast<uint16_t>(t.size()));
        for (const KeyMapEntry& e : t) {
            put16(out, e.key);
            put16(out, e.command);
        }
    }
    put32(out, 16, static_cast<uint32_t>(out.size()));
    putMacros(out, table);
    return out;
}

bool saveKeyFile() {
    const std::string path = keyFilePath();
    const std::string data = keyFileBytes(keyMap(), macros());
    // Written beside the key file and renamed over it, so a failure keeps the old one.
    const std::string temp = path + ".new";
    std::FILE* f = std::fopen(temp.c_str(), "wb");
    if (!f) {
        shell().message(withPath(keymsg::kCannotOpenWrite, path));
        return false;
    }
    const bool written = std::fwrite(data.data(), 1, data.size(), f) == data.size();
    std::error_code ec;
    if (std::fclose(f) != 0 || !written || (std::filesystem::rename(temp, path, ec), ec)) {
        std::filesystem::remove(temp, ec);
        shell().message(keymsg::kReadError);
        return false;
    }
    setKeyMapChanged(false);
    return true;
}

}  // namespace zol
