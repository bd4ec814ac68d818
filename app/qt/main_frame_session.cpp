// TMainFrame: the session. The frame's placement, the documents of the last session
// (the "Desktop" section and the "AutoLoad" list), and each file's cursor and window
// from "LastFilesInfo".
#include <QFileInfo>
#include <QGuiApplication>
#include <QMdiArea>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "app/qt/main_frame.h"
#include "app/qt/main_frame_util.h"
#include "config/recent_views.h"
#include "config/settings.h"
#include "engine/document.h"
#include "platform/profile.h"

namespace zol {
namespace {

// The session's documents, keys "1".."n" of this section of "zol.ini".
constexpr const char* kDesktopSection = "Desktop";
constexpr int kDesktopFiles = 64;

// The share of the screen a first start takes, in each direction.
constexpr int kFirstStartNumerator = 2;
constexpr int kFirstStartDenominator = 3;
constexpr int kMinWidth = 200;
constexpr int kMinHeight = 150;
// A window counts as on a screen when this much of its top edge, where the title bar
// is grabbed, lies on one.
constexpr int kGrip = 40;
// Room for the window manager's frame around the placement, which is the inside of the
// window: its title bar above, thin borders elsewhere.
constexpr int kFrameTop = 32;
constexpr int kFrameSide = 8;

bool reachable(const QRect& r) {
    const QRect top(r.x(), r.y(), r.width(), kGrip / 2);
    for (const QScreen* s : QGuiApplication::screens()) {
        const QRect on = top & s->availableGeometry();
        if (on.width() >= kGrip && on.height() > 0) return true;
    }
    return false;
}

}  // namespace

void TMainFrame::placeWindow() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return;
    const QRect avail = screen->availableGeometry();
    const std::string saved = getProfileString("Settings", "Window", "", kSettingsFile);
    if (saved.empty()) {
        const QSize size(avail.width() * kFirstStartNumerator / kFirstStartDenominator,
                         avail.height() * kFirstStartNumerator / kFirstStartDenominator);
        setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, avail));
        return;
    }
    // The store read the key before any screen was known.
    const QRect desktop = screen->virtualGeometry();
    ProfileEnv env;
    env.screenWidth = desktop.x() + desktop.width();
    env.screenHeight = desktop.y() + desktop.height();
    const WindowPlacement w = settings().window = windowFromText(saved, env);
    const QRect inner = avail.adjusted(kFrameSide, kFrameTop, -kFrameSide, -kFrameSide);
    const QSize size(std::clamp(w.width, kMinWidth, std::max(kMinWidth, inner.width())),
                     std::clamp(w.height, kMinHeight, std::max(kMinHeight, inner.height())));
    QRect r = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, inner);
    if (w.x != kDefaultWindowPos && w.y != kDefaultWindowPos) r.moveTo(w.x, w.y);
    if (!reachable(r))
        r.moveTo(std::clamp(r.x(), inner.left(), std::max(inner.left(), inner.right() + 1 - r.width())),
                 std::clamp(r.y(), inner.top(), std::max(inner.top(), inner.bottom() + 1 - r.height())));
    setGeometry(r);
    if (w.maximized) setWindowState(windowState() | Qt::WindowMaximized);
}

void TMainFrame::restoreView(Document& doc) {
    const RecentView* r = recentViewFind(doc.fileName);
    if (!r || r->line > lastLine(doc)) return;
    zol::setCursor(doc, makePos(r->column, r->line));
    TVekWinEditor* v = viewOf(&doc);
    if (!v) return;
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
        if (QFileInfo::exists(frame::qs(f))) openFile(f);
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

}  // namespace zol
