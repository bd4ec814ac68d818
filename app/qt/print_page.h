// Painting the printing layer's pages with Qt: on a printer, and scaled in the preview.
#pragma once
#include <QFont>
#include <QPageLayout>

#include "printing/page_layout.h"

class QPainter;
class QPaintDevice;
class QPrinter;

namespace zol {

struct PrintFonts {
    QFont text, keyword, comment;
};

// The fonts of the "Printing" settings for device: a face of the keyword or comment
// setting replaces the printing font's; printing in black and white sets keywords
// bold and comments italic, so that the highlighting still shows.
PrintFonts printFonts(const PrintOptions& o, QPaintDevice* device);
// The paper in the device's units, from the sheet's corner.
PageMetrics pageMetricsOf(const QPageLayout& layout, int dpi, const PrintFonts& fonts, QPaintDevice* device);

// scale: painter units per device unit of the plan; the fonts must be made for the
// painter's device at that scale (scaledFonts), since text drawn through a scaled
// painter loses its hinting and most of its strokes when much smaller.
void paintPage(QPainter& p, const PrintPlan& plan, const PrintPage& page, const PrintFonts& fonts,
               double scale = 1.0);
PrintFonts scaledFonts(const PrintFonts& fonts, double scale, int fromDpi, QPaintDevice* to);

// The paper and orientation chosen in Page Setup (for this run of the editor).
QPageLayout& paperLayout();
// A printer set to that paper with its full sheet as the page, so the margins are ours.
void preparePrinter(QPrinter& printer);

}  // namespace zol
