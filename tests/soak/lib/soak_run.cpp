#include "tests/soak/lib/soak_run.h"

#include <algorithm>

#include "engine/bookmarks.h"
#include "engine/commands/line_draw.h"
#include "engine/edit.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/undo.h"
#include "files/convert_command.h"
#include "search/commands.h"

namespace zol::soak {
namespace {

// Commands kept for the report of a failure.
constexpr size_t kHistoryLength = 16;
// Every line's text is checked after this many commands; in between only the lines a
// command touched are.
constexpr long kFullCheckEvery = 64;
// A document is undone to its baseline when its undo stack reaches this depth: the
// stack holds kMaxUndoRecords and drops its oldest record beyond, which would make
// the start unreachable. Every document is also undone after kCheckpointEvery commands.
constexpr size_t kCheckpointDepth = 300;
static_assert(kCheckpointDepth < static_cast<size_t>(kMaxUndoRecords));
constexpr long kCheckpointEvery = 5000;

SoakRun* running = nullptr;

std::string posText(Pos p) { return std::to_string(p.col) + "," + std::to_string(p.line); }

std::string describe(SoakRun& run, const SoakDoc& d, uint16_t id, uint32_t param) {
    const Document& doc = d.doc;
    size_t index = 0;
    while (index < run.docs.size() && run.docs[index].get() != &d) ++index;
    std::string s = "#" + std::to_string(run.executed) + " doc" + std::to_string(index) + " " + commandName(id);
    switch (commandParamKind(id)) {
        case ParamKind::Char: s += " " + printable(std::string(1, static_cast<char>(param & 0xFF))); break;
        case ParamKind::Number: s += " " + std::to_string(param); break;
        default: break;
    }
    s += "  (cursor " + posText(doc.cursor);
    if (doc.selExists)
        s += std::string(doc.selMode == SelMode::Column ? ", column" : ", char") + " selection " +
             posText(doc.selAnchor) + " to " + posText(doc.selEnd);
    return s + ")";
}

void remember(SoakRun& run, std::string line) {
    if (run.trace) std::fprintf(run.trace, "%s\n", line.c_str());
    run.history.push_back(std::move(line));
    if (run.history.size() > kHistoryLength) run.history.pop_front();
}

void touched(Document& doc, int32_t line, int32_t removed, int32_t added) {
    if (!running) return;
    for (auto& d : running->docs) {
        if (&d->doc != &doc) continue;
        d->touchedTo = std::max(d->touchedTo + std::max(0, added - removed), line + added);
        d->touchedFrom = std::min(d->touchedFrom, line);
    }
}

std::string checkAfterCommand(SoakRun& run, SoakDoc& d) {
    const Document& doc = d.doc;
    std::string why = checkLineList(doc.lines);
    if (why.empty()) {
        const bool all = run.executed % kFullCheckEvery == 0;
        why = checkLineTexts(doc.lines, all ? 0 : d.touchedFrom, all ? doc.lines.lastIndex : d.touchedTo);
    }
    if (why.empty()) why = checkCursorAndSelection(doc);
    if (why.empty()) why = checkNamedBookmarks(namedBookmarks(), doc);
    return why;
}

// The process-wide state a run starts from: the engine's defaults, with undo as deep
// as it goes, and a tab size of the seed's choosing that stays for the whole run
// (undo records hold columns, which a new tab size would move).
void resetEditor(SoakRun& run) {
    options() = EditOptions{};
    options().undoLevels = kMaxUndoRecords;
    setTabSize(run.rng.pick({2, 3, 4, 8, 8, 8, 12}));
    lineDrawState() = LineDrawState{};
    namedBookmarks().entries.clear();
    lastConvertChoice() = ConvertChoice{};
    forgetLastSearch();
    setShell(&run.shell);
    setConvertChooser(&run.converter);
    installConvertCommand();
    initSearch(nullptr, nullptr);
}

void leaveEditor(SoakRun& run) {
    for (auto& d : run.docs) detachDocument(namedBookmarks(), d->doc);
    namedBookmarks().entries.clear();
    setConvertChooser(nullptr);
    setShell(nullptr);
    options() = EditOptions{};
    lineDrawState() = LineDrawState{};
    forgetLastSearch();
}

std::string failureReport(const SoakRun& run, const std::string& why) {
    std::string s = "soak: seed " + std::to_string(run.config.seed) + ", command " + std::to_string(run.executed) +
                    " (generated " + std::to_string(run.generated) + "): " + why + "\nlast commands:\n";
    for (const std::string& h : run.history) s += "  " + h + "\n";
    s += "replay: soak --seed " + std::to_string(run.config.seed) + " --commands " + std::to_string(run.generated) +
         " --docs " + std::to_string(run.config.docs) + "\n";
    return s;
}

}  // namespace

bool SoakRun::exec(SoakDoc& d, uint16_t id, uint32_t param) {
    if (failed) return false;
    ++executed;
    if (!checkpointing) ++generated;
    remember(*this, describe(*this, d, id, param));
    d.touchedFrom = INT32_MAX;
    d.touchedTo = -1;
    execute(d.doc, id, param);
    result.mostLines = std::max(result.mostLines, d.doc.lines.lastIndex + 1);
    const std::string why = checkAfterCommand(*this, d);
    if (!why.empty()) fail(why);
    if (config.verifyEach && !checkpointing && !settingBookmark && !failed && !d.doc.readOnly) probe(d);
    return !failed;
}

void SoakRun::note(const std::string& what) { remember(*this, "   " + what); }

void SoakRun::fail(const std::string& why) {
    if (failed) return;
    failed = true;
    result.ok = false;
    result.failure = failureReport(*this, why);
}

bool SoakRun::checkpoint(SoakDoc& d) {
    if (failed) return false;
    const size_t depth = d.doc.undo.undo.size();
    checkpointing = true;
    const bool ok = undoAndRedoAll(d);
    checkpointing = false;
    if (!ok) return false;
    result.undoneSteps += static_cast<long>(depth);
    // As a save does: the present is where undo now stops.
    clearUndo(d.doc);
    clearRedo(d.doc);
    d.baseline = snapshotOf(d.doc);
    d.bookmarksMoved = false;
    ++result.checkpoints;
    return true;
}

bool SoakRun::probe(SoakDoc& d) {
    Document& doc = d.doc;
    const Pos cursor = doc.cursor, anchor = doc.selAnchor, end = doc.selEnd;
    const bool selExists = doc.selExists, undoRedo = doc.undo.lastWasUndoRedo;
    const uint16_t lastCmd = doc.lastCmd, prevCmd = doc.prevCmd;
    const int desiredCol = doc.desiredCol;
    const std::vector<EditRecord> undoStack = doc.undo.undo, redoStack = doc.undo.redo;
    // Named bookmarks follow the lines that undo and redo move.
    const std::vector<NamedBookmark> named = namedBookmarks().entries;
    checkpointing = true;
    const bool ok = undoAndRedoAll(d);
    checkpointing = false;
    doc.undo.undo = undoStack;
    doc.undo.redo = redoStack;
    doc.undo.lastWasUndoRedo = undoRedo;
    setCursor(doc, cursor);
    doc.selExists = selExists;
    doc.selAnchor = anchor;
    doc.selEnd = end;
    doc.lastCmd = lastCmd;
    doc.prevCmd = prevCmd;
    doc.desiredCol = desiredCol;
    namedBookmarks().entries = named;
    return ok;
}

bool SoakRun::undoAndRedoAll(SoakDoc& d) {
    const size_t depth = d.doc.undo.undo.size();
    const Snapshot now = snapshotOf(d.doc);
    note("checkpoint: undo and redo " + std::to_string(depth) + " records");
    for (size_t i = 0; i < depth; ++i)
        if (!exec(d, idOf(Cmd::Undo))) return false;
    std::string why = difference(d.baseline, snapshotOf(d.doc), Bookmarks::Ignore);
    if (!why.empty()) {
        fail("undoing all " + std::to_string(depth) + " records does not give the text they started from: " + why);
        return false;
    }
    for (size_t i = 0; i < depth; ++i)
        if (!exec(d, idOf(Cmd::Redo))) return false;
    why = difference(now, snapshotOf(d.doc), d.bookmarksMoved ? Bookmarks::Ignore : Bookmarks::NoneNew);
    if (!why.empty()) {
        fail("redoing all " + std::to_string(depth) + " records does not give the text back: " + why);
        return false;
    }
    why = checkLineTexts(d.doc.lines, 0, d.doc.lines.lastIndex);
    if (!why.empty()) {
        fail(why);
        return false;
    }
    return true;
}

SoakResult runSoak(const SoakConfig& config, std::FILE* trace) {
    static const bool listening = [] {
        addChangeListener(touched);
        return true;
    }();
    (void)listening;

    SoakRun run(config);
    run.trace = trace;
    running = &run;
    resetEditor(run);
    for (int i = 0; i < std::max(1, config.docs); ++i) {
        run.docs.push_back(std::make_unique<SoakDoc>(run.rng.between(5, 40)));
        SoakDoc& d = *run.docs.back();
        d.doc.view = &d.view;
        fillDocument(run, d);
        d.baseline = snapshotOf(d.doc);
    d.bookmarksMoved = false;
    }
    long nextCheckpoint = kCheckpointEvery;
    while (!run.generatorDone()) {
        runOneAction(run);
        for (auto& d : run.docs)
            if (d->doc.undo.undo.size() >= kCheckpointDepth) run.checkpoint(*d);
        if (run.generated >= nextCheckpoint) {
            for (auto& d : run.docs) run.checkpoint(*d);
            nextCheckpoint += kCheckpointEvery;
        }
    }
    for (auto& d : run.docs) run.checkpoint(*d);
    run.result.executed = run.executed;
    leaveEditor(run);
    running = nullptr;
    return run.result;
}

const char* soakLastWords() {
    static std::string words;
    if (running) words = failureReport(*running, running->failed ? "(failed before)" : "the process is dying");
    return words.c_str();
}

}  // namespace zol::soak
