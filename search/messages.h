// Every text the user sees from searching and replacing. The engine's own error
// messages are in search/regex.h, shown after kRegexErrorPrefix.
#pragma once

#include "engine/line_capacity.h"
#include "search/regex.h"

namespace zol::searchmsg {

// "%s" stands for the search text.
inline constexpr char kNotFound[] = "Cannot find \"%s\".";
// A regular expression that needed more than kRegexStepBudget steps on one line.
inline constexpr char kGaveUp[] =
    "Regular expression error:  the expression takes too long on line %d; the search was stopped.";
inline constexpr char kReplacedCount[] = "%d occurrence(s) replaced.";
// Replacements that would make a line wider than kMaxColumns are refused with these.
static_assert(kMaxColumns == 3200, "the two messages below name the capacity");
inline constexpr char kLinesSkipped[] =
    "%d line(s) were left unchanged: the replacement would make them longer than 3200 columns.";
inline constexpr char kReplaceTooLong[] =
    "Line too long: the replacement would make the line longer than 3200 columns.";
inline constexpr char kGoToLinePrompt[] = "Line number:";
inline constexpr char kGoToColumnPrompt[] = "Column number:";

// Find and replace in files. The output's lines must not read as messages that name a
// file and line (the F4 stepping skips them): so a summary line holds one count, at its
// start, and a line about a file starts with its path.
inline constexpr char kEmptyPattern[] = "Type the text to find.";
inline constexpr char kNoFolder[] = "The folder %s does not exist.";
inline constexpr char kFindInFilesTitle[] = "Find in Files";
inline constexpr char kReplaceInFilesTitle[] = "Replace in Files";
inline constexpr char kSearching[] = "Searching for \"%s\"...";
inline constexpr char kSearchRunning[] = "A search in files is still running. Stop it?";
inline constexpr char kSearchStopped[] = "Stopped: the search did not finish.";
// A count and what it counts, singular and plural.
struct CountText {
    const char* one;
    const char* many;
};
inline constexpr CountText kMatchingLines{"%d matching line", "%d matching lines"};
inline constexpr CountText kFilesWithHits{"%d file with hits", "%d files with hits"};
inline constexpr CountText kFilesSearched{"%d file searched", "%d files searched"};
inline constexpr CountText kBinarySkipped{"%d binary file skipped", "%d binary files skipped"};
inline constexpr CountText kUnreadable{"%d file or folder could not be read", "%d files or folders could not be read"};
inline constexpr CountText kReplacements{"%d replacement", "%d replacements"};
inline constexpr CountText kFilesChanged{"%d file changed", "%d files changed"};
inline constexpr CountText kDocumentsChanged{"%d open document changed, not yet saved",
                                             "%d open documents changed, not yet saved"};
inline constexpr CountText kFilesLeft{"%d file left as it was", "%d files left as they were"};
// After a path: why the file or folder was not searched, or not changed.
inline constexpr char kCannotRead[] = ": cannot be read (%s)";
inline constexpr char kReasonDenied[] = "permission denied";
inline constexpr char kReasonNotRegular[] = "not a regular file";
inline constexpr char kReasonBrokenLink[] = "a link that leads nowhere";
inline constexpr char kReasonFailed[] = "read error";
inline constexpr char kReasonTooLong[] = "the regular expression takes too long; the rest of the file was skipped";
inline constexpr char kReadOnlyFile[] = ": read-only, left as it was";
inline constexpr char kReadOnlyDocument[] = ": the open document is read-only, left as it was";
inline constexpr char kNotWritten[] = ": could not be written, left as it was";
inline constexpr char kLinesTooLong[] =
    ": some lines left as they were: the replacement would make them too long for the editor";

}  // namespace zol::searchmsg
