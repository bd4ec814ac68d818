#include "tools/message_step.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "config/settings.h"
#include "engine/command_table.h"
#include "engine/doc_access.h"
#include "engine/document.h"
#include "engine/document_list.h"
#include "engine/line_capacity.h"
#include "engine/shell.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "syntax/include_files.h"
#include "tools/messages.h"
#include "tools/output_document.h"

namespace zol {
namespace {

bool parseLine(const Document& doc, int32_t line, MessageLocation& where) {
    return parseMessageLine(lineText(doc, line), where);
}

// The message line becomes the cursor's line; the target's window shows its line.
bool arrive(Document& doc, int32_t line, const MessageLocation& where) {
    setMessageIndex(doc, line);
    placeCursor(&doc, 1, line + 1, false, false);
    if (doc.view) doc.view->refreshStatus();
    return openMessageTarget(doc, where, lineText(doc, line));
}

void bringIntoView(Document& doc) {
    if (!doc.view) return;
    EditorView& v = *doc.view;
    const int32_t first = v.firstVisibleLine();
    const int page = std::max(1, v.pageLines());
    if (doc.cursor.line < first || doc.cursor.line >= first + page)
        v.setFirstVisibleLine(std::max<int32_t>(0, doc.cursor.line - page / 3));
    v.redraw();
    v.refreshStatus();
}

Document* outputFor(Document& doc) { return doc.outputWindow ? &doc : latestOutputDocument(); }

int nextCommand(Document& doc, const CommandCall&) {
    Document* out = outputFor(doc);
    return out && nextMessage(*out) ? 1 : 0;
}

int prevCommand(Document& doc, const CommandCall&) {
    Document* out = outputFor(doc);
    return out && prevMessage(*out) ? 1 : 0;
}

}  // namespace

bool nextMessage(Document& doc) {
    if (!doc.outputWindow) return false;
    int32_t index = messageIndex(doc);
    MessageLocation where;
    for (;;) {
        if (++index < 0) index = 0;
        if (index > lastLine(doc)) {
            // One past the last line: the next step back looks at the last line first.
            setMessageIndex(doc, lastLine(doc) + 1);
            return false;
        }
        if (parseLine(doc, index, where)) break;
    }
    arrive(doc, index, where);
    return true;
}

bool prevMessage(Document& doc) {
    if (!doc.outputWindow) return false;
    int32_t index = messageIndex(doc);
    MessageLocation where;
    for (;;) {
        if (index < 1) {
            setMessageIndex(doc, index);
            return false;
        }
        --index;
        if (index > lastLine(doc)) continue;
        if (parseLine(doc, index, where)) break;
    }
    arrive(doc, index, where);
    return true;
}

bool messageAt(Document& doc, int32_t line) {
    MessageLocation where;
    if (!doc.outputWindow || line < 0 || line > lastLine(doc) || !parseLine(doc, line, where)) return false;
    arrive(doc, line, where);
    return true;
}

std::string findMessageFile(const Document& output, std::string_view name) {
    std::vector<std::string> folders;
    if (const OutputOrigin* o = outputOrigin(output)) {
        for (const std::string& f : {o->workDir, o->docDir})
            if (!f.empty()) folders.push_back(f);
    } else {
        folders.push_back(currentDir());
    }
    for (std::string& f : splitFolders(settings().includeDirs)) folders.push_back(std::move(f));
    std::string found = findFile(name, folders);
    return found.empty() ? found : fullPath(found);
}

bool openMessageTarget(const Document& output, const MessageLocation& where, std::string_view message) {
    const std::string path = findMessageFile(output, where.name);
    if (path.empty() || isDirectory(path)) {
        shell().statusMessage(toolmsg::fill(toolmsg::kMessageFileMissing, where.name));
        return false;
    }
    if (!shell().openFile(path)) return false;
    DocumentList* list = documentList();
    Document* target = list ? list->active() : nullptr;
    if (!target || !target->hasFile || target->fileName != path) return true;
    const int col = static_cast<int>(std::clamp<uint32_t>(where.column, 1, kMaxColumns + 1));
    const auto line = static_cast<int32_t>(std::min<uint32_t>(where.line, INT32_MAX));
    placeCursor(target, col, line, false, false);
    bringIntoView(*target);
    shell().statusMessage(message);
    return true;
}

void installMessageCommands() {
    setCommandHandler(Cmd::NextCompilerError, nextCommand);
    setCommandHandler(Cmd::PrevCompilerError, prevCommand);
}

}  // namespace zol
