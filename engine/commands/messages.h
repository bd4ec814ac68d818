// Texts the editing commands show the user.
#pragma once

#include "engine/line_list.h"

namespace zol {

// An edit that would make a line wider than kMaxColumns is refused with this text.
static_assert(kMaxColumns == 3200, "the message below names the capacity");
inline constexpr const char* kMsgLineTooLong = "Line too long: a line holds at most 3200 columns.";

}  // namespace zol
