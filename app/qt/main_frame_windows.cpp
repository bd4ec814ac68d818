// TMainFrame: the document windows. In tabbed mode every document fills the area
// below its tab, without a frame of its own; cascading or tiling turns them into
// separate windows. The Window menu lists them.
#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTabBar>
#include <QToolBar>

#include "app/qt/main_frame.h"
#include "app/qt/main_frame_util.h"
#include "app/qt/messages.h"
#include "config/settings.h"
#include "engine/document.h"
#include "platform/paths.h"

namespace zol {

using frame::qs;
using frame::viewIn;

bool TMainFrame::tabbed() const { return mdi_->viewMode() == QMdiArea::TabbedView; }

void TMainFrame::fitToTabs(QMdiSubWindow* sub) {
    if (!sub->windowFlags().testFlag(Qt::FramelessWindowHint)) sub->setWindowFlags(Qt::FramelessWindowHint);
    sub->showMaximized();
}

void TMainFrame::setTabbed(bool on) {
    QMdiSubWindow* active = mdi_->activeSubWindow();
    if (on != tabbed()) mdi_->setViewMode(on ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
    // The area makes a new tab bar each time; tabs as wide as their names read as tabs,
    // one stretched over the whole width as a second title bar.
    if (auto* bar = mdi_->findChild<QTabBar*>(); bar && on) bar->setExpanding(false);
    for (QMdiSubWindow* sub : mdi_->subWindowList()) {
        if (on) {
            fitToTabs(sub);
        } else if (sub->windowFlags().testFlag(Qt::FramelessWindowHint)) {
            sub->setWindowFlags(Qt::WindowFlags());
            sub->showNormal();
        }
    }
    if (active) mdi_->setActiveSubWindow(active);
    if (tabsAction_) tabsAction_->setChecked(on);
    // The tabs name the documents; separate windows have the document bar instead.
    documentBar_->setVisible(!on && settings().docToolBar);
    if (TVekWinEditor* v = activeView()) v->setFocus();
}

void TMainFrame::tile(bool horizontal) {
    setTabbed(false);
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

void TMainFrame::cascade() {
    setTabbed(false);
    for (QMdiSubWindow* s : mdi_->subWindowList()) s->showNormal();
    mdi_->cascadeSubWindows();
}

void TMainFrame::showWindow(TVekWinEditor* view, Qt::WindowState state) {
    auto* sub = view ? qobject_cast<QMdiSubWindow*>(view->parentWidget()) : nullptr;
    if (!sub) return;
    setTabbed(false);
    if (state == Qt::WindowMaximized) sub->showMaximized();
    else if (state == Qt::WindowMinimized) sub->showMinimized();
    else sub->showNormal();
}

void TMainFrame::refreshWindowMenu() {
    QMenu* window = menu("Window");
    if (!window) return;
    for (QAction* a : windowItems_) {
        window->removeAction(a);
        a->deleteLater();
    }
    windowItems_.clear();
    if (app_.documents.empty()) return;
    windowItems_ << window->addSeparator();
    for (size_t i = 0; i < app_.documents.size(); ++i) {
        Document* d = app_.documents[i].get();
        QString name = qs(std::string(fileNamePart(d->fileName)));
        if (d->modified) name += QLatin1String(qtmsg::kModifiedMark);
        QAction* a = window->addAction(QString::fromLatin1(qtmsg::kNumberedItem).arg(i + 1).arg(name));
        a->setCheckable(true);
        a->setChecked(d == app_.active);
        connect(a, &QAction::triggered, this, [this, d] {
            if (!isDocument(app_, d)) return;
            setActiveDocument(app_, d);
            syncViews();
        });
        windowItems_ << a;
    }
}

}  // namespace zol
