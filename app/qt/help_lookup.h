// Help on the word at the cursor (HelpKeywordSearch), the "Extern Help" files, and API
// assistance: the prototype of the built-in being called, as a tip while typing.
#pragma once
#include <QString>
#include <string>

namespace zol {

struct Document;
class TVekWinEditor;

// The word at the cursor; empty when the cursor is on none.
std::string wordAtCursor(const Document& doc);
// Looks the word at the cursor up in the manual's index, the VEK C reference and the
// "UserHelp" context help file, in that order; says so when none has it.
void helpKeywordSearch(const Document& doc);
// Opens "Extern Help" entry index (0-based) with the desktop's opener.
void openExternHelp(size_t index);

// Whether API assistance is on (it is unless the user turned it off in this run).
bool& apiAssistance();
// The prototype of the built-in called at the cursor: the function named before the
// innermost parenthesis still open left of the cursor. Empty when there is none.
QString callPrototype(const Document& doc);
// After a command ran in view: shows or hides the prototype tip as typing asks for it.
void apiAssistAfter(TVekWinEditor* view, uint16_t command);
// ApiAssistanceOn: turns it on or off, and when on shows the tip for the call at once.
void toggleApiAssistance(TVekWinEditor* view);

}  // namespace zol
