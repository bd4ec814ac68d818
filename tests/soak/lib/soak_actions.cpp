// The generator: one table of the kinds of command a soak sends, with their weights.
// Each kind sends one or a few commands the way a user would: typing, moving,
// selecting in both modes, block and clipboard work, undo and redo runs, replacing,
// sorting, converting, bookmarks and switching between documents.
#include <string>

#include "engine/bookmarks.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "tests/soak/lib/soak_run.h"

namespace zol::soak {
namespace {

using Cmds = std::initializer_list<Cmd>;

uint32_t byte(char c) { return static_cast<unsigned char>(c); }

void one(SoakRun& r, Cmds cmds) { r.exec(r.rng.pick(cmds)); }

char from(Rng& rng, std::string_view set) { return set[rng.below(static_cast<uint32_t>(set.size()))]; }

// What a programmer types: mostly letters, then blanks, digits, punctuation, a tab
// now and then, a few bytes above 127 for the code pages, and Enter.
char typedChar(Rng& rng) {
    const uint32_t k = rng.below(100);
    if (k < 50) return from(rng, "abcdefghijklmnopqrstuvwxyz");
    if (k < 58) return from(rng, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    if (k < 63) return from(rng, "0123456789");
    if (k < 76) return ' ';
    if (k < 80) return '\t';
    if (k < 90) return from(rng, "/*;%{}()[]<>.,:_-+=#\"'&|!?\\");
    if (k < 96) return static_cast<char>(rng.between(128, 255));
    return '\r';
}

std::string randomLine(Rng& rng, int maxLength) {
    std::string s;
    const int n = rng.between(0, maxLength);
    for (int i = 0; i < n; ++i) {
        const char c = typedChar(rng);
        s += c == '\r' ? ' ' : c;
    }
    return s;
}

// Lines joined with CR LF, as the clipboard holds them; sometimes ending in one.
std::string randomText(Rng& rng, int lines, int maxLength) {
    std::string s;
    for (int i = 0; i < lines; ++i) s += (i ? "\r\n" : "") + randomLine(rng, maxLength);
    if (rng.percent(20)) s += "\r\n";
    return s;
}

int32_t lineCount(SoakRun& r) { return r.current().doc.lines.lastIndex + 1; }

void typeChar(SoakRun& r) { r.exec(Cmd::InsertChar, byte(typedChar(r.rng))); }

// A burst of typing: the characters merge into one undo record.
void typeWord(SoakRun& r) {
    for (int n = r.rng.between(2, 10); n > 0 && r.exec(Cmd::InsertChar, byte(typedChar(r.rng))); --n) {
    }
}

void lineEnds(SoakRun& r) { one(r, {Cmd::NewLine, Cmd::NewLine, Cmd::InsertLine, Cmd::Tab}); }

void deleting(SoakRun& r) {
    one(r, {Cmd::Backspace, Cmd::Delete, Cmd::DeleteChar, Cmd::DeleteWord, Cmd::DeleteWordBack, Cmd::DeleteToEOL,
            Cmd::DeleteToBOL, Cmd::DeleteLine});
}

// Repeated deleting merges too, Backspace putting its text in front.
void deleteRun(SoakRun& r) {
    const Cmd c = r.rng.pick({Cmd::Backspace, Cmd::DeleteChar});
    for (int n = r.rng.between(2, 8); n > 0 && r.exec(c); --n) {
    }
}

// The time and date commands are left out: their text depends on the clock, and a
// replay must send the same bytes.
void lineCommands(SoakRun& r) {
    one(r, {Cmd::DupLine, Cmd::JoinLine, Cmd::CenterLine, Cmd::InsertComment, Cmd::InsertCommentLight});
}

void move(SoakRun& r) {
    one(r, {Cmd::CursorLeft, Cmd::CursorRight, Cmd::CursorUp, Cmd::CursorDown, Cmd::PageUp, Cmd::PageDown,
            Cmd::LineStart, Cmd::LineEnd, Cmd::WordLeft, Cmd::WordRight, Cmd::TextStart, Cmd::TextEnd,
            Cmd::TopOfWindow, Cmd::BottomOfWindow, Cmd::ScrollUp, Cmd::ScrollDown, Cmd::FirstNonBlank, Cmd::ParaUp,
            Cmd::ParaDown, Cmd::NextTabPos, Cmd::PrevTabPos, Cmd::WordLeftMS, Cmd::WordRightMS, Cmd::WordLeftSmart,
            Cmd::WordRightSmart});
}

// Columns near the capacity are worth a visit: typing there must be refused whole.
int randomColumn(Rng& rng) {
    return rng.percent(10) ? rng.between(kMaxColumns - 20, kMaxColumns + 100) : rng.between(1, 90);
}

void jump(SoakRun& r) {
    const uint32_t k = r.rng.below(3);
    if (k == 0) {
        r.exec(Cmd::GoToLineNum, static_cast<uint32_t>(r.rng.between(1, lineCount(r) + 3)));
    } else if (k == 1) {
        r.exec(Cmd::GoToColumnNum, static_cast<uint32_t>(randomColumn(r.rng)));
    } else {
        r.shell.number = r.rng.between(1, lineCount(r) + 3);
        r.note("go-to dialog answers " + std::to_string(r.shell.number));
        r.exec(Cmd::GoToLine);
    }
}

const Cmds kSelectingMoves = {
    Cmd::LeftSelect, Cmd::RightSelect, Cmd::UpSelect, Cmd::DownSelect, Cmd::PageUpSelect, Cmd::PageDownSelect,
    Cmd::LineStartSelect, Cmd::LineEndSelect, Cmd::WordLeftSelect, Cmd::WordRightSelect, Cmd::TextStartSelect,
    Cmd::TextEndSelect, Cmd::TopOfWindowSelect, Cmd::BottomOfWindowSelect, Cmd::ParaUpSelect, Cmd::ParaDownSelect,
    Cmd::PrevTabPosSelect, Cmd::NextTabPosSelect, Cmd::WordLeftMSSelect, Cmd::WordRightMSSelect,
    Cmd::WordLeftSmartSelect, Cmd::WordRightSmartSelect};

void selectMove(SoakRun& r) { one(r, kSelectingMoves); }

void selectUnit(SoakRun& r) {
    one(r, {Cmd::SelectWord, Cmd::SelectLine, Cmd::SelectAll, Cmd::SelectPara, Cmd::StartSelect, Cmd::EndSelect,
            Cmd::HideSelect});
}

void selectionMode(SoakRun& r) { one(r, {Cmd::ToggleSelMode, Cmd::SetCharSelMode, Cmd::SetColumnSelMode}); }

const Cmds kBlockCommands = {Cmd::Cut,      Cmd::Copy,          Cmd::Paste,         Cmd::CutAndAppend,
                             Cmd::CopyAndAppend, Cmd::Delete,   Cmd::DeleteBlock,   Cmd::IndentBlock,
                             Cmd::UnindentBlock, Cmd::Paste,    Cmd::Backspace,     Cmd::InsertChar};

// A block operation on a fresh selection in either mode, the way a user makes one:
// pick the mode, move a little with selecting moves, then act.
void block(SoakRun& r) {
    if (!r.exec(r.rng.percent(50) ? Cmd::SetColumnSelMode : Cmd::SetCharSelMode)) return;
    for (int n = r.rng.between(1, 6); n > 0; --n)
        if (!r.exec(r.rng.pick({Cmd::RightSelect, Cmd::DownSelect, Cmd::LeftSelect, Cmd::UpSelect,
                                Cmd::WordRightSelect, Cmd::LineEndSelect})))
            return;
    const Cmd c = r.rng.pick(kBlockCommands);
    r.exec(c, c == Cmd::InsertChar ? byte(typedChar(r.rng)) : 0);
}

void clipboard(SoakRun& r) {
    one(r, {Cmd::Cut, Cmd::Copy, Cmd::Paste, Cmd::Paste, Cmd::CutAndAppend, Cmd::CopyAndAppend, Cmd::CutLine,
            Cmd::CopyLine, Cmd::Delete, Cmd::DeleteBlock, Cmd::IndentBlock, Cmd::UnindentBlock});
}

// Another program filled the clipboard: plain text, or a column block whose rows may
// be shorter than its stated width.
void foreignPaste(SoakRun& r) {
    ClipboardData clip;
    const int rows = r.rng.between(1, 6);
    clip.text = randomText(r.rng, rows, 12);
    if (r.rng.percent(50)) {
        clip.hasColumnBlock = true;
        clip.blockWidth = static_cast<uint32_t>(r.rng.between(0, 12));
        clip.blockHeight = static_cast<uint32_t>(rows);
    }
    r.shell.clip = clip;
    r.note(std::string(clip.hasColumnBlock ? "column block" : "text") + " on the clipboard: " +
           printable(clip.text));
    r.exec(Cmd::Paste);
}

// A long line, to meet the column capacity.
void longText(SoakRun& r) {
    std::string s;
    const int n = r.rng.between(kMaxColumns / 3, kMaxColumns + 10);
    while (static_cast<int>(s.size()) < n) s += r.rng.percent(3) ? '\t' : from(r.rng, "abcdefgh ");
    r.shell.clip = ClipboardData{s};
    r.note("a line of " + std::to_string(s.size()) + " bytes on the clipboard");
    r.exec(Cmd::Paste);
}

void fillBlock(SoakRun& r) {
    r.shell.character = r.rng.percent(10) ? -1 : byte(from(r.rng, "x-#*=\t "));
    r.note("fill character " + std::to_string(r.shell.character));
    r.exec(Cmd::FillBlock);
}

// The symbol table offers every byte.
void insertSymbol(SoakRun& r) {
    r.shell.character = r.rng.between(1, 255);
    r.note("symbol table answers " + std::to_string(r.shell.character));
    r.exec(Cmd::InsertSymbol);
}

void letterCase(SoakRun& r) {
    const Cmd c = r.rng.pick({Cmd::UpperCase, Cmd::LowerCase, Cmd::FlipCase, Cmd::UpperCaseWord, Cmd::LowerCaseWord,
                              Cmd::FlipCaseWord, Cmd::CapitalizeWord, Cmd::TitleCase, Cmd::SentenceCase,
                              Cmd::TransposeChar, Cmd::TransposeWord, Cmd::TransposeLine});
    if (c == Cmd::TransposeLine) r.current().bookmarksMoved = true;
    r.exec(c);
}

void comments(SoakRun& r) {
    if (r.rng.percent(30)) {
        // Two draws in one argument list would come in the compiler's order of the day.
        const Cmd c = r.rng.pick({Cmd::CommentBlock, Cmd::UncommentBlock});
        r.exec(c, byte(from(r.rng, "#!'>-")));
        return;
    }
    one(r, {Cmd::CommentBlockCpp, Cmd::UncommentBlockCpp, Cmd::CommentBlockAsm, Cmd::UncommentBlockAsm,
            Cmd::CommentBlockRem, Cmd::UncommentBlockRem, Cmd::CommentBlockTeX, Cmd::UncommentBlockTeX});
}

void paragraphs(SoakRun& r) {
    one(r, {Cmd::LeftBlockPara, Cmd::CenterBlockPara, Cmd::RightBlockPara, Cmd::JustifyBlockPara});
}

void tabTools(SoakRun& r) {
    one(r, {Cmd::ExpandTabsToSpaces, Cmd::CompressSpacesToTabs, Cmd::Tab8TextToTab3Text, Cmd::Tab3TextToTab8Text,
            Cmd::Tab8TextToCurTabText, Cmd::CurTabTextToTab8Text});
}

void undoRun(SoakRun& r) {
    for (int n = r.rng.between(1, 8); n > 0 && r.exec(Cmd::Undo); --n) {
    }
}

void redoRun(SoakRun& r) {
    for (int n = r.rng.between(1, 8); n > 0 && r.exec(Cmd::Redo); --n) {
    }
}

// Something the document holds, so that a search finds it now and then.
std::string wordOfDocument(SoakRun& r) {
    const Document& doc = r.current().doc;
    const std::string_view line = lineText(doc, r.rng.between(0, doc.lines.lastIndex));
    if (line.empty()) return "e";
    const size_t at = r.rng.below(static_cast<uint32_t>(line.size()));
    return std::string(line.substr(at, static_cast<size_t>(r.rng.between(1, 4))));
}

FindDialogData randomSearch(SoakRun& r) {
    FindDialogData d;
    d.regex = r.rng.percent(35);
    d.findText = d.regex ? r.rng.pick<std::string>({"[a-z]+", "{[a-z]}{[0-9]}", "^ +", " +$", "a*", ".", "x|y",
                                                    "{[^ ]+} {[^ ]+}", "\t", "^", "$", "[A-Z][a-z]*"})
                         : wordOfDocument(r);
    d.replaceText = r.rng.percent(20) ? std::string()
                    : d.regex ? r.rng.pick<std::string>({"\\2 \\1", "&&", "\\u&", "\\U\\1", "<&>", "-"})
                              : r.rng.pick<std::string>({"X", "yy", "\t", "  ", "longer replacement", "\r\n"});
    d.matchCase = r.rng.percent(50);
    d.wholeWord = r.rng.percent(25);
    d.forward = r.rng.percent(80);
    return d;
}

// Replace through its dialog, mostly replacing every hit.
void replace(SoakRun& r) {
    r.shell.findChoice = randomSearch(r);
    r.shell.findResult = r.rng.percent(75)   ? FindDialogResult::ReplaceAll
                         : r.rng.percent(50) ? FindDialogResult::ReplaceOne
                                             : FindDialogResult::Find;
    const FindDialogData& d = r.shell.findChoice;
    r.note("replace dialog: " + printable(d.findText) + " by " + printable(d.replaceText) +
           (d.regex ? " regex" : "") + (d.matchCase ? " case" : "") + (d.wholeWord ? " word" : "") +
           (d.forward ? "" : " backward") + " answer " + std::to_string(static_cast<int>(r.shell.findResult)));
    r.exec(Cmd::Replace);
}

// The parameter commands spell out their texts one character at a time first.
void paramSearch(SoakRun& r) {
    const FindDialogData d = randomSearch(r);
    for (char c : d.findText)
        if (!r.exec(Cmd::Param1, byte(c))) return;
    for (char c : d.replaceText)
        if (!r.exec(Cmd::Param2, byte(c))) return;
    one(r, {Cmd::FindParam, Cmd::FindParamC, Cmd::FindParamR, Cmd::FindInLineParam, Cmd::ReplaceParam,
            Cmd::ReplaceParamC, Cmd::ReplaceParamR, Cmd::ReplaceInLineParam, Cmd::ReplaceParamCW,
            Cmd::ReplaceParamRCW, Cmd::ReplaceInLineParamRCW});
}

void findNext(SoakRun& r) { one(r, {Cmd::FindNext, Cmd::FindNextWord, Cmd::FindPrevWord}); }

void sortLines(SoakRun& r) {
    r.current().bookmarksMoved = true;
    r.exec(Cmd::Sort);
}

void wordCount(SoakRun& r) { r.exec(Cmd::WordCount); }

void convert(SoakRun& r) {
    r.converter.kind = r.rng.percent(50) ? ConvertKind::OemToAnsi : ConvertKind::AnsiToOem;
    r.converter.selectedOnly = r.rng.percent(40);
    r.note(std::string("convert dialog: ") + (r.converter.kind == ConvertKind::OemToAnsi ? "oem to ansi" : "ansi to oem") +
           (r.converter.selectedOnly ? ", selected text only" : ""));
    r.exec(Cmd::ConvertText);
}

// Setting or clearing a line bookmark is no change that undo takes back: undoing
// the commands before it would meet a bookmark the baseline never had, on a line that
// undo may join with another. So the document is undone to its baseline before, and
// the bookmark starts a new one.
void lineBookmarks(SoakRun& r) {
    const Cmd c = r.rng.percent(3) ? Cmd::BookmarkClearAll
                                   : r.rng.pick({Cmd::BookmarkToggle, Cmd::BookmarkToggle, Cmd::BookmarkSet,
                                                 Cmd::BookmarkNext, Cmd::BookmarkPrev});
    const bool changes = c != Cmd::BookmarkNext && c != Cmd::BookmarkPrev;
    if (changes && !r.checkpoint(r.current())) return;
    r.settingBookmark = changes;
    const bool ok = r.exec(c);
    r.settingBookmark = false;
    // The undo stack is empty still: the bookmarks as they are now are the new start.
    if (ok && changes) r.current().baseline = snapshotOf(r.current().doc);
}

void bookmarkedLines(SoakRun& r) {
    const Cmd c = r.rng.pick({Cmd::DeleteBookmarkedLines, Cmd::CutBookmarkedLines, Cmd::CopyBookmarkedLines});
    if (c != Cmd::CopyBookmarkedLines) r.current().bookmarksMoved = true;
    r.exec(c);
}

// Marks 0 to 9 are consecutive commands from SetMark0 and GotoMark0 on.
void numberedMarks(SoakRun& r) {
    const auto n = static_cast<uint16_t>(r.rng.below(10));
    switch (r.rng.below(4)) {
        case 0: r.exec(r.current(), static_cast<uint16_t>(idOf(Cmd::SetMark0) + n)); break;
        case 1: r.exec(r.current(), static_cast<uint16_t>(idOf(Cmd::GotoMark0) + n)); break;
        case 2: r.exec(Cmd::SaveCursorPos); break;
        default: r.exec(Cmd::RestoreCursorPos); break;
    }
}

// What the named-bookmark dialog does: add at the cursor (a name may be taken or the
// list full), delete, or go to one, as a click places the cursor.
void namedBookmark(SoakRun& r) {
    SoakDoc& d = r.current();
    NamedBookmarks& list = namedBookmarks();
    const std::string name = "mark" + std::to_string(r.rng.below(40));
    switch (r.rng.below(3)) {
        case 0: {
            const AddBookmark added = addNamedBookmark(list, name, d.doc.cursor, "", &d.doc);
            r.note("add named bookmark " + name + (added == AddBookmark::Added ? "" : ": refused"));
            break;
        }
        case 1:
            r.note("delete named bookmark " + name + (removeNamedBookmark(list, name) ? "" : ": none"));
            break;
        default: {
            const int i = findNamedBookmark(list, name);
            if (i < 0 || list.entries[static_cast<size_t>(i)].doc != &d.doc) return;
            r.note("go to named bookmark " + name);
            setCursor(d.doc, list.entries[static_cast<size_t>(i)].pos);
            d.doc.lastCmd = 0;
            r.exec(Cmd::NullCmd);
            break;
        }
    }
}

void switchDocument(SoakRun& r) {
    r.active = r.rng.below(static_cast<uint32_t>(r.docs.size()));
    r.note("switch to doc" + std::to_string(r.active));
}

// The mode commands, and the options only the settings dialog changes. The tab size
// stays: undo records hold columns.
void modes(SoakRun& r) {
    if (r.rng.percent(50)) {
        one(r, {Cmd::ToggleInsert, Cmd::ToggleAutoIndent, Cmd::ToggleAutoUnindent});
        return;
    }
    struct Flag {
        const char* name;
        bool EditOptions::*flag;
    };
    static constexpr Flag kFlags[] = {
        {"useTabChar", &EditOptions::useTabChar},
        {"smartTab", &EditOptions::smartTab},
        {"cursorBeyondEol", &EditOptions::cursorBeyondEol},
        {"keepTrailingBlanks", &EditOptions::keepTrailingBlanks},
        {"cursorThroughTabs", &EditOptions::cursorThroughTabs},
        {"autoIndentUsingTabs", &EditOptions::autoIndentUsingTabs},
    };
    const Flag& f = kFlags[r.rng.below(std::size(kFlags))];
    bool& value = options().*f.flag;
    value = !value;
    r.note(std::string(f.name) + (value ? " on" : " off"));
}

void lineDraw(SoakRun& r) {
    if (!r.exec(Cmd::StartLineDraw)) return;
    if (r.rng.percent(30) && !r.exec(Cmd::LineDrawStyle)) return;
    for (int n = r.rng.between(1, 8); n > 0; --n)
        if (!r.exec(r.rng.pick({Cmd::CursorLeft, Cmd::CursorRight, Cmd::CursorUp, Cmd::CursorDown}))) return;
    r.exec(Cmd::EndLineDraw);
}

const Cmds kChangingCommands = {Cmd::InsertChar, Cmd::NewLine,     Cmd::Backspace,  Cmd::DeleteLine,
                                Cmd::Paste,      Cmd::Cut,         Cmd::IndentBlock, Cmd::UpperCase,
                                Cmd::Sort,       Cmd::DupLine,     Cmd::Undo,       Cmd::Redo,
                                Cmd::JoinLine,   Cmd::DeleteBookmarkedLines, Cmd::CommentBlockCpp};

// On a read-only document a changing command changes nothing.
void readOnly(SoakRun& r) {
    SoakDoc& d = r.current();
    const Snapshot before = snapshotOf(d.doc);
    d.doc.readOnly = true;
    r.note("read-only on");
    const Cmd c = r.rng.pick(kChangingCommands);
    r.exec(c, c == Cmd::InsertChar ? byte(typedChar(r.rng)) : 0);
    d.doc.readOnly = false;
    r.note("read-only off");
    const std::string why = difference(before, snapshotOf(d.doc), Bookmarks::Equal);
    if (!why.empty()) r.fail("a read-only document changed: " + why);
}

constexpr ActionKind kActions[] = {
    {"type a character", 200, typeChar},
    {"type a word", 40, typeWord},
    {"line end or tab", 40, lineEnds},
    {"delete", 50, deleting},
    {"delete repeatedly", 20, deleteRun},
    {"line command", 20, lineCommands},
    {"move", 110, move},
    {"go to line or column", 25, jump},
    {"selecting move", 60, selectMove},
    {"select a unit", 25, selectUnit},
    {"selection mode", 15, selectionMode},
    {"block operation", 70, block},
    {"clipboard", 45, clipboard},
    {"paste from elsewhere", 15, foreignPaste},
    {"paste a long line", 4, longText},
    {"fill block", 5, fillBlock},
    {"insert symbol", 3, insertSymbol},
    {"letter case and transpose", 20, letterCase},
    {"comment block", 10, comments},
    {"paragraph", 8, paragraphs},
    {"tabs and spaces", 8, tabTools},
    {"undo run", 40, undoRun},
    {"redo run", 25, redoRun},
    {"replace", 15, replace},
    {"find or replace by parameters", 8, paramSearch},
    {"find next", 5, findNext},
    {"sort", 6, sortLines},
    {"word count", 2, wordCount},
    {"convert code page", 6, convert},
    {"line bookmark", 15, lineBookmarks},
    {"bookmarked lines", 5, bookmarkedLines},
    {"numbered mark", 12, numberedMarks},
    {"named bookmark", 10, namedBookmark},
    {"switch document", 15, switchDocument},
    {"mode", 8, modes},
    {"line drawing", 4, lineDraw},
    {"read-only document", 4, readOnly},
};

constexpr int totalWeight() {
    int sum = 0;
    for (const ActionKind& a : kActions) sum += a.weight;
    return sum;
}

// A document past its size is cut back from a line in its first part to its end.
void shrink(SoakRun& r) {
    r.note("document too long: cutting it back");
    if (!r.exec(Cmd::SetCharSelMode) || !r.exec(Cmd::HideSelect)) return;
    if (!r.exec(Cmd::GoToLineNum, static_cast<uint32_t>(r.rng.between(1, kMaxSoakLines / 3)))) return;
    if (!r.exec(Cmd::LineStart) || !r.exec(Cmd::TextEndSelect)) return;
    r.exec(Cmd::DeleteBlock);
}

}  // namespace

std::span<const ActionKind> actionKinds() { return kActions; }

void runOneAction(SoakRun& r) {
    // Appending copies grows the clipboard without end; another program takes it over.
    if (r.shell.clip.text.size() > kMaxSoakClipboard) {
        r.shell.clip = ClipboardData{"x"};
        r.note("clipboard emptied by another program");
    }
    if (r.current().doc.lines.lastIndex >= kMaxSoakLines) {
        shrink(r);
        return;
    }
    int k = static_cast<int>(r.rng.below(totalWeight()));
    for (const ActionKind& a : kActions) {
        if (k < a.weight) {
            a.act(r);
            return;
        }
        k -= a.weight;
    }
}

void fillDocument(SoakRun& r, SoakDoc& d) {
    const std::string text = randomText(r.rng, r.rng.between(1, 80), 70);
    rawInsert(d.doc, Pos{}, text, nullptr);
    setCursor(d.doc, Pos{});
    d.doc.modified = false;
}

}  // namespace zol::soak
