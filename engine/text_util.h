// Small byte-string helpers shared by the engine and the layers above it.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// ASCII case folding; bytes above 127 are left alone.
inline char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
inline char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline bool equalsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (asciiLower(a[i]) != asciiLower(b[i])) return false;
    return true;
}

inline bool isBlank(char c) { return c == ' ' || c == '\t'; }

// What a line end at the very end of a text stands for.
enum class FinalLineEnd {
    StartsEmptyRow,  // "a\n" is "a" and "": text put into a document
    EndsLastRow,     // "a\n" is "a" alone: the rows of a column block
};

// The rows of a text whose lines end in CR LF, LF or CR, without their line ends.
// Empty text is one empty row.
inline std::vector<std::string_view> splitLines(std::string_view text, FinalLineEnd lastEnd) {
    std::vector<std::string_view> rows;
    size_t start = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') continue;
        rows.push_back(text.substr(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < text.size() || rows.empty() || lastEnd == FinalLineEnd::StartsEmptyRow)
        rows.push_back(text.substr(start));
    return rows;
}

// The lines as one text with CR LF between them, as the clipboard and the undo records
// hold several lines.
inline std::string joinLines(const std::vector<std::string>& lines) {
    std::string out;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i) out += "\r\n";
        out += lines[i];
    }
    return out;
}

}  // namespace zol
