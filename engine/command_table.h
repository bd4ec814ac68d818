// The editor command table: every named command with its id, parameter kind, group,
// description and handler. The executor, key map, macros, menus, scripts and
// plug-ins all read this one table.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zol {

struct Document;

enum class ParamKind : uint8_t { Unknown = 0, None = 1, Char = 2, Number = 3 };

struct CommandCall {
    uint16_t id;
    uint32_t param;  // character or 16-bit number; 0 for commands without one
    uint32_t flags;
};

// Returns non-zero when the command did something.
using CommandHandler = int (*)(Document& doc, const CommandCall& call);

struct CommandRecord {
    uint16_t id;
    const char* name;         // unique, at most 31 characters
    ParamKind kind;
    uint8_t group;            // 1..13
    bool changesText;         // refused on a read-only document
    const char* description;  // one line, or nullptr
    CommandHandler handler;   // nullptr when a later layer registers it
};

constexpr int kCommandCount = 259;
constexpr uint16_t kMaxDispatchId = 445;
constexpr uint16_t kFirstMacroId = 1000;
constexpr uint16_t kLastMacroId = 1149;
constexpr uint16_t kLastReservedId = 1999;
constexpr size_t kCommandNameSize = 32;

// All records in table order (the end marker is not part of the span).
std::span<const CommandRecord> commandTable();
// First record with this id, or nullptr.
const CommandRecord* findCommand(uint16_t id);
// Record with this name, compared without regard to case, or nullptr.
const CommandRecord* findCommand(std::string_view name);
// Description string as the resources hold it: "description\nName"; empty when none.
std::string commandDescriptionString(uint16_t id);
// Installs the handler of a command owned by a higher layer (files, search, ...).
void setCommandHandler(uint16_t id, CommandHandler handler);
CommandHandler commandHandler(uint16_t id);

}  // namespace zol
