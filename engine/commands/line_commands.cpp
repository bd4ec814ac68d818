// Line and insertion commands of the typing group: duplicate, join, centre, symbol,
// time and date.
#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_block.h"
#include "engine/commands/messages.h"
#include "engine/commands/text_tools.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "platform/clock.h"

namespace zol {

constexpr size_t kMaxTimeDateText = 40;

std::string timeText(const LocalTime& t, const TimeConventions& c) {
    unsigned hour = static_cast<unsigned>(t.hour);
    if (!c.hours24) hour = hour % 12 == 0 ? 12 : hour % 12;
    char buf[kMaxTimeDateText + 1];
    std::snprintf(buf, sizeof buf, c.leadingZeroHour ? "%02u%c%02u" : "%u%c%02u", hour, c.timeSeparator,
                  static_cast<unsigned>(t.minute));
    return buf;
}

std::string dateText(const LocalTime& t, const TimeConventions& c) {
    unsigned a = static_cast<unsigned>(t.month), b = static_cast<unsigned>(t.day);
    unsigned y = static_cast<unsigned>(t.year);
    char buf[kMaxTimeDateText + 1];
    const char s = c.dateSeparator;
    switch (c.dateOrder) {
        case DateOrder::DayMonthYear: std::snprintf(buf, sizeof buf, "%02u%c%02u%c%04u", b, s, a, s, y); break;
        case DateOrder::YearMonthDay: std::snprintf(buf, sizeof buf, "%04u%c%02u%c%02u", y, s, a, s, b); break;
        case DateOrder::MonthDayYear: std::snprintf(buf, sizeof buf, "%02u%c%02u%c%04u", a, s, b, s, y); break;
    }
    return buf;
}

namespace {

int insertAtCursor(Document& doc, std::string_view text) {
    if (hasSelection(doc) && !deleteSelection(doc)) return finishEdit(doc, false);
    doc.prevCmd = 0;
    return finishEdit(doc, insertText(doc, text));
}

size_t leading(std::string_view s) {
    size_t i = 0;
    while (i < s.size() && isBlank(s[i])) ++i;
    return i;
}

size_t trailingEnd(std::string_view s) {
    size_t e = s.size();
    while (e > 0 && isBlank(s[e - 1])) --e;
    return e;
}

}  // namespace

// A copy of the cursor's line goes below it; the cursor stays.
int cmdDupLine(Document& doc, const CommandCall&) {
    const Pos keep = doc.cursor;
    const std::string copy = "\r\n" + std::string(lineText(doc, keep.line));
    clearSelection(doc);
    setCursor(doc, makePos(lineWidthAt(doc, keep.line), keep.line));
    const bool ok = insertText(doc, copy);
    setCursor(doc, keep);
    return finishEdit(doc, ok);
}

// The next line is joined to the cursor's line: the blanks at the seam become one
// blank (none when either side is empty) and the cursor stands at the seam.
int cmdJoinLine(Document& doc, const CommandCall&) {
    const int32_t l = doc.cursor.line;
    if (l >= lastLine(doc)) return 0;
    const std::string_view cur = lineText(doc, l);
    const std::string_view next = lineText(doc, l + 1);
    const size_t keepEnd = trailingEnd(cur), skip = leading(next);
    const bool blank = keepEnd > 0 && skip < next.size();
    const Pos from = makePos(columnOfOffset(cur, keepEnd), l);
    const Pos to = makePos(columnOfOffset(next, skip), l + 1);
    clearSelection(doc);
    if (!replaceRange(doc, from, to, blank ? " " : "")) return finishEdit(doc, false);
    setCursor(doc, from);
    return finishEdit(doc, true);
}

// The cursor's line is centred between column 0 and the word-wrap column.
int cmdCenterLine(Document& doc, const CommandCall&) {
    const int32_t l = doc.cursor.line;
    const std::string_view line = lineText(doc, l);
    const size_t from = leading(line), to = trailingEnd(line);
    if (from >= to) return 0;
    const std::string_view body = line.substr(from, to - from);
    const int width = columnOfOffset(line, to) - columnOfOffset(line, from);
    const int pad = std::max(0, (options().wordWrapColumn - width) / 2);
    std::string text(static_cast<size_t>(pad), ' ');
    text += expandTabsFrom(body, columnOfOffset(line, from));
    clearSelection(doc);
    if (!finishLineEdit(doc, LineBlock{l, l}, {text})) return 0;
    setCursor(doc, makePos(pad, l));
    return 1;
}

int cmdInsertSymbol(Document& doc, const CommandCall& call) {
    int c = static_cast<int>(call.param & 0xFF);
    if (c == 0) c = shell().chooseCharacter(kTitleInsertSymbol);
    if (c <= 0 || c > 255 || c == '\r' || c == '\n') return 0;
    const char ch = static_cast<char>(c);
    return insertAtCursor(doc, std::string_view(&ch, 1));
}

int cmdInsertTimeDate(Document& doc, const CommandCall&) {
    const LocalTime t = localTimeNow();
    const TimeConventions c = timeConventions();
    std::string text = timeText(t, c) + "  " + dateText(t, c);
    text.resize(std::min(text.size(), kMaxTimeDateText));
    return insertAtCursor(doc, text);
}

int cmdInsertTime(Document& doc, const CommandCall&) {
    return insertAtCursor(doc, timeText(localTimeNow(), timeConventions()));
}

int cmdInsertDate(Document& doc, const CommandCall&) {
    return insertAtCursor(doc, dateText(localTimeNow(), timeConventions()));
}

}  // namespace zol
