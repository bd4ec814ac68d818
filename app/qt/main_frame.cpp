#include "app/qt/main_frame.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <algorithm>

#include "app/qt/editor_view.h"
#include "app/qt/messages.h"
#include "app/qt/qt_shell.h"
#include "config/keymap.h"
#include "config/recent_files.h"
#include "config/recent_views.h"
#include "config/settings.h"
#include "engine/command_table.h"
#include "engine/edit.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "files/prompts.h"
#include "files/save.h"
#include "files/textfile.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "plugin/plugin_manager.h"
#include "script/runner.h"

#include "app/qt/dialogs/options_dialog.h"

namespace zol {
namespace {

constexpr int kAutoSaveTickMs = 5000;
// How long a message stays in the status bar.
constexpr int kMessageMs = 10000;
constexpr int kGroups = 13;
constexpr int kModesGroup = 10;
constexpr int kKeyNamesInMenu = 2;
// The session's documents, keys "1".."n" of this section of "zol.ini".
constexpr const char* kDesktopSection = "Desktop";
constexpr int kDesktopFiles = 64;

enum : uint16_t {
    kWindowMaximize = 290, kWindowMinimize, kWindowRestore, kWindowCascade, kWindowTileHorz, kWindowTileVert,
    kPrevWindow, kNextWindow,
    kSaveFile = 250, kSaveFileAs, kWriteBlock, kReadBlock, kOpenFile, kNewFile, kPrint,
    kExecScript = 235, kHelpKeywordSearch = 300, kHelpContents = 301, kApiAssistanceOn = 305,
};

QString qs(const std::string& s) { return QString::fromLocal8Bit(s.c_str()); }
std::string local(const QString& s) { return s.toLocal8Bit().toStdString(); }

TVekWinEditor* viewIn(QMdiSubWindow* sub) { return sub ? qobject_cast<TVekWinEditor*>(sub->widget()) : nullptr; }

QString menuText(const CommandRecord& r) {
    QString text = QString::fromLatin1(r.name);
    const std::vector<std::string> keys = commandKeyNames(keyMap(), r.id);
    QStringList names;
    for (size_t i = 0; i < keys.size() && static_cast<int>(i) < kKeyNamesInMenu; ++i) names << qs(keys[i]);
    if (!names.isEmpty()) text += QLatin1Char('\t') + names.join(QStringLiteral(", "));
    return text;
}

}  // namespace

TMainFrame::TMainFrame(Application& app) : app_(app), shell_(std::make_unique<QtShell>(this)), mdi_(new QMdiArea(this)) {
    setWindowTitle(QString::fromLatin1(qtmsg::kAppTitle));
    setAcceptDrops(true);
    mdi_->setViewMode(QMdiArea::TabbedView);
    mdi_->setTabsClosable(true);
    mdi_->setTabsMovable(true);
    mdi_->setDocumentMode(true);
    setCentralWidget(mdi_);
    connect(mdi_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* sub) {
        if (TVekWinEditor* v = viewIn(sub); v && v->document()) setActiveDocument(app_, v->document());
        refreshStatus();
        refreshDocumentBar();
    });
    buildMenus();
    buildToolBars();
    buildStatusBar();
    connect(&autoSaveTimer_, &QTimer::timeout, this, [this] { autoSaveTick(app_); });
    autoSaveTimer_.start(kAutoSaveTickMs);
    messageTimer_.setSingleShot(true);
    connect(&messageTimer_, &QTimer::timeout, message_, &QLabel::clear);
    connect(qApp, &QApplication::applicationStateChanged, this, [this](Qt::ApplicationState s) {
        if (s == Qt::ApplicationActive) checkExternalChanges();
    });
    app_.mainWindow = reinterpret_cast<intptr_t>(this);
}

TMainFrame::~TMainFrame() {
    // Children go after this part of the object: none of their signals may reach it.
    QObject::disconnect(mdi_, nullptr, this, nullptr);
    QObject::disconnect(qApp, nullptr, this, nullptr);
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub)) {
            QObject::disconnect(v, nullptr, this, nullptr);
            v->detach();
        }
    if (app_.mainWindow == reinterpret_cast<intptr_t>(this)) app_.mainWindow = 0;
}

void TMainFrame::applySettings() {
    const Settings& s = settings();
    const WindowPlacement& w = s.window;
    resize(std::max(w.width, 200), std::max(w.height, 150));
    if (w.x != kDefaultWindowPos && w.y != kDefaultWindowPos) move(w.x, w.y);
    if (w.maximized) setWindowState(windowState() | Qt::WindowMaximized);
    applyViewSettings();
    recentViewLoad();
    refreshRecentMenu();
}

void TMainFrame::applyViewSettings() {
    const Settings& s = settings();
    statusBar()->setVisible(s.statusBar);
    toolBar_->setVisible(s.buttonBar);
    documentBar_->setVisible(s.docToolBar);
    const QFont font = editorFont();
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub)) {
            v->setEditorFont(font);
            v->redraw();
        }
}

TVekWinEditor* TMainFrame::activeView() const {
    if (TVekWinEditor* v = viewIn(mdi_->activeSubWindow())) return v;
    return app_.active ? viewOf(app_.active) : nullptr;
}

TVekWinEditor* TMainFrame::viewOf(const Document* doc) const {
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub); v && v->document() == doc) return v;
    return nullptr;
}

// ---- documents and windows ----

void TMainFrame::syncViews() {
    if (syncing_) return;
    syncing_ = true;
    for (QMdiSubWindow* sub : mdi_->subWindowList()) {
        TVekWinEditor* v = viewIn(sub);
        if (v && isDocument(app_, v->document())) continue;
        if (v) v->detach();
        mdi_->removeSubWindow(sub);
        sub->deleteLater();
    }
    const QFont font = editorFont();
    for (const auto& doc : app_.documents) {
        if (viewOf(doc.get())) continue;
        auto* view = new TVekWinEditor(doc.get());
        view->setEditorFont(font);
        view->documentAlive = [this](const Document* d) { return isDocument(app_, d); };
        view->frameCommand = [this](TVekWinEditor* v, uint16_t id) { return frameCommand(v, id); };
        connect(view, &TVekWinEditor::statusChanged, this, [this, view] {
            if (view == activeView()) refreshStatus();
        });
        connect(view, &TVekWinEditor::documentClosed, this, &TMainFrame::syncViews, Qt::QueuedConnection);
        // Modes and options are the same for every window.
        connect(view, &TVekWinEditor::commandDone, this, [this](uint16_t id) {
            if (commandGroup(id) != kModesGroup) return;
            for (QMdiSubWindow* s : mdi_->subWindowList())
                if (TVekWinEditor* w = viewIn(s)) w->redraw();
        });
        connect(view, &TVekWinEditor::captionChanged, this, [this, view] {
            if (QWidget* sub = view->parentWidget()) {
                sub->setWindowTitle(view->caption());
                sub->setWindowModified(view->document() && view->document()->modified);
            }
            refreshDocumentBar();
        });
        QMdiSubWindow* sub = mdi_->addSubWindow(view);
        sub->setAttribute(Qt::WA_DeleteOnClose, false);
        sub->installEventFilter(this);
        sub->setWindowTitle(view->caption());
        sub->setWindowModified(doc->modified);
        sub->setToolTip(qs(doc->fileName));
        sub->show();
    }
    if (TVekWinEditor* v = app_.active ? viewOf(app_.active) : nullptr) {
        if (QMdiSubWindow* sub = qobject_cast<QMdiSubWindow*>(v->parentWidget()); sub && sub != mdi_->activeSubWindow())
            mdi_->setActiveSubWindow(sub);
        v->setFocus();
    }
    syncing_ = false;
    refreshDocumentBar();
    refreshStatus();
}

Document* TMainFrame::openFile(const std::string& path) {
    const bool wasOpen = std::any_of(app_.documents.begin(), app_.documents.end(), [&](const auto& d) {
        return d->hasFile && d->fileName == fullPath(path);
    });
    Document* doc = openDocument(app_, path);
    if (!doc) return nullptr;
    recentFileAdd(doc->fileName);
    refreshRecentMenu();
    syncViews();
    if (!wasOpen) {
        if (const RecentView* r = recentViewFind(doc->fileName); r && r->line <= lastLine(*doc)) {
            zol::setCursor(*doc, makePos(r->column, r->line));
            if (TVekWinEditor* v = viewOf(doc)) {
                v->setFirstVisibleLine(std::max(0, r->line - v->pageLines() / 2));
                v->redraw();
                // Separate windows come back where they were; tabs have no place of their own.
                auto* sub = qobject_cast<QMdiSubWindow*>(v->parentWidget());
                if (sub && mdi_->viewMode() == QMdiArea::SubWindowView && r->width > 0 && r->height > 0) {
                    if (r->showState == 3) sub->showMaximized();
                    else if (r->showState == 2) sub->showMinimized();
                    else sub->setGeometry(r->x, r->y, r->width, r->height);
                }
            }
        }
    }
    refreshStatus();
    return doc;
}

Document* TMainFrame::newFile() {
    Document* doc = newDocument(app_);
    syncViews();
    return doc;
}

void TMainFrame::rememberView(const Document& doc) {
    if (!doc.hasFile) return;
    int showState = 1;
    QRect r = geometry();
    if (TVekWinEditor* v = viewOf(&doc); v && v->parentWidget()) {
        QWidget* sub = v->parentWidget();
        r = sub->geometry();
        showState = sub->isMaximized() || mdi_->viewMode() == QMdiArea::TabbedView ? 3 : sub->isMinimized() ? 2 : 1;
    }
    recentViewAdd(doc.fileName, doc.cursor.col, doc.cursor.line, r.x(), r.y(), r.width(), r.height(), showState);
}

bool TMainFrame::closeDocumentWindow(Document* doc) {
    if (!isDocument(app_, doc)) return true;
    rememberView(*doc);
    const bool closed = closeDocument(app_, doc);
    syncViews();
    return closed;
}

bool TMainFrame::askSaveName(std::string& path, int& format, const QString& title) {
    QFileDialog dialog(this, title, qs(path));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const QStringList filters{QString::fromLatin1(qtmsg::kSaveFormatDos), QString::fromLatin1(qtmsg::kSaveFormatUnix),
                              QString::fromLatin1(qtmsg::kSaveFormatMac)};
    dialog.setNameFilters(filters);
    if (format >= 0 && format < 3) dialog.selectNameFilter(filters[format]);
    if (!path.empty()) dialog.selectFile(qs(path));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
    path = local(dialog.selectedFiles().front());
    format = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
    return true;
}

bool TMainFrame::saveAs(Document& doc) {
    std::string path = doc.fileName;
    int format = static_cast<int>(doc.textFormat);
    if (!askSaveName(path, format, QString::fromLatin1(qtmsg::kSaveAsTitle))) return false;
    const bool saved = saveDocumentAs(doc, path, format);
    if (saved) {
        recentFileAdd(doc.fileName);
        refreshRecentMenu();
    }
    if (TVekWinEditor* v = viewOf(&doc)) {
        v->refreshCaption();
        v->redraw();
    }
    return saved;
}

void TMainFrame::openFileDialog() {
    const QString start = app_.active && app_.active->hasFile ? qs(std::string(folderPart(app_.active->fileName))) : QString();
    const QStringList files = QFileDialog::getOpenFileNames(this, QString::fromLatin1(qtmsg::kOpenTitle), start,
                                                            QString::fromLatin1(qtmsg::kAllFilesFilter));
    for (const QString& f : files) openFile(local(f));
}

bool TMainFrame::writeBlock(Document& doc) {
    if (!hasSelection(doc)) return false;
    std::string path;
    int format = static_cast<int>(doc.textFormat);
    if (!askSaveName(path, format, QString::fromLatin1(qtmsg::kSaveAsTitle))) return false;
    return writeFile(doc, path, textFormatOf(format).value_or(TextFormat::Dos), -1, true, true);
}

bool TMainFrame::readBlock(Document& doc) {
    const QString file = QFileDialog::getOpenFileName(this, QString::fromLatin1(qtmsg::kOpenTitle));
    if (file.isEmpty()) return false;
    Document scratch;
    if (!readFile(scratch, local(file), true)) return false;
    std::string text;
    for (int32_t i = 0; i <= lastLine(scratch); ++i) {
        if (i) text += "\r\n";
        text += lineText(scratch, i);
    }
    return insertText(doc, text);
}

void TMainFrame::runExecScript() {
    const QString file = QFileDialog::getOpenFileName(this, QString::fromLatin1(qtmsg::kOpenTitle),
                                                      qs(homeDir() + "script"));
    if (file.isEmpty()) return;
    ScriptRunOptions opts;
    opts.includeDir = homeDir() + "script/include";
    const std::string path = local(file);
    const ScriptRunResult r = runScriptFile(path, {path}, opts);
    if (r.error) shell_->message(r.message);
    syncViews();
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub)) v->redraw();
}

void TMainFrame::tile(bool horizontal) {
    mdi_->setViewMode(QMdiArea::SubWindowView);
    const QList<QMdiSubWindow*> subs = mdi_->subWindowList();
    if (subs.isEmpty()) return;
    const QRect area = mdi_->viewport()->rect();
    const int n = static_cast<int>(subs.size());
    for (int i = 0; i < n; ++i) {
        subs[i]->showNormal();
        if (horizontal) {
            const int h = area.height() / n;
            subs[i]->setGeometry(0, i * h, area.width(), h);
        } else {
            const int w = area.width() / n;
            subs[i]->setGeometry(i * w, 0, w, area.height());
        }
    }
}

bool TMainFrame::frameCommand(TVekWinEditor* view, uint16_t id) {
    Document* doc = view ? view->document() : nullptr;
    QMdiSubWindow* sub = view ? qobject_cast<QMdiSubWindow*>(view->parentWidget()) : nullptr;
    switch (id) {
    case kSaveFile:
        if (doc) {
            if (doc->hasFile) saveDocument(*doc);
            else saveAs(*doc);
            view->refreshCaption();
        }
        return true;
    case kSaveFileAs:
        if (doc) saveAs(*doc);
        return true;
    case kWriteBlock:
        if (doc) writeBlock(*doc);
        return true;
    case kReadBlock:
        if (doc && !doc->readOnly) readBlock(*doc);
        else if (doc) view->readOnlyNotify();
        return true;
    case kOpenFile: openFileDialog(); return true;
    case kNewFile: newFile(); return true;
    case kPrint:
    case kHelpKeywordSearch:
    case kHelpContents:
    case kApiAssistanceOn: showMessage(QString::fromLatin1(qtmsg::kNotAvailable)); return true;
    case kExecScript: runExecScript(); return true;
    case kWindowMaximize:
    case kWindowMinimize:
    case kWindowRestore:
        if (!sub) return true;
        mdi_->setViewMode(QMdiArea::SubWindowView);
        if (id == kWindowMaximize) sub->showMaximized();
        else if (id == kWindowMinimize) sub->showMinimized();
        else sub->showNormal();
        return true;
    case kWindowCascade:
        mdi_->setViewMode(QMdiArea::SubWindowView);
        for (QMdiSubWindow* s : mdi_->subWindowList()) s->showNormal();
        mdi_->cascadeSubWindows();
        return true;
    case kWindowTileHorz: tile(true); return true;
    case kWindowTileVert: tile(false); return true;
    case kPrevWindow: mdi_->activatePreviousSubWindow(); return true;
    case kNextWindow: mdi_->activateNextSubWindow(); return true;
    default: return false;
    }
}

void TMainFrame::runOnActive(uint16_t id) {
    TVekWinEditor* v = activeView();
    if (v) {
        v->runCommand(id);
    } else if (frameCommand(nullptr, id)) {
        // File and window commands work without a document.
    }
    syncViews();
}

// ---- menus and bars ----

void TMainFrame::buildMenus() {
    QMenu* menus[kGroups + 1] = {};
    // The File menu comes first, as everywhere; the rest follow the table's groups.
    const int order[] = {9, 1, 2, 3, 4, 5, 6, 7, 8, 10, 13, 11, 12};
    for (int g : order) menus[g] = menuBar()->addMenu(QString::fromLatin1(qtmsg::kGroupMenus[g]));
    for (const CommandRecord& r : commandTable()) {
        if (r.group < 1 || r.group > kGroups) continue;
        QAction* a = menus[r.group]->addAction(menuText(r));
        a->setData(r.id);
        if (r.description) a->setStatusTip(QString::fromLatin1(r.description));
        // Commands that take a parameter come from keys, macros and scripts only.
        a->setEnabled(r.kind != ParamKind::Char && r.kind != ParamKind::Number);
        const uint16_t id = r.id;
        connect(a, &QAction::triggered, this, [this, id] { runOnActive(id); });
    }
    for (int g = 1; g <= kGroups; ++g)
        connect(menus[g], &QMenu::aboutToShow, this, [this, m = menus[g]] { refreshKeyNames(m); });

    QMenu* file = menus[9];
    file->addSeparator();
    file->addAction(QString::fromLatin1(qtmsg::kCloseAction), this, [this] {
        if (TVekWinEditor* v = activeView()) closeDocumentWindow(v->document());
    });
    recentMenu_ = file->addMenu(QString::fromLatin1(qtmsg::kRecentMenu));
    file->addSeparator();
    file->addAction(QString::fromLatin1(qtmsg::kExitAction), this, &QWidget::close);

    menus[8]->addSeparator();
    menus[8]->addAction(QString::fromLatin1(qtmsg::kOptionsAction), this, [this] {
        if (TOptionsDialog::run(this)) applyViewSettings();
    });
    QMenu* window = menus[11];
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
            for (QMdiSubWindow* sub : mdi_->subWindowList())
                if (TVekWinEditor* v = viewIn(sub)) v->redraw();
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
    recording_->setText(doc->recorder ? QString::fromLatin1(qtmsg::kRecording) : QString());
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

// ---- session ----

void TMainFrame::restoreDesktop() {
    std::vector<std::string> files;
    if (settings().saveDesktop) {
        for (int i = 1; i <= kDesktopFiles; ++i) {
            const std::string f = getProfileString(kDesktopSection, std::to_string(i), "", kSettingsFile);
            if (!f.empty()) files.push_back(f);
        }
    }
    if (settings().autoLoad) {
        for (int i = 0; i < kAutoLoadFiles; ++i)
            if (std::string f = autoLoadGet(i); !f.empty()) files.push_back(f);
    }
    for (const std::string& f : files)
        if (QFileInfo::exists(qs(f))) openFile(f);
}

void TMainFrame::saveDesktop() {
    writeProfileString(kDesktopSection, nullptr, nullptr, kSettingsFile);
    if (settings().saveDesktop) {
        int key = 1;
        for (const auto& doc : app_.documents) {
            if (!doc->hasFile || key > kDesktopFiles) continue;
            writeProfileString(kDesktopSection, std::to_string(key++), doc->fileName, kSettingsFile);
        }
    }
    for (const auto& doc : app_.documents) rememberView(*doc);
    recentViewSave();
    WindowPlacement& w = settings().window;
    const QRect r = normalGeometry();
    w.maximized = isMaximized();
    w.x = r.x();
    w.y = r.y();
    w.width = r.width();
    w.height = r.height();
}

// ---- events ----

void TMainFrame::closeEvent(QCloseEvent* e) {
    saveDesktop();
    while (!app_.documents.empty()) {
        if (!closeDocumentWindow(app_.documents.back().get())) {
            e->ignore();
            return;
        }
    }
    e->accept();
}

bool TMainFrame::eventFilter(QObject* watched, QEvent* e) {
    if (e->type() == QEvent::Close) {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(watched)) {
            e->ignore();
            if (TVekWinEditor* v = viewIn(sub)) closeDocumentWindow(v->document());
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, e);
}

void TMainFrame::dragEnterEvent(QDragEnterEvent* e) {
    if (e->mimeData()->hasUrls()) e->acceptProposedAction();
}

void TMainFrame::dropEvent(QDropEvent* e) {
    for (const QUrl& url : e->mimeData()->urls())
        if (url.isLocalFile()) openFile(local(url.toLocalFile()));
    e->acceptProposedAction();
}

void TMainFrame::changeEvent(QEvent* e) {
    QMainWindow::changeEvent(e);
    if (e->type() == QEvent::ActivationChange && isActiveWindow()) checkExternalChanges();
}

void TMainFrame::checkExternalChanges() {
    if (checkingFiles_ || !options().checkFileTime) return;
    checkingFiles_ = true;
    std::vector<Document*> docs;
    for (const auto& d : app_.documents) docs.push_back(d.get());
    if (checkFileTime(docs) > 0) {
        for (QMdiSubWindow* sub : mdi_->subWindowList())
            if (TVekWinEditor* v = viewIn(sub)) {
                v->redraw();
                v->refreshCaption();
            }
        refreshStatus();
    }
    checkingFiles_ = false;
}

}  // namespace zol
