#include "app/qt/print_run.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>

#include "app/qt/local_text.h"
#include "app/qt/messages.h"
#include "app/qt/print_messages.h"
#include "app/qt/print_page.h"
#include "config/settings.h"
#include "engine/document.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "printing/pdf_writer.h"

namespace zol {

namespace {

// Showing progress costs a round of the event loop; every few pages is often enough.
constexpr size_t kProgressEvery = 8;

class Progress {
public:
    explicit Progress(QWidget* parent) : dlg_(QString(), txt(printqt::kPrintCancel), 0, 1, parent) {
        dlg_.setWindowTitle(txt(printqt::kPrintTitle));
        // Pages are laid out from the document as they print: no window may edit or
        // close it meanwhile, the printing one's siblings included.
        dlg_.setWindowModality(Qt::ApplicationModal);
        dlg_.setMinimumDuration(400);
    }
    // False once the user cancelled.
    bool step(size_t done, size_t total) {
        if (done % kProgressEvery != 0 && done != total) return !dlg_.wasCanceled();
        dlg_.setMaximum(static_cast<int>(total));
        dlg_.setLabelText(txt(printqt::kPrinting).arg(done).arg(total));
        dlg_.setValue(static_cast<int>(done));
        return !dlg_.wasCanceled();
    }

private:
    static QString txt(const char* s) { return QString::fromUtf8(s); }
    QProgressDialog dlg_;
};

void tell(QWidget* parent, const std::string& message) {
    QMessageBox::information(parent, QString::fromUtf8(qtmsg::kAppTitle), qs(message));
}

bool toPdf(QWidget* parent, const Document& doc, QPrinter& printer, const PrintOptions& o) {
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Point).size();
    PrintPlan plan;
    std::string message;
    if (!planPrint(doc, o, pdfPageMetrics(printFontSize(settings()), paper.width(), paper.height()), plan, message)) {
        tell(parent, message);
        return false;
    }
    Progress progress(parent);
    const PrintOutcome r = writePdf(plan, pageFactsNow(doc), local(printer.outputFileName()),
                                    [&](size_t done, size_t total) { return progress.step(done, total); }, message);
    if (r != PrintOutcome::Done) tell(parent, message);
    return r == PrintOutcome::Done;
}

bool toPrinter(QWidget* parent, const Document& doc, QPrinter& printer, const PrintOptions& o) {
    const PrintFonts fonts = printFonts(o, &printer);
    PrintPlan plan;
    std::string message;
    if (!planPrint(doc, o, pageMetricsOf(printer.pageLayout(), printer.resolution(), fonts, &printer), plan, message)) {
        tell(parent, message);
        return false;
    }
    QPainter painter;
    if (!painter.begin(&printer)) {
        tell(parent, printqt::kPrintFailed);
        return false;
    }
    const size_t last = plan.pages.size();
    const size_t from = printer.fromPage() > 0 ? static_cast<size_t>(printer.fromPage()) - 1 : 0;
    const size_t to = printer.toPage() > 0 ? std::min(last, static_cast<size_t>(printer.toPage())) : last;
    const PageFacts facts = pageFactsNow(doc);
    Progress progress(parent);
    for (size_t i = from; i < to; ++i) {
        if (i > from) printer.newPage();
        paintPage(painter, plan, layoutPage(plan, i, facts), fonts);
        if (!progress.step(i + 1 - from, to - from)) {
            printer.abort();
            return false;
        }
    }
    return painter.end();
}

}  // namespace

bool printDocument(QWidget* parent, Document& doc) {
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(printer);
    printer.setDocName(qs(doc.fileName));
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        tell(parent, printqt::kNoPrinter);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QFileInfo(qs(doc.fileName)).completeBaseName() + QStringLiteral(".pdf"));
    }
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, hasSelection(doc));
    dialog.setOption(QAbstractPrintDialog::PrintToFile, true);
    if (dialog.exec() != QDialog::Accepted) return false;
    PrintOptions o = printOptionsFromSettings(settings(), options());
    o.selectionOnly = printer.printRange() == QPrinter::Selection;
    if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty())
        return toPdf(parent, doc, printer, o);
    return toPrinter(parent, doc, printer, o);
}

}  // namespace zol
