// Byte-for-byte recoding of text through a 256-entry table: the built-in OEM (CP437)
// and ANSI (Windows-1252) directions, and user tables from "TEXT.CNV".
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol {

// Entry c is the byte that replaces byte c.
using ConvertTable = std::array<uint8_t, 256>;

constexpr const char* kConvertTableFile = "TEXT.CNV";
// Section names of "TEXT.CNV" are read from a list of at most this many bytes, and a
// name longer than kMaxConvertTableName characters is not offered.
constexpr size_t kConvertNamesBytes = 2048;
constexpr size_t kMaxConvertTableName = 80;

ConvertTable identityTable();
// What the OEM code page's characters are in the ANSI code page, and back. Characters
// without an equal take the nearest plain ASCII look-alike; ASCII stays as it is.
ConvertTable oemToAnsiTable();
ConvertTable ansiToOemTable();
// Unicode code point of a byte in each code page (Windows-1252's five unused bytes map
// to themselves).
uint16_t oemToUnicode(uint8_t c);
uint16_t ansiToUnicode(uint8_t c);

// The tables in a "TEXT.CNV" file, by section name. False when the file cannot be
// read; an empty list when it holds no section.
bool userTableNames(const std::string& path, std::vector<std::string>& names);
// Table of one section: key c (decimal) gives the replacement of byte c; a missing
// key, a value that is not a number, 0, or a value outside 0..255 leaves c as it is.
ConvertTable userTable(const std::string& path, std::string_view section);

// Keeps NUL, tab, line feed and carriage return as they are: they may be neither
// made nor unmade by a conversion.
void protectControlBytes(ConvertTable& table);

// Recodes the whole text, or the selection only (false and nothing done without one),
// as one undo record holding the old text. Protects the control bytes first.
// Lines keep their bookmarks.
bool convertDocument(Document& doc, ConvertTable table, bool selectedOnly);

}  // namespace zol
