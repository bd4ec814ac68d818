#include <cstring>
#include <filesystem>
#include <memory>
#include <new>

#include "config/keyfile.h"
#include "config/keymap_messages.h"
#include "config/settings.h"
#include "engine/command_table.h"
#include "engine/shell.h"
#include "platform/file_io.h"
#include "platform/paths.h"

namespace zol {
namespace {

// Little-endian reads that fail, and stay failed, at the end of the bytes.
struct ByteReader {
    std::string_view bytes;
    size_t pos = 0;
    bool failed = false;

    bool has(size_t n) {
        if (!failed && (pos > bytes.size() || bytes.size() - pos < n)) failed = true;
        return !failed;
    }
    uint16_t u16() {
        if (!has(2)) return 0;
        const auto b = reinterpret_cast<const unsigned char*>(bytes.data() + pos);
        pos += 2;
        return static_cast<uint16_t>(b[0] | (b[1] << 8));
    }
    uint32_t u32() {
        const uint32_t lo = u16();
        return lo | (static_cast<uint32_t>(u16()) << 16);
    }
    void skip(size_t n) {
        if (has(n)) pos += n;
    }
    // The text up to the first NUL of a field of size bytes, at most size - 1 of them.
    std::string field(size_t size) {
        if (!has(size)) return {};
        const char* at = bytes.data() + pos;
        pos += size;
        const void* nul = std::memchr(at, '\0', size - 1);
        return std::string(at, nul ? static_cast<const char*>(nul) - at : size - 1);
    }
};

bool readKeyMap(ByteReader& in, KeyMap& map) {
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

// False when the bytes end early; lowMemory tells that some steps were left out.
bool readMacros(ByteReader& in, MacroTable& table, bool& lowMemory) {
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

void report(KeyFileStatus status) {
    switch (status) {
        case KeyFileStatus::NotCompatible: shell().message(keymsg::kNotCompatible); break;
        case KeyFileStatus::ReadError: shell().message(keymsg::kReadError); break;
        case KeyFileStatus::NoMemory: shell().message(keymsg::kNoMemoryForMacros); break;
        case KeyFileStatus::Ok: break;
    }
}

}  // namespace

KeyFileStatus parseKeyFile(std::string_view bytes, KeyMap& map, MacroTable& table) {
    if (bytes.size() < 8 || std::memcmp(bytes.data(), kKeyFileMagic, 8) != 0) return KeyFileStatus::NotCompatible;
    ByteReader in{bytes, 8};
    in.skip(4);
    const uint32_t keyMapAt = in.u32();
    const uint32_t macrosAt = in.u32();
    if (in.failed) return KeyFileStatus::ReadError;
    KeyMap newMap;
    auto newTable = std::make_unique<MacroTable>();
    in.pos = keyMapAt;
    if (!readKeyMap(in, newMap)) return KeyFileStatus::ReadError;
    in.pos = macrosAt;
    bool lowMemory = false;
    if (!readMacros(in, *newTable, lowMemory)) return KeyFileStatus::ReadError;
    map = std::move(newMap);
    table = std::move(*newTable);
    return lowMemory ? KeyFileStatus::NoMemory : KeyFileStatus::Ok;
}

std::string keyFilePath() { return resolveBareName(keyFileNameFromPath(settings().keyMappingFile)); }

bool loadKeyFile() {
    const std::string path = keyFilePath();
    std::error_code ec;
    const uintmax_t size = std::filesystem::file_size(path, ec);
    if (!ec && size > keymsg::kMaxKeyFileBytes) {
        shell().message(keymsg::kReadError);
        return false;
    }
    std::string bytes;
    if (!readWholeFile(path, bytes)) return false;
    const KeyFileStatus status = parseKeyFile(bytes, keyMap(), macros());
    report(status);
    if (status != KeyFileStatus::Ok && status != KeyFileStatus::NoMemory) return false;
    setKeyMapChanged(false);
    return true;
}

bool resetKeyFile() {
    std::string bytes;
    if (!readWholeFile(resolveBareName(kDefaultKeyFile), bytes)) {
        shell().message(keymsg::kCannotOpenDefault);
        return false;
    }
    if (!replaceFile(keyFilePath(), bytes)) {
        shell().message(keymsg::kResetFailed);
        return false;
    }
    return loadKeyFile();
}

}  // namespace zol
