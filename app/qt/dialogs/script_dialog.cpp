#include "app/qt/dialogs/script_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>

#include "app/qt/dialogs/messages.h"
#include "app/qt/local_text.h"
#include "script/run_script.h"
#include "script/script_choice.h"
#include "script/script_history.h"

namespace zol {
namespace {

// File names and arguments are bytes in the locale's encoding.

constexpr int kRelativePathRole = Qt::UserRole;

}  // namespace

TScriptDialog::TScriptDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(dlgmsg::kScriptTitle);
    setObjectName("VEKC_EXECUTESCRIPT");
    scripts_ = new QTreeWidget(this);
    scripts_->setObjectName("scripts");
    scripts_->setHeaderLabel(QString(dlgmsg::kScriptsBelow).arg(qs(scriptFolder())));
    scripts_->setMinimumSize(420, 220);
    script_ = new QComboBox(this);
    script_->setObjectName("script");
    script_->setEditable(true);
    script_->setInsertPolicy(QComboBox::NoInsert);
    for (const std::string& path : scriptHistory()) script_->addItem(qs(scriptDisplayName(path)));
    arguments_ = new QLineEdit(this);
    arguments_->setObjectName("arguments");

    auto* browse = new QPushButton(dlgmsg::kScriptBrowse, this);
    browse->setObjectName("browse");
    browse->setAutoDefault(false);
    auto* scriptRow = new QHBoxLayout;
    scriptRow->addWidget(script_, 1);
    scriptRow->addWidget(browse);
    auto* form = new QFormLayout;
    auto* scriptLabel = new QLabel(dlgmsg::kScriptFile, this);
    scriptLabel->setBuddy(script_);
    form->addRow(scriptLabel, scriptRow);
    form->addRow(dlgmsg::kScriptArguments, arguments_);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* runButton = buttons->addButton(dlgmsg::kScriptRun, QDialogButtonBox::AcceptRole);
    runButton->setObjectName("run");
    runButton->setDefault(true);
    QPushButton* wizard = buttons->addButton(dlgmsg::kScriptWizardButton, QDialogButtonBox::ActionRole);
    wizard->setObjectName("wizard");
    buttons->addButton(QDialogButtonBox::Cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scripts_, 1);
    layout->addLayout(form);
    layout->addWidget(buttons);

    connect(runButton, &QPushButton::clicked, this, &TScriptDialog::tryRun);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(wizard, &QPushButton::clicked, this, [this] { done(static_cast<int>(Outcome::Wizard)); });
    connect(browse, &QPushButton::clicked, this, &TScriptDialog::browse);
    connect(scripts_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item && item->data(0, kRelativePathRole).isValid()) script_->setEditText(item->data(0, kRelativePathRole).toString());
    });
    connect(scripts_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (item->data(0, kRelativePathRole).isValid()) tryRun();
    });
    fillScripts();
    script_->setCurrentIndex(script_->count() ? 0 : -1);
    script_->setFocus();
}

// One tree item per folder part, the scripts under their folders.
void TScriptDialog::fillScripts() {
    std::map<QString, QTreeWidgetItem*> folders;
    for (const std::string& relative : scriptsBelow(scriptFolder())) {
        const QString path = qs(relative);
        const QStringList parts = path.split(QLatin1Char('/'));
        QTreeWidgetItem* parent = nullptr;
        QString folder;
        for (qsizetype i = 0; i + 1 < parts.size(); ++i) {
            folder += parts[i] + QLatin1Char('/');
            QTreeWidgetItem*& node = folders[folder];
            if (!node) node = parent ? new QTreeWidgetItem(parent, {parts[i]}) : new QTreeWidgetItem(scripts_, {parts[i]});
            parent = node;
        }
        auto* item = parent ? new QTreeWidgetItem(parent, {parts.back()}) : new QTreeWidgetItem(scripts_, {parts.back()});
        item->setData(0, kRelativePathRole, path);
    }
    scripts_->expandAll();
}

void TScriptDialog::browse() {
    const QString file = QFileDialog::getOpenFileName(this, dlgmsg::kScriptTitle, qs(scriptFolder()), dlgmsg::kScriptFilter);
    if (!file.isEmpty()) script_->setEditText(qs(scriptDisplayName(local(file))));
}

void TScriptDialog::tryRun() {
    const std::string path = resolveScriptName(local(script_->currentText().trimmed()));
    if (const std::string problem = scriptPathProblem(path); !problem.empty()) {
        QMessageBox::warning(this, windowTitle(), qs(problem));
        script_->setFocus();
        return;
    }
    choice_ = {path, splitArgumentLine(local(arguments_->text()))};
    done(static_cast<int>(Outcome::Run));
}

TScriptDialog::Outcome TScriptDialog::run(QWidget* parent, Choice& choice) {
    TScriptDialog dlg(parent);
    const auto outcome = static_cast<Outcome>(dlg.exec());
    if (outcome == Outcome::Run) choice = dlg.choice_;
    return outcome;
}

}  // namespace zol
