#include "app/qt/print_preview.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/qt/local_text.h"
#include "app/qt/messages.h"
#include "app/qt/print_messages.h"
#include "app/qt/print_run.h"
#include "app/qt/print_setup.h"
#include "config/settings.h"
#include "engine/document.h"
#include "engine/options.h"
#include "platform/paths.h"
#include "printing/pdf_writer.h"

namespace zol {

namespace {

QString txt(const char* s) { return QString::fromUtf8(s); }

}  // namespace

void TPrintPreviewPage::show(const PrintPlan* plan, const PrintFonts* fonts, const PageFacts* facts, size_t page) {
    plan_ = plan;
    fonts_ = fonts;
    facts_ = facts;
    page_ = page;
    update();
}

void TPrintPreviewPage::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Dark));
    if (!plan_ || plan_->pages.empty()) return;
    const double w = plan_->metrics.width, h = plan_->metrics.height;
    const double scale = std::min((width() - 24) / w, (height() - 24) / h);
    if (scale <= 0) return;
    const QRectF sheet((width() - w * scale) / 2, (height() - h * scale) / 2, w * scale, h * scale);
    p.fillRect(sheet.translated(3, 3), palette().color(QPalette::Shadow));
    p.fillRect(sheet, Qt::white);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.translate(sheet.topLeft());
    p.setClipRect(QRectF(0, 0, sheet.width(), sheet.height()));
    const int dpi = static_cast<int>(std::lround(plan_->metrics.perTenthMm * 254));
    paintPage(p, *plan_, layoutPage(*plan_, page_, *facts_), scaledFonts(*fonts_, scale, dpi, this), scale);
}

TPrintPreviewDlg::TPrintPreviewDlg(QWidget* parent, Document& doc)
    : QDialog(parent), doc_(doc), printer_(QPrinter::HighResolution) {
    setObjectName(QStringLiteral("PrintPreview"));
    setWindowTitle(txt(printqt::kPreviewTitle).arg(qs(std::string(fileNamePart(doc.fileName)))));
    auto* bar = new QHBoxLayout;
    prev_ = new QPushButton(txt(printqt::kPreviewPrev), this);
    next_ = new QPushButton(txt(printqt::kPreviewNext), this);
    label_ = new QLabel(this);
    auto* print = new QPushButton(txt(printqt::kPreviewPrint), this);
    auto* setup = new QPushButton(txt(printqt::kPreviewSetup), this);
    auto* close = new QPushButton(txt(printqt::kPreviewClose), this);
    for (QWidget* w : {static_cast<QWidget*>(prev_), static_cast<QWidget*>(next_), static_cast<QWidget*>(label_)})
        bar->addWidget(w);
    bar->addStretch();
    for (QPushButton* b : {print, setup, close}) bar->addWidget(b);
    view_ = new TPrintPreviewPage(this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(view_, 1);
    connect(prev_, &QPushButton::clicked, this, [this] { goTo(page_ - 1); });
    connect(next_, &QPushButton::clicked, this, [this] { goTo(page_ + 1); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(setup, &QPushButton::clicked, this, [this] { pageSetup(); });
    connect(print, &QPushButton::clicked, this, [this] {
        hide();
        if (printDocument(parentWidget(), doc_)) accept();
        else show();
    });
    const QRect screen = (parent ? parent->screen() : QGuiApplication::primaryScreen())->availableGeometry();
    resize(std::min(720, screen.width() - 40), std::min(860, screen.height() - 60));
    facts_ = pageFactsNow(doc);
    planned_ = replan();
}

bool TPrintPreviewDlg::replan() {
    preparePrinter(printer_);
    fonts_ = printFonts(printOptionsFromSettings(settings(), options()), &printer_);
    std::string message;
    const PrintOptions o = printOptionsFromSettings(settings(), options());
    if (!planPrint(doc_, o, pageMetricsOf(printer_.pageLayout(), printer_.resolution(), fonts_, &printer_), plan_,
                   message)) {
        QMessageBox::information(parentWidget(), txt(qtmsg::kAppTitle), qs(message));
        return false;
    }
    goTo(std::min(page_, plan_.pages.size() - 1));
    return true;
}

void TPrintPreviewDlg::goTo(size_t page) {
    if (page >= plan_.pages.size()) return;
    page_ = page;
    label_->setText(txt(printqt::kPreviewPage).arg(page + 1).arg(plan_.pages.size()));
    prev_->setEnabled(page > 0);
    next_->setEnabled(page + 1 < plan_.pages.size());
    view_->show(&plan_, &fonts_, &facts_, page);
}

void TPrintPreviewDlg::pageSetup() {
    if (!TPageSetupDlg::run(this)) return;
    const PrintPlan kept = plan_;
    if (!replan()) {
        plan_ = kept;
        view_->update();
    }
}

void TPrintPreviewDlg::keyPressEvent(QKeyEvent* e) {
    switch (e->key()) {
    case Qt::Key_PageDown: goTo(page_ + 1); break;
    case Qt::Key_PageUp: goTo(page_ - 1); break;
    case Qt::Key_Home: goTo(0); break;
    case Qt::Key_End: goTo(plan_.pages.size() - 1); break;
    default: QDialog::keyPressEvent(e);
    }
}

bool TPrintPreviewDlg::run(QWidget* parent, Document& doc) {
    TPrintPreviewDlg dlg(parent, doc);
    return dlg.planned() && dlg.exec() == QDialog::Accepted;
}

}  // namespace zol
