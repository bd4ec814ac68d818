// Printing to a PDF file without a printer or a window system: the pages of a print
// plan set in the PDF's own fixed-pitch fonts (the Courier family every PDF reader
// has), whose Windows-1252 encoding is the documents' own, so nothing is embedded and
// a large document prints fast. The file appears whole or not at all.
#pragma once
#include <cstddef>
#include <functional>
#include <string>

#include "printing/page_layout.h"

namespace zol {

// A sheet of the given size in points (A4, the paper of most of the world, unless
// told) with the cell of Courier at fontSize.
PageMetrics pdfPageMetrics(double fontSize, double width = 0, double height = 0);

enum class PrintOutcome { Done, Cancelled, Failed };
// Called after every page with the pages done and the total; false stops the printing.
using PrintProgress = std::function<bool(size_t done, size_t total)>;

// Writes every page of plan to path. On Cancelled or Failed, message says so and the
// file is as it was before.
PrintOutcome writePdf(const PrintPlan& plan, const PageFacts& facts, const std::string& path,
                      const PrintProgress& progress, std::string& message);

}  // namespace zol

namespace zol {

// The facts of a print started now: the document's name, the local date and time.
PageFacts pageFactsNow(const Document& doc);
// The whole of it with the settings of section "Printing": plan, then write.
PrintOutcome printDocumentToPdf(const Document& doc, bool selectionOnly, const std::string& path,
                                const PrintProgress& progress, std::string& message);

}  // namespace zol
