// Documents hold Windows-1252 bytes; Qt widgets hold Unicode.
#pragma once
#include <QString>
#include <string>
#include <string_view>

namespace zol {

QString fromCp1252(std::string_view bytes);
// False when a character has no byte in the code page; out is then left alone.
bool toCp1252(const QString& text, std::string& out);
// One byte for each UTF-16 unit of text, "?" where the code page has no character, so
// that byte offsets and string positions stay the same.
std::string toCp1252Lossy(const QString& text);

}  // namespace zol
