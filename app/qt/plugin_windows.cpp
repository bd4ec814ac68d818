#include "app/qt/plugin_windows.h"

#include <QAction>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTabWidget>
#include <optional>
#include <sstream>

#include "app/qt/plugin_messages.h"
#include "app/qt/qt_shell.h"
#include "engine/shell.h"
#include "platform/paths.h"
#include "platform/registry.h"
#include "plugin/plugin_manager.h"
#include "plugin/plugin_windows.h"
#include "plugin/zolder_api.h"

namespace zol {
namespace {

// The docking layer's registry keys: one value per dockable window, named by its
// module's file and its title, and one for the workspace.
constexpr const char* kDockKey = "Software\\VEK\\Zolder\\Windows\\PlugIns";
constexpr const char* kWorkspaceKey = "Software\\VEK\\Zolder\\Windows\\Workspace";
constexpr const char* kWorkspaceValue = "Place";
// A size beyond any screen is no place a window had: the record is damaged.
constexpr int kMaxExtent = 32767;
// What a window gets when its plug-in names no size.
constexpr int kDefaultWidth = 240, kDefaultHeight = 320;
constexpr uint32_t kRgbMask = 0xFFFFFF;

struct AreaName {
    const char* name;
    Qt::DockWidgetArea area;
};
// Indexed by ZOL_DOCK_LEFT .. ZOL_DOCK_BOTTOM.
constexpr AreaName kAreas[] = {{"left", Qt::LeftDockWidgetArea},
                               {"top", Qt::TopDockWidgetArea},
                               {"right", Qt::RightDockWidgetArea},
                               {"bottom", Qt::BottomDockWidgetArea}};
static_assert(ZOL_DOCK_LEFT == 0 && ZOL_DOCK_BOTTOM == 3 && ZOL_DOCK_FLOAT == 4);

// A record: "AREA FLOATING X Y WIDTH HEIGHT SHOWN", for example "right 0 0 0 240 600 1".
struct Place {
    Qt::DockWidgetArea area = Qt::RightDockWidgetArea;
    bool floating = false;
    QRect rect;
    bool shown = true;
};

std::string placeText(const Place& p) {
    const char* area = "right";
    for (const AreaName& a : kAreas)
        if (a.area == p.area) area = a.name;
    std::ostringstream out;
    out << area << ' ' << p.floating << ' ' << p.rect.x() << ' ' << p.rect.y() << ' ' << p.rect.width() << ' '
        << p.rect.height() << ' ' << p.shown;
    return out.str();
}

std::optional<Place> parsePlace(const std::string& text) {
    std::istringstream in(text);
    std::string area, rest;
    int floating = 0, x = 0, y = 0, w = 0, h = 0, shown = 0;
    if (!(in >> area >> floating >> x >> y >> w >> h >> shown) || (in >> rest)) return std::nullopt;
    Place p;
    bool known = false;
    for (const AreaName& a : kAreas)
        if (area == a.name) {
            p.area = a.area;
            known = true;
        }
    const auto flag = [](int v) { return v == 0 || v == 1; };
    const auto coord = [](int v) { return v > -kMaxExtent && v < kMaxExtent; };
    if (!known || !flag(floating) || !flag(shown) || !coord(x) || !coord(y) || w <= 0 || h <= 0 || w > kMaxExtent ||
        h > kMaxExtent)
        return std::nullopt;
    p.floating = floating != 0;
    p.rect = QRect(x, y, w, h);
    p.shown = shown != 0;
    return p;
}

Qt::DockWidgetAreas allowedAreas(const PlugInWindow& w) {
    switch (w.allowedPositions) {
    case ZOL_ALLOW_LEFT_RIGHT: return Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea;
    case ZOL_ALLOW_TOP_BOTTOM: return Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea;
    case ZOL_ALLOW_START_SIDE: return w.dockPosition < ZOL_DOCK_FLOAT ? kAreas[w.dockPosition].area : Qt::RightDockWidgetArea;
    case ZOL_ALLOW_FLOAT_ONLY: return Qt::NoDockWidgetArea;
    default: return Qt::AllDockWidgetAreas;
    }
}

// A floating window whose place lies off every screen (a monitor that is gone) comes
// back onto the primary one.
QRect ontoScreen(QRect r) {
    for (const QScreen* s : QGuiApplication::screens())
        if (s->availableGeometry().intersects(r)) return r;
    if (const QScreen* s = QGuiApplication::primaryScreen()) r.moveCenter(s->availableGeometry().center());
    return r;
}

// The record's name: '=' and brackets would end the profile key or start a section.
std::string recordName(const PlugInWindow& w) {
    const PlugInRecord* r = findPlugIn(w.module);
    std::string name = std::string(r ? fileNamePart(r->path) : "") + ":" + w.title;
    for (char& c : name)
        if (c == '=' || c == '[' || c == ']' || c == '\r' || c == '\n') c = '_';
    return name;
}

class TQtCanvas final : public PlugInCanvas {
public:
    TQtCanvas(QPainter& p, const QWidget& w) : p_(p), w_(w), fm_(w.font()) {}
    void fill(int x, int y, int width, int height, uint32_t rgb) override {
        p_.fillRect(x, y, width, height, QColor(QRgb(rgb)));
    }
    int text(int x, int y, std::string_view text, uint32_t rgb) override {
        const QString s = fromAnsi(text);
        p_.setPen(QColor(QRgb(rgb)));
        p_.drawText(x, y + fm_.ascent(), s);
        return fm_.horizontalAdvance(s);
    }
    int lineHeight() const override { return fm_.height(); }
    uint32_t color(int which) const override {
        const QPalette& pal = w_.palette();
        switch (which) {
        case ZOL_COLOR_WINDOW: return pal.color(QPalette::Base).rgb() & kRgbMask;
        case ZOL_COLOR_TEXT: return pal.color(QPalette::Text).rgb() & kRgbMask;
        case ZOL_COLOR_HIGHLIGHT: return pal.color(QPalette::Highlight).rgb() & kRgbMask;
        case ZOL_COLOR_HIGHLIGHT_TEXT: return pal.color(QPalette::HighlightedText).rgb() & kRgbMask;
        default: return 0;
        }
    }

private:
    QPainter& p_;
    const QWidget& w_;
    QFontMetrics fm_;
};

}  // namespace

TPlugInPanel::TPlugInPanel(intptr_t handle, QWidget* parent) : QWidget(parent), handle_(handle) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(40, 40);
}

void TPlugInPanel::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Base));
    TQtCanvas canvas(p, *this);
    paintPlugInWindow(handle_, canvas, width(), height());
}

void TPlugInPanel::mousePressEvent(QMouseEvent* e) {
    const int event = e->button() == Qt::LeftButton ? ZOL_MOUSE_CLICK : e->button() == Qt::RightButton ? ZOL_MOUSE_RIGHT_CLICK : 0;
    const QPoint at = e->position().toPoint();
    if (event && plugInWindowMouse(handle_, event, at.x(), at.y())) Q_EMIT acted();
}

void TPlugInPanel::mouseDoubleClickEvent(QMouseEvent* e) {
    const QPoint at = e->position().toPoint();
    if (e->button() == Qt::LeftButton && plugInWindowMouse(handle_, ZOL_MOUSE_DOUBLE_CLICK, at.x(), at.y()))
        Q_EMIT acted();
}

TPlugInWindows::TPlugInWindows(QMainWindow* frame)
    : QObject(frame), frame_(frame), workspace_(new QDockWidget(frame)), tabs_(new QTabWidget(workspace_)) {
    workspace_->setObjectName(QStringLiteral("Workspace"));
    workspace_->setWindowTitle(QString::fromLatin1(plgqt::kWorkspaceTitle));
    tabs_->setDocumentMode(true);
    workspace_->setWidget(tabs_);
    frame_->addDockWidget(Qt::LeftDockWidgetArea, workspace_);
    workspace_->hide();
    workspace_->toggleViewAction()->setVisible(false);
    frame_->installEventFilter(this);
}

// Floating windows stay above the frame, as tool windows do, also where the window
// manager maps the frame over them.
bool TPlugInWindows::eventFilter(QObject* watched, QEvent* e) {
    if (watched == frame_ && e->type() == QEvent::Show) {
        for (const QPointer<QDockWidget>& dock : floatingLater_)
            if (dock) dock->show();
        floatingLater_.clear();
    } else if (watched == frame_ && e->type() == QEvent::WindowActivate) {
        for (const Docked& d : docks_)
            if (d.dock && d.dock->isFloating() && d.dock->isVisible()) d.dock->raise();
    }
    return QObject::eventFilter(watched, e);
}

void TPlugInWindows::showDock(QDockWidget* dock, bool shown) {
    if (shown && dock->isFloating() && !frame_->isVisible()) {
        dock->hide();
        floatingLater_.push_back(dock);
        return;
    }
    dock->setVisible(shown);
}

void TPlugInWindows::sync() {
    removeGone();
    for (const PlugInWindow& w : plugInManager().windows) {
        if (w.dockable && !dockOf(w.handle)) addDock(w);
        bool shown = false;
        for (int i = 0; i < tabs_->count(); ++i)
            if (static_cast<TPlugInPanel*>(tabs_->widget(i))->handle() == w.handle) shown = true;
        if (!w.dockable && !shown) addView(w);
    }
    refreshWorkspace();
}

QDockWidget* TPlugInWindows::dockOf(intptr_t handle) const {
    for (const Docked& d : docks_)
        if (d.handle == handle) return d.dock;
    return nullptr;
}

void TPlugInWindows::addDock(const PlugInWindow& w) {
    auto* dock = new QDockWidget(fromAnsi(w.title), frame_);
    const std::string key = recordName(w);
    dock->setObjectName(QStringLiteral("PlugIn:") + QString::fromLocal8Bit(key.c_str()));
    auto* panel = new TPlugInPanel(w.handle, dock);
    connect(panel, &TPlugInPanel::acted, this, &TPlugInWindows::acted);
    dock->setWidget(panel);
    dock->setAllowedAreas(allowedAreas(w));
    docks_.push_back(Docked{w.handle, key, dock});
    placeDock(dock, w, key);
}

void TPlugInWindows::placeDock(QDockWidget* dock, const PlugInWindow& w, const std::string& key) {
    const bool floatFirst = w.dockPosition == ZOL_DOCK_FLOAT || w.allowedPositions == ZOL_ALLOW_FLOAT_ONLY;
    const Qt::DockWidgetArea area = w.dockPosition < ZOL_DOCK_FLOAT ? kAreas[w.dockPosition].area : Qt::RightDockWidgetArea;
    frame_->addDockWidget(area, dock);
    if (restorePlace(dock, kDockKey, key)) return;
    const int width = w.width > 0 ? w.width : kDefaultWidth, height = w.height > 0 ? w.height : kDefaultHeight;
    if (floatFirst) {
        dock->setFloating(true);
        dock->resize(width, height);
    } else if (area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea) {
        frame_->resizeDocks({dock}, {width}, Qt::Horizontal);
    } else {
        frame_->resizeDocks({dock}, {height}, Qt::Vertical);
    }
    showDock(dock, true);
}

bool TPlugInWindows::restorePlace(QDockWidget* dock, const char* keyPath, const std::string& name) {
    const std::optional<std::string> text = registryGetString(RegistryRoot::CurrentUser, keyPath, name);
    if (!text) return false;
    const std::optional<Place> place = parsePlace(*text);
    if (!place || (!place->floating && !dock->isAreaAllowed(place->area))) {
        shell().statusMessage(QString::fromLatin1(plgqt::kCorruptPlace).arg(dock->windowTitle()).toStdString());
        return false;
    }
    if (place->floating) {
        dock->setFloating(true);
        dock->setGeometry(ontoScreen(place->rect));
    } else {
        frame_->addDockWidget(place->area, dock);
        const bool sideways = place->area == Qt::LeftDockWidgetArea || place->area == Qt::RightDockWidgetArea;
        frame_->resizeDocks({dock}, {sideways ? place->rect.width() : place->rect.height()},
                            sideways ? Qt::Horizontal : Qt::Vertical);
    }
    showDock(dock, place->shown);
    return true;
}

void TPlugInWindows::savePlace(QDockWidget* dock, const char* keyPath, const std::string& name) {
    // A hidden frame has no places to tell: its windows were recorded as it closed.
    if (!frame_->isVisible()) return;
    Place p;
    p.floating = dock->isFloating();
    p.area = frame_->dockWidgetArea(dock);
    p.rect = p.floating ? dock->geometry() : QRect(0, 0, dock->width(), dock->height());
    p.shown = !dock->isHidden();
    registrySetString(RegistryRoot::CurrentUser, keyPath, name, placeText(p));
}

void TPlugInWindows::savePlaces() {
    for (const Docked& d : docks_)
        if (d.dock) savePlace(d.dock, kDockKey, d.key);
    if (tabs_->count() > 0) savePlace(workspace_, kWorkspaceKey, kWorkspaceValue);
}

void TPlugInWindows::addView(const PlugInWindow& w) {
    auto* panel = new TPlugInPanel(w.handle, tabs_);
    connect(panel, &TPlugInPanel::acted, this, &TPlugInWindows::acted);
    tabs_->addTab(panel, fromAnsi(w.title));
}

// A window can go while its module paints or hears a click in it, so it is hidden at
// once and deleted later.
void TPlugInWindows::removeGone() {
    for (auto it = docks_.begin(); it != docks_.end();) {
        if (findPlugInWindow(it->handle) && it->dock) {
            ++it;
            continue;
        }
        if (QDockWidget* dock = it->dock) {
            savePlace(dock, kDockKey, it->key);
            frame_->removeDockWidget(dock);
            dock->hide();
            dock->deleteLater();
        }
        it = docks_.erase(it);
    }
    for (int i = tabs_->count() - 1; i >= 0; --i) {
        auto* panel = static_cast<TPlugInPanel*>(tabs_->widget(i));
        if (findPlugInWindow(panel->handle())) continue;
        if (tabs_->count() == 1) savePlace(workspace_, kWorkspaceKey, kWorkspaceValue);
        tabs_->removeTab(i);
        panel->hide();
        panel->deleteLater();
    }
}

void TPlugInWindows::refreshWorkspace() {
    const bool views = tabs_->count() > 0;
    workspace_->toggleViewAction()->setVisible(views);
    if (!views) {
        workspace_->hide();
        workspacePlaced_ = false;
    } else if (!workspacePlaced_) {
        workspacePlaced_ = true;
        if (!restorePlace(workspace_, kWorkspaceKey, kWorkspaceValue)) workspace_->show();
    }
}

void TPlugInWindows::redraw(intptr_t handle) {
    if (QDockWidget* dock = dockOf(handle)) dock->widget()->update();
    for (int i = 0; i < tabs_->count(); ++i)
        if (static_cast<TPlugInPanel*>(tabs_->widget(i))->handle() == handle) tabs_->widget(i)->update();
}

QList<QAction*> TPlugInWindows::toggleActions() const {
    QList<QAction*> actions;
    for (const Docked& d : docks_)
        if (d.dock) actions << d.dock->toggleViewAction();
    if (tabs_->count() > 0) actions << workspace_->toggleViewAction();
    return actions;
}

}  // namespace zol
