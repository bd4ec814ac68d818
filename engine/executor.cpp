#include "engine/executor.h"

#include "engine/document.h"
#include "engine/shell.h"

namespace zol {
namespace {

MacroStore* store = nullptr;
ExternalCommandRunner external = nullptr;

constexpr uint16_t kInsertChar = 2, kNullCmd = 1, kUndo = 120;
constexpr uint16_t kRecordMacro = 230, kStopRecorder = 231, kMacro = 232, kExecScript = 235;

bool takesParameter(uint16_t id) {
    switch (id) {
        case 2: case 220: case 221: case 236: case 237: case 311: case 436: case 437: return true;
        default: return false;
    }
}

bool isMacroId(uint16_t id) { return id >= kFirstMacroId && id <= kLastMacroId; }

}  // namespace

void setMacroStore(MacroStore* s) { store = s; }
void setExternalCommandRunner(ExternalCommandRunner runner) { external = runner; }
MacroStore* macroStore() { return store; }

int execute(Document& doc, uint16_t id, uint32_t param, uint32_t flags) {
    if (!takesParameter(id)) param = 0;
    if (flags != kBypassPreCommand && id < kFirstMacroId && doc.view &&
        doc.view->preCommand(id, param, flags))
        return 1;
    if (id != kUndo) {
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
    switch (id) {
        case kNullCmd: return 0;
        case kRecordMacro:
            if (doc.recorder != 0) return 0;
            doc.recorder = 1;
            if (store) store->startRecording(doc);
            return 1;
        case kStopRecorder:
            if (doc.recorder != 1) return 0;
            doc.recorder = 0;
            if (store) store->stopRecording(doc);
            return 1;
        case kMacro:
            if (doc.recorder != 0) return 0;
            if (doc.view) doc.view->macroCommand();
            return 1;
        case kExecScript:
            if (doc.view) doc.view->scriptCommand();
            return 1;
        default: break;
    }
    if (doc.recorder == 1 && param <= 0xFFFF && store) store->recordStep(doc, id, param);
    if (id > kMaxDispatchId) return 0;
    const CommandRecord* rec = findCommand(id);
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
    if (id == kInsertChar) return ParamKind::Char;
    if (isMacroId(id)) return store && store->has(id) ? ParamKind::None : ParamKind::Unknown;
    const CommandRecord* r = findCommand(id);
    return r ? r->kind : ParamKind::Unknown;
}

int commandGroup(uint16_t id) {
    const CommandRecord* r = findCommand(id);
    return r ? r->group : 0;
}

}  // namespace zol
