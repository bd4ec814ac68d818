// The editor command table, made from the one list in engine/commands.def: every named
// command with its number, parameter kind, group, description and handler. The
// executor, key map, macros, menus, scripts and plug-ins all read this one table.
#pragma once
#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

struct Document;

// The commands by name, with their stable numbers.
enum class Cmd : uint16_t {
#define ZOL_COMMAND(name, id, ...) name = id,
#include "engine/commands.def"
};

constexpr uint16_t idOf(Cmd c) { return static_cast<uint16_t>(c); }

enum class ParamKind : uint8_t { Unknown = 0, None = 1, Char = 2, Number = 3 };

// The categories of the key-mapping dialog; commandGroup() gives their numbers.
enum class CmdGroup : uint8_t {
    Typing = 1, Movement, Selection, Search, Marks, Block, Clipboard, Tools, Files, Modes, Windows, Help, Special
};
constexpr int kCommandGroups = static_cast<int>(CmdGroup::Special);

// Who carries a command out.
enum class CommandOwner : uint8_t {
    Engine,    // the handler in the table
    Executor,  // the executor itself (macro recording and playback, scripts, NullCmd)
    Search,    // handlers installed at start-up by these layers
    Syntax,
    Files,
    Tools,
    Proofing,
    PlugIn,
    Frame,     // the desktop frame, through the view's pre-command hook; headless, nothing
    Inert,     // nothing in this build
};

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
    CmdGroup group;
    bool changesText;         // refused on a read-only document
    const char* description;  // one line, or nullptr
    CommandOwner owner;
    CommandHandler handler;   // the engine's own; nullptr for every other owner
};

constexpr uint16_t kMaxDispatchId = std::max({0
#define ZOL_COMMAND(name, id, ...) , id
#include "engine/commands.def"
});
constexpr uint16_t kFirstMacroId = 1000;
constexpr uint16_t kLastMacroId = 1149;
constexpr uint16_t kLastReservedId = 1999;
constexpr size_t kCommandNameSize = 32;

// All records in table order.
std::span<const CommandRecord> commandTable();
// First record with this id, or nullptr.
const CommandRecord* findCommand(uint16_t id);
// Record with this name, compared without regard to case, or nullptr.
const CommandRecord* findCommand(std::string_view name);
// Description string as the resources hold it: "description\nName"; empty when none.
std::string commandDescriptionString(uint16_t id);
// Installs the handler of a command owned by a higher layer (files, search, ...).
void setCommandHandler(Cmd c, CommandHandler handler);
CommandHandler commandHandler(uint16_t id);
inline CommandHandler commandHandler(Cmd c) { return commandHandler(idOf(c)); }
// The commands whose owner installs a handler but has not (yet) done so.
std::vector<const CommandRecord*> commandsWithoutHandler();

}  // namespace zol
