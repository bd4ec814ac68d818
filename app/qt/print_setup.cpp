#include "app/qt/print_setup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/qt/local_text.h"
#include "app/qt/print_messages.h"
#include "app/qt/print_page.h"
#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/options.h"

namespace zol {

namespace {

QString txt(const char* s) { return QString::fromUtf8(s); }

constexpr QPageSize::PageSizeId kPapers[] = {QPageSize::A4, QPageSize::Letter, QPageSize::Legal,
                                              QPageSize::A3, QPageSize::A5, QPageSize::B5};
// A margin in millimetres; the settings hold tenths.
constexpr double kMaxMarginMm = 200;

// A face list with the fixed-pitch faces (the layout counts in character cells), led
// by the entry that stands for an empty setting.
QComboBox* faceBox(QWidget* parent, const char* emptyText, const std::string& value) {
    auto* box = new QComboBox(parent);
    box->addItem(txt(emptyText), QString());
    for (const QString& f : QFontDatabase::families())
        if (QFontDatabase::isFixedPitch(f)) box->addItem(f, f);
    const int at = box->findData(qs(value));
    if (at < 0 && !value.empty()) box->addItem(qs(value), qs(value));
    box->setCurrentIndex(std::max(0, box->findData(qs(value))));
    return box;
}

}  // namespace

TPageSetupDlg::TPageSetupDlg(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("PageSetup"));
    setWindowTitle(txt(printqt::kSetupTitle));
    const PrintSettings& p = settings().printing;
    auto* form = new QFormLayout;
    paper_ = new QComboBox(this);
    for (QPageSize::PageSizeId id : kPapers) paper_->addItem(QPageSize::name(id), static_cast<int>(id));
    paper_->setCurrentIndex(std::max(0, paper_->findData(static_cast<int>(paperLayout().pageSize().id()))));
    landscape_ = new QCheckBox(txt(printqt::kSetupLandscape), this);
    landscape_->setChecked(paperLayout().orientation() == QPageLayout::Landscape);
    form->addRow(txt(printqt::kSetupPaper), paper_);
    form->addRow(QString(), landscape_);

    auto* marginBox = new QGroupBox(txt(printqt::kSetupMargins), this);
    auto* marginForm = new QFormLayout(marginBox);
    const int values[4] = {p.leftMargin, p.rightMargin, p.topMargin, p.bottomMargin};
    const char* labels[4] = {printqt::kSetupLeft, printqt::kSetupRight, printqt::kSetupTop, printqt::kSetupBottom};
    for (int i = 0; i < 4; ++i) {
        margins_[i] = new QDoubleSpinBox(marginBox);
        margins_[i]->setDecimals(1);
        margins_[i]->setRange(0, kMaxMarginMm);
        margins_[i]->setValue(values[i] / 10.0);
        marginForm->addRow(txt(labels[i]), margins_[i]);
    }

    header_ = new QLineEdit(qs(p.header), this);
    footer_ = new QLineEdit(qs(p.footer), this);
    for (QLineEdit* e : {header_, footer_}) e->setMaxLength(static_cast<int>(kPrintHeaderSize - 1));
    form->addRow(txt(printqt::kSetupHeader), header_);
    form->addRow(txt(printqt::kSetupFooter), footer_);
    auto* codes = new QLabel(txt(printqt::kSetupCodes).replace(QStringLiteral("&&"), QStringLiteral("&")), this);
    codes->setWordWrap(true);
    form->addRow(QString(), codes);

    font_ = faceBox(this, printqt::kSetupScreenFont, p.fontName);
    size_ = new QSpinBox(this);
    const SettingRow* screenSize = findSetting("Settings", "FontSize");
    size_->setRange(screenSize->minimum, screenSize->maximum);
    size_->setValue(printFontSize(settings()));
    keywordFont_ = faceBox(this, printqt::kSetupSameFont, p.fontNameKeywords);
    commentFont_ = faceBox(this, printqt::kSetupSameFont, p.fontNameComments);
    form->addRow(txt(printqt::kSetupFont), font_);
    form->addRow(txt(printqt::kSetupFontSize), size_);
    form->addRow(txt(printqt::kSetupKeywordFont), keywordFont_);
    form->addRow(txt(printqt::kSetupCommentFont), commentFont_);

    syntax_ = new QCheckBox(txt(printqt::kSetupSyntax), this);
    syntax_->setChecked(p.syntaxPrint);
    colour_ = new QCheckBox(txt(printqt::kSetupColour), this);
    colour_->setChecked(p.printInColor);
    wrap_ = new QCheckBox(txt(printqt::kSetupWrap), this);
    wrap_->setChecked(options().splitLongLines);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(marginBox);
    for (QCheckBox* c : {syntax_, colour_, wrap_}) layout->addWidget(c);
    layout->addWidget(new QLabel(txt(printqt::kSetupLineNumbers), this));
    layout->addWidget(buttons);
}

void TPageSetupDlg::accept() {
    PrintSettings& p = settings().printing;
    int* targets[4] = {&p.leftMargin, &p.rightMargin, &p.topMargin, &p.bottomMargin};
    for (int i = 0; i < 4; ++i) *targets[i] = static_cast<int>(std::lround(margins_[i]->value() * 10));
    p.header = local(header_->text());
    p.footer = local(footer_->text());
    p.fontName = local(font_->currentData().toString());
    // Without a face of its own the printer font is the screen's, size included; a size
    // of its own makes the screen's face the printer font's.
    if (p.fontName.empty() && size_->value() != settings().fontSize) p.fontName = settings().fontName;
    p.fontSize = size_->value();
    p.fontNameKeywords = local(keywordFont_->currentData().toString());
    p.fontNameComments = local(commentFont_->currentData().toString());
    p.syntaxPrint = syntax_->isChecked();
    p.printInColor = colour_->isChecked();
    options().splitLongLines = wrap_->isChecked();
    paperLayout().setPageSize(QPageSize(static_cast<QPageSize::PageSizeId>(paper_->currentData().toInt())));
    paperLayout().setOrientation(landscape_->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait);
    QDialog::accept();
}

bool TPageSetupDlg::run(QWidget* parent) {
    TPageSetupDlg dlg(parent);
    return dlg.exec() == QDialog::Accepted;
}

}  // namespace zol
