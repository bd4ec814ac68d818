// TMainFrame: the frame itself. Its windows, one per document, the file dialogs, the
// frame's own commands and the window events.
#include "app/qt/main_frame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <algorithm>

#include "app/qt/completion_popup.h"
#include "app/qt/dialogs/convert_dialogs.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame_util.h"
#include "app/qt/messages.h"
#include "app/qt/help_lookup.h"
#include "app/qt/help_window.h"
#include "app/qt/print_run.h"
#include "app/qt/plugin_windows.h"
#include "app/qt/qt_shell.h"
#include "app/qt/script_host.h"
#include "config/recent_files.h"
#include "config/recent_views.h"
#include "config/settings.h"
#include "engine/command_table.h"
#include "engine/edit.h"
#include "engine/editor_events.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "files/prompts.h"
#include "files/save.h"
#include "files/textfile.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "plugin/plugin_manager.h"

namespace zol {
namespace {

using frame::local;
using frame::qs;
using frame::viewIn;

constexpr int kAutoSaveTickMs = 5000;

}  // namespace

TMainFrame::TMainFrame(Application& app) : app_(app), shell_(std::make_unique<QtShell>(this)), mdi_(new QMdiArea(this)) {
    setWindowTitle(QString::fromLatin1(qtmsg::kAppTitle));
    setAcceptDrops(true);
    mdi_->setTabsClosable(true);
    mdi_->setTabsMovable(true);
    mdi_->setDocumentMode(true);
    setCentralWidget(mdi_);
    connect(mdi_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* sub) {
        if (TVekWinEditor* v = viewIn(sub); v && v->document()) {
            setActiveDocument(app_, v->document());
            v->setFocus();
        }
        refreshStatus();
        refreshDocumentBar();
    });
    plugInWindows_ = new TPlugInWindows(this);
    connect(plugInWindows_, &TPlugInWindows::acted, this, [this] {
        syncViews();
        redrawViews();
    });
    buildMenus();
    buildToolBars();
    buildStatusBar();
    setTabbed(true);
    connect(&autoSaveTimer_, &QTimer::timeout, this, [this] { autoSaveTick(app_); });
    autoSaveTimer_.start(kAutoSaveTickMs);
    messageTimer_.setSingleShot(true);
    connect(&messageTimer_, &QTimer::timeout, message_, &QLabel::clear);
    connect(qApp, &QApplication::applicationStateChanged, this, [this](Qt::ApplicationState s) {
        if (s == Qt::ApplicationActive) checkExternalChanges();
    });
    app_.mainWindow = reinterpret_cast<intptr_t>(this);
    installConvertChooser(this);
    installProofingFrontEnd(this);
    scriptHost_ = new TScriptHost(this);
    connect(scriptHost_, &TScriptHost::editorChanged, this, &TMainFrame::syncViews);
    connect(scriptHost_, &TScriptHost::runStarted, this, [this] { scriptRunning_->setVisible(true); });
    connect(scriptHost_, &TScriptHost::runEnded, this, &TMainFrame::scriptRunEnded);
}

TMainFrame::~TMainFrame() {
    // A script still running stops before the frame it works on goes.
    delete scriptHost_;
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
    placeWindow();
    applyViewSettings();
    recentViewLoad();
    refreshRecentMenu();
}

void TMainFrame::applyViewSettings() {
    const Settings& s = settings();
    statusBar()->setVisible(s.statusBar);
    toolBar_->setVisible(s.buttonBar);
    documentBar_->setVisible(s.docToolBar && !tabbed());
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

void TMainFrame::syncViews() {
    if (syncing_) return;
    syncing_ = true;
    for (QMdiSubWindow* sub : mdi_->subWindowList()) {
        TVekWinEditor* v = viewIn(sub);
        if (v && v->live()) continue;
        if (v) v->detach();
        mdi_->removeSubWindow(sub);
        sub->deleteLater();
    }
    for (const auto& doc : app_.documents)
        if (!viewOf(doc.get())) addView(doc.get());
    if (TVekWinEditor* v = app_.active ? viewOf(app_.active) : nullptr) {
        if (QMdiSubWindow* sub = qobject_cast<QMdiSubWindow*>(v->parentWidget()); sub && sub != mdi_->activeSubWindow())
            mdi_->setActiveSubWindow(sub);
        v->setFocus();
    }
    syncing_ = false;
    refreshDocumentBar();
    refreshStatus();
}

void TMainFrame::addView(Document* doc) {
    auto* view = new TVekWinEditor(doc);
    view->setEditorFont(editorFont());
    view->documentAlive = [this](const Document* d) { return isDocument(app_, d); };
    view->frameCommand = [this](TVekWinEditor* v, uint16_t id) { return frameCommand(v, id); };
    view->contextMenu = [this](TVekWinEditor* v) { return contextMenu(v); };
    connect(view, &TVekWinEditor::statusChanged, this, [this, view] {
        if (view == activeView()) refreshStatus();
    });
    connect(view, &TVekWinEditor::documentClosed, this, &TMainFrame::syncViews, Qt::QueuedConnection);
    // Modes and options are the same for every window.
    connect(view, &TVekWinEditor::commandDone, this, [this, view](uint16_t id) {
        if (commandGroup(id) == static_cast<int>(CmdGroup::Modes)) redrawViews();
        apiAssistAfter(view, id);
    });
    connect(view, &TVekWinEditor::captionChanged, this, [this, view] {
        if (QWidget* sub = view->parentWidget()) {
            sub->setWindowTitle(view->caption());
            sub->setWindowModified(view->document() && view->document()->modified);
        }
        refreshDocumentBar();
        if (view == activeView()) refreshStatus();
    });
    QMdiSubWindow* sub = mdi_->addSubWindow(view);
    sub->setAttribute(Qt::WA_DeleteOnClose, false);
    sub->installEventFilter(this);
    sub->setWindowTitle(view->caption());
    sub->setWindowModified(doc->modified);
    sub->setToolTip(qs(doc->fileName));
    sub->setWindowIcon(style()->standardIcon(QStyle::SP_FileIcon));
    if (tabbed()) fitToTabs(sub);
    else sub->show();
}

Document* TMainFrame::openFile(const std::string& path) {
    Document* doc = openDocument(app_, path);
    if (!doc) return nullptr;
    // Start-up opens the command line's files before the frame shows them.
    const bool firstWindow = !viewOf(doc);
    recentFileAdd(doc->fileName);
    refreshRecentMenu();
    syncViews();
    if (firstWindow) restoreView(*doc);
    refreshStatus();
    return doc;
}

Document* TMainFrame::openCommandLineFile(const std::string& path) {
    Document* doc = openOrCreateDocument(app_, path);
    if (!doc) return nullptr;
    // A file on disk joins the recent files and gets its remembered cursor back.
    if (fileExists(doc->fileName)) return openFile(doc->fileName);
    syncViews();
    return doc;
}

Document* TMainFrame::newFile() {
    Document* doc = newDocument(app_);
    syncViews();
    return doc;
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

void TMainFrame::scriptRunEnded() {
    scriptRunning_->setVisible(false);
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub)) v->releaseUpdateLocks();
    redrawViews();
    if (closeAfterScript_ && !scriptHost_->running()) close();
}

void TMainFrame::saveFile(TVekWinEditor* view) {
    Document* doc = view ? view->document() : nullptr;
    if (!doc) return;
    if (doc->hasFile) saveDocument(*doc);
    else saveAs(*doc);
    view->refreshCaption();
    view->redraw();
}

std::span<const TMainFrame::FrameCommand> TMainFrame::frameCommands() {
    using V = TVekWinEditor*;
    static const FrameCommand table[] = {
        {Cmd::SaveFile, [](TMainFrame& f, V v) { f.saveFile(v); }},
        {Cmd::SaveFileAs, [](TMainFrame& f, V v) {
             if (v && v->document()) f.saveAs(*v->document());
         }},
        {Cmd::WriteBlock, [](TMainFrame& f, V v) {
             if (v && v->document()) f.writeBlock(*v->document());
         }},
        {Cmd::ReadBlock, [](TMainFrame& f, V v) {
             if (!v || !v->document()) return;
             if (v->document()->readOnly) v->readOnlyNotify();
             else f.readBlock(*v->document());
         }},
        {Cmd::OpenFile, [](TMainFrame& f, V) { f.openFileDialog(); }},
        {Cmd::HelpContents, [](TMainFrame&, V) { THelpWindow::instance()->showContents(); }},
        {Cmd::HelpKeywordSearch, [](TMainFrame&, V v) {
             if (v && v->document()) helpKeywordSearch(*v->document());
         }},
        {Cmd::ApiAssistanceOn, [](TMainFrame&, V v) { toggleApiAssistance(v); }},
        {Cmd::Print, [](TMainFrame& f, V v) {
             if (v && v->document()) printDocument(&f, *v->document());
         }},
        {Cmd::NewFile, [](TMainFrame& f, V) { f.newFile(); }},
        {Cmd::ExecScript, [](TMainFrame& f, V) { f.runExecScript(); }},
        {Cmd::WindowMaximize, [](TMainFrame& f, V v) { f.showWindow(v, Qt::WindowMaximized); }},
        {Cmd::WindowMinimize, [](TMainFrame& f, V v) { f.showWindow(v, Qt::WindowMinimized); }},
        {Cmd::WindowRestore, [](TMainFrame& f, V v) { f.showWindow(v, Qt::WindowNoState); }},
        {Cmd::WindowCascade, [](TMainFrame& f, V) { f.cascade(); }},
        {Cmd::WindowTileHorz, [](TMainFrame& f, V) { f.tile(true); }},
        {Cmd::WindowTileVert, [](TMainFrame& f, V) { f.tile(false); }},
        {Cmd::PrevWindow, [](TMainFrame& f, V) { f.mdi_->activatePreviousSubWindow(); }},
        {Cmd::NextWindow, [](TMainFrame& f, V) { f.mdi_->activateNextSubWindow(); }},
    };
    return table;
}

bool TMainFrame::handlesCommand(uint16_t id) {
    return std::any_of(frameCommands().begin(), frameCommands().end(),
                       [id](const FrameCommand& c) { return idOf(c.command) == id; });
}

bool TMainFrame::frameCommand(TVekWinEditor* view, uint16_t id) {
    for (const FrameCommand& c : frameCommands()) {
        if (idOf(c.command) != id) continue;
        c.run(*this, view);
        return true;
    }
    return false;
}

void TMainFrame::runOnActive(uint16_t id, uint32_t param) {
    if (TVekWinEditor* v = activeView()) v->runCommand(id, param);
    else frameCommand(nullptr, id);  // file and window commands work without a document
    syncViews();
}

void TMainFrame::closeEvent(QCloseEvent* e) {
    // The script works on the documents about to be closed: it stops first, and the
    // window closes when its run has ended.
    if (scriptHost_->running()) {
        closeAfterScript_ = true;
        scriptHost_->stop();
        e->ignore();
        return;
    }
    closeAfterScript_ = false;
    saveDesktop();
    while (!app_.documents.empty()) {
        if (!closeDocumentWindow(app_.documents.back().get())) {
            e->ignore();
            return;
        }
    }
    // The closing round that shutDown ends with 4 and 3: the plug-ins' windows are
    // still up at 1, and their places recorded by 2.
    sendEvent(kEventFrameGroupOpen);
    plugInWindows_->savePlaces();
    sendEvent(kEventFrameGroupNext);
    e->accept();
}

bool TMainFrame::eventFilter(QObject* watched, QEvent* e) {
    // F1 on a plug-in's menu item asks its module for help on it.
    if (watched == plugInMenu_ && e->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(e)->key() == Qt::Key_F1) {
        if (QAction* a = plugInMenu_->activeAction(); a && a->data().isValid() && runPlugInMenuHelp(a->data().toInt())) {
            plugInMenu_->close();
            return true;
        }
    }
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

void TMainFrame::redrawViews() {
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub)) {
            v->refreshMarks();
            v->redraw();
        }
}

}  // namespace zol
