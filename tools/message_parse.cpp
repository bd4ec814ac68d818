#include "tools/message_parse.h"

#include <algorithm>
#include <limits>

#include "engine/text_util.h"

namespace zol {
namespace {

// The C locale's classes, whatever locale the process runs in.
bool isCBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }
bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isNameMark(char c) { return c == '\\' || c == '.' || c == '/' || c == '_' || c == '~'; }

// Banner lines, dropped only when the whole rest of the line is one of them, so that
// "Borland C++ 5.0" still reaches the later steps.
constexpr const char* kNoiseWithCase[] = {"Borland ", "Jan ", "Feb ", "Mar ", "Apr ", "May ", "Jun ", "Jul ",
                                          "Aug ",     "Sep ", "Oct ", "Nov ", "Dec ", "gcc ", "lex "};
constexpr const char* kNoiseNoCase[] = {"Version ", "Copyright ", "make["};

constexpr size_t kLineDigits = 17;
constexpr size_t kColumnDigits = 18;
constexpr std::string_view kColumnMark = " col(";
constexpr std::string_view kNote = "Note!";

bool isNoise(std::string_view r) {
    for (const char* n : kNoiseWithCase)
        if (r == n) return true;
    for (const char* n : kNoiseNoCase)
        if (equalsNoCase(r, n)) return true;
    return false;
}

bool skipWord(std::string_view& r, std::string_view word) {
    if (r.size() < word.size() || !equalsNoCase(r.substr(0, word.size()), word)) return false;
    r.remove_prefix(word.size());
    return true;
}

// At most maxDigits digits from the start of r, which moves past them.
uint32_t takeNumber(std::string_view& r, size_t maxDigits) {
    uint64_t n = 0;
    size_t i = 0;
    for (; i < r.size() && i < maxDigits && isDigit(r[i]); ++i) n = n * 10 + static_cast<uint64_t>(r[i] - '0');
    r.remove_prefix(i);
    constexpr uint64_t kMax = std::numeric_limits<uint32_t>::max();
    return static_cast<uint32_t>(n > kMax ? kMax : n);
}

std::string takeName(std::string_view& r, size_t capacity) {
    std::string name;
    if (r.size() >= 3 && isLetter(r[0]) && r[1] == ':' && (r[2] == '\\' || r[2] == '/')) {
        name.assign(r.substr(0, std::min<size_t>(3, capacity ? capacity - 1 : 0)));
        r.remove_prefix(3);
    }
    size_t i = 0;
    while (i < r.size() && name.size() + 1 < capacity && (isLetter(r[i]) || isDigit(r[i]) || isNameMark(r[i])))
        name += r[i++];
    r.remove_prefix(i);
    return name;
}

}  // namespace

bool parseMessageLine(std::string_view text, MessageLocation& out, size_t capacity) {
    out = MessageLocation{};
    size_t i = 0;
    while (i < text.size() && isCBlank(text[i])) ++i;
    std::string_view r = text.substr(i);
    if (isNoise(r)) return false;
    skipWord(r, "Error ");
    skipWord(r, "Warning ");
    while (!r.empty() && isCBlank(r.front())) r.remove_prefix(1);
    while (!r.empty() && !isLetter(r.front()) && !isNameMark(r.front())) r.remove_prefix(1);
    std::string name = takeName(r, capacity);
    while (!r.empty() && !isDigit(r.front())) r.remove_prefix(1);
    const uint32_t line = takeNumber(r, kLineDigits);
    if (name.empty() || line == 0) return false;
    out.name = std::move(name);
    out.line = line;
    if (r.size() < 3 || r[0] != ')' || r[1] != ':' || !isCBlank(r[2])) return true;
    r.remove_prefix(3);
    if (r == kNote) return false;
    const size_t mark = r.find(kColumnMark);
    if (mark != std::string_view::npos && mark + kColumnMark.size() < r.size() && isDigit(r[mark + kColumnMark.size()])) {
        r.remove_prefix(mark + kColumnMark.size());
        out.column = takeNumber(r, kColumnDigits);
    }
    return true;
}

}  // namespace zol
