// AutoCorrect: typing mistakes put right as a word ends, from the list "zol.acr" in
// the home and four rules. Prose only: in a source file its comments and strings, and
// never a name ("my_teh", "tEH2").
//
// "zol.acr" is plain text, one entry a line: the wrong word, a tab, the right word
// (which may hold blanks). A line "Name=0" or "Name=1" sets one of the four options.
// Lines starting with "#" and empty lines are comments. An entry whose two words are
// the same is an exception: the rules leave that word alone ("MHz").
#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol {

struct AutoCorrectOptions {
    bool twoCapitals = true;  // "CorrectTwoInitCaps": "THis" becomes "This"
    bool capitalize = true;   // "CapitalizeSentence": a sentence's first word gets its capital
    bool capsLock = true;     // "CorrectCapsLock": "tHIS" (Caps Lock left on) becomes "This"
    bool replaceText = true;  // "ReplaceText": the list's entries
};

struct AutoCorrectList {
    AutoCorrectOptions options;
    std::map<std::string, std::string> entries;  // wrong word -> right text
    // The user's own comments and the lines not understood, written back as they were.
    std::vector<std::string> kept;
};

struct AcrParse {
    AutoCorrectList list;
    std::vector<int> brokenLines;  // 1-based, left out
};
// Reads the text of a "zol.acr"; never fails, what it cannot read it leaves out.
AcrParse parseAutoCorrect(std::string_view text);
std::string formatAutoCorrect(const AutoCorrectList& list);

// The list the editor uses, and its file in the home.
AutoCorrectList& autoCorrect();
std::string autoCorrectPath();
// Load and save under the settings store's order (the owner of "zol.acr"). Loading
// tells the user of lines it left out; a missing file is an empty list.
void loadAutoCorrect();
bool saveAutoCorrect();

// What the rules make of a finished word; empty when it stays as it is. sentenceStart
// tells that the word begins a sentence.
std::string correctedWord(const AutoCorrectList& list, std::string_view word, bool sentenceStart);

// Called after a character that ends a word was typed before the cursor (enderTyped),
// or before a line break goes in at the cursor: corrects the word before it, as an
// undo step of its own. True when it changed something.
bool autoCorrectTyped(Document& doc, const AutoCorrectList& list, bool enderTyped = true);

}  // namespace zol
