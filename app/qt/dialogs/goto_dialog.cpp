#include "app/qt/dialogs/goto_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <climits>

#include "app/qt/dialogs/messages.h"

namespace zol {

TGoToDialog::TGoToDialog(QWidget* parent, const QString& prompt, int value) : QDialog(parent) {
    setWindowTitle(dlgmsg::kGoToTitle);
    edit_ = new QLineEdit(QString::number(value), this);
    edit_->setObjectName("value");
    edit_->setValidator(new QIntValidator(0, INT_MAX, edit_));
    edit_->selectAll();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(edit_, &QLineEdit::textChanged, this, [this, buttons] {
        buttons->button(QDialogButtonBox::Ok)->setEnabled(edit_->hasAcceptableInput());
    });
    auto* form = new QFormLayout(this);
    auto* label = new QLabel(prompt, this);
    label->setBuddy(edit_);
    form->addRow(label, edit_);
    form->addRow(buttons);
}

bool TGoToDialog::run(QWidget* parent, const QString& prompt, int& value) {
    TGoToDialog dlg(parent, prompt, value);
    if (dlg.exec() != QDialog::Accepted || !dlg.edit_->hasAcceptableInput()) return false;
    bool ok = false;
    const int v = dlg.edit_->text().toInt(&ok);
    if (!ok) return false;
    value = v;
    return true;
}

}  // namespace zol
