// The state of one running soak, shared by the runner and the generator's actions.
#pragma once
#include <cstdint>
#include <cstdio>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/command_table.h"
#include "engine/document.h"
#include "tests/soak/lib/soak.h"
#include "tests/soak/lib/soak_check.h"
#include "tests/soak/lib/soak_host.h"
#include "tests/soak/lib/soak_rng.h"

namespace zol::soak {

struct SoakDoc {
    explicit SoakDoc(int page) : view(page) {}
    Document doc;
    SoakView view;
    // The document when its undo stack was last empty: undoing everything must give its
    // text. Not its bookmarks: a deleted line's bookmark is gone, and undo brings back
    // the line without it.
    Snapshot baseline;
    // Sort, TransposeLine or the bookmarked-lines commands ran since the baseline: their
    // undo leaves the bookmarks on the lines where they put them, and undoing earlier
    // changes may then move such a line, so a round trip may put them elsewhere.
    bool bookmarksMoved = false;
    // Lines touched since the last full check of every line's text.
    int32_t touchedFrom = 0, touchedTo = -1;
};

// A document may grow to this many lines; past it the generator cuts it back, so that
// checking every line after a command stays cheap over a million commands.
constexpr int32_t kMaxSoakLines = 1500;
// Likewise the clipboard, which appending copies would grow without end.
constexpr size_t kMaxSoakClipboard = 64 * 1024;

struct SoakRun {
    explicit SoakRun(const SoakConfig& c) : config(c), rng(c.seed) {}

    SoakDoc& current() { return *docs[active]; }
    // Runs one command on a document through the executor, keeps it in the history
    // and checks the document. False once the run has failed.
    bool exec(SoakDoc& d, uint16_t id, uint32_t param = 0);
    bool exec(Cmd cmd, uint32_t param = 0) { return exec(current(), idOf(cmd), param); }
    // Something the generator did that is no command (a clipboard filled by another
    // program, an option changed in the settings dialog), kept in the history.
    void note(const std::string& what);
    void fail(const std::string& why);
    // Undoes every change since the baseline, compares, redoes them and compares again;
    // then the present becomes the new baseline.
    bool checkpoint(SoakDoc& d);
    // The round trip alone, leaving the stacks, the cursor and the selection as they were.
    bool probe(SoakDoc& d);
    bool undoAndRedoAll(SoakDoc& d);
    bool generatorDone() const { return failed || generated >= config.commands; }

    SoakConfig config;
    Rng rng;
    std::vector<std::unique_ptr<SoakDoc>> docs;
    size_t active = 0;
    SoakShell shell;
    SoakConverter converter;
    std::FILE* trace = nullptr;

    long generated = 0;  // commands the generator sent
    bool checkpointing = false;  // the commands now running are a checkpoint's
    bool settingBookmark = false;  // the command now running sets or clears line bookmarks
    long executed = 0;   // every command run, checkpoints included
    bool failed = false;
    SoakResult result;
    std::deque<std::string> history;
    std::string pending;  // notes waiting for the next command's history line
};

// One kind of command in the generator's table: its name, how often it comes, and
// what it does (one or more commands through SoakRun::exec).
struct ActionKind {
    const char* name;
    int weight;
    void (*act)(SoakRun& run);
};
std::span<const ActionKind> actionKinds();
// Picks an action by weight and runs it; a document grown past kMaxSoakLines is cut
// back first.
void runOneAction(SoakRun& run);
// Fills a new document with a few dozen random lines.
void fillDocument(SoakRun& run, SoakDoc& d);

}  // namespace zol::soak
