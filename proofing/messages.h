// Every text the user sees from spelling, AutoCorrect and code completion, with the
// capacities they report.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace zol::proofmsg {

// Spelling.
inline constexpr char kNoDictionary[] =
    "The spelling dictionary \"%s\" is not installed.\n\n"
    "Install the Debian package %p (sudo apt-get install %p), or put %s.aff and %s.dic into the "
    "folder \"dict\" of the Zolder home, or name another language under MainLexicon in section "
    "Spelling of zol.ini.";
inline constexpr char kDictionaryUnreadable[] = "The spelling dictionary %s could not be read.";
inline constexpr char kNoSpellingLibrary[] = "Checking the spelling needs the hunspell library %s, which cannot be loaded.";
inline constexpr char kCheckComplete[] = "The spelling check is complete.";
inline constexpr char kNothingToCheck[] = "There is nothing to check: this document has no comments or strings.";
inline constexpr char kNoSpellingDialog[] = "Checking the spelling needs the desktop editor.";
inline constexpr char kUserDictReadOnly[] =
    "\"%s\" could not be added to the user dictionary %p: the file cannot be written.\n\n"
    "It is accepted until Zolder closes.";
inline constexpr char kLineTooLong[] = "The change would make the line longer than Zolder allows; it was not made.";

// AutoCorrect list "zol.acr". An entry longer than this is no typing mistake: such a
// line is left out with its line number, and the list keeps loading.
inline constexpr size_t kMaxAcrEntry = 255;
inline constexpr char kAcrBrokenLines[] = "zol.acr: these lines were not understood and are left out: %s.";
inline constexpr char kAcrUnreadable[] = "The AutoCorrect list %s could not be read; it is left as it is.";
inline constexpr char kAcrNotSaved[] = "The AutoCorrect list could not be saved to %s.";

// Code completion, "CodeCmpl.ini".
inline constexpr char kNoCompletions[] = "No completions for \"%s\".";
inline constexpr char kCmplUnterminated[] =
    "CodeCmpl.ini line %p: the snippet \"%s\" has no EndSnippet line and is left out.";
inline constexpr char kCmplBrokenLine[] = "CodeCmpl.ini line %s is not understood and is left out.";

// The text with every "%s" replaced by s and every "%p" by p.
inline std::string fill(std::string_view text, std::string_view s, std::string_view p = {}) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 1 < text.size() && (text[i + 1] == 's' || text[i + 1] == 'p')) {
            out += text[i + 1] == 's' ? s : p;
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace zol::proofmsg
