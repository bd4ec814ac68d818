#include "app/qt/script_console.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <chrono>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/editor_view.h"
#include "script/runner.h"

namespace zol {
namespace {

// How often a waiting read looks at the stop flag, which an interrupt from the
// terminal sets without waking anyone.
constexpr auto kStopPoll = std::chrono::milliseconds(50);
// How often the window looks for new output: quick enough to follow a running
// script, slow enough that printing many lines costs few repaints.
constexpr int kRefreshMs = 30;

constexpr int kEnter = '\r', kBackspace = '\b', kEscape = 27;
constexpr int kCtrlD = 4, kCtrlZ = 26;

bool isText(int key) { return key >= 0x20 && key != 0x7F && key < 0x100; }

// Keys without a character and what getch reads for them: the prefix, then the code.
struct ExtendedKey {
    int key;
    int prefix;
    int code;
};
constexpr ExtendedKey kExtendedKeys[] = {
    {Qt::Key_F1, 0, 0x3B},        {Qt::Key_F2, 0, 0x3C},       {Qt::Key_F3, 0, 0x3D},     {Qt::Key_F4, 0, 0x3E},
    {Qt::Key_F5, 0, 0x3F},        {Qt::Key_F6, 0, 0x40},       {Qt::Key_F7, 0, 0x41},     {Qt::Key_F8, 0, 0x42},
    {Qt::Key_F9, 0, 0x43},        {Qt::Key_F10, 0, 0x44},      {Qt::Key_F11, 0xE0, 0x85}, {Qt::Key_F12, 0xE0, 0x86},
    {Qt::Key_Home, 0xE0, 0x47},   {Qt::Key_Up, 0xE0, 0x48},    {Qt::Key_PageUp, 0xE0, 0x49},
    {Qt::Key_Left, 0xE0, 0x4B},   {Qt::Key_Right, 0xE0, 0x4D}, {Qt::Key_End, 0xE0, 0x4F},
    {Qt::Key_Down, 0xE0, 0x50},   {Qt::Key_PageDown, 0xE0, 0x51},
    {Qt::Key_Insert, 0xE0, 0x52}, {Qt::Key_Delete, 0xE0, 0x53},
};

// The byte a key press stands for, -1 for none.
int plainKey(const QKeyEvent* e) {
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return kEnter;
    case Qt::Key_Backspace: return kBackspace;
    case Qt::Key_Tab: return '\t';
    case Qt::Key_Escape: return kEscape;
    default: break;
    }
    if ((e->modifiers() & Qt::ControlModifier) && e->key() >= Qt::Key_A && e->key() <= Qt::Key_Z)
        return e->key() - Qt::Key_A + 1;
    std::string bytes;
    if (e->text().size() != 1 || !toCp1252(e->text(), bytes)) return -1;
    return static_cast<unsigned char>(bytes[0]);
}

}  // namespace

std::unique_lock<std::mutex> WindowConsole::use() {
    if (!opened_) {
        opened_ = true;
        openWindow_();
    }
    return std::unique_lock<std::mutex>(shared_->mutex);
}

bool WindowConsole::waitForKey(std::unique_lock<std::mutex>& lock) {
    ConsoleShared& s = *shared_;
    while (s.keys.empty() && s.tail < 0) {
        if (scriptStopRequested()) return false;
        s.keyArrived.wait_for(lock, kStopPoll);
    }
    return !scriptStopRequested();
}

bool WindowConsole::write(ConsoleStream, std::string_view text) {
    if (text.empty()) return true;
    auto lock = use();
    shared_->grid.write(text);
    shared_->dirty = true;
    return true;
}

bool WindowConsole::edit(int key) {
    ConsoleShared& s = *shared_;
    if (key == kEnter) {
        s.entered += s.editing + '\n';
        s.editing.clear();
        s.grid.write("\n");
    } else if (key == kBackspace || key == kEscape) {
        // Escape takes back the whole line, as the consoles scripts know do.
        for (bool more = !s.editing.empty(); more; more = key == kEscape && !s.editing.empty()) {
            s.editing.pop_back();
            s.grid.eraseBack();
        }
    } else if ((key == kCtrlZ || key == kCtrlD) && s.editing.empty()) {
        return false;
    } else if (isText(key)) {
        s.editing += static_cast<char>(key);
        s.grid.write(std::string_view(&s.editing.back(), 1));
    }
    s.dirty = true;
    return true;
}

int WindowConsole::readChar() {
    auto lock = use();
    ConsoleShared& s = *shared_;
    while (s.entered.empty()) {
        if (!waitForKey(lock)) return EOF;
        if (s.tail >= 0) {
            s.tail = -1;
            continue;
        }
        const int key = s.keys.front();
        s.keys.pop_front();
        if (!edit(key)) return EOF;
    }
    const int c = static_cast<unsigned char>(s.entered.front());
    s.entered.erase(0, 1);
    return c;
}

bool WindowConsole::unreadChar(int c) {
    auto lock = use();
    shared_->entered.insert(shared_->entered.begin(), static_cast<char>(c));
    return true;
}

int WindowConsole::readKey(bool echo) {
    auto lock = use();
    ConsoleShared& s = *shared_;
    if (!waitForKey(lock)) return EOF;
    if (s.tail >= 0) return std::exchange(s.tail, -1);
    const int key = s.keys.front();
    s.keys.pop_front();
    if (key & kExtendedKey) {
        s.tail = key & 0xFF;
        return (key >> 8) & 0xFF;
    }
    if (echo) {
        const char c = static_cast<char>(key);
        s.grid.write(std::string_view(&c, 1));
        s.dirty = true;
    }
    return key;
}

bool WindowConsole::keyWaiting() {
    auto lock = use();
    return shared_->tail >= 0 || !shared_->keys.empty();
}

void WindowConsole::clear() {
    auto lock = use();
    shared_->grid.clear();
    shared_->dirty = true;
}

void WindowConsole::gotoXY(int x, int y) {
    auto lock = use();
    shared_->grid.gotoXY(x, y);
    shared_->dirty = true;
}

int WindowConsole::whereX() {
    auto lock = use();
    return shared_->grid.whereX();
}

int WindowConsole::whereY() {
    auto lock = use();
    return shared_->grid.whereY();
}

void WindowConsole::pause(std::string_view prompt) {
    write(ConsoleStream::Out, prompt);
    if (readKey(false) == EOF) return;
    auto lock = use();
    shared_->tail = -1;
}

TScriptConsole::TScriptConsole(std::shared_ptr<ConsoleShared> shared, const QString& title, QWidget* parent)
    : QAbstractScrollArea(parent), shared_(std::move(shared)) {
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(title);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QPalette p = viewport()->palette();
    p.setColor(QPalette::Base, Qt::black);
    p.setColor(QPalette::Text, QColor(0xC0, 0xC0, 0xC0));
    viewport()->setPalette(p);
    viewport()->setAutoFillBackground(true);
    const QFont font = editorFont();
    viewport()->setFont(font);
    const QFontMetrics m(font);
    charWidth_ = m.horizontalAdvance(QLatin1Char('M'));
    lineHeight_ = m.height();
    resize(kConsoleColumns * charWidth_ + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
           kConsoleRows * lineHeight_ + 2 * frameWidth());
    connect(&refreshTimer_, &QTimer::timeout, this, &TScriptConsole::refresh);
    refreshTimer_.start(kRefreshMs);
    refresh();
}

void TScriptConsole::refresh() {
    size_t history = 0;
    {
        std::lock_guard<std::mutex> lock(shared_->mutex);
        if (!shared_->dirty) return;
        shared_->dirty = false;
        history = shared_->grid.lines.size() - kConsoleRows;
    }
    QScrollBar* bar = verticalScrollBar();
    const bool following = bar->value() == bar->maximum();
    bar->setRange(0, static_cast<int>(history));
    bar->setPageStep(kConsoleRows);
    if (following) bar->setValue(bar->maximum());
    viewport()->update();
}

void TScriptConsole::paintEvent(QPaintEvent*) {
    std::vector<std::string> shown;
    int cursorColumn = 0, cursorLine = 0;
    const size_t first = static_cast<size_t>(verticalScrollBar()->value());
    {
        std::lock_guard<std::mutex> lock(shared_->mutex);
        const ConsoleGrid& g = shared_->grid;
        for (size_t i = first; i < g.lines.size() && shown.size() < static_cast<size_t>(kConsoleRows); ++i)
            shown.push_back(g.lines[i]);
        cursorColumn = g.column;
        cursorLine = static_cast<int>(g.lines.size() - kConsoleRows + static_cast<size_t>(g.row) - first);
    }
    QPainter painter(viewport());
    painter.setPen(viewport()->palette().color(QPalette::Text));
    const int ascent = QFontMetrics(viewport()->font()).ascent();
    for (size_t i = 0; i < shown.size(); ++i)
        painter.drawText(0, static_cast<int>(i) * lineHeight_ + ascent, fromCp1252(shown[i]));
    if (cursorLine >= 0 && cursorLine < kConsoleRows)
        painter.fillRect(cursorColumn * charWidth_, (cursorLine + 1) * lineHeight_ - 2, charWidth_, 2,
                         painter.pen().color());
}

void TScriptConsole::queueKey(int key) {
    {
        std::lock_guard<std::mutex> lock(shared_->mutex);
        shared_->keys.push_back(key);
    }
    shared_->keyArrived.notify_all();
}

void TScriptConsole::keyPressEvent(QKeyEvent* e) {
    const bool ctrl = e->modifiers() & Qt::ControlModifier;
    if ((ctrl && (e->key() == Qt::Key_C || e->key() == Qt::Key_Pause)) || e->key() == Qt::Key_Cancel) {
        if (stopRequested) stopRequested();
        return;
    }
    for (const ExtendedKey& k : kExtendedKeys)
        if (e->key() == k.key) return queueKey(kExtendedKey | k.prefix << 8 | k.code);
    const int key = plainKey(e);
    if (key >= 0) queueKey(key);
    else QAbstractScrollArea::keyPressEvent(e);
}

void TScriptConsole::closeEvent(QCloseEvent* e) {
    if (stopRequested) stopRequested();
    e->accept();
}

QString TScriptConsole::screenText() const {
    std::lock_guard<std::mutex> lock(shared_->mutex);
    QStringList rows;
    for (int r = 0; r < kConsoleRows; ++r) {
        std::string line = shared_->grid.lines[shared_->grid.lines.size() - kConsoleRows + static_cast<size_t>(r)];
        line.erase(line.find_last_not_of(' ') + 1);
        rows << fromCp1252(line);
    }
    while (!rows.isEmpty() && rows.back().isEmpty()) rows.removeLast();
    return rows.join(QLatin1Char('\n'));
}

}  // namespace zol
