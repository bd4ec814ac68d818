// Every text the printing layer shows or prints on its own account.
#pragma once
#include <cstddef>

namespace zol::printmsg {

// Fewer columns than this leave no room for a line number and a useful piece of text:
// a page that narrow is refused rather than printed as a column of fragments.
inline constexpr int kMinColumns = 10;
inline constexpr char kPageTooSmall[] =
    "The page is too small for its margins and font: it holds %d columns and %d lines of text "
    "(at least 10 columns and 1 line are needed). Make the margins or the font smaller.";
inline constexpr char kCannotWrite[] = "Cannot write the PDF file '%s'.";
inline constexpr char kCancelled[] = "Printing was cancelled; '%s' was not written.";
inline constexpr char kNothingSelected[] = "There is no selection to print.";

// The PDF's producer entry.
inline constexpr char kProducer[] = "Zolder";

}  // namespace zol::printmsg
