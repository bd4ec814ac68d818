// A document's text format: the line ends it is saved with. The numbers are those of
// the outside interfaces (Zol_GetTextFileFormat, Zol_WriteFile) and of the
// "DefaultFileFormat" setting.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace zol {

enum class TextFormat : int32_t { Dos = 0, Unix = 1, Mac = 2 };

// The format numbered n; none for any other number.
constexpr std::optional<TextFormat> textFormatOf(int n) {
    if (n < 0 || n > 2) return std::nullopt;
    return static_cast<TextFormat>(n);
}

// What stands between two lines of a file in format.
constexpr std::string_view lineEndOf(TextFormat format) {
    switch (format) {
    case TextFormat::Unix: return "\n";
    case TextFormat::Mac: return "\r";
    case TextFormat::Dos: break;
    }
    return "\r\n";
}

}  // namespace zol
