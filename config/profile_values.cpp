#include "config/profile_values.h"

namespace zol {

namespace {

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }

}  // namespace

int scanNumbers(std::string_view text, int64_t* out, int max, size_t* pos) {
    size_t i = 0;
    int count = 0;
    while (count < max) {
        size_t j = i;
        while (j < text.size() && isSpace(text[j])) ++j;
        bool negative = false;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) negative = text[j++] == '-';
        if (j >= text.size() || text[j] < '0' || text[j] > '9') break;
        uint64_t v = 0;
        bool overflow = false;
        for (; j < text.size() && text[j] >= '0' && text[j] <= '9'; ++j) {
            unsigned d = static_cast<unsigned>(text[j] - '0');
            if (v > (UINT64_MAX - d) / 10) overflow = true;
            else v = v * 10 + d;
        }
        if (overflow || v > uint64_t(INT64_MAX)) out[count] = negative ? INT64_MIN : INT64_MAX;
        else out[count] = negative ? -static_cast<int64_t>(v) : static_cast<int64_t>(v);
        ++count;
        i = j;
    }
    if (pos) *pos = i;
    return count;
}

bool scanPathField(std::string_view text, std::string& field, size_t& pos) {
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    if (i >= text.size()) return false;
    if (text[i] == '"') {
        size_t close = text.find('"', i + 1);
        if (close == std::string_view::npos) return false;
        field = std::string(text.substr(i + 1, close - i - 1));
        pos = close + 1;
        return true;
    }
    size_t end = i;
    while (end < text.size() && text[end] != ' ' && text[end] != '\t') ++end;
    field = std::string(text.substr(i, end - i));
    pos = end;
    return true;
}

}  // namespace zol
