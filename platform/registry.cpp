#include "platform/registry.h"

#include "platform/profile.h"

#include <cstdio>

namespace zol {

namespace {

constexpr std::string_view kIntTag = "dword:";
constexpr std::string_view kStringTag = "sz:";

std::string sectionFor(RegistryRoot root, std::string_view keyPath) {
    std::string s = root == RegistryRoot::CurrentUser ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\";
    while (!keyPath.empty() && keyPath.front() == '\\') keyPath.remove_prefix(1);
    while (!keyPath.empty() && keyPath.back() == '\\') keyPath.remove_suffix(1);
    return s + std::string(keyPath);
}

// The unnamed (default) value is "@", as in exported registry files.
std::string_view valueKey(std::string_view name) { return name.empty() ? std::string_view("@") : name; }

std::optional<std::string> rawValue(RegistryRoot root, std::string_view keyPath, std::string_view name) {
    return findProfileString(sectionFor(root, keyPath), valueKey(name), kRegistryFile);
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

bool registryKeyExists(RegistryRoot root, std::string_view keyPath) {
    return profileSectionExists(sectionFor(root, keyPath), kRegistryFile);
}

std::optional<uint32_t> registryGetInt(RegistryRoot root, std::string_view keyPath, std::string_view name) {
    std::optional<std::string> raw = rawValue(root, keyPath, name);
    if (!raw || raw->compare(0, kIntTag.size(), kIntTag) != 0) return std::nullopt;
    std::string_view digits = std::string_view(*raw).substr(kIntTag.size());
    if (digits.empty() || digits.size() > 8) return std::nullopt;
    uint32_t v = 0;
    for (char c : digits) {
        int d = hexDigit(c);
        if (d < 0) return std::nullopt;
        v = v * 16 + static_cast<uint32_t>(d);
    }
    return v;
}

std::optional<std::string> registryGetString(RegistryRoot root, std::string_view keyPath, std::string_view name) {
    std::optional<std::string> raw = rawValue(root, keyPath, name);
    if (!raw || raw->compare(0, kIntTag.size(), kIntTag) == 0) return std::nullopt;
    if (raw->compare(0, kStringTag.size(), kStringTag) == 0) return raw->substr(kStringTag.size());
    return raw;
}

bool registrySetInt(RegistryRoot root, std::string_view keyPath, std::string_view name, uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "%08x", value);
    return writeProfileString(sectionFor(root, keyPath), valueKey(name), std::string(kIntTag) + text, kRegistryFile);
}

bool registrySetString(RegistryRoot root, std::string_view keyPath, std::string_view name, std::string_view value) {
    return writeProfileString(sectionFor(root, keyPath), valueKey(name),
                              "\"" + std::string(kStringTag) + std::string(value) + "\"", kRegistryFile);
}

}  // namespace zol
