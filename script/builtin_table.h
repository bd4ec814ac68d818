// The built-in name table, read from script/builtins.def: every name a script may call
// without defining it, with its number, its prototype and the letters of its arguments.
#pragma once
#include <span>
#include <string_view>

#include "script/builtin_proto.h"

namespace zol {

enum BuiltinFlag : unsigned {
    kBuiltinSystem = 1,  // reaches files, folders, the environment or other processes
    kBuiltinEditor = 2,  // implemented by the editor layer, which registers it at start-up
    // Reaches the editor's windows and shell, its profile files, or what the process
    // shares with them (environment, locale): where a script runs on a thread of its
    // own, the call is carried to the thread that owns the editor. kBuiltinEditor
    // calls always are.
    kBuiltinWindow = 4,
};

struct BuiltinEntry {
    std::string_view name;
    int number = 0;
    BuiltinSig sig{};            // read from the prototype
    std::string_view prototype;  // as the shipped header declares it, without the ";"
    std::string_view header;     // the shipped header that declares it
    unsigned flags = 0;
    bool implemented = false;    // by the library itself; the others wait for registerBuiltin
};

// In the order of script/builtins.def: by family, each family in number order.
std::span<const BuiltinEntry> builtinList();
// The same entries sorted by name in byte order (upper case before lower case).
std::span<const BuiltinEntry> builtinTable();
const BuiltinEntry* findBuiltin(std::string_view name);

}  // namespace zol
