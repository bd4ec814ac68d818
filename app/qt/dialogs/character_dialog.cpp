#include "app/qt/dialogs/character_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/qt/dialogs/messages.h"
#include "files/codepage.h"

namespace zol {

namespace {
constexpr int kColumns = 16;
}

TCharacterDialog::TCharacterDialog(QWidget* parent, const QString& title) : QDialog(parent) {
    setWindowTitle(title.isEmpty() ? QString(dlgmsg::kCharacterTitle) : title);
    table_ = new QTableWidget(256 / kColumns, kColumns, this);
    table_->setObjectName("characters");
    table_->horizontalHeader()->hide();
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int code = 0; code < 256; ++code) {
        // Control characters get a visible stand-in from the Control Pictures block.
        const char16_t u = ansiToUnicode(static_cast<uint8_t>(code));
        const QChar shown = u < 32 ? QChar(0x2400 + u) : QChar(u);
        auto* item = new QTableWidgetItem(QString(shown));
        item->setTextAlignment(Qt::AlignCenter);
        item->setData(Qt::UserRole, code);
        if (code == 0) item->setFlags(Qt::NoItemFlags);
        table_->setItem(code / kColumns, code % kColumns, item);
    }
    code_ = new QLabel(this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(table_, &QTableWidget::itemSelectionChanged, this, [this, ok] {
        const int c = chosen();
        ok->setEnabled(c > 0);
        code_->setText(c > 0 ? QString(dlgmsg::kCharacterCode).arg(c).arg(c, 2, 16, QChar('0')) : QString());
    });
    connect(table_, &QTableWidget::itemDoubleClicked, this, [this] {
        if (chosen() > 0) accept();
    });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table_);
    layout->addWidget(code_);
    layout->addWidget(buttons);
    resize(560, 520);
}

int TCharacterDialog::chosen() const {
    const QList<QTableWidgetItem*> items = table_->selectedItems();
    if (items.isEmpty()) return -1;
    const int c = items.first()->data(Qt::UserRole).toInt();
    return c > 0 ? c : -1;
}

int TCharacterDialog::run(QWidget* parent, const QString& title) {
    TCharacterDialog dlg(parent, title);
    if (dlg.exec() != QDialog::Accepted) return -1;
    return dlg.chosen();
}

}  // namespace zol
