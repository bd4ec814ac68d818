// Pure text functions behind the tools group's commands, for their callers and tests.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"

namespace zol {

// Text that starts at column `startCol` with its tabs turned into the blanks they
// showed there, so that it keeps its look wherever it moves.
std::string expandTabsFrom(std::string_view text, int startCol);

// A line laid out with tab size `fromTab` rewritten so that it shows the same with
// tab size `toTab` (0: blanks only). Runs of white space that hold a tab are
// rewritten; with `everyRun` so is every run of two or more blanks.
std::string relayoutLine(std::string_view line, int fromTab, int toTab, bool everyRun);

// The order of "Sort": bytes compared unsigned with ASCII letters folded to lower
// case; a shorter line sorts before a longer one it begins.
bool sortBefore(std::string_view a, std::string_view b);
// Indexes of `lines` in that order; lines that compare equal keep their order.
std::vector<uint32_t> sortOrder(const std::vector<std::string>& lines);

struct TextCounts {
    long words = 0;       // runs of characters other than blanks, tabs and line ends
    long characters = 0;  // bytes without line ends
};
TextCounts countText(std::string_view text);

// Hours and minutes, and day, month and year, as the user's conventions write them.
std::string timeText(const LocalTime& t, const TimeConventions& c);
std::string dateText(const LocalTime& t, const TimeConventions& c);

}  // namespace zol
