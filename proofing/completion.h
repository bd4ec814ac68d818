// Code completion: what may follow the letters before the cursor. Candidates come from
// "CodeCmpl.ini" in the home (one section per language: keywords, snippets, function
// prototypes), the language definition's keywords, the script built-ins for VEK C,
// and the words of the open documents.
//
// "CodeCmpl.ini": "[Name]" opens a language's section; the document's language is the
// section whose FilePattern (and Folder, a folder of the home, when given) fits its
// file, else the one named like its language definition. In a section:
//   FilePattern=*.c;*.h       Folder=script      BuiltIns=1 (the VEK C built-ins)
//   Keywords=for while ...    (blank-separated; the key may come again)
//   Function=int printf(const char *format, ...)
//   Snippet=name              then the snippet's lines, then a line "EndSnippet";
//                             "^" marks where the cursor goes, "^^" is a "^"
// Lines starting with ";" or "#" are comments.
#pragma once
#include <cstdint>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol {

enum class CandidateKind : uint8_t { Snippet, Function, Keyword, Word };

struct Candidate {
    std::string text;    // what the letters become (a snippet: its name)
    std::string detail;  // a function's prototype, a snippet's first line
    CandidateKind kind = CandidateKind::Word;
    std::string body;    // a snippet's text, "^" marking the cursor
};

struct CompletionSection {
    std::string name;
    std::string filePattern;
    std::string folder;
    bool builtIns = false;
    std::vector<Candidate> items;
};

struct CmplParse {
    std::vector<CompletionSection> sections;
    std::vector<std::string> problems;  // one message each, for the user
};
CmplParse parseCodeCompletion(std::string_view text);

// The file in the home, read again whenever it changed on disk.
const CmplParse& codeCompletionFile();
std::string codeCompletionPath();

// The section that serves the document, or null.
const CompletionSection* sectionFor(const CmplParse& file, const Document& doc);

// The letters and digits before the cursor that a completion replaces.
struct CompletionPrefix {
    int32_t line = 0;
    size_t begin = 0, end = 0;  // bytes of the line; end is the cursor
    std::string text;
};
CompletionPrefix completionPrefix(const Document& doc);

// Reading the open documents for words stops after this many bytes, nearest the cursor
// first, so that the popup comes up at once beside a document of many megabytes.
constexpr size_t kWordScanBytes = 4 * 1024 * 1024;
// Shorter words are typed faster than chosen.
constexpr size_t kMinCompletionWord = 3;

// Every candidate for the document, without regard to the prefix, one per text (a
// snippet before a function before a keyword before a plain word).
std::vector<Candidate> gatherCandidates(const Document& doc, const std::vector<const Document*>& others);
// The candidates that begin with prefix, without regard to case; those in the same
// case first, then in their order of kinds and names. The prefix itself as a plain word
// is no candidate. At most limit of them, the first in that order.
std::vector<const Candidate*> filterCandidates(const std::vector<Candidate>& all, std::string_view prefix,
                                               size_t limit = SIZE_MAX);

// Replaces the prefix by the candidate as one undo step; a snippet takes the indent of
// its line on each of its lines and puts the cursor at its mark.
bool acceptCandidate(Document& doc, const CompletionPrefix& prefix, const Candidate& c);

}  // namespace zol
