// Parsing helpers for values stored in profile files.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zol {

// Reads up to max whitespace-separated decimal integers (optional sign) from the start
// of text, as a run of " %d" conversions would: stops at the first item that is not a
// number. Values beyond the 64-bit range are pulled to its bounds. Returns how many
// were read; pos (when given) receives where reading stopped.
int scanNumbers(std::string_view text, int64_t* out, int max, size_t* pos = nullptr);

// A leading path field: after blanks, a text in double quotes running to the closing
// quote, or an unquoted text running to the first blank. pos receives the position
// after the field (and its closing quote). False when there is no field or the quote
// does not close.
bool scanPathField(std::string_view text, std::string& field, size_t& pos);

}  // namespace zol
