#include "app/qt/print_page.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPrinter>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/local_text.h"
#include "config/settings.h"

namespace zol {

namespace {

QColor toQColor(Rgb c) { return QColor(c.r, c.g, c.b); }

const QFont& fontOf(const PrintFonts& f, RunKind kind) {
    return kind == RunKind::Keyword ? f.keyword : kind == RunKind::Comment ? f.comment : f.text;
}

}  // namespace

PrintFonts printFonts(const PrintOptions& o, QPaintDevice* device) {
    const Settings& s = settings();
    QFont text(qs(printFontName(s)), printFontSize(s));
    // The setting keeps the Windows weights, 100 to 900 as Qt's.
    if (!s.printing.fontName.empty()) text.setWeight(static_cast<QFont::Weight>(std::clamp(s.printing.fontWeight, 100, 900)));
    text.setStyleHint(QFont::TypeWriter);
    text.setFixedPitch(true);
    PrintFonts f{QFont(text, device), QFont(text, device), QFont(text, device)};
    if (!s.printing.fontNameKeywords.empty()) f.keyword.setFamily(qs(s.printing.fontNameKeywords));
    if (!s.printing.fontNameComments.empty()) f.comment.setFamily(qs(s.printing.fontNameComments));
    if (o.syntax && !o.colour) {
        f.keyword.setBold(true);
        f.comment.setItalic(true);
    }
    return f;
}

PageMetrics pageMetricsOf(const QPageLayout& layout, int dpi, const PrintFonts& fonts, QPaintDevice* device) {
    const QRect sheet = layout.fullRectPixels(dpi);
    const QFontMetricsF fm(fonts.text, device);
    return {static_cast<double>(sheet.width()), static_cast<double>(sheet.height()), dpi / 254.0,
            fm.horizontalAdvance(QLatin1Char('M')), fm.lineSpacing()};
}

PrintFonts scaledFonts(const PrintFonts& fonts, double scale, int fromDpi, QPaintDevice* to) {
    auto one = [&](const QFont& f) {
        QFont g(f);
        g.setPointSizeF(f.pointSizeF() * scale * fromDpi / to->logicalDpiY());
        return QFont(g, to);
    };
    return {one(fonts.text), one(fonts.keyword), one(fonts.comment)};
}

void paintPage(QPainter& p, const PrintPlan& plan, const PrintPage& page, const PrintFonts& fonts, double scale) {
    const PageFrame& f = plan.frame;
    const PageMetrics& s = plan.metrics;
    const double ascent = QFontMetricsF(fonts.text, p.device()).ascent();
    auto show = [&](int column, double top, const QString& text, const QFont& font, QColor colour) {
        p.setFont(font);
        p.setPen(colour);
        p.drawText(QPointF((f.left + column * s.cellWidth) * scale, top * scale + ascent), text);
    };
    auto pageLine = [&](const PageLine& line, double top) {
        const int at[3] = {0, (f.columns - static_cast<int>(line[1].size())) / 2,
                           f.columns - static_cast<int>(line[2].size())};
        for (int i = 0; i < 3; ++i)
            if (!line[i].empty()) show(std::max(0, at[i]), top, fromCp1252(line[i]), fonts.text, Qt::black);
    };
    if (f.header) pageLine(page.header, f.headerY);
    for (size_t i = 0; i < page.rows.size(); ++i) {
        const double top = f.textY + static_cast<double>(i) * s.lineHeight;
        for (const PrintRun& r : page.rows[i].runs)
            show(r.column, top, fromCp1252(r.text), fontOf(fonts, r.kind), toQColor(r.colour));
    }
    if (f.footer) pageLine(page.footer, f.footerY);
}

QPageLayout& paperLayout() {
    static QPageLayout layout(
        QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter : QPageSize::A4),
        QPageLayout::Portrait, QMarginsF());
    return layout;
}

void preparePrinter(QPrinter& printer) {
    printer.setFullPage(true);
    printer.setPageLayout(paperLayout());
    printer.setPageMargins(QMarginsF(), QPageLayout::Millimeter);
}

}  // namespace zol
