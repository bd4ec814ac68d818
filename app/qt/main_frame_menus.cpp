// TMainFrame: the menus built from the command table, the tool and document bars and
// the status bar.
#include <QAction>
#include <QActionGroup>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include "app/qt/dialogs/options_dialog.h"
#include "app/qt/main_frame.h"
#include "app/qt/main_frame_util.h"
#include "app/qt/messages.h"
#include "app/qt/qt_shell.h"
#include "config/keymap.h"
#include "config/recent_files.h"
#include "engine/command_table.h"
#include "engine/options.h"
#include "platform/paths.h"
#include "plugin/plugin_manager.h"

namespace zol {
namespace {

using frame::qs;

// How long a message stays in the status bar.
constexpr int kMessageMs = 10000;
constexpr int kKeyNamesInMenu = 2;

QString menuText(const CommandRecord& r) {
    QString text = QString::fromLatin1(r.name);
    const std::vector<std::string> keys = commandKeyNames(keyMap(), r.id);
    QStringList names;
    for (size_t i = 0; i < keys.size() && static_cast<int>(i) < kKeyNamesInMenu; ++i) names << qs(keys[i]);
    if (!names.isEmpty()) text += QLatin1Char('\t') + names.join(QStringLiteral(", "));
    return text;
}

}  // namespace

void TMainFrame::buildMenus() {
    QMenu* menus[kCommandGroups + 1] = {};
    auto menuOf = [&menus](CmdGroup g) -> QMenu*& { return menus[static_cast<int>(g)]; };
    // The File menu comes first, as everywhere; the rest follow the table's groups.
    const CmdGroup order[] = {CmdGroup::Files,     CmdGroup::Typing,  CmdGroup::Movement, CmdGroup::Selection,
                              CmdGroup::Search,    CmdGroup::Marks,   CmdGroup::Block,    CmdGroup::Clipboard,
                              CmdGroup::Tools,     CmdGroup::Modes,   CmdGroup::Special,  CmdGroup::Windows,
                              CmdGroup::Help};
    for (CmdGroup g : order) menuOf(g) = menuBar()->addMenu(QString::fromLatin1(qtmsg::kGroupMenus[static_cast<int>(g)]));
    for (const CommandRecord& r : commandTable()) {
        QAction* a = menuOf(r.group)->addAction(menuText(r));
        a->setData(r.id);
        if (r.description) a->setStatusTip(QString::fromLatin1(r.description));
        // Commands that take a parameter come from keys, macros and scripts only.
        a->setEnabled(r.kind != ParamKind::Char && r.kind != ParamKind::Number);
        const uint16_t id = r.id;
        connect(a, &QAction::triggered, this, [this, id] { runOnActive(id); });
    }
    for (CmdGroup g : order) connect(menuOf(g), &QMenu::aboutToShow, this, [this, m = menuOf(g)] { refreshKeyNames(m); });

    QMenu* file = menuOf(CmdGroup::Files);
    file->addSeparator();
    file->addAction(QString::fromLatin1(qtmsg::kCloseAction), this, [this] {
        if (TVekWinEditor* v = activeView()) closeDocumentWindow(v->document());
    });
    recentMenu_ = file->addMenu(QString::fromLatin1(qtmsg::kRecentMenu));
    file->addSeparator();
    file->addAction(QString::fromLatin1(qtmsg::kExitAction), this, &QWidget::close);

    QMenu* tools = menuOf(CmdGroup::Tools);
    tools->addSeparator();
    tools->addAction(QString::fromLatin1(qtmsg::kOptionsAction), this, [this] {
        if (TOptionsDialog::run(this)) applyViewSettings();
    });
    QMenu* window = menuOf(CmdGroup::Windows);
    window->addSeparator();
    QAction* tabs = window->addAction(QString::fromLatin1(qtmsg::kTabsAction));
    tabs->setCheckable(true);
    tabs->setChecked(true);
    connect(tabs, &QAction::toggled, this, [this](bool on) {
        mdi_->setViewMode(on ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
    });
    connect(window, &QMenu::aboutToShow, this, [this, tabs] {
        tabs->setChecked(mdi_->viewMode() == QMdiArea::TabbedView);
    });
    plugInMenu_ = menuBar()->addMenu(QString::fromLatin1(qtmsg::kPlugInsMenu));
    rebuildPlugInMenu();
}

void TMainFrame::refreshKeyNames(QMenu* menu) {
    for (QAction* a : menu->actions()) {
        if (!a->data().isValid()) continue;
        if (const CommandRecord* r = findCommand(static_cast<uint16_t>(a->data().toUInt()))) a->setText(menuText(*r));
    }
}

void TMainFrame::refreshRecentMenu() {
    if (!recentMenu_) return;
    recentMenu_->clear();
    const std::vector<std::string>& files = recentFiles().files;
    for (size_t i = 0; i < files.size(); ++i) {
        const std::string path = files[i];
        recentMenu_->addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(qs(path)), this, [this, path] { openFile(path); });
    }
    if (files.empty()) recentMenu_->addAction(QString::fromLatin1(qtmsg::kNoRecentFiles))->setEnabled(false);
}

void TMainFrame::rebuildPlugInMenu() {
    if (!plugInMenu_) return;
    plugInMenu_->clear();
    for (const PlugInCommand& c : plugInManager().commands) {
        if (c.menuText.empty() || !c.module) continue;
        QAction* a = plugInMenu_->addAction(fromAnsi(c.menuText));
        a->setStatusTip(fromAnsi(c.description));
        const int number = c.number;
        connect(a, &QAction::triggered, this, [this, number] {
            runPlugInMenuItem(number);
            syncViews();
            redrawViews();
        });
    }
    plugInMenu_->menuAction()->setVisible(!plugInMenu_->isEmpty());
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
        QAction* a = toolBar_->addAction(style()->standardIcon(b.icon), QString::fromLatin1(r->name));
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
        QAction* a = toolBar_->addAction(QString::fromLatin1(r->name));
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
        if (d->modified) name += QLatin1Char('*');
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
    setWindowTitle(QString::fromLatin1(qtmsg::kAppTitle) + QStringLiteral(" - ") + qs(doc->fileName));
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
