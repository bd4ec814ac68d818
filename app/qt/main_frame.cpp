// TMainFrame: the frame itself. Its windows, one per document, the file dialogs, the
// frame's own commands and the window events.
#include "app/qt/main_frame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

#include "app/qt/dialogs/convert_dialogs.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame_util.h"
#include "app/qt/messages.h"
#include "app/qt/qt_shell.h"
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
#include "script/run_script.h"

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
    installConvertChooser(this);
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
            if (commandGroup(id) == static_cast<int>(CmdGroup::Modes)) redrawViews();
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

void TMainFrame::runExecScript() {
    const QString file = QFileDialog::getOpenFileName(this, QString::fromLatin1(qtmsg::kOpenTitle),
                                                      qs(homeDir() + "script"));
    if (file.isEmpty()) return;
    const std::string path = local(file);
    runScript(path, {}, fileNamePart(path), ScriptStarter::User);
    syncViews();
    redrawViews();
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
    switch (static_cast<Cmd>(id)) {
    case Cmd::SaveFile:
        if (doc) {
            if (doc->hasFile) saveDocument(*doc);
            else saveAs(*doc);
            view->refreshCaption();
        }
        return true;
    case Cmd::SaveFileAs:
        if (doc) saveAs(*doc);
        return true;
    case Cmd::WriteBlock:
        if (doc) writeBlock(*doc);
        return true;
    case Cmd::ReadBlock:
        if (doc && !doc->readOnly) readBlock(*doc);
        else if (doc) view->readOnlyNotify();
        return true;
    case Cmd::OpenFile: openFileDialog(); return true;
    case Cmd::NewFile: newFile(); return true;
    case Cmd::Print:
    case Cmd::HelpKeywordSearch:
    case Cmd::HelpContents:
    case Cmd::ApiAssistanceOn: showMessage(QString::fromLatin1(qtmsg::kNotAvailable)); return true;
    case Cmd::ExecScript: runExecScript(); return true;
    case Cmd::WindowMaximize:
    case Cmd::WindowMinimize:
    case Cmd::WindowRestore:
        if (!sub) return true;
        mdi_->setViewMode(QMdiArea::SubWindowView);
        if (id == idOf(Cmd::WindowMaximize)) sub->showMaximized();
        else if (id == idOf(Cmd::WindowMinimize)) sub->showMinimized();
        else sub->showNormal();
        return true;
    case Cmd::WindowCascade:
        mdi_->setViewMode(QMdiArea::SubWindowView);
        for (QMdiSubWindow* s : mdi_->subWindowList()) s->showNormal();
        mdi_->cascadeSubWindows();
        return true;
    case Cmd::WindowTileHorz: tile(true); return true;
    case Cmd::WindowTileVert: tile(false); return true;
    case Cmd::PrevWindow: mdi_->activatePreviousSubWindow(); return true;
    case Cmd::NextWindow: mdi_->activateNextSubWindow(); return true;
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

void TMainFrame::redrawViews() {
    for (QMdiSubWindow* sub : mdi_->subWindowList())
        if (TVekWinEditor* v = viewIn(sub)) v->redraw();
}

}  // namespace zol
