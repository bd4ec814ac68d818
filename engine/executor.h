// The one command executor: every command, whether typed, replayed, scripted or sent
// by a plug-in, is carried out here.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/command_table.h"

namespace zol {

struct Document;

// Flags word: bypass the view's pre-command hook.
constexpr uint32_t kBypassPreCommand = 0x8000;
// What the interface accessors pass.
constexpr uint32_t kInterfaceCall = 512;

// The keystroke macros, owned by the macro subsystem. Without one installed no
// macro id is valid and recording keeps nothing.
class MacroStore {
public:
    virtual ~MacroStore() = default;
    virtual bool has(uint16_t id) const = 0;
    virtual std::string name(uint16_t id) const = 0;
    virtual uint16_t find(std::string_view name) const = 0;  // 0 when unknown
    virtual void play(Document& doc, uint16_t id) = 0;
    virtual void startRecording(Document& doc) = 0;
    virtual void recordStep(Document& doc, uint16_t id, uint32_t param) = 0;
    virtual void stopRecording(Document& doc) = 0;
};
void setMacroStore(MacroStore* store);
MacroStore* macroStore();

// Commands registered from outside the table (plug-ins) have ids from
// kFirstExternalCommand on. Keys bind them by id; the runner answers 0 when no one
// took the command, and records its own macro steps, since ids are handed out anew
// in every run.
constexpr uint16_t kFirstExternalCommand = 2000;
using ExternalCommandRunner = int (*)(Document& doc, uint16_t id);
void setExternalCommandRunner(ExternalCommandRunner runner);

// Runs one command on a document. Returns the handler's result (0 when nothing ran).
int execute(Document& doc, uint16_t id, uint32_t param = 0, uint32_t flags = 0);
inline int execute(Document& doc, Cmd cmd, uint32_t param = 0, uint32_t flags = 0) {
    return execute(doc, idOf(cmd), param, flags);
}

// Lookups. For a stored macro id the macro's name and kind None; unknown ids give
// "" / 0 / ParamKind::Unknown.
std::string commandName(uint16_t id);
uint16_t commandId(std::string_view name, bool searchMacros);
ParamKind commandParamKind(uint16_t id);
int commandGroup(uint16_t id);

}  // namespace zol
