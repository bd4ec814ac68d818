#include "syntax/commands.h"

#include <vector>

#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/shell.h"
#include "platform/paths.h"
#include "syntax/doc_syntax.h"
#include "syntax/include_files.h"
#include "syntax/matching.h"
#include "syntax/messages.h"

namespace zol {
namespace {

IncludeDirsSource includeSource = nullptr;

int moveTo(Document& doc, std::optional<Pos> p) {
    if (!p) return 0;
    setCursor(doc, *p);
    doc.desiredCol = -1;
    return 1;
}

int matchPairCmd(Document& doc, const CommandCall&) { return moveTo(doc, matchPair(doc, doc.cursor)); }
int matchHtmlTagCmd(Document& doc, const CommandCall&) { return moveTo(doc, matchHtmlTag(doc, doc.cursor)); }

int matchPreprocNextCmd(Document& doc, const CommandCall&) {
    const auto line = matchPreprocNext(doc, doc.cursor.line);
    return moveTo(doc, line ? std::optional<Pos>(Pos{doc.cursor.col, *line}) : std::nullopt);
}

int matchPreprocPrevCmd(Document& doc, const CommandCall&) {
    const auto line = matchPreprocPrev(doc, doc.cursor.line);
    return moveTo(doc, line ? std::optional<Pos>(Pos{doc.cursor.col, *line}) : std::nullopt);
}

std::vector<std::string> extraFolders() { return splitFolders(includeSource ? includeSource() : std::string()); }

// A quoted name is looked for beside the document first, an angled one in the include
// folders first.
std::vector<std::string> searchFolders(const Document& doc, bool documentFirst) {
    std::vector<std::string> folders = extraFolders();
    const std::string own(folderPart(doc.hasFile ? doc.fileName : std::string()));
    if (!own.empty()) folders.insert(documentFirst ? folders.begin() : folders.end(), own);
    return folders;
}

int openFileAtCursorCmd(Document& doc, const CommandCall&) {
    const std::string_view line = lineText(doc, doc.cursor.line);
    const std::string name = fileNameAt(line, locateColumn(line, doc.cursor.col).offset);
    if (name.empty()) {
        shell().message(syntaxmsg::kNoFileName);
        return 0;
    }
    IncludeDirective inc;
    const bool angled = parseInclude(line, inc) && inc.angled;
    const std::string path = findFile(name, searchFolders(doc, !angled));
    if (path.empty()) {
        shell().message(syntaxmsg::fill(syntaxmsg::kFileNotFound, name));
        return 0;
    }
    return shell().openFile(path) ? 1 : 0;
}

int openHeaderFileCmd(Document& doc, const CommandCall&) {
    const std::vector<std::string> names = partnerFileNames(doc.fileName);
    const std::vector<std::string> folders = searchFolders(doc, true);
    for (const std::string& n : names) {
        const std::string path = findFile(n, folders);
        if (!path.empty()) return shell().openFile(path) ? 1 : 0;
    }
    shell().message(syntaxmsg::fill(syntaxmsg::kFileNotFound, names.empty() ? std::string(fileNamePart(doc.fileName)) : names.front()));
    return 0;
}

int includeFilesCmd(Document& doc, const CommandCall&) {
    const std::vector<IncludeDirective> incs = includeDirectives(doc);
    if (incs.empty()) {
        shell().message(syntaxmsg::kNoIncludes);
        return 0;
    }
    Document* const origin = &doc;
    const std::vector<std::string> quoted = searchFolders(*origin, true);
    const std::vector<std::string> angled = searchFolders(*origin, false);
    std::string missing;
    int opened = 0;
    for (const IncludeDirective& inc : incs) {
        const std::string path = findFile(inc.name, inc.angled ? angled : quoted);
        if (path.empty()) {
            if (!missing.empty()) missing += ", ";
            missing += inc.name;
        } else if (shell().openFile(path)) {
            ++opened;
        }
    }
    if (!missing.empty()) shell().message(syntaxmsg::fill(syntaxmsg::kIncludesNotFound, missing));
    return opened > 0 ? 1 : 0;
}

}  // namespace

void initSyntax(IncludeDirsSource includeDirs) {
    includeSource = includeDirs;
    installCommentStateTracking();
    setCommandHandler(Cmd::MatchPair, &matchPairCmd);
    setCommandHandler(Cmd::MatchPreprocNext, &matchPreprocNextCmd);
    setCommandHandler(Cmd::MatchPreprocPrev, &matchPreprocPrevCmd);
    setCommandHandler(Cmd::MatchHtmlTag, &matchHtmlTagCmd);
    setCommandHandler(Cmd::OpenFileAtCursor, &openFileAtCursorCmd);
    setCommandHandler(Cmd::OpenHeaderFile, &openHeaderFileCmd);
    setCommandHandler(Cmd::IncludeFiles, &includeFilesCmd);
}

}  // namespace zol
