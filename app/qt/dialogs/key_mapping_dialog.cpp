#include "app/qt/dialogs/key_mapping_dialog.h"

#include <algorithm>
#include <iterator>

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/key_capture.h"
#include "app/qt/dialogs/messages.h"
#include "config/keyfile.h"
#include "config/keymap_messages.h"
#include "engine/command_table.h"
#include "engine/executor.h"
#include "script/macros.h"

namespace zol {
namespace {

constexpr int kIdRole = Qt::UserRole;
constexpr int kTableRole = Qt::UserRole + 1;
constexpr int kKeyRole = Qt::UserRole + 2;
enum Column { kNameColumn, kKeysColumn, kDescriptionColumn };
static_assert(std::size(dlgmsg::kKeyGroups) == kCommandGroups + 1, "a title for every command group");

QString latin(const char* text) { return QString::fromLatin1(text); }
QString latin(const std::string& text) { return QString::fromLatin1(text.c_str()); }

// What the user calls a command: its name, a macro's name, "Prefix1".
QString commandLabel(uint16_t id) {
    if (prefixTableOf(id)) return latin(prefixName(id));
    const std::string name = commandName(id);
    return name.empty() ? latin(dlgmsg::kUnnamedCommand).arg(id) : fromCp1252(name);
}

// Prefix keys and commands without a parameter; a key cannot give one.
bool keyCanRun(uint16_t id) { return prefixTableOf(id) || commandParamKind(id) == ParamKind::None; }

QString sequenceName(uint16_t prefixKey, uint16_t key) { return latin(boundKeyName({0, prefixKey, key})); }

QTreeWidgetItem* addRow(QTreeWidgetItem* group, uint16_t id, const QString& name, const QString& description) {
    auto* item = new QTreeWidgetItem(group, QStringList{name, QString(), description});
    item->setData(kNameColumn, kIdRole, id);
    item->setToolTip(kDescriptionColumn, description);
    return item;
}

QTreeWidgetItem* addGroup(QTreeWidget* tree, const char* title) {
    auto* group = new QTreeWidgetItem(tree, QStringList{latin(title)});
    group->setFlags(Qt::ItemIsEnabled);
    group->setFirstColumnSpanned(true);
    QFont bold = group->font(kNameColumn);
    bold.setBold(true);
    group->setFont(kNameColumn, bold);
    return group;
}

QPushButton* button(QWidget* parent, const char* text, const char* name) {
    auto* b = new QPushButton(latin(text), parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

// ---- Key Mapping

TKeyMappingDlg::TKeyMappingDlg(QWidget* parent) : QDialog(parent), map_(keyMap()) {
    setObjectName("KeyMapping");
    setWindowTitle(latin(dlgmsg::kKeyMappingTitle));
    filter_ = new QLineEdit(this);
    filter_->setObjectName("filter");
    filter_->setPlaceholderText(latin(dlgmsg::kKeyFilterHint));
    filter_->setClearButtonEnabled(true);
    commands_ = new QTreeWidget(this);
    commands_->setObjectName("commands");
    commands_->setHeaderLabels(latin(dlgmsg::kKeyColumns).split(QLatin1Char('\t')));
    commands_->setRootIsDecorated(false);
    commands_->setUniformRowHeights(true);
    commands_->setAlternatingRowColors(true);
    commands_->header()->setStretchLastSection(true);
    description_ = new QLabel(this);
    description_->setObjectName("description");
    description_->setWordWrap(true);
    keys_ = new QListWidget(this);
    keys_->setObjectName("keys");
    remove_ = button(this, dlgmsg::kKeyRemove, "remove");
    reset_ = button(this, dlgmsg::kKeyResetOne, "reset");
    reset_->setToolTip(latin(dlgmsg::kKeyResetOneTip));
    capture_ = new TKeyCaptureEdit(TKeyCaptureEdit::Role::FirstKey, this);
    capture_->setObjectName("capture");
    captureInfo_ = new QLabel(this);
    captureInfo_->setObjectName("captureInfo");
    captureInfo_->setWordWrap(true);
    assign_ = button(this, dlgmsg::kKeyAssign, "assign");
    resetAll_ = button(this, dlgmsg::kKeyResetAll, "resetAll");
    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons_->button(QDialogButtonBox::Ok);
    layOut();

    connect(filter_, &QLineEdit::textChanged, this, &TKeyMappingDlg::applyFilter);
    connect(commands_, &QTreeWidget::currentItemChanged, this, &TKeyMappingDlg::commandChanged);
    connect(keys_, &QListWidget::currentRowChanged, this, [this](int row) { remove_->setEnabled(row >= 0); });
    connect(capture_, &TKeyCaptureEdit::keyChanged, this, &TKeyMappingDlg::showCaptureInfo);
    connect(assign_, &QPushButton::clicked, this, &TKeyMappingDlg::assignKey);
    connect(remove_, &QPushButton::clicked, this, &TKeyMappingDlg::removeKey);
    connect(reset_, &QPushButton::clicked, this, &TKeyMappingDlg::resetCommand);
    connect(resetAll_, &QPushButton::clicked, this, &TKeyMappingDlg::resetAll);
    connect(buttons_, &QDialogButtonBox::accepted, this, &TKeyMappingDlg::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &TKeyMappingDlg::reject);
    buildList();
    filter_->setFocus();
}

// The filter above the command list; below it the current command's keys with their
// buttons beside the field for a new key; Reset All and OK and Cancel at the bottom.
void TKeyMappingDlg::layOut() {
    auto label = [this](const char* text, QWidget* buddy) {
        auto* l = new QLabel(latin(text), this);
        l->setBuddy(buddy);
        return l;
    };
    auto* top = new QHBoxLayout;
    top->addWidget(label(dlgmsg::kKeyFilter, filter_));
    top->addWidget(filter_);
    auto* keyButtons = new QVBoxLayout;
    keyButtons->addWidget(remove_);
    keyButtons->addWidget(reset_);
    keyButtons->addStretch();
    auto* newKey = new QVBoxLayout;
    newKey->addWidget(capture_);
    newKey->addWidget(captureInfo_, 1, Qt::AlignTop);
    newKey->addWidget(assign_, 0, Qt::AlignRight);
    auto* grid = new QGridLayout;
    grid->addWidget(label(dlgmsg::kCommandKeys, keys_), 0, 0);
    grid->addWidget(label(dlgmsg::kNewKey, capture_), 0, 2);
    grid->addWidget(keys_, 1, 0);
    grid->addLayout(keyButtons, 1, 1);
    grid->addLayout(newKey, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowMinimumHeight(1, keys_->fontMetrics().height() * 5);
    keys_->setMaximumHeight(keys_->fontMetrics().height() * 6);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(resetAll_);
    bottom->addStretch();
    bottom->addWidget(buttons_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(commands_, 1);
    layout->addWidget(description_);
    layout->addLayout(grid);
    layout->addLayout(bottom);
    resize(860, 640);
    commands_->setColumnWidth(kNameColumn, 210);
    commands_->setColumnWidth(kKeysColumn, 190);
}

// The commands by group in the order of the command list, then the prefix markers, then
// the macros.
void TKeyMappingDlg::buildList() {
    commands_->clear();
    for (int g = 1; g <= kCommandGroups; ++g) {
        QTreeWidgetItem* group = addGroup(commands_, dlgmsg::kKeyGroups[g]);
        for (const CommandRecord& r : commandTable())
            if (static_cast<int>(r.group) == g)
                addRow(group, r.id, latin(r.name), r.description ? latin(r.description) : QString());
    }
    QTreeWidgetItem* prefixes = addGroup(commands_, dlgmsg::kPrefixGroup);
    for (uint16_t marker = kPrefix1; marker <= kPrefix6; ++marker)
        addRow(prefixes, marker, latin(prefixName(marker)),
               latin(dlgmsg::kPrefixDescription).arg(prefixTableOf(marker)));
    QTreeWidgetItem* macroGroup = addGroup(commands_, dlgmsg::kMacroGroup);
    for (int slot = 0; slot < macromsg::kMacroSlots; ++slot) {
        const uint16_t id = static_cast<uint16_t>(kFirstMacroId + slot);
        if (const Macro* m = macroById(macros(), id)) addRow(macroGroup, id, fromCp1252(m->name), fromCp1252(m->description));
    }
    macroGroup->setHidden(macroGroup->childCount() == 0);
    commands_->expandAll();
    refreshKeys();
    applyFilter();
}

// The Keys column of every row, then what depends on the current command.
void TKeyMappingDlg::refreshKeys() {
    for (int g = 0; g < commands_->topLevelItemCount(); ++g) {
        QTreeWidgetItem* group = commands_->topLevelItem(g);
        for (int i = 0; i < group->childCount(); ++i) {
            QTreeWidgetItem* item = group->child(i);
            QStringList names;
            for (const std::string& n : commandKeyNames(map_, static_cast<uint16_t>(item->data(0, kIdRole).toUInt())))
                names << latin(n);
            item->setText(kKeysColumn, names.join(latin(dlgmsg::kKeySeparator)));
        }
    }
    commandChanged();
}

// Hides the commands whose name, keys and description all lack the filter's text; the
// current command becomes the first one shown when it was hidden.
void TKeyMappingDlg::applyFilter() {
    const QString text = filter_->text().trimmed();
    QTreeWidgetItem* first = nullptr;
    for (int g = 0; g < commands_->topLevelItemCount(); ++g) {
        QTreeWidgetItem* group = commands_->topLevelItem(g);
        int shown = 0;
        for (int i = 0; i < group->childCount(); ++i) {
            QTreeWidgetItem* item = group->child(i);
            bool match = text.isEmpty();
            for (int c = kNameColumn; c <= kDescriptionColumn && !match; ++c)
                match = item->text(c).contains(text, Qt::CaseInsensitive);
            item->setHidden(!match);
            if (match && !first) first = item;
            shown += match;
        }
        group->setHidden(shown == 0);
    }
    QTreeWidgetItem* current = commands_->currentItem();
    if (!current || current->isHidden()) commands_->setCurrentItem(first);
}

uint16_t TKeyMappingDlg::currentCommand() const {
    const QTreeWidgetItem* item = commands_->currentItem();
    return item ? static_cast<uint16_t>(item->data(kNameColumn, kIdRole).toUInt()) : 0;
}

// The current command's keys and description, and which buttons apply.
void TKeyMappingDlg::commandChanged() {
    const uint16_t id = currentCommand();
    const int row = keys_->currentRow();
    keys_->blockSignals(true);
    keys_->clear();
    for (const BoundKey& k : commandKeys(map_, id)) {
        auto* item = new QListWidgetItem(latin(boundKeyName(k)), keys_);
        item->setData(kTableRole, k.table);
        item->setData(kKeyRole, k.key);
    }
    keys_->setCurrentRow(std::min(std::max(row, 0), keys_->count() - 1));
    keys_->blockSignals(false);
    const QTreeWidgetItem* item = commands_->currentItem();
    QString text;
    if (id && !keyCanRun(id)) text = latin(dlgmsg::kTakesParameter).arg(item->text(kNameColumn));
    else if (id) text = QStringLiteral("%1: %2").arg(item->text(kNameColumn), item->text(kDescriptionColumn));
    description_->setText(text);
    remove_->setEnabled(keys_->currentItem() != nullptr);
    reset_->setEnabled(id != 0);
    showCaptureInfo();
}

void TKeyMappingDlg::showCaptureInfo() {
    const uint16_t key = capture_->key();
    const uint16_t bound = boundCommand(map_, 0, key);
    const QString name = latin(keyName(key));
    if (!capture_->problem().isEmpty()) captureInfo_->setText(capture_->problem());
    else if (key == 0) captureInfo_->clear();
    else if (prefixTableOf(bound) && !prefixTableOf(currentCommand()))
        captureInfo_->setText(latin(dlgmsg::kKeyIsPrefix).arg(name));
    else if (bound) captureInfo_->setText(latin(dlgmsg::kKeyAssignedTo).arg(name, commandLabel(bound)));
    else captureInfo_->setText(latin(dlgmsg::kKeyFree).arg(name));
    const uint16_t id = currentCommand();
    const bool canAssign = id != 0 && key != 0 && keyCanRun(id);
    assign_->setEnabled(canAssign);
    // Enter right after a key assigns it.
    if (canAssign) assign_->setDefault(true);
    else ok_->setDefault(true);
}

// A key that opens a prefix table gets its second key from the prefix dialog, unless
// the command is itself a prefix marker: prefix keys live in the primary table only.
void TKeyMappingDlg::assignKey() {
    const uint16_t command = currentCommand(), key = capture_->key();
    if (command == 0 || key == 0) return;
    const int table = prefixTableOf(boundCommand(map_, 0, key));
    if (table && !prefixTableOf(command)) {
        uint16_t second = 0;
        if (!TKeyMappingPrefixDlg::run(this, map_, key, table, second)) return;
        placeKey(table, key, second, command);
    } else {
        placeKey(0, 0, key, command);
    }
    capture_->clearKey();
    refreshKeys();
}

// Binds key in table to command, first asking whether to move it when it runs
// another command there. False when the user declined or the table is full.
bool TKeyMappingDlg::placeKey(int table, uint16_t prefixKey, uint16_t key, uint16_t command) {
    const uint16_t bound = boundCommand(map_, table, key);
    if (bound == command) return true;
    if (bound && !ask(latin(dlgmsg::kAskMoveKey)
                          .arg(sequenceName(prefixKey, key), commandLabel(bound), commandLabel(command))))
        return false;
    if (bindKey(map_, table, key, command)) return true;
    QMessageBox::warning(this, windowTitle(), latin(keymsg::kTableFull));
    return false;
}

void TKeyMappingDlg::removeKey() {
    const QListWidgetItem* item = keys_->currentItem();
    if (!item) return;
    unbindKey(map_, item->data(kTableRole).toInt(), static_cast<uint16_t>(item->data(kKeyRole).toUInt()));
    refreshKeys();
}

// The command's keys become those of DEFKEY.ZOL; a shipped key that now runs another
// command moves only when the user agrees.
void TKeyMappingDlg::resetCommand() {
    const uint16_t command = currentCommand();
    KeyMap shipped;
    if (command == 0 || !readDefaultKeyMap(shipped)) return;
    unbindCommand(map_, command);
    for (int table = 0; table < kKeyTables; ++table)
        for (const KeyMapEntry& e : shipped.tables[table])
            if (e.command == command) placeKey(table, prefixKeyOf(shipped, table), e.key, command);
    refreshKeys();
}

void TKeyMappingDlg::resetAll() {
    if (!ask(latin(dlgmsg::kAskResetAll)) || !resetKeyFile()) return;
    map_ = keyMap();
    capture_->clearKey();
    buildList();
}

bool TKeyMappingDlg::ask(const QString& text) {
    return QMessageBox::question(this, windowTitle(), text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

void TKeyMappingDlg::accept() {
    if (map_.tables == keyMap().tables) {
        QDialog::accept();
        return;
    }
    const KeyMap before = keyMap();
    keyMap() = map_;
    if (!saveKeyFile()) {
        keyMap() = before;
        return;
    }
    QDialog::accept();
}

void TKeyMappingDlg::reject() {
    if (map_.tables != keyMap().tables) {
        const auto answer = QMessageBox::question(this, windowTitle(), latin(keymsg::kAskSaveChanges),
                                                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        if (answer == QMessageBox::Yes) accept();
        if (answer != QMessageBox::No) return;
    }
    QDialog::reject();
}

bool TKeyMappingDlg::run(QWidget* parent) {
    const KeyMap before = keyMap();
    TKeyMappingDlg dlg(parent);
    return dlg.exec() == QDialog::Accepted && keyMap().tables != before.tables;
}

// ---- The second key of a sequence

TKeyMappingPrefixDlg::TKeyMappingPrefixDlg(QWidget* parent, const KeyMap& map, uint16_t prefixKey, int table)
    : QDialog(parent), map_(map), prefixKey_(prefixKey), table_(table) {
    setObjectName("KeyMappingPrefix");
    setWindowTitle(latin(dlgmsg::kSecondKeyTitle));
    capture_ = new TKeyCaptureEdit(TKeyCaptureEdit::Role::SecondKey, this);
    capture_->setObjectName("capture");
    capture_->setMinimumWidth(280);
    auto* label = new QLabel(latin(dlgmsg::kSecondKeyPrompt).arg(latin(keyName(prefixKey))), this);
    label->setBuddy(capture_);
    info_ = new QLabel(this);
    info_->setObjectName("info");
    info_->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(capture_);
    layout->addWidget(info_);
    layout->addWidget(buttons);
    connect(capture_, &TKeyCaptureEdit::keyChanged, this, &TKeyMappingPrefixDlg::showInfo);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    capture_->setFocus();
}

void TKeyMappingPrefixDlg::showInfo() {
    const uint16_t key = capture_->key();
    ok_->setEnabled(key != 0);
    ok_->setDefault(key != 0);
    if (key == 0) {
        info_->setText(capture_->problem());
        return;
    }
    const QString name = sequenceName(prefixKey_, key);
    const uint16_t bound = boundCommand(map_, table_, key);
    info_->setText(bound ? latin(dlgmsg::kKeyAssignedTo).arg(name, commandLabel(bound))
                         : latin(dlgmsg::kKeyFree).arg(name));
}

bool TKeyMappingPrefixDlg::run(QWidget* parent, const KeyMap& map, uint16_t prefixKey, int table, uint16_t& key) {
    TKeyMappingPrefixDlg dlg(parent, map, prefixKey, table);
    if (dlg.exec() != QDialog::Accepted || dlg.capture_->key() == 0) return false;
    key = dlg.capture_->key();
    return true;
}

}  // namespace zol
