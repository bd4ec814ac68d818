// How a document falls onto printed pages: the frame of text on the paper, which lines
// and pieces of lines each page holds, wrapped or cut, with line numbers, and what
// colour and kind each run of text has. The desktop's printer and preview and the PDF
// writer all paint from this; none of it knows a device beyond its measures.
//
// Margins are in tenths of a millimetre from the paper's edges (the default 254 is one
// inch), so the settings mean the same paper on every printer and in every PDF.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "printing/page_codes.h"
#include "syntax/table.h"

namespace zol {

struct Document;
struct Settings;
struct EditOptions;

struct PrintOptions {
    bool syntax = false;      // "SyntaxPrint": colours or kinds from the highlighting
    bool colour = true;       // "PrintInColor": black otherwise
    bool wrap = true;         // "SplitLongLines": long lines go on in the next row, else cut
    bool lineNumbers = false; // as the view shows them ("LineNumbers")
    bool selectionOnly = false;
    std::string header = "&f";
    std::string footer = "&p";
    int leftMargin = 254, rightMargin = 254, topMargin = 254, bottomMargin = 254;  // 0.1 mm
};
PrintOptions printOptionsFromSettings(const Settings& s, const EditOptions& o);
// The printer font's face and size: the "Printing" font once one was chosen, else the
// screen's; the size kept to what the screen font allows.
std::string printFontName(const Settings& s);
int printFontSize(const Settings& s);

// The measures of the paper and the font in the device's own units.
struct PageMetrics {
    double width = 0, height = 0;  // the whole sheet
    double perTenthMm = 0;         // device units in 0.1 mm
    double cellWidth = 0;          // one character of the (fixed-pitch) font
    double lineHeight = 0;
};

// Where things go on every page, in device units from the sheet's top left corner.
struct PageFrame {
    double left = 0, top = 0, width = 0;
    int columns = 0;        // text columns, line numbers included
    int numberColumns = 0;  // the line-number field and its gap, 0 without numbers
    int textRows = 0;       // rows of document text per page
    bool header = false, footer = false;
    double headerY = 0, textY = 0, footerY = 0;  // tops of their rows
};

// Where a page starts: a document line and the row of it (wrapped lines have several).
struct PageStart {
    int32_t line = 0;
    int32_t row = 0;
};

struct PrintPlan {
    const Document* doc = nullptr;
    PrintOptions options;
    PageMetrics metrics;
    PageFrame frame;
    int32_t firstLine = 0, lastLine = 0;
    std::vector<PageStart> pages;
};

// Checks that the page holds text, frames it and finds where every page starts
// (without colouring or building any page). False with a message for the user when
// the margins leave no room or there is nothing to print.
bool planPrint(const Document& doc, const PrintOptions& options, const PageMetrics& metrics, PrintPlan& plan,
               std::string& error);

enum class RunKind : uint8_t { Text, Keyword, Comment, LineNumber };
struct PrintRun {
    int column = 0;  // from the frame's left edge
    std::string text;  // the document's bytes (Windows-1252), tabs expanded
    Rgb colour{0, 0, 0};
    RunKind kind = RunKind::Text;
};
struct PrintRow {
    std::vector<PrintRun> runs;
};
struct PrintPage {
    PageLine header, footer;
    std::vector<PrintRow> rows;
};

// One page, built on demand; facts.page and facts.pages are set from index.
PrintPage layoutPage(const PrintPlan& plan, size_t index, PageFacts facts);

}  // namespace zol
