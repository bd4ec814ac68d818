#include "tools/run_tool.h"

#include <iterator>
#include <memory>
#include <optional>
#include <vector>

#include "config/profile_owners.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/document_list.h"
#include "engine/shell.h"
#include "files/save.h"
#include "platform/file_io.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "platform/tempfile.h"
#include "tools/arguments.h"
#include "tools/capture_job.h"
#include "tools/message_step.h"
#include "tools/messages.h"

namespace zol {
namespace {

using namespace toolmsg;

constexpr char kCaptureProgram[] = "zolcap";

// The commands in the order of the "UserTools" list.
constexpr Cmd kToolCommands[] = {Cmd::UserTool1,  Cmd::UserTool2,  Cmd::UserTool3,  Cmd::UserTool4,
                                 Cmd::UserTool5,  Cmd::UserTool6,  Cmd::UserTool7,  Cmd::UserTool8,
                                 Cmd::UserTool9,  Cmd::UserTool10, Cmd::UserTool11, Cmd::UserTool12,
                                 Cmd::UserTool13, Cmd::UserTool14, Cmd::UserTool15, Cmd::UserTool16};
static_assert(std::size(kToolCommands) == kMaxTools);

Document* activeDocument() { return documentList() ? documentList()->active() : nullptr; }

// The documents "SaveFile" names that have unsaved changes and a file to go to.
std::vector<Document*> documentsToSave(int saveFile) {
    std::vector<Document*> docs;
    auto wanted = [](const Document* d) { return d && d->modified && d->hasFile && !d->outputWindow; };
    if (saveFile == kSaveNothing || !documentList()) return docs;
    if (saveFile == kSaveActive) {
        if (wanted(activeDocument())) docs.push_back(activeDocument());
        return docs;
    }
    for (size_t i = 0; i < documentList()->count(); ++i)
        if (Document* d = documentList()->at(i); wanted(d)) docs.push_back(d);
    return docs;
}

// False when the run stops: the user cancelled, or a save failed (the user was told).
bool saveFirst(const ToolRequest& r) {
    const std::vector<Document*> docs = documentsToSave(r.saveFile);
    if (docs.empty()) return true;
    if (r.promptBeforeSave) {
        const Answer a = shell().ask(kSaveBeforeRun, true);
        if (a == Answer::Cancel) return false;
        if (a == Answer::No) return true;
    }
    for (Document* d : docs) {
        if (!saveDocument(*d)) return false;
        if (d->view) d->view->refreshCaption();
    }
    return true;
}

// The working folder, "" for the editor's own; nullopt when the run stops.
std::optional<std::string> workingFolder(const ToolRequest& r, const ArgumentFacts& facts) {
    if (r.initialDir.empty()) return std::string();
    const std::optional<std::string> dir = expandArguments(r.initialDir, facts, kQuoteNever);
    if (!dir) {
        shell().message(fill(kArgumentsTooLong, r.title));
        return std::nullopt;
    }
    if (dir->empty()) return std::string();
    const std::string full = fullPath(*dir);
    if (canEnterFolder(full)) return full;
    if (shell().ask(fill(kCannotChangeDir, *dir), false) != Answer::Yes) return std::nullopt;
    return std::string();
}

std::optional<std::string> arguments(const ToolRequest& r, const ArgumentFacts& facts) {
    std::optional<std::string> args = expandArguments(r.arguments, facts, r.quoteMode);
    if (!args) {
        shell().message(fill(kArgumentsTooLong, r.title));
        return std::nullopt;
    }
    if (r.askArguments && !shell().toolArguments(*args, r.title)) return std::nullopt;
    return args;
}

bool reportStart(StartResult s, const std::string& program) {
    if (s == StartResult::Started) return true;
    shell().message(fill(s == StartResult::NoResources ? kNoResources : kInvalidPath, program));
    return false;
}

bool startCaptured(const ToolRequest& r, std::vector<std::string> argv, const std::string& dir,
                   const std::string& commandLine, bool wait) {
    const std::string capture = helperProgram(kCaptureProgram);
    if (capture.empty()) {
        shell().message(fill(kNoCaptureProgram, kCaptureProgram));
        return false;
    }
    const std::string temp = createTempFile("", "zol");
    if (temp.empty()) {
        shell().message(fill(kNoTempFile, r.title));
        return false;
    }
    argv.insert(argv.begin(), {capture, temp});
    ChildProcess child;
    const StartResult started = spawnChild(argv, SpawnOptions{dir, {}, true}, child);
    if (started != StartResult::Started) {
        removeFile(temp);
        return reportStart(started, r.program);
    }
    const Document* from = activeDocument();
    const std::string docDir = from && from->hasFile ? std::string(folderPart(from->fileName)) : std::string();
    Document* out = openOutputDocument(fill(kOutputName, r.title), {dir.empty() ? currentDir() : dir, docDir});
    shell().statusMessage(fill(kRunning, r.title));
    shell().runJob(std::make_shared<CaptureJob>(child, temp, out, r.title, commandLine), wait);
    return true;
}

// "&Make" names the output document "Output - Make"; "&&" stands for "&".
std::string withoutMnemonics(std::string_view text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;
        out += text[i];
    }
    return out;
}

int runToolCommand(Document&, const CommandCall& call) {
    const int index = userToolIndex(call.id);
    return index >= 0 && runUserTool(static_cast<size_t>(index)) ? 1 : 0;
}

}  // namespace

ToolRequest requestOf(const UserTool& t) {
    return ToolRequest{withoutMnemonics(t.menuText), t.pathName, t.arguments,        t.initialDir, t.askArguments,
                       t.captureOutput,              t.saveFile, t.promptBeforeSave, t.quoteMode};
}

bool runTool(const ToolRequest& r, bool wait) {
    if (!saveFirst(r)) return false;
    const ArgumentFacts facts = argumentFacts(activeDocument());
    const std::optional<std::string> dir = workingFolder(r, facts);
    if (!dir) return false;
    const std::optional<std::string> args = arguments(r, facts);
    if (!args) return false;
    const std::string program = expandProgDir(r.program, facts);
    const std::string found = findProgram(program, *dir);
    if (found.empty()) {
        shell().message(fill(kInvalidPath, program));
        return false;
    }
    std::vector<std::string> argv = splitCommandLine(*args);
    argv.insert(argv.begin(), found);
    const std::string commandLine = args->empty() ? program : program + " " + *args;
    if (r.captureOutput) return startCaptured(r, std::move(argv), *dir, commandLine, wait);
    return reportStart(startDetached(argv, *dir), program);
}

int userToolIndex(uint16_t command) {
    for (size_t i = 0; i < std::size(kToolCommands); ++i)
        if (idOf(kToolCommands[i]) == command) return static_cast<int>(i);
    return -1;
}

bool runUserTool(size_t index) {
    const UserTools& list = userTools();
    if (index >= list.tools.size()) {
        shell().statusMessage(fill(kNoSuchTool, std::to_string(index + 1)));
        return false;
    }
    return runTool(requestOf(list.tools[index]), false);
}

void installTools() {
    for (Cmd c : kToolCommands) setCommandHandler(c, runToolCommand);
    installMessageCommands();
    registerProfileOwner("UserTools", loadUserTools, saveUserTools);
    registerProfileOwner("UserHelp", loadUserHelp, saveUserHelp);
}

}  // namespace zol
