#include "app/qt/dialogs/plugin_dialogs.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/qt/local_text.h"
#include "app/qt/plugin_messages.h"
#include "app/qt/qt_shell.h"
#include "platform/paths.h"
#include "plugin/plugin_install.h"
#include "plugin/plugin_manager.h"

namespace zol {
namespace {

QString latin(const char* text) { return QString::fromLatin1(text); }

QPushButton* button(QWidget* parent, const char* text, const char* name) {
    auto* b = new QPushButton(latin(text), parent);
    b->setObjectName(QLatin1String(name));
    b->setAutoDefault(false);
    return b;
}

QTreeWidget* moduleList(QWidget* parent, const QStringList& columns) {
    auto* list = new QTreeWidget(parent);
    list->setObjectName(QStringLiteral("plugIns"));
    list->setRootIsDecorated(false);
    list->setHeaderLabels(columns);
    list->header()->setStretchLastSection(true);
    list->setMinimumWidth(460);
    return list;
}

// The row of a module carries its handle; rows are rebuilt after every call into a
// module, which may have unloaded itself or others.
constexpr int kModuleRole = Qt::UserRole;

}  // namespace

TAboutPlugInsDlg::TAboutPlugInsDlg(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("AboutPlugIns"));
    setWindowTitle(latin(plgqt::kAboutTitle));
    list_ = moduleList(this, {latin(plgqt::kNameColumn), latin(plgqt::kFileColumn)});
    about_ = button(this, plgqt::kAboutButton, "about");
    help_ = button(this, plgqt::kHelpButton, "help");
    options_ = button(this, plgqt::kOptionsButton, "options");
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QTreeWidget::currentItemChanged, this, &TAboutPlugInsDlg::refreshButtons);
    connect(about_, &QPushButton::clicked, this, [this] { callSelected("XPP_About"); });
    connect(help_, &QPushButton::clicked, this, [this] { callSelected("XPP_Help"); });
    connect(options_, &QPushButton::clicked, this, [this] { callSelected("XPP_Options"); });

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {about_, help_, options_}) buttons->addWidget(b);
    buttons->addStretch();
    auto* row = new QHBoxLayout;
    row->addWidget(list_, 1);
    row->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    if (plugInManager().modules.empty()) layout->addWidget(new QLabel(latin(plgqt::kNoneLoaded), this));
    layout->addWidget(close);
    refresh();
}

void TAboutPlugInsDlg::run(QWidget* parent) {
    TAboutPlugInsDlg dlg(parent);
    dlg.exec();
}

void TAboutPlugInsDlg::refresh() {
    const auto* current = list_->currentItem();
    const QVariant was = current ? current->data(0, kModuleRole) : QVariant();
    list_->clear();
    for (const PlugInRecord& r : plugInManager().modules) {
        auto* item = new QTreeWidgetItem(list_, {fromAnsi(r.name), qs(r.path)});
        item->setData(0, kModuleRole, QVariant::fromValue(reinterpret_cast<quintptr>(r.module)));
        if (item->data(0, kModuleRole) == was || !list_->currentItem()) list_->setCurrentItem(item);
    }
    list_->resizeColumnToContents(0);
    refreshButtons();
}

void TAboutPlugInsDlg::refreshButtons() {
    const QTreeWidgetItem* item = list_->currentItem();
    auto* module = item ? reinterpret_cast<LibraryHandle>(item->data(0, kModuleRole).value<quintptr>()) : nullptr;
    about_->setEnabled(module && plugInHasEntry(module, "XPP_About"));
    help_->setEnabled(module && plugInHasEntry(module, "XPP_Help"));
    options_->setEnabled(module && plugInHasEntry(module, "XPP_Options"));
}

void TAboutPlugInsDlg::callSelected(const char* entry) {
    const QTreeWidgetItem* item = list_->currentItem();
    if (!item) return;
    auto* module = reinterpret_cast<LibraryHandle>(item->data(0, kModuleRole).value<quintptr>());
    callPlugInWindowEntry(module, entry, reinterpret_cast<intptr_t>(this));
    refresh();
}

TAddRemovePlugInsDlg::TAddRemovePlugInsDlg(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("AddRemovePlugIns"));
    setWindowTitle(latin(plgqt::kAddRemoveTitle));
    list_ = moduleList(this, {latin(plgqt::kFileColumn), latin(plgqt::kStateColumn), latin(plgqt::kNameColumn)});
    add_ = button(this, plgqt::kAddButton, "add");
    load_ = button(this, plgqt::kLoadButton, "load");
    unload_ = button(this, plgqt::kUnloadButton, "unload");
    remove_ = button(this, plgqt::kRemoveButton, "remove");
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QTreeWidget::currentItemChanged, this, &TAddRemovePlugInsDlg::refreshButtons);
    connect(add_, &QPushButton::clicked, this, &TAddRemovePlugInsDlg::addChosen);
    connect(load_, &QPushButton::clicked, this, &TAddRemovePlugInsDlg::loadSelected);
    connect(unload_, &QPushButton::clicked, this, &TAddRemovePlugInsDlg::unloadSelected);
    connect(remove_, &QPushButton::clicked, this, &TAddRemovePlugInsDlg::removeSelected);

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {add_, load_, unload_, remove_}) buttons->addWidget(b);
    buttons->addStretch();
    auto* row = new QHBoxLayout;
    row->addWidget(list_, 1);
    row->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(latin(plgqt::kFolderNote).arg(qs(plugInFolder())), this));
    layout->addLayout(row);
    layout->addWidget(close);
    refresh();
}

void TAddRemovePlugInsDlg::run(QWidget* parent) {
    TAddRemovePlugInsDlg dlg(parent);
    dlg.exec();
}

void TAddRemovePlugInsDlg::refresh() {
    const std::string was = selectedFile();
    list_->clear();
    for (const InstalledPlugIn& p : installedPlugIns()) {
        const PlugInRecord* r = p.module ? findPlugIn(p.module) : nullptr;
        auto* item = new QTreeWidgetItem(
            list_, {qs(p.file), latin(r ? plgqt::kLoaded : plgqt::kNotLoaded), r ? fromAnsi(r->name) : QString()});
        if (p.file == was || !list_->currentItem()) list_->setCurrentItem(item);
    }
    list_->resizeColumnToContents(0);
    refreshButtons();
}

void TAddRemovePlugInsDlg::refreshButtons() {
    const QTreeWidgetItem* item = list_->currentItem();
    const bool loaded = item && item->text(1) == latin(plgqt::kLoaded);
    load_->setEnabled(item && !loaded);
    unload_->setEnabled(loaded);
    remove_->setEnabled(item != nullptr);
}

std::string TAddRemovePlugInsDlg::selectedFile() const {
    const QTreeWidgetItem* item = list_->currentItem();
    return item ? local(item->text(0)) : std::string();
}

bool TAddRemovePlugInsDlg::select(const QString& file) {
    const QList<QTreeWidgetItem*> found = list_->findItems(file, Qt::MatchFixedString, 0);
    if (found.isEmpty()) return false;
    list_->setCurrentItem(found.front());
    return true;
}

// Shows a failure's message; true when there was none.
bool TAddRemovePlugInsDlg::report(const std::string& message) {
    refresh();
    if (message.empty()) return true;
    QMessageBox::warning(this, windowTitle(), qs(message));
    return false;
}

bool TAddRemovePlugInsDlg::addFrom(const QString& path) {
    const bool ok = report(installPlugIn(local(path)));
    if (ok) select(path.section(QLatin1Char('/'), -1));
    return ok;
}

void TAddRemovePlugInsDlg::addChosen() {
    const QString path = QFileDialog::getOpenFileName(this, latin(plgqt::kAddDialogTitle), QString(),
                                                      latin(plgqt::kModuleFilter));
    if (!path.isEmpty()) addFrom(path);
}

void TAddRemovePlugInsDlg::loadSelected() {
    if (const std::string file = selectedFile(); !file.empty()) report(loadInstalledPlugIn(file));
}

void TAddRemovePlugInsDlg::unloadSelected() {
    if (const std::string file = selectedFile(); !file.empty()) report(unloadInstalledPlugIn(file));
}

void TAddRemovePlugInsDlg::removeSelected() {
    const std::string file = selectedFile();
    if (file.empty()) return;
    const QString question = latin(plgqt::kConfirmRemove).arg(qs(file), qs(plugInFolder()));
    if (QMessageBox::question(this, windowTitle(), question) != QMessageBox::Yes) return;
    report(removeInstalledPlugIn(file));
}

}  // namespace zol
