#include "search/commands.h"

#include <string_view>

#include "engine/columns.h"
#include "engine/command_params.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "engine/selection.h"
#include "engine/words.h"
#include "search/find.h"
#include "search/history.h"
#include "search/messages.h"
#include "search/replace.h"

namespace zol {
namespace {

LastSearch last;

// The find and replace commands driven by the parameter commands.
struct ParamCommand {
    Cmd cmd;
    bool replace;
    bool inLine;
    bool matchCase, regex, wholeWord;
};
constexpr ParamCommand kParamCommands[] = {
    {Cmd::FindParam, false, false, false, false, false},
    {Cmd::FindParamC, false, false, true, false, false},
    {Cmd::FindParamR, false, false, false, true, false},
    {Cmd::FindParamCW, false, false, true, false, true},
    {Cmd::FindParamRCW, false, false, true, true, true},
    {Cmd::FindInLineParam, false, true, false, false, false},
    {Cmd::FindInLineParamC, false, true, true, false, false},
    {Cmd::FindInLineParamR, false, true, false, true, false},
    {Cmd::FindInLineParamCW, false, true, true, false, true},
    {Cmd::FindInLineParamRCW, false, true, true, true, true},
    {Cmd::ReplaceParam, true, false, false, false, false},
    {Cmd::ReplaceParamC, true, false, true, false, false},
    {Cmd::ReplaceParamR, true, false, false, true, false},
    {Cmd::ReplaceParamCW, true, false, true, false, true},
    {Cmd::ReplaceParamRCW, true, false, true, true, true},
    {Cmd::ReplaceInLineParam, true, true, false, false, false},
    {Cmd::ReplaceInLineParamC, true, true, true, false, false},
    {Cmd::ReplaceInLineParamCW, true, true, true, false, true},
    {Cmd::ReplaceInLineParamRCW, true, true, true, true, true},
};

std::string fill(std::string_view fmt, std::string_view value) {
    std::string s(fmt);
    const size_t at = s.find_first_of('%');
    if (at != std::string::npos && at + 1 < s.size()) s.replace(at, 2, value);
    return s;
}

void reportFailure(const Searcher& s, int32_t line, std::string_view text, bool notFoundToo) {
    if (s.regexError) shell().message(std::string(kRegexErrorPrefix) + regexErrorMessage(s.regexError));
    else if (s.gaveUp) shell().message(fill(searchmsg::kGaveUp, std::to_string(line + 1)));
    else if (notFoundToo) shell().statusMessage(fill(searchmsg::kNotFound, text));
}

SearchOptions optionsOf(const FindDialogData& d) { return {d.wholeWord, d.matchCase, d.regex, d.forward}; }

// Forwards a search goes on from the selection's end, backwards from its start, so
// that repeating it never finds the same hit again; a cursor moved away from the
// selection starts from itself.
Pos searchStart(const Document& doc, bool forward) {
    Pos b, e;
    if (selectionRange(doc, b, e) && (doc.cursor == b || doc.cursor == e)) return forward ? e : b;
    return doc.cursor;
}

// As searchDocument, but an empty match where the search starts does not count:
// otherwise repeating a search for "x*" would stand still.
int findFrom(const Document& doc, Searcher& s, Pos from, bool oneLine, DocumentHit& hit) {
    int res = searchDocument(doc, s, from, oneLine, hit);
    if (res != kSearchFound || hit.length != 0 || hit.start != from || !s.options.forward) return res;
    const std::string_view text = lineText(doc, hit.line);
    if (hit.offset < text.size()) {
        from = makePos(columnOfOffset(text, hit.offset + 1), hit.line);
    } else {
        if (oneLine || hit.line >= lastLine(doc)) return kSearchNotFound;
        from = makePos(0, hit.line + 1);
    }
    return searchDocument(doc, s, from, oneLine, hit);
}

int runSearch(Document& doc, const FindDialogData& d, bool replace, bool oneLine, bool reportNotFound) {
    Searcher s;
    if (prepareSearch(s, d.findText.c_str(), optionsOf(d)) != kSearchFound) {
        reportFailure(s, doc.cursor.line, d.findText, false);
        return 0;
    }
    DocumentHit hit;
    const int res = findFrom(doc, s, searchStart(doc, d.forward), oneLine, hit);
    if (res != kSearchFound) {
        reportFailure(s, hit.line, d.findText, reportNotFound);
        return 0;
    }
    if (!replace) {
        selectHit(doc, hit);
        return 1;
    }
    if (doc.readOnly) return 0;
    if (replaceHit(doc, s, hit, d.replaceText.c_str()) != kSearchFound) {
        shell().message(searchmsg::kReplaceTooLong);
        return 0;
    }
    return 1;
}

void remember(const FindDialogData& d, bool replace) {
    last.valid = true;
    last.replace = replace;
    last.data = d;
}

// The dialogs start from the last search, with the selection or the word at the
// cursor as the text to find.
FindDialogData dialogStart(const Document& doc) {
    FindDialogData d = last.data;
    Pos b, e;
    d.inSelection = false;
    if (selectionRange(doc, b, e)) {
        // A selection of one line is what to find; a bigger one is where to replace.
        if (b.line == e.line && !isColumnSelection(doc)) d.findText = rangeText(doc, b, e);
        else d.inSelection = true;
        return d;
    }
    const std::string_view text = lineText(doc, doc.cursor.line);
    size_t wb, we;
    if (wordAt(text, locateColumn(text, doc.cursor.col).offset, wb, we)) d.findText = text.substr(wb, we - wb);
    return d;
}

// Replace All of the Replace dialog: over the selection when asked and there is one,
// else the whole document; with the prompt, hit by hit.
int replaceEvery(Document& doc, const FindDialogData& d) {
    Searcher s;
    if (prepareSearch(s, d.findText.c_str(), optionsOf(d)) != kSearchFound) {
        reportFailure(s, 0, d.findText, false);
        return 0;
    }
    ReplaceScope scope = wholeDocumentScope(doc);
    const bool inSelection = d.inSelection && selectionScope(doc, scope);
    ReplaceAllResult result;
    int res;
    if (d.prompt) {
        res = replacePrompted(doc, s, d.replaceText.c_str(), scope,
                              [](Document& target) { return shell().replacePrompt(target); }, result);
    } else {
        res = replaceAll(doc, s, d.replaceText.c_str(), result, inSelection ? &scope : nullptr);
    }
    if (res == kSearchError) {
        reportFailure(s, result.stoppedAt, d.findText, false);
        return 0;
    }
    shell().message(fill(searchmsg::kReplacedCount, std::to_string(result.replaced)));
    if (result.skippedLines) shell().message(fill(searchmsg::kLinesSkipped, std::to_string(result.skippedLines)));
    return result.replaced > 0 ? 1 : 0;
}

int cmdFind(Document& doc, const CommandCall&) {
    FindDialogData d = dialogStart(doc);
    if (shell().findDialog(d, false) == FindDialogResult::Cancel || d.findText.empty()) return 0;
    rememberFind(d.findText);
    remember(d, false);
    return runSearch(doc, d, false, false, true);
}

int cmdReplace(Document& doc, const CommandCall&) {
    FindDialogData d = dialogStart(doc);
    const FindDialogResult answer = shell().findDialog(d, true);
    if (answer == FindDialogResult::Cancel || d.findText.empty()) return 0;
    rememberFind(d.findText);
    rememberReplace(d.replaceText);
    if (answer == FindDialogResult::Find) {
        remember(d, false);
        return runSearch(doc, d, false, false, true);
    }
    remember(d, true);
    if (answer == FindDialogResult::ReplaceOne) return runSearch(doc, d, true, false, true);
    return replaceEvery(doc, d);
}

int cmdFindNext(Document& doc, const CommandCall& call) {
    if (!last.valid) return cmdFind(doc, call);
    return runSearch(doc, last.data, last.replace, false, true);
}

int findWord(Document& doc, bool forward) {
    FindDialogData d;
    d.matchCase = true;
    d.forward = forward;
    Pos b, e;
    Pos from;
    if (selectionRange(doc, b, e)) {
        if (b.line != e.line) return 0;
        d.findText = rangeText(doc, b, e);
        from = forward ? e : b;
    } else {
        const std::string_view text = lineText(doc, doc.cursor.line);
        size_t wb, we;
        if (!wordAt(text, locateColumn(text, doc.cursor.col).offset, wb, we)) return 0;
        d.findText = text.substr(wb, we - wb);
        d.wholeWord = true;
        from = makePos(columnOfOffset(text, forward ? we : wb), doc.cursor.line);
    }
    remember(d, false);
    Searcher s;
    if (prepareSearch(s, d.findText.c_str(), optionsOf(d)) != kSearchFound) return 0;
    DocumentHit hit;
    if (searchDocument(doc, s, from, false, hit) != kSearchFound) {
        reportFailure(s, hit.line, d.findText, true);
        return 0;
    }
    selectHit(doc, hit);
    return 1;
}

int cmdFindNextWord(Document& doc, const CommandCall&) { return findWord(doc, true); }
int cmdFindPrevWord(Document& doc, const CommandCall&) { return findWord(doc, false); }

int cmdParamSearch(Document& doc, const CommandCall& call) {
    for (const ParamCommand& c : kParamCommands) {
        if (idOf(c.cmd) != call.id) continue;
        FindDialogData d;
        d.findText = commandParam(1);
        d.replaceText = commandParam(2);
        d.matchCase = c.matchCase;
        d.regex = c.regex;
        d.wholeWord = c.wholeWord;
        if (d.findText.empty()) return 0;
        remember(d, c.replace);
        return runSearch(doc, d, c.replace, c.inLine, false);
    }
    return 0;
}

int goTo(Document& doc, Cmd target, const char* prompt, int current) {
    int value = current;
    if (!shell().askNumber(prompt, value) || value < 1) return 0;
    const CommandHandler h = commandHandler(target);
    return h ? h(doc, CommandCall{idOf(target), static_cast<uint32_t>(value), 0}) : 0;
}

int cmdGoToLine(Document& doc, const CommandCall&) {
    return goTo(doc, Cmd::GoToLineNum, searchmsg::kGoToLinePrompt, doc.cursor.line + 1);
}
int cmdGoToColumn(Document& doc, const CommandCall&) {
    return goTo(doc, Cmd::GoToColumnNum, searchmsg::kGoToColumnPrompt, doc.cursor.col + 1);
}

}  // namespace

const LastSearch& lastSearch() { return last; }
void forgetLastSearch() { last = LastSearch{}; }

void initSearch(std::vector<std::string>* findHistoryList, std::vector<std::string>* replaceHistoryList) {
    setSearchHistoryLists(findHistoryList, replaceHistoryList);
    setCommandHandler(Cmd::Find, cmdFind);
    setCommandHandler(Cmd::Replace, cmdReplace);
    setCommandHandler(Cmd::FindNext, cmdFindNext);
    setCommandHandler(Cmd::FindNextWord, cmdFindNextWord);
    setCommandHandler(Cmd::FindPrevWord, cmdFindPrevWord);
    if (!commandHandler(Cmd::GoToLine)) setCommandHandler(Cmd::GoToLine, cmdGoToLine);
    if (!commandHandler(Cmd::GoToColumn)) setCommandHandler(Cmd::GoToColumn, cmdGoToColumn);
    for (const ParamCommand& c : kParamCommands) setCommandHandler(c.cmd, cmdParamSearch);
}

}  // namespace zol
