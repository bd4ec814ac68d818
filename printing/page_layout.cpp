#include "printing/page_layout.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstdio>

#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/columns.h"
#include "engine/document.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "printing/messages.h"
#include "syntax/doc_syntax.h"
#include "syntax/scanner.h"

namespace zol {

namespace {

constexpr Rgb kBlack{0, 0, 0};

// The columns of a line that are printed: [from, to), shown `shift` columns further left.
struct LineWindow {
    int from = 0, to = INT_MAX, shift = 0;
};

LineWindow windowOf(const PrintPlan& plan, int32_t line) {
    LineWindow w;
    const Document& doc = *plan.doc;
    if (!plan.options.selectionOnly) return w;
    if (isColumnSelection(doc)) return {selLeftCol(doc), selRightCol(doc), selLeftCol(doc)};
    Pos b, e;
    selectionRange(doc, b, e);
    if (line == b.line) w.from = b.col;
    if (line == e.line) w.to = e.col;
    return w;
}

int textColumns(const PageFrame& f) { return f.columns - f.numberColumns; }

int rowsOf(const PrintPlan& plan, std::string_view text, const LineWindow& w) {
    if (!plan.options.wrap) return 1;
    const int width = std::min(lineWidth(text), w.to) - w.shift;
    const int cols = textColumns(plan.frame);
    return std::max(1, (width + cols - 1) / cols);
}

int digits(int32_t n) {
    int d = 1;
    while (n >= 10) n /= 10, ++d;
    return d;
}

bool frameOf(const PrintOptions& o, const PageMetrics& s, int32_t lastNumber, PageFrame& f, std::string& error) {
    f.left = o.leftMargin * s.perTenthMm;
    f.top = o.topMargin * s.perTenthMm;
    f.width = s.width - f.left - o.rightMargin * s.perTenthMm;
    const double height = s.height - f.top - o.bottomMargin * s.perTenthMm;
    f.columns = f.width > 0 && s.cellWidth > 0 ? static_cast<int>(std::floor(f.width / s.cellWidth)) : 0;
    const int rows = height > 0 && s.lineHeight > 0 ? static_cast<int>(std::floor(height / s.lineHeight)) : 0;
    f.numberColumns = o.lineNumbers ? digits(lastNumber) + 1 : 0;
    // A header or footer is kept apart from the text by an empty row.
    f.header = !o.header.empty();
    f.footer = !o.footer.empty();
    f.textRows = rows - (f.header ? 2 : 0) - (f.footer ? 2 : 0);
    f.headerY = f.top;
    f.textY = f.top + (f.header ? 2 : 0) * s.lineHeight;
    f.footerY = f.top + (rows - 1) * s.lineHeight;
    if (f.columns - f.numberColumns >= printmsg::kMinColumns && f.textRows >= 1) return true;
    char buf[sizeof printmsg::kPageTooSmall + 32];
    std::snprintf(buf, sizeof buf, printmsg::kPageTooSmall, std::max(0, f.columns - f.numberColumns),
                  std::max(0, f.textRows));
    error = buf;
    return false;
}

}  // namespace

PrintOptions printOptionsFromSettings(const Settings& s, const EditOptions& o) {
    PrintOptions p;
    p.syntax = s.printing.syntaxPrint;
    p.colour = s.printing.printInColor;
    p.wrap = o.splitLongLines;
    p.lineNumbers = o.lineNumbers;
    p.header = s.printing.header;
    p.footer = s.printing.footer;
    p.leftMargin = s.printing.leftMargin;
    p.rightMargin = s.printing.rightMargin;
    p.topMargin = s.printing.topMargin;
    p.bottomMargin = s.printing.bottomMargin;
    return p;
}

std::string printFontName(const Settings& s) {
    return s.printing.fontName.empty() ? s.fontName : s.printing.fontName;
}

int printFontSize(const Settings& s) {
    const SettingRow* screen = findSetting("Settings", "FontSize");
    const int size = s.printing.fontName.empty() ? s.fontSize : s.printing.fontSize;
    return std::clamp(size, screen->minimum, screen->maximum);
}

bool planPrint(const Document& doc, const PrintOptions& options, const PageMetrics& metrics, PrintPlan& plan,
               std::string& error) {
    plan = PrintPlan{&doc, options, metrics, {}, 0, lastLine(doc), {}};
    if (options.selectionOnly) {
        Pos b, e;
        if (!hasSelection(doc) || !selectionRange(doc, b, e)) {
            error = printmsg::kNothingSelected;
            return false;
        }
        plan.firstLine = b.line;
        // A selection that ends at the start of a line takes nothing of it.
        plan.lastLine = e.col == 0 && e.line > b.line && !isColumnSelection(doc) ? e.line - 1 : e.line;
    }
    if (!frameOf(options, metrics, plan.lastLine + 1, plan.frame, error)) return false;
    const LineList& ll = doc.lines;
    int rowsLeft = 0;
    LineRef r = ll.find(plan.firstLine);
    for (int32_t line = plan.firstLine; line <= plan.lastLine; ++line, r = ll.next(r)) {
        const int rows = rowsOf(plan, ll.text(r), windowOf(plan, line));
        for (int row = 0; row < rows; ++row) {
            if (rowsLeft == 0) {
                plan.pages.push_back({line, row});
                rowsLeft = plan.frame.textRows;
            }
            --rowsLeft;
        }
    }
    return true;
}

namespace {

// Collects the runs of one document line's rows [rowFrom, rowTo) into rows.
class RowBuilder {
public:
    RowBuilder(const PrintPlan& plan, std::vector<PrintRow>& rows) : plan_(plan), rows_(rows) {
        const Document& d = *plan.doc;
        const SyntaxHighlightTable& t = syntaxTable();
        useSyntax_ = plan.options.syntax && definitionAt(t, d.syntaxSlot);
        kinds_.fill(RunKind::Text);
        colourOf_.fill(kBlack);
        if (useSyntax_) {
            for (int i = 0; i < 256; ++i) {
                const auto index = static_cast<uint8_t>(i);
                if (isKeywordColour(t, d.syntaxSlot, index)) kinds_[index] = RunKind::Keyword;
                else if (isCommentColour(t, d.syntaxSlot, index)) kinds_[index] = RunKind::Comment;
                if (plan.options.colour && i != 0) colourOf_[index] = paletteColour(i);
            }
            if (plan.options.colour) numberColour_ = lineNumberColour(t, d.syntaxSlot).value_or(kBlack);
        }
    }

    void line(int32_t line, std::string_view text, int inComment, int rowFrom, int rowTo) {
        const size_t base = rows_.size();
        rows_.resize(base + static_cast<size_t>(rowTo - rowFrom));
        if (rowFrom == 0 && plan_.frame.numberColumns > 0) {
            std::string num = std::to_string(line + 1);
            num.insert(0, static_cast<size_t>(std::max(0, plan_.frame.numberColumns - 1 - static_cast<int>(num.size()))), ' ');
            rows_[base].runs.push_back({0, std::move(num), numberColour_, RunKind::LineNumber});
        }
        colours_.assign(text.size(), 0);
        if (useSyntax_) scanLine(syntaxTable(), plan_.doc->syntaxSlot, text, colours_.data(), inComment);
        const LineWindow w = windowOf(plan_, line);
        const int cols = std::max(1, plan_.frame.columns - plan_.frame.numberColumns);
        const int tabSize = options().tabSize;
        int col = 0;
        for (size_t i = 0; i < text.size() && col < w.to; ++i) {
            const int next = advanceColumn(text[i], col, tabSize);
            for (int c = std::max(col, w.from); c < next && c < w.to; ++c) {
                const int v = c - w.shift;
                const int row = plan_.options.wrap ? v / cols : 0;
                if (row >= rowTo) return;
                if (row < rowFrom || (!plan_.options.wrap && v >= cols)) continue;
                const char ch = c == col && text[i] != '\t' ? text[i] : ' ';
                put(rows_[base + static_cast<size_t>(row - rowFrom)], plan_.frame.numberColumns + v % cols, ch,
                    colours_[i]);
            }
            col = next;
        }
    }

private:
    void put(PrintRow& row, int column, char ch, uint8_t index) {
        const RunKind kind = kinds_[index];
        const Rgb colour = colourOf_[index];
        if (!row.runs.empty()) {
            PrintRun& last = row.runs.back();
            if (last.kind == kind && last.colour == colour &&
                last.column + static_cast<int>(last.text.size()) == column) {
                last.text += ch;
                return;
            }
        }
        row.runs.push_back({column, std::string(1, ch), colour, kind});
    }

    const PrintPlan& plan_;
    std::vector<PrintRow>& rows_;
    std::vector<uint8_t> colours_;
    bool useSyntax_ = false;
    std::array<RunKind, 256> kinds_;
    std::array<Rgb, 256> colourOf_;
    Rgb numberColour_ = kBlack;
};

}  // namespace

PrintPage layoutPage(const PrintPlan& plan, size_t index, PageFacts facts) {
    PrintPage page;
    if (index >= plan.pages.size()) return page;
    facts.page = static_cast<int>(index) + 1;
    facts.pages = static_cast<int>(plan.pages.size());
    page.header = expandPageCodes(plan.options.header, facts);
    page.footer = expandPageCodes(plan.options.footer, facts);
    const LineList& ll = plan.doc->lines;
    RowBuilder builder(plan, page.rows);
    const PageStart start = plan.pages[index];
    ensureCommentStates(*plan.doc, plan.lastLine);
    LineRef r = ll.find(start.line);
    int rowFrom = start.row;
    for (int32_t line = start.line; line <= plan.lastLine; ++line, r = ll.next(r), rowFrom = 0) {
        const int left = plan.frame.textRows - static_cast<int>(page.rows.size());
        if (left <= 0) break;
        const std::string_view text = ll.text(r);
        const int rows = rowsOf(plan, text, windowOf(plan, line));
        const int inComment = line == 0 ? 0 : ll.header(ll.prev(r)).comment;
        builder.line(line, text, inComment, rowFrom, std::min(rows, rowFrom + left));
    }
    return page;
}

}  // namespace zol
