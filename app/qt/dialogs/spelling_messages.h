// Every text of the desktop's proofing parts: the Spelling and AutoCorrect dialogs and
// the completion popup.
#pragma once

namespace zol::proofui {

// "Spelling"
inline constexpr char kSpellingTitle[] = "Spelling";
inline constexpr char kNotInDictionary[] = "Not in dictionary:";
inline constexpr char kChangeTo[] = "C&hange to:";
inline constexpr char kSuggestions[] = "Su&ggestions:";
inline constexpr char kNoSuggestions[] = "(no suggestions)";
inline constexpr char kIgnore[] = "&Ignore";
inline constexpr char kIgnoreAll[] = "I&gnore All";
inline constexpr char kChange[] = "&Change";
inline constexpr char kChangeAll[] = "Change A&ll";
inline constexpr char kAdd[] = "&Add to Dictionary";
inline constexpr char kClose[] = "Close";
inline constexpr char kChecking[] = "Checking line %1 of %2...";
inline constexpr char kNotInCodePage[] =
    "The replacement holds characters that the Windows-1252 code page cannot show.";

// "AutoCorrect"
inline constexpr char kAutoCorrectTitle[] = "AutoCorrect";
inline constexpr char kTabAutoCorrect[] = "&AutoCorrect";
inline constexpr char kTabSpelling[] = "&Spelling";
inline constexpr char kTwoCapitals[] = "Correct TWo INitial &CApitals";
inline constexpr char kCapitalize[] = "Capitalize the first letter of &sentences";
inline constexpr char kCapsLock[] = "Correct accidental use of c&APS LOCK";
inline constexpr char kReplaceText[] = "&Replace text as you type";
inline constexpr char kReplace[] = "Re&place:";
inline constexpr char kWith[] = "&With:";
inline constexpr char kAddEntry[] = "A&dd";
inline constexpr char kDeleteEntry[] = "D&elete";
inline constexpr char kEntryHasBlank[] = "The word to replace may not hold a blank.";
inline constexpr char kLanguage[] = "&Dictionary:";
inline constexpr char kUserDictionary[] = "&User dictionary:";
inline constexpr char kUnderlineText[] = "Underline misspelt words in &text files";
inline constexpr char kUnderlineSource[] = "Underline misspelt words in c&omments and strings of source files";
inline constexpr char kIgnoreUppercase[] = "Ignore words in &UPPERCASE";

}  // namespace zol::proofui
