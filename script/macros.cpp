#include "script/macros.h"

#include <algorithm>
#include <cstdio>

#include "config/keymap.h"
#include "config/profile_owners.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "script/macro_menu.h"
#include "script/macro_section.h"

namespace zol {
namespace {

bool isMacroId(uint16_t id) { return id >= kFirstMacroId && id <= kLastMacroId; }

// A recording in progress; the document only identifies it.
struct Recording {
    const Document* doc;
    std::string name;
    std::vector<MacroStep> steps;
};

std::string suggestedName(const MacroTable& table) {
    for (int n = 1;; ++n) {
        char name[kMacroNameSize];
        std::snprintf(name, sizeof name, macromsg::kNewNamePattern, n);
        if (findMacro(table, name) == 0) return name;
    }
}

bool hasFreeSlot(const MacroTable& table) {
    return std::any_of(table.slots.begin(), table.slots.end(), [](const Macro& m) { return !m.used; });
}

class ExecutorMacros final : public MacroStore {
public:
    bool has(uint16_t id) const override { return macroById(macros(), id) != nullptr; }

    std::string name(uint16_t id) const override {
        const Macro* m = macroById(macros(), id);
        return m ? m->name : std::string();
    }

    uint16_t find(std::string_view name) const override {
        const MacroTable& table = macros();
        for (size_t slot = 0; slot < table.slots.size(); ++slot)
            if (table.slots[slot].used && equalsNoCase(table.slots[slot].name, name))
                return static_cast<uint16_t>(kFirstMacroId + slot);
        return 0;
    }

    void play(Document& doc, uint16_t id) override {
        const Macro* m = macroById(macros(), id);
        if (!m) return;
        if (depth_ >= macromsg::kMaxNesting) {
            if (!aborting_) shell().message(macromsg::kTooDeep);
            aborting_ = true;
            return;
        }
        // A step may record or delete macros, this one included.
        const std::vector<MacroStep> steps = m->steps;
        ++depth_;
        for (const MacroStep& s : steps) {
            if (aborting_) break;
            execute(doc, s.command, s.param, 0);
        }
        if (--depth_ == 0) aborting_ = false;
    }

    void startRecording(Document& doc) override {
        if (!hasFreeSlot(macros())) {
            shell().message(macromsg::kSlotsFull);
            doc.recorder = Recorder::Idle;
            return;
        }
        std::string name = suggestedName(macros());
        if (!shell().askMacroName(name)) {
            doc.recorder = Recorder::Idle;
            return;
        }
        if (name.size() >= kMacroNameSize) name.resize(kMacroNameSize - 1);
        if (name.empty()) name = suggestedName(macros());
        drop(&doc);
        recordings_.push_back({&doc, std::move(name), {}});
    }

    void recordStep(Document& doc, uint16_t id, uint32_t param) override {
        Recording* r = recordingOf(&doc);
        if (!r) return;
        if (r->steps.size() >= macromsg::kMaxSteps) {
            shell().message(macromsg::kMacroFull);
            doc.recorder = Recorder::Idle;
            stopRecording(doc);
            return;
        }
        r->steps.push_back({id, static_cast<uint16_t>(param)});
    }

    void stopRecording(Document& doc) override {
        Recording* r = recordingOf(&doc);
        if (!r) return;
        MacroTable& table = macros();
        if (Macro* old = macroById(table, findMacro(table, r->name))) {
            old->steps = std::move(r->steps);
        } else if (addMacro(table, Macro{true, r->name, {}, std::move(r->steps)}) == 0) {
            shell().message(macromsg::kSlotsFull);
        }
        setKeyMapChanged(true);
        drop(&doc);
    }

private:
    Recording* recordingOf(const Document* doc) {
        for (Recording& r : recordings_)
            if (r.doc == doc) return &r;
        return nullptr;
    }
    void drop(const Document* doc) {
        std::erase_if(recordings_, [doc](const Recording& r) { return r.doc == doc; });
    }

    std::vector<Recording> recordings_;
    int depth_ = 0;
    bool aborting_ = false;
};

ExecutorMacros executorMacros;

}  // namespace

bool operator==(const MacroStep& a, const MacroStep& b) { return a.command == b.command && a.param == b.param; }

MacroTable& macros() {
    static MacroTable table;
    return table;
}

Macro* macroById(MacroTable& table, uint16_t id) {
    if (!isMacroId(id)) return nullptr;
    Macro& m = table.slots[id - kFirstMacroId];
    return m.used ? &m : nullptr;
}

const Macro* macroById(const MacroTable& table, uint16_t id) {
    return macroById(const_cast<MacroTable&>(table), id);
}

uint16_t findMacro(const MacroTable& table, std::string_view name) {
    for (size_t slot = 0; slot < table.slots.size(); ++slot)
        if (table.slots[slot].used && table.slots[slot].name == name) return static_cast<uint16_t>(kFirstMacroId + slot);
    return 0;
}

uint16_t findMacro(std::string_view name) { return findMacro(macros(), name); }

uint16_t addMacro(MacroTable& table, Macro macro) {
    for (size_t slot = 0; slot < table.slots.size(); ++slot) {
        if (table.slots[slot].used) continue;
        macro.used = true;
        table.slots[slot] = std::move(macro);
        return static_cast<uint16_t>(kFirstMacroId + slot);
    }
    return 0;
}

bool deleteMacro(MacroTable& table, uint16_t id) {
    Macro* m = macroById(table, id);
    if (!m) return false;
    *m = Macro{};
    return true;
}

int executeMacro(Document* doc, const char* name) {
    if (!doc || !name) return 0;
    const uint16_t id = findMacro(name);
    if (id == 0) return 0;
    execute(*doc, id, 0, kInterfaceCall);
    return 1;
}

void initMacros() {
    setMacroStore(&executorMacros);
    setKeyFileMacros({[] { return macroSectionBytes(macros()); },
                      [](std::string_view section) { return readMacroSection(section, macros()); }});
    registerProfileOwner(kMacroMenuSection, loadMacroMenu, saveMacroMenu);
}

}  // namespace zol
