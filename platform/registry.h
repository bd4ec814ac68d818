// The registry as the editor uses it, kept in the profile file "registry.ini" in the
// home folder: one section per key path ("HKEY_CURRENT_USER\Software\..."), one profile
// key per value. Integers are written "dword:%08x", strings "\"sz:...\"" (the quotes
// keep blanks at the ends); a hand-written value without a type reads as a string.
// Key paths and value names match without regard to case, as in the registry.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zol {

constexpr const char* kRegistryFile = "registry.ini";

enum class RegistryRoot { CurrentUser, LocalMachine };

bool registryKeyExists(RegistryRoot root, std::string_view keyPath);
// A 4-byte integer value; nullopt when the key or value is missing or not an integer.
std::optional<uint32_t> registryGetInt(RegistryRoot root, std::string_view keyPath, std::string_view name);
// A string value; nullopt when the key or value is missing or not a string.
std::optional<std::string> registryGetString(RegistryRoot root, std::string_view keyPath, std::string_view name);
// Creating the key when needed. False when "registry.ini" could not be written.
bool registrySetInt(RegistryRoot root, std::string_view keyPath, std::string_view name, uint32_t value);
bool registrySetString(RegistryRoot root, std::string_view keyPath, std::string_view name, std::string_view value);

}  // namespace zol
