// TMainFrame: the session. The documents of the last session (the "Desktop" section
// and the "AutoLoad" list), each file's cursor and window from "LastFilesInfo", and
// the frame's own placement.
#include <QFileInfo>
#include <QMdiArea>
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

}  // namespace

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
