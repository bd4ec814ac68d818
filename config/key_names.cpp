#include <algorithm>
#include <cstring>

#include "config/keymap.h"
#include "engine/text_util.h"

namespace zol {
namespace {

struct NamedKey {
    uint16_t base;  // the low nine bits of a key word
    const char* name;
};

const NamedKey kNamedKeys[] = {
    {0x12D, "Ins"},      {0x12E, "Del"},       {0x124, "Home"},      {0x123, "End"},
    {0x121, "PageUp"},   {0x122, "PageDown"},  {0x126, "Up"},        {0x128, "Down"},
    {0x125, "Left"},     {0x127, "Right"},     {0x109, "Tab"},       {0x11B, "Esc"},
    {0x10D, "Enter"},    {0x108, "Backspace"}, {0x120, "Space"}, {0x16F, "NumPadDiv"}, {0x16A, "NumPadMul"},
    {0x16D, "NumPadSub"}, {0x16B, "NumPadAdd"}, {0x16E, "NumPadDec"},
};

struct Modifier {
    uint16_t bit;
    const char* prefix;
};
const Modifier kModifiers[] = {{kAltKey, "Alt+"}, {kCtrlKey, "Ctrl+"}, {kShiftKey, "Shift+"}};

std::string baseName(uint16_t base) {
    if (base >= 0x141 && base <= 0x15A) return std::string(1, static_cast<char>('A' + base - 0x141));
    if (base >= 0x130 && base <= 0x139) return std::string(1, static_cast<char>('0' + base - 0x130));
    if (base >= 0x170 && base <= 0x17B) return "F" + std::to_string(base - 0x170 + 1);
    if (base >= 0x160 && base <= 0x169) return "NumPad" + std::to_string(base - 0x160);
    for (const NamedKey& k : kNamedKeys)
        if (k.base == base) return k.name;
    return {};
}

// The base of prefix + a number written as baseName writes it ("F1".."F12"), 0 when
// name is none of them.
uint16_t numberedBase(std::string_view name, std::string_view prefix, uint16_t firstBase, int first, int count) {
    if (name.size() <= prefix.size() || !equalsNoCase(name.substr(0, prefix.size()), prefix)) return 0;
    const std::string_view digits = name.substr(prefix.size());
    for (int n = first; n < first + count; ++n)
        if (digits == std::to_string(n)) return static_cast<uint16_t>(firstBase + n - first);
    return 0;
}

// The inverse of baseName, without building every name: the default key map parses
// its rows at every start.
uint16_t parseBase(std::string_view name) {
    if (name.size() == 1) {
        const char c = name[0];
        if (c >= 'a' && c <= 'z') return static_cast<uint16_t>(0x141 + c - 'a');
        if (c >= 'A' && c <= 'Z') return static_cast<uint16_t>(0x141 + c - 'A');
        if (c >= '0' && c <= '9') return static_cast<uint16_t>(0x130 + c - '0');
        return 0;
    }
    for (const NamedKey& k : kNamedKeys)
        if (equalsNoCase(k.name, name)) return k.base;
    if (const uint16_t f = numberedBase(name, "F", 0x170, 1, 12)) return f;
    return numberedBase(name, "NumPad", 0x160, 0, 10);
}

}  // namespace

std::string keyName(uint16_t key) {
    std::string base = baseName(key & 0x1FF);
    if (base.empty()) return {};
    std::string name;
    for (const Modifier& m : kModifiers)
        if (key & m.bit) name += m.prefix;
    return name + base;
}

size_t keyName(uint16_t key, char* buffer, size_t size) {
    if (!buffer || size == 0) return 0;
    const std::string name = keyName(key);
    const size_t n = std::min(name.size(), size - 1);
    std::memcpy(buffer, name.data(), n);
    buffer[n] = '\0';
    return n;
}

uint16_t parseKeyName(std::string_view name) {
    uint16_t modifiers = 0;
    for (bool found = true; found;) {
        found = false;
        for (const Modifier& m : kModifiers) {
            const std::string_view p(m.prefix);
            if (name.size() > p.size() && equalsNoCase(name.substr(0, p.size()), p) && !(modifiers & m.bit)) {
                modifiers |= m.bit;
                name.remove_prefix(p.size());
                found = true;
            }
        }
    }
    const uint16_t base = parseBase(name);
    return base ? static_cast<uint16_t>(base | modifiers) : 0;
}

}  // namespace zol
