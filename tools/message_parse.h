// Telling whether one line of a tool's output is a compiler or tool message that names
// a place in a file, and where: "foo.c(12): error ...", "foo.c:12: ...",
// "Error foo.cpp 7: ...", "x.c(5): W1 col(7) ...".
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zol {

// A message's file name is kept in a buffer of this size: at most 63 characters.
inline constexpr size_t kMessageNameSize = 64;

struct MessageLocation {
    std::string name;
    uint32_t line = 0;    // from 1
    uint32_t column = 0;  // from 1; 0 when the message gives none
};

// True when text is a message with a file name and a line number (the column may be
// 0). Otherwise the name is empty and line and column are 0 - except for a message
// whose text is exactly "Note!", which keeps its name and line. The name holds at most
// capacity - 1 characters. Numbers beyond 32 bits are taken as the largest one.
bool parseMessageLine(std::string_view text, MessageLocation& out, size_t capacity = kMessageNameSize);

}  // namespace zol
