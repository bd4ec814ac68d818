// The codes of the "Header" and "Footer" settings: "&f" the file's name, "&F" its full
// path, "&p" the page, "&P" the number of pages, "&d" the date and "&t" the time (as
// Insert Date and Insert Time write them), "&&" an ampersand; "&l", "&c" and "&r" put
// what follows at the left, centre or right. Text before any of the three is centred.
// A code that is none of these is printed as written.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace zol {

struct PageFacts {
    std::string path;  // the document's full path or its "noname01.txt" style name
    int page = 1;      // 1-based
    int pages = 1;
    LocalTime when;    // when printing began: every page shows the same date and time
    TimeConventions conventions;
};

enum class Align { Left, Centre, Right };
// What one header or footer line holds at its left, centre and right.
using PageLine = std::array<std::string, 3>;

PageLine expandPageCodes(std::string_view pattern, const PageFacts& facts);
inline bool isEmpty(const PageLine& l) { return l[0].empty() && l[1].empty() && l[2].empty(); }

}  // namespace zol
