#include "config/keyfile.h"
#include "config/keyfile_words.h"
#include "config/keymap_messages.h"
#include "engine/shell.h"
#include "platform/file_io.h"

namespace zol {
namespace {

std::string withPath(std::string_view text, std::string_view path) {
    const size_t at = text.find("%s");
    if (at == std::string_view::npos) return std::string(text);
    return std::string(text.substr(0, at)).append(path).append(text.substr(at + 2));
}

}  // namespace

std::string keyFileBytes(const KeyMap& map, std::string_view macroSection) {
    std::string out(kKeyFileMagic, 8);
    out.append(kKeyMapSectionOffset - 8, '\0');
    put32At(out, 12, kKeyMapSectionOffset);
    put16(out, 1);
    put16(out, kKeyTables - 1);
    for (const std::vector<KeyMapEntry>& t : map.tables) {
        put16(out, static_cast<uint16_t>(t.size()));
        for (const KeyMapEntry& e : t) {
            put16(out, e.key);
            put16(out, e.command);
        }
    }
    put32At(out, 16, static_cast<uint32_t>(out.size()));
    out += macroSection;
    return out;
}

bool saveKeyFile() {
    const std::string path = keyFilePath();
    const KeyFileMacros& macros = keyFileMacros();
    const std::string data = keyFileBytes(keyMap(), macros.sectionBytes ? macros.sectionBytes() : std::string());
    bool opened = false;
    if (!replaceFile(path, data, opened)) {
        shell().message(opened ? std::string(keymsg::kReadError) : withPath(keymsg::kCannotOpenWrite, path));
        return false;
    }
    setKeyMapChanged(false);
    return true;
}

}  // namespace zol
