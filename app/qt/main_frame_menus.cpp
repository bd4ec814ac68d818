// TMainFrame: the menus made from the menu table, the frame's own actions, the tool
// and document bars and the status bar.
#include <QAction>
#include <QActionGroup>
#include <QMdiArea>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include "app/qt/dialogs/autocorrect_dialog.h"
#include "app/qt/dialogs/find_files_run.h"
#include "app/qt/dialogs/key_mapping_dialog.h"
#include "app/qt/dialogs/options_dialog.h"
#include "app/qt/dialogs/plugin_dialogs.h"
#include "app/qt/dialogs/syntax_dialog.h"
#include "app/qt/dialogs/tool_dialogs.h"
#include "app/qt/help_lookup.h"
#include "app/qt/main_frame.h"
#include "app/qt/main_frame_util.h"
#include "app/qt/menus.h"
#include "app/qt/messages.h"
#include "app/qt/print_preview.h"
#include "app/qt/print_setup.h"
#include "app/qt/plugin_windows.h"
#include "app/qt/qt_shell.h"
#include "app/qt/script_host.h"
#include "app/version.h"
#include "config/keymap.h"
#include "config/recent_files.h"
#include "engine/command_table.h"
#include "engine/options.h"
#include "platform/paths.h"
#include "plugin/plugin_manager.h"
#include "tools/run_tool.h"
#include "tools/user_tools.h"

namespace zol {
namespace {

using frame::qs;

// How long a message stays in the status bar.
constexpr int kMessageMs = 10000;
// The command palette's key; the shipped key map gives Ctrl+Shift+P to "Macro".
constexpr QKeyCombination kPaletteKey = Qt::CTRL | Qt::SHIFT | Qt::Key_A;

// Menu items that show a state with their check mark.
struct Toggle {
    Cmd command;
    bool (*on)(const Document* doc);
};
const Toggle kToggles[] = {
    {Cmd::ToggleLineNumbers, [](const Document*) { return options().lineNumbers; }},
    {Cmd::ApiAssistanceOn, [](const Document*) { return apiAssistance(); }},
    {Cmd::ToggleRuler, [](const Document*) { return options().ruler; }},
    {Cmd::ToggleVisibleSpaces, [](const Document*) { return options().visibleSpaces; }},
    {Cmd::ToggleWordWrap, [](const Document* d) { return d && d->wordWrap; }},
    {Cmd::ToggleInsert, [](const Document*) { return options().overwrite; }},
    {Cmd::ToggleAutoIndent, [](const Document*) { return options().autoIndent; }},
    {Cmd::ToggleAutoUnindent, [](const Document*) { return options().autoUnindent; }},
    {Cmd::ToggleSelMode, [](const Document* d) { return d && d->selMode == SelMode::Column; }},
    {Cmd::ToggleLineDraw, [](const Document* d) { return d && d->lineDrawing; }},
};

const Toggle* toggleOf(uint16_t id) {
    for (const Toggle& t : kToggles)
        if (idOf(t.command) == id) return &t;
    return nullptr;
}

// A user tool's row shows the tool's menu text; a row without a tool is hidden.
void showUserTool(QAction* a, size_t index) {
    const std::vector<UserTool>& tools = userTools().tools;
    a->setVisible(index < tools.size());
    if (index < tools.size()) setMenuLabel(a, QString::fromLocal8Bit(tools[index].menuText.c_str()));
}

// The "Extern Help" entries of "UserHelp", numbered, before the item that edits them.
void refreshExternHelp(QMenu* help) {
    const char* kMark = "externHelp";
    QAction* before = nullptr;
    for (QAction* a : help->actions()) {
        if (a->property(kMark).toBool()) delete a;
        else if (menuAction(a) == "HelpOptions") before = a;
    }
    const std::vector<HelpEntry>& entries = userHelp().entries;
    for (size_t i = 0; i < entries.size(); ++i) {
        auto* a = new QAction(QString::fromLatin1(qtmsg::kNumberedItem).arg(i + 1).arg(qs(entries[i].menuString)), help);
        a->setProperty(kMark, true);
        QObject::connect(a, &QAction::triggered, help, [i] { openExternHelp(i); });
        help->insertAction(before, a);
    }
}

}  // namespace

std::span<const TMainFrame::FrameAction> TMainFrame::frameActions() {
    static const FrameAction table[] = {
        {"Close", [](TMainFrame& f) { f.closeActive(); }},
        {"Exit", [](TMainFrame& f) { f.close(); }},
        {"Options", [](TMainFrame& f) { f.showOptions(); }},
        {"KeyMapping", [](TMainFrame& f) { TKeyMappingDlg::run(&f); }},
        {"SyntaxHighlighting",
         [](TMainFrame& f) {
             if (TSyntaxHighlightDlg::run(&f)) f.redrawViews();
         }},
        {"UserTools", [](TMainFrame& f) { TUserToolsDlg::run(&f); }},
        {"AutoCorrect",
         [](TMainFrame& f) {
             if (TAutoCorrectDlg::run(&f)) f.redrawViews();
         }},
        {"HelpOptions", [](TMainFrame& f) { THelpOptionsDlg::run(&f); }},
        {"PageSetup", [](TMainFrame& f) { TPageSetupDlg::run(&f); }},
        {"PrintPreview",
         [](TMainFrame& f) {
             if (TVekWinEditor* v = f.activeView(); v && v->document()) TPrintPreviewDlg::run(&f, *v->document());
         }},
        {"Palette", [](TMainFrame& f) { f.openPalette(); }},
        {"FindInFiles", [](TMainFrame& f) { TFindFilesRun::of(f).findInFiles(); }},
        {"ReplaceInFiles", [](TMainFrame& f) { TFindFilesRun::of(f).replaceInFiles(); }},
        {"Tabs", [](TMainFrame& f) { f.setTabbed(!f.tabbed()); }},
        {"About", [](TMainFrame& f) { f.about(); }},
        {"CustomizeMacroMenu", [](TMainFrame& f) { f.customizeMacroMenu(); }},
        {"ScriptWizard", [](TMainFrame& f) { f.scriptWizard(); }},
        {"StopScript", [](TMainFrame& f) { f.scriptHost().stop(); }},
        {"AddRemovePlugIns",
         [](TMainFrame& f) {
             TAddRemovePlugInsDlg::run(&f);
             f.syncViews();
         }},
        {"AboutPlugIns",
         [](TMainFrame& f) {
             TAboutPlugInsDlg::run(&f);
             f.syncViews();
         }},
    };
    return table;
}

bool TMainFrame::runFrameAction(const std::string& name) {
    for (const FrameAction& a : frameActions()) {
        if (name != a.name) continue;
        a.run(*this);
        return true;
    }
    return false;
}

void TMainFrame::closeActive() {
    if (TVekWinEditor* v = activeView()) closeDocumentWindow(v->document());
}

void TMainFrame::showOptions() {
    if (TOptionsDialog::run(this)) applyViewSettings();
}

void TMainFrame::about() {
    QMessageBox::about(this, QString::fromLatin1(qtmsg::kAboutTitle),
                       QString::fromLatin1(qtmsg::kAboutText).arg(QString::fromLatin1(programVersion())));
}

QMenu* TMainFrame::menu(const std::string& name) const {
    const auto it = menus_.find(name);
    return it != menus_.end() ? it->second : nullptr;
}

void TMainFrame::buildMenus() {
    MenuHooks hooks{[this](uint16_t id) { runOnActive(id); }, [this](const std::string& name) { runFrameAction(name); }};
    menus_ = addMenuRows(menuBar(), qtmsg::kMenuBar, hooks);
    for (const auto& [name, m] : menus_) {
        connect(m, &QMenu::aboutToShow, this, [this, m = m] { refreshMenuState(m); });
        for (QAction* a : m->actions()) {
            if (menuAction(a) == "Tabs") {
                tabsAction_ = a;
                a->setCheckable(true);
                a->setChecked(true);
            } else if (menuAction(a) == "Palette") {
                // The key map has the first say; this key works where it leaves it free.
                paletteAction_ = a;
                a->setShortcut(QKeySequence(kPaletteKey));
                a->setShortcutContext(Qt::WindowShortcut);
            }
            if (toggleOf(menuCommand(a))) a->setCheckable(true);
        }
    }
    recentMenu_ = menu("RecentFiles");
    plugInMenu_ = menu("PlugIns");
    if (plugInMenu_) {
        plugInMenuRows_ = plugInMenu_->actions().value(0);
        plugInMenu_->installEventFilter(this);
    }
    if (QMenu* window = menu("Window")) connect(window, &QMenu::aboutToShow, this, &TMainFrame::refreshWindowMenu);
    if (QMenu* macros = menu("Macros")) connect(macros, &QMenu::aboutToShow, this, &TMainFrame::rebuildMacroMenu);
    if (QMenu* help = menu("Help")) connect(help, &QMenu::aboutToShow, this, [help] { refreshExternHelp(help); });
    rebuildPlugInMenu();
}

void TMainFrame::refreshMenuState(QMenu* m) {
    refreshMenuKeys(m);
    const TVekWinEditor* v = activeView();
    const Document* doc = v ? v->document() : nullptr;
    for (QAction* a : m->actions()) {
        if (menuAction(a) == "StopScript") a->setEnabled(scriptHost_->running());
        const uint16_t id = menuCommand(a);
        const CommandRecord* r = id ? findCommand(id) : nullptr;
        if (!r || r->owner == CommandOwner::Inert) continue;
        if (const int tool = userToolIndex(id); tool >= 0) showUserTool(a, static_cast<size_t>(tool));
        // Without a document only the frame's commands have something to work on.
        a->setEnabled(doc || handlesCommand(id));
        if (const Toggle* t = toggleOf(id)) a->setChecked(t->on(doc));
        if (r->id == idOf(Cmd::Undo) && doc) {
            setMenuLabel(a, QString::fromLatin1(undoLabel(doc->undo)));
            a->setEnabled(!doc->undo.undo.empty());
        }
    }
}

void TMainFrame::refreshRecentMenu() {
    if (!recentMenu_) return;
    recentMenu_->clear();
    const std::vector<std::string>& files = recentFiles().files;
    for (size_t i = 0; i < files.size(); ++i) {
        const std::string path = files[i];
        recentMenu_->addAction(QString::fromLatin1(qtmsg::kNumberedItem).arg(i + 1).arg(qs(path)), this, [this, path] { openFile(path); });
    }
    if (files.empty()) recentMenu_->addAction(QString::fromLatin1(qtmsg::kNoRecentFiles))->setEnabled(false);
}

void TMainFrame::plugInsChanged() {
    plugInWindows_->sync();
    rebuildPlugInMenu();
}

// The plug-ins' items, then the show/hide items of their windows, above the menu's own
// rows. Items may go while one of them runs: they are deleted later.
void TMainFrame::rebuildPlugInMenu() {
    if (!plugInMenu_) return;
    for (QAction* a : plugInMenu_->actions()) {
        if (a == plugInMenuRows_) break;
        plugInMenu_->removeAction(a);
        if (a->parent() == plugInMenu_) a->deleteLater();
    }
    for (const PlugInCommand& c : plugInManager().commands) {
        if (c.menuText.empty() || !c.module) continue;
        auto* a = new QAction(fromAnsi(c.menuText), plugInMenu_);
        plugInMenu_->insertAction(plugInMenuRows_, a);
        a->setStatusTip(fromAnsi(c.description));
        a->setData(c.number);
        const int number = c.number;
        connect(a, &QAction::triggered, this, [this, number] {
            runPlugInMenuItem(number);
            syncViews();
            redrawViews();
        });
    }
    const QList<QAction*> windows = plugInWindows_->toggleActions();
    if (!windows.isEmpty()) {
        if (plugInMenu_->actions().first() != plugInMenuRows_) plugInMenu_->insertSeparator(plugInMenuRows_);
        plugInMenu_->insertActions(plugInMenuRows_, windows);
    }
    if (plugInMenu_->actions().first() != plugInMenuRows_) plugInMenu_->insertSeparator(plugInMenuRows_);
}

void TMainFrame::buildToolBars() {
    toolBar_ = addToolBar(QStringLiteral("Tools"));
    toolBar_->setObjectName(QStringLiteral("toolBar"));
    struct Button {
        const char* command;
        QStyle::StandardPixmap icon;
    };
    const Button buttons[] = {
        {"NewFile", QStyle::SP_FileIcon},         {"OpenFile", QStyle::SP_DialogOpenButton},
        {"SaveFile", QStyle::SP_DialogSaveButton}, {nullptr, {}},
        {"Undo", QStyle::SP_ArrowBack},           {"Redo", QStyle::SP_ArrowForward},
        {nullptr, {}},                            {"Find", QStyle::SP_FileDialogContentsView},
        {"Replace", QStyle::SP_BrowserReload},    {"FindNext", QStyle::SP_ArrowDown},
    };
    for (const Button& b : buttons) {
        if (!b.command) {
            toolBar_->addSeparator();
            continue;
        }
        const CommandRecord* r = findCommand(std::string_view(b.command));
        if (!r) continue;
        QAction* a = toolBar_->addAction(style()->standardIcon(b.icon), commandLabel(r->name));
        if (r->description) {
            a->setToolTip(QString::fromLatin1(r->description));
            a->setStatusTip(QString::fromLatin1(r->description));
        }
        const uint16_t id = r->id;
        connect(a, &QAction::triggered, this, [this, id] { runOnActive(id); });
    }
    for (const char* name : {"Cut", "Copy", "Paste"}) {
        const CommandRecord* r = findCommand(std::string_view(name));
        if (!r) continue;
        QAction* a = toolBar_->addAction(commandLabel(r->name));
        if (r->description) a->setStatusTip(QString::fromLatin1(r->description));
        const uint16_t id = r->id;
        connect(a, &QAction::triggered, this, [this, id] { runOnActive(id); });
    }
    addToolBarBreak();
    documentBar_ = addToolBar(QStringLiteral("Documents"));
    documentBar_->setObjectName(QStringLiteral("documentBar"));
    documentGroup_ = new QActionGroup(this);
    documentGroup_->setExclusive(true);
}

void TMainFrame::refreshDocumentBar() {
    if (!documentBar_) return;
    documentBar_->clear();
    for (QAction* a : documentGroup_->actions()) {
        documentGroup_->removeAction(a);
        a->deleteLater();
    }
    for (const auto& doc : app_.documents) {
        Document* d = doc.get();
        QString name = qs(std::string(fileNamePart(d->fileName)));
        if (d->modified) name += QLatin1String(qtmsg::kModifiedMark);
        QAction* a = documentBar_->addAction(name);
        a->setToolTip(qs(d->fileName));
        a->setCheckable(true);
        a->setChecked(d == app_.active);
        documentGroup_->addAction(a);
        connect(a, &QAction::triggered, this, [this, d] {
            if (!isDocument(app_, d)) return;
            setActiveDocument(app_, d);
            syncViews();
        });
    }
}

void TMainFrame::buildStatusBar() {
    message_ = new QLabel(this);
    statusBar()->addWidget(message_, 1);
    auto add = [this](QLabel*& label) {
        label = new QLabel(this);
        label->setAlignment(Qt::AlignCenter);
        statusBar()->addPermanentWidget(label);
    };
    add(prefix_);
    add(recording_);
    add(position_);
    add(insertMode_);
    add(format_);
    add(modified_);
    add(readOnly_);
    add(scriptRunning_);
    scriptRunning_->setText(QString::fromLatin1(qtmsg::kScriptRunning));
    scriptRunning_->setToolTip(QString::fromLatin1(qtmsg::kScriptRunningTip));
    scriptRunning_->setVisible(false);
}

void TMainFrame::refreshStatus() {
    TVekWinEditor* v = activeView();
    const Document* doc = v ? v->document() : nullptr;
    if (!doc) {
        for (QLabel* l : {position_, insertMode_, format_, modified_, readOnly_, recording_, prefix_}) l->clear();
        setWindowTitle(QString::fromLatin1(qtmsg::kAppTitle));
        return;
    }
    position_->setText(QString::fromLatin1(qtmsg::kLineColumn).arg(doc->cursor.line + 1).arg(doc->cursor.col + 1));
    insertMode_->setText(QString::fromLatin1(options().overwrite ? qtmsg::kOverwrite : qtmsg::kInsert));
    const auto fmt = static_cast<size_t>(doc->textFormat);
    format_->setText(QString::fromLatin1(qtmsg::kFormatNames[fmt]));
    modified_->setText(doc->modified ? QString::fromLatin1(qtmsg::kModified) : QString());
    readOnly_->setText(doc->readOnly ? QString::fromLatin1(qtmsg::kReadOnly) : QString());
    recording_->setText(doc->recorder != Recorder::Idle ? QString::fromLatin1(qtmsg::kRecording) : QString());
    const uint16_t prefix = v->pendingPrefixKey();
    prefix_->setText(prefix ? QString::fromLatin1(qtmsg::kPendingPrefix).arg(qs(keyName(prefix))) : QString());
    setWindowTitle(QString::fromLatin1(qtmsg::kWindowTitle)
                       .arg(qs(std::string(fileNamePart(doc->fileName))),
                            doc->modified ? QString::fromLatin1(qtmsg::kModifiedMark) : QString()));
}

QString TMainFrame::statusText() const {
    QStringList parts{message_->text()};
    for (QLabel* l : {prefix_, recording_, position_, insertMode_, format_, modified_, readOnly_})
        if (!l->text().isEmpty()) parts << l->text();
    return parts.join(QLatin1Char('|'));
}

void TMainFrame::showMessage(const QString& text) {
    message_->setText(text);
    messageTimer_.start(kMessageMs);
}

}  // namespace zol
