// The texts of the help window, keyword search and API assistance.
#pragma once

namespace zol::helpqt {

inline constexpr char kHelpTitle[] = "Zolder Help";
inline constexpr char kContents[] = "&Contents";
inline constexpr char kIndex[] = "&Index";
inline constexpr char kSearch[] = "&Search";
inline constexpr char kIndexFilter[] = "Type a word to find in the index";
inline constexpr char kSearchFilter[] = "Words to search for";
inline constexpr char kNoManual[] = "The user manual is not installed (looked for it in '%1').";
inline constexpr char kNotFound[] =
    "No help was found for \"%1\": it is not in the manual's index, not a VEK C function, and not in "
    "the context help file.";
inline constexpr char kNoWord[] = "Put the cursor on a word to look it up.";
inline constexpr char kApiOn[] = "API assistance on: the prototype of a function shows while you type its call";
inline constexpr char kApiOff[] = "API assistance off";

}  // namespace zol::helpqt
