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

}  // namespace zol::searchmsg
