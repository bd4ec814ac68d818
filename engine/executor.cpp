#include "engine/executor.h"

#include "engine/document.h"
#include "engine/shell.h"

namespace zol {
namespace {

MacroStore* store = nullptr;
ExternalCommandRunner external = nullptr;

bool isMacroId(uint16_t id) { return id >= kFirstMacroId && id <= kLastMacroId; }

}  // namespace

void setMacroStore(MacroStore* s) { store = s; }
void setExternalCommandRunner(ExternalCommandRunner runner) { external = runner; }
MacroStore* macroStore() { return store; }

int execute(Document& doc, uint16_t id, uint32_t param, uint32_t flags) {
    const CommandRecord* rec = findCommand(id);
    if (!rec || rec->kind == ParamKind::None) param = 0;
    if (flags != kBypassPreCommand && id < kFirstMacroId && doc.view &&
        doc.view->preCommand(id, param, flags))
        return 1;
    if (id != idOf(Cmd::Undo)) {
        doc.prevCmd = doc.lastCmd;
        doc.lastCmd = id;
    }
    if (id >= kFirstMacroId) {
        if (isMacroId(id) && store && store->has(id)) {
            const bool wasRunning = doc.macroRunning;
            doc.macroRunning = true;
            store->play(doc, id);
            doc.macroRunning = wasRunning;
            return 1;
        }
        if (id >= kFirstExternalCommand && external) return external(doc, id);
        return 0;
    }
    switch (static_cast<Cmd>(id)) {
        case Cmd::NullCmd: return 0;
        case Cmd::RecordMacro:
            if (doc.recorder != Recorder::Idle) return 0;
            doc.recorder = Recorder::Recording;
            if (store) store->startRecording(doc);
            return 1;
        case Cmd::MacroStopRecorder:
            if (doc.recorder != Recorder::Recording) return 0;
            doc.recorder = Recorder::Idle;
            if (store) store->stopRecording(doc);
            return 1;
        case Cmd::Macro:
            if (doc.recorder != Recorder::Idle) return 0;
            if (doc.view) doc.view->macroCommand();
            return 1;
        case Cmd::ExecScript:
            if (doc.view) doc.view->scriptCommand();
            return 1;
        default: break;
    }
    if (doc.recorder == Recorder::Recording && param <= 0xFFFF && store) store->recordStep(doc, id, param);
    if (id > kMaxDispatchId) return 0;
    if (rec && rec->changesText && doc.readOnly) {
        if (!doc.macroRunning && !doc.modified && doc.view) doc.view->readOnlyNotify();
        return 0;
    }
    CommandHandler h = commandHandler(id);
    return h ? h(doc, CommandCall{id, param, flags}) : 0;
}

std::string commandName(uint16_t id) {
    if (isMacroId(id)) return store && store->has(id) ? store->name(id).substr(0, kCommandNameSize - 1) : std::string();
    const CommandRecord* r = findCommand(id);
    return r ? r->name : "";
}

uint16_t commandId(std::string_view name, bool searchMacros) {
    if (const CommandRecord* r = findCommand(name)) return r->id;
    if (searchMacros && store) return store->find(name);
    return 0;
}

ParamKind commandParamKind(uint16_t id) {
    if (id == idOf(Cmd::InsertChar)) return ParamKind::Char;
    if (isMacroId(id)) return store && store->has(id) ? ParamKind::None : ParamKind::Unknown;
    const CommandRecord* r = findCommand(id);
    return r ? r->kind : ParamKind::Unknown;
}

int commandGroup(uint16_t id) {
    const CommandRecord* r = findCommand(id);
    return r ? static_cast<int>(r->group) : 0;
}

}  // namespace zol
