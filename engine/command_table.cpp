#include "engine/command_table.h"

#include <array>
#include <cstddef>
#include <type_traits>

#include "engine/commands/handlers.h"
#include "engine/text_util.h"

namespace zol {
namespace {

constexpr bool Edits = true;
constexpr bool Keeps = false;

constexpr CommandRecord kTable[] = {
#define ZOL_COMMAND(name, id, kind, group, text, owner, handler, description) \
    {id, #name, ParamKind::kind, CmdGroup::group, text, description, CommandOwner::owner, handler},
#include "engine/commands.def"
};

// Read from the handler column's type, not by comparing function addresses: those are
// not constants where symbols may be interposed (a sanitizer build of the library).
constexpr bool kRowHasHandler[] = {
#define ZOL_COMMAND(name, id, kind, group, text, owner, handler, description) \
    !std::is_same_v<decltype(handler), std::nullptr_t>,
#include "engine/commands.def"
};

constexpr bool handlersMatchOwners() {
    for (size_t i = 0; i < std::size(kTable); ++i)
        if ((kTable[i].owner == CommandOwner::Engine) != kRowHasHandler[i]) return false;
    return true;
}
static_assert(handlersMatchOwners(), "an engine command lacks its handler, or another owner's row names one");

// Row of the first record of each id, plus one; 0 for ids without a command.
constexpr std::array<uint16_t, kMaxDispatchId + 1> kRowOfId = [] {
    std::array<uint16_t, kMaxDispatchId + 1> rows{};
    for (size_t i = std::size(kTable); i-- > 0;) rows[kTable[i].id] = static_cast<uint16_t>(i + 1);
    return rows;
}();

bool installedByLayer(CommandOwner owner) {
    switch (owner) {
        case CommandOwner::Search:
        case CommandOwner::Syntax:
        case CommandOwner::Files:
        case CommandOwner::Tools:
        case CommandOwner::Proofing:
        case CommandOwner::PlugIn: return true;
        default: return false;
    }
}

// Handlers by id, filled from the table and by later layers.
std::array<CommandHandler, kMaxDispatchId + 1>& dispatch() {
    static std::array<CommandHandler, kMaxDispatchId + 1> table = [] {
        std::array<CommandHandler, kMaxDispatchId + 1> t{};
        for (const CommandRecord& r : commandTable())
            if (r.handler && !t[r.id]) t[r.id] = r.handler;
        return t;
    }();
    return table;
}

}  // namespace

std::span<const CommandRecord> commandTable() { return kTable; }

const CommandRecord* findCommand(uint16_t id) {
    if (id > kMaxDispatchId || kRowOfId[id] == 0) return nullptr;
    return &kTable[kRowOfId[id] - 1];
}

const CommandRecord* findCommand(std::string_view name) {
    for (const CommandRecord& r : commandTable())
        if (equalsNoCase(std::string_view(r.name), name)) return &r;
    return nullptr;
}

std::string commandDescriptionString(uint16_t id) {
    const CommandRecord* r = findCommand(id);
    if (!r || !r->description) return {};
    return std::string(r->description) + "\n" + r->name;
}

void setCommandHandler(Cmd c, CommandHandler handler) {
    if (idOf(c) <= kMaxDispatchId) dispatch()[idOf(c)] = handler;
}

CommandHandler commandHandler(uint16_t id) { return id <= kMaxDispatchId ? dispatch()[id] : nullptr; }

std::vector<const CommandRecord*> commandsWithoutHandler() {
    std::vector<const CommandRecord*> missing;
    for (const CommandRecord& r : commandTable())
        if ((r.owner == CommandOwner::Engine || installedByLayer(r.owner)) && !commandHandler(r.id))
            missing.push_back(&r);
    return missing;
}

}  // namespace zol
