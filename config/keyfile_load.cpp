#include <cstring>
#include <utility>

#include "config/keyfile.h"
#include "config/keyfile_words.h"
#include "config/keymap_messages.h"
#include "config/settings.h"
#include "engine/shell.h"
#include "platform/file_io.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

bool readKeyMap(KeyFileReader& in, KeyMap& map) {
    in.skip(4);  // 1 and the number of prefix tables, not checked
    for (int t = 0; t < kKeyTables; ++t) {
        const uint16_t count = in.u16();
        for (uint16_t i = 0; i < count && !in.failed; ++i) {
            const uint16_t key = in.u16();
            const uint16_t command = in.u16();
            // Entries past a table's capacity are read over.
            if (!in.failed && map.tables[t].size() < keyTableCapacity(t)) map.tables[t].push_back({key, command});
        }
    }
    return !in.failed;
}

void report(KeyFileStatus status) {
    switch (status) {
        case KeyFileStatus::NotCompatible: shell().message(keymsg::kNotCompatible); break;
        case KeyFileStatus::ReadError: shell().message(keymsg::kReadError); break;
        case KeyFileStatus::NoMemory: shell().message(keymsg::kNoMemoryForMacros); break;
        case KeyFileStatus::Ok: break;
    }
}

KeyFileMacros& installedMacros() {
    static KeyFileMacros installed;
    return installed;
}

}  // namespace

KeyFileStatus parseKeyFile(std::string_view bytes, KeyMap& map, const MacroSectionReader& readMacros) {
    if (bytes.size() < 8 || std::memcmp(bytes.data(), kKeyFileMagic, 8) != 0) return KeyFileStatus::NotCompatible;
    KeyFileReader in{bytes, 8};
    in.skip(4);
    const uint32_t keyMapAt = in.u32();
    const uint32_t macrosAt = in.u32();
    if (in.failed || macrosAt > bytes.size()) return KeyFileStatus::ReadError;
    KeyMap newMap;
    in.pos = keyMapAt;
    if (!readKeyMap(in, newMap)) return KeyFileStatus::ReadError;
    // The macros take their section only when it is whole, so the map is the last
    // thing to change.
    const KeyFileStatus status = readMacros ? readMacros(bytes.substr(macrosAt)) : KeyFileStatus::Ok;
    if (status == KeyFileStatus::Ok || status == KeyFileStatus::NoMemory) map = std::move(newMap);
    return status;
}

void setKeyFileMacros(KeyFileMacros macros) { installedMacros() = std::move(macros); }
const KeyFileMacros& keyFileMacros() { return installedMacros(); }

std::string keyFilePath() { return resolveBareName(keyFileNameFromPath(settings().keyMappingFile)); }

bool loadKeyFile() {
    const std::string path = keyFilePath();
    const FileAttributes file = fileAttributes(path);
    if (file.exists && !file.isDirectory && file.size > keymsg::kMaxKeyFileBytes) {
        shell().message(keymsg::kReadError);
        return false;
    }
    std::string bytes;
    if (!readWholeFile(path, bytes)) return false;
    const KeyFileStatus status = parseKeyFile(bytes, keyMap(), keyFileMacros().readSection);
    report(status);
    if (status != KeyFileStatus::Ok && status != KeyFileStatus::NoMemory) return false;
    setKeyMapChanged(false);
    return true;
}

namespace {

// DEFKEY.ZOL's bytes and its key map; false (reported) when it cannot be read or is no
// key file.
bool readDefaultKeyFile(std::string& bytes, KeyMap& map) {
    if (!readWholeFile(resolveBareName(kDefaultKeyFile), bytes)) {
        shell().message(keymsg::kCannotOpenDefault);
        return false;
    }
    const KeyFileStatus status = parseKeyFile(bytes, map, nullptr);
    report(status);
    return status == KeyFileStatus::Ok;
}

}  // namespace

bool readDefaultKeyMap(KeyMap& map) {
    std::string bytes;
    return readDefaultKeyFile(bytes, map);
}

bool resetKeyFile() {
    std::string bytes;
    KeyMap unused;
    if (!readDefaultKeyFile(bytes, unused)) return false;
    if (!replaceFile(keyFilePath(), bytes)) {
        shell().message(keymsg::kResetFailed);
        return false;
    }
    return loadKeyFile();
}

}  // namespace zol
