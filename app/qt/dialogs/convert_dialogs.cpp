#include "app/qt/dialogs/convert_dialogs.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "engine/shell.h"
#include "files/codepage.h"
#include "platform/paths.h"

namespace zol {
namespace {

// The choices in the order of their kinds, User first.
constexpr const char* kKindLabels[] = {dlgmsg::kConvertUser, dlgmsg::kConvertOemToAnsi, dlgmsg::kConvertAnsiToOem};
constexpr int kKindCount = static_cast<int>(std::size(kKindLabels));
static_assert(static_cast<int>(ConvertKind::AnsiToOem) - static_cast<int>(ConvertKind::User) + 1 == kKindCount);

int kindIndex(ConvertKind k) { return static_cast<int>(k) - static_cast<int>(ConvertKind::User); }

class QtConvertChooser : public QObject, public ConvertChooser {
public:
    explicit QtConvertChooser(QWidget* frame) : QObject(frame), frame_(frame) {
        setConvertChooser(this);
        installed() = this;
    }
    ~QtConvertChooser() override {
        if (installed() != this) return;
        setConvertChooser(nullptr);
        installed() = nullptr;
    }

    bool chooseKind(ConvertChoice& choice) override { return TConvertTextDlg::run(frame_, choice); }

    bool chooseTable(const std::vector<std::string>& names, std::string& picked) override {
        switch (TConvertTableDlg::run(frame_, names, picked)) {
        case TConvertTableDlg::Chosen: return true;
        case TConvertTableDlg::EditTables:
            // Once the command has ended: the file becomes the active document.
            QTimer::singleShot(0, this, [] { shell().openFile(resolveBareName(kConvertTableFile)); });
            return false;
        default: return false;
        }
    }

private:
    // A later frame's chooser stays when an earlier frame goes.
    static QtConvertChooser*& installed() {
        static QtConvertChooser* current = nullptr;
        return current;
    }
    QPointer<QWidget> frame_;
};

}  // namespace

TConvertTextDlg::TConvertTextDlg(QWidget* parent, const ConvertChoice& choice) : QDialog(parent) {
    setWindowTitle(QString::fromLatin1(dlgmsg::kConvertTextTitle));
    auto* group = new QGroupBox(QString::fromLatin1(dlgmsg::kConvertGroup), this);
    auto* column = new QVBoxLayout(group);
    for (int i = 0; i < kKindCount; ++i) {
        kinds_[i] = new QRadioButton(QString::fromLatin1(kKindLabels[i]), group);
        kinds_[i]->setObjectName(QStringLiteral("kind%1").arg(i + static_cast<int>(ConvertKind::User)));
        column->addWidget(kinds_[i]);
    }
    const int chosen = kindIndex(choice.kind);
    kinds_[chosen >= 0 && chosen < kKindCount ? chosen : 0]->setChecked(true);
    selectedOnly_ = new QCheckBox(QString::fromLatin1(dlgmsg::kConvertSelected), this);
    selectedOnly_->setObjectName("selectedOnly");
    selectedOnly_->setChecked(choice.selectedOnly);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addWidget(selectedOnly_);
    layout->addWidget(buttons);
}

bool TConvertTextDlg::run(QWidget* parent, ConvertChoice& choice) {
    TConvertTextDlg dlg(parent, choice);
    if (dlg.exec() != QDialog::Accepted) return false;
    for (int i = 0; i < kKindCount; ++i)
        if (dlg.kinds_[i]->isChecked()) choice.kind = static_cast<ConvertKind>(i + static_cast<int>(ConvertKind::User));
    choice.selectedOnly = dlg.selectedOnly_->isChecked();
    return true;
}

TConvertTableDlg::TConvertTableDlg(QWidget* parent, const std::vector<std::string>& names, const std::string& picked)
    : QDialog(parent) {
    setWindowTitle(QString::fromLatin1(dlgmsg::kConvertTableTitle));
    list_ = new QListWidget(this);
    list_->setObjectName("tables");
    for (const std::string& n : names) list_->addItem(fromCp1252(n));
    const QList<QListWidgetItem*> last = list_->findItems(fromCp1252(picked), Qt::MatchExactly);
    list_->setCurrentRow(last.isEmpty() ? 0 : list_->row(last.front()));
    auto* label = new QLabel(QString::fromLatin1(dlgmsg::kConvertTableList), this);
    label->setBuddy(list_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* edit = buttons->addButton(QString::fromLatin1(dlgmsg::kConvertEditTables), QDialogButtonBox::ActionRole);
    edit->setObjectName("editTables");
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { done(Chosen); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { done(Cancelled); });
    connect(edit, &QPushButton::clicked, this, [this] { done(EditTables); });
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { done(Chosen); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list_);
    layout->addWidget(buttons);
}

TConvertTableDlg::Outcome TConvertTableDlg::run(QWidget* parent, const std::vector<std::string>& names,
                                                std::string& picked) {
    TConvertTableDlg dlg(parent, names, picked);
    const auto outcome = static_cast<Outcome>(dlg.exec());
    if (outcome != Chosen) return outcome;
    const QListWidgetItem* item = dlg.list_->currentItem();
    if (!item) return Cancelled;
    // The names came from the file as bytes; the row is the way back to them.
    picked = names[static_cast<size_t>(dlg.list_->row(item))];
    return Chosen;
}

void installConvertChooser(QWidget* frame) { new QtConvertChooser(frame); }

}  // namespace zol
