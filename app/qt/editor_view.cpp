#include "app/qt/editor_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <memory>
#include <QFontDatabase>
#include <QFontInfo>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "app/qt/key_words.h"
#include "app/qt/messages.h"
#include "config/keymap.h"
#include "config/settings.h"
#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/editor_events.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/wordwrap.h"
#include "platform/paths.h"
#include "proofing/autocorrect.h"
#include "proofing/underline.h"
#include "syntax/doc_syntax.h"
#include "syntax/scanner.h"
#include "syntax/table.h"
#include "tools/message_step.h"

#include "app/qt/dialogs/macro_dialogs.h"
#include "app/qt/dialogs/named_bookmarks.h"

namespace zol {
namespace {

constexpr int kCaretBlinkMs = 500;
// "RightMouseBtn": 0 opens the context menu, 1 pastes where the click was.
constexpr int kRightButtonPastes = 1;
constexpr int kLineCaretWidth = 2;

uint16_t lookupPrimaryKey(uint16_t word) {
    if (word == 0) return 0;
    for (const KeyMapEntry& e : keyMap().tables[0])
        if (e.key == word) return e.command;
    return 0;
}

QColor toQColor(Rgb c) { return QColor(c.r, c.g, c.b); }

// Commands after which the gutter may appear or go; besides them, any command that
// takes lines away may take the last bookmark with them.
bool changesMarks(uint16_t id) {
    return commandGroup(id) == static_cast<int>(CmdGroup::Marks) || id == idOf(Cmd::Undo) || id == idOf(Cmd::Redo);
}

}  // namespace

QFont editorFont() {
    const Settings& s = settings();
    QFont f(QString::fromLatin1(s.fontName.c_str()));
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    f.setPointSize(s.fontSize > 0 ? s.fontSize : 10);
    f.setWeight(static_cast<QFont::Weight>(std::clamp(s.fontWeight, 100, 900)));
    if (!QFontInfo(f).fixedPitch()) {
        QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        fixed.setPointSize(f.pointSize());
        fixed.setWeight(f.weight());
        return fixed;
    }
    return f;
}

TVekWinEditor::TVekWinEditor(Document* doc, QWidget* parent)
    : QAbstractScrollArea(parent), doc_(doc), serial_(doc->serial) {
    doc_->view = this;
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAutoFillBackground(false);
    setEditorFont(editorFont());
    verticalScrollBar()->setSingleStep(1);
    horizontalScrollBar()->setSingleStep(1);
    refreshMarks();
    caretTimer_.setInterval(kCaretBlinkMs);
    connect(&caretTimer_, &QTimer::timeout, this, [this] {
        caretOn_ = !caretOn_;
        viewport()->update(caretRect().adjusted(-1, -1, 1, 1));
    });
    updateScrollBars();
}

TVekWinEditor::~TVekWinEditor() { detach(); }

void TVekWinEditor::detach() {
    if (live() && doc_->view == this) doc_->view = nullptr;
    doc_ = nullptr;
}

bool TVekWinEditor::live() const {
    return doc_ && (!documentAlive || documentAlive(doc_)) && doc_->serial == serial_;
}

void TVekWinEditor::setEditorFont(const QFont& font) {
    font_ = font;
    // Runs of text are drawn in one call each; spacing the letters to a whole number
    // of pixels keeps every character on its column.
    const qreal advance = QFontMetricsF(font_).horizontalAdvance(QLatin1Char('M'));
    charWidth_ = std::max(1, qRound(advance));
    font_.setLetterSpacing(QFont::AbsoluteSpacing, charWidth_ - advance);
    const QFontMetrics fm(font_);
    lineHeight_ = std::max(1, fm.height());
    ascent_ = fm.ascent();
    updateScrollBars();
    viewport()->update();
}

QString TVekWinEditor::caption() const {
    if (!live()) return {};
    QString title = QString::fromLocal8Bit(std::string(fileNamePart(doc_->fileName)).c_str()) + QStringLiteral("[*]");
    if (doc_->readOnly) title += QStringLiteral(" (") + QLatin1String(qtmsg::kReadOnly) + QLatin1Char(')');
    return title;
}

// ---- layout ----

bool TVekWinEditor::wrapping() const { return doc_ && doc_->wordWrap && canSoftWordWrap(*doc_); }

int TVekWinEditor::wrapColumns() const {
    return std::max(1, wrapWidth(options().wordWrapMethod, std::max(1, visibleColumns() - 1)));
}

std::vector<size_t> TVekWinEditor::rowStarts(std::string_view text) const {
    std::vector<size_t> starts{0};
    if (wrapping()) {
        const std::vector<size_t> breaks = wrapBreaks(text, wrapColumns(), options().wordWrapMethod);
        starts.insert(starts.end(), breaks.begin(), breaks.end());
    }
    return starts;
}

std::vector<TVekWinEditor::Row> TVekWinEditor::layoutRows(int32_t firstLine, int count) const {
    std::vector<Row> rows;
    if (!live() || count <= 0) return rows;
    const int32_t last = lastLine(*doc_);
    if (firstLine > last) return rows;
    LineRef r = doc_->lines.find(firstLine);
    for (int32_t line = firstLine; line <= last && static_cast<int>(rows.size()) < count; ++line) {
        const std::string_view text = doc_->lines.text(r);
        const std::vector<size_t> starts = rowStarts(text);
        for (size_t k = 0; k < starts.size() && static_cast<int>(rows.size()) < count; ++k) {
            const size_t end = k + 1 < starts.size() ? starts[k + 1] : text.size();
            rows.push_back(Row{line, starts[k], end, columnOfOffset(text, starts[k]), k + 1 == starts.size()});
        }
        r = doc_->lines.next(r);
    }
    return rows;
}

int TVekWinEditor::rulerHeight() const { return options().ruler ? lineHeight_ : 0; }

int TVekWinEditor::visibleRows() const {
    return std::max(1, (viewport()->height() - rulerHeight()) / lineHeight_);
}

int TVekWinEditor::visibleColumns() const {
    return std::max(1, (viewport()->width() - gutterWidth()) / charWidth_);
}

int TVekWinEditor::pageLines() const { return visibleRows(); }

void TVekWinEditor::setFirstVisibleLine(int32_t line) {
    if (!live()) return;
    firstLine_ = std::clamp<int32_t>(line, 0, lastLine(*doc_));
    updateScrollBars();
    viewport()->update();
}

void TVekWinEditor::setFirstVisibleColumn(int32_t column) {
    if (!live() || wrapping()) return;
    firstCol_ = std::clamp<int32_t>(column, 0, std::max(0, kMaxColumns - visibleColumns() / 2));
    updateScrollBars();
    viewport()->update();
}

// Held back painting shows nothing at all of what happens meanwhile, not even the
// scroll bars moving; the last unlock brings everything up to date at once.
void TVekWinEditor::lockUpdate() {
    if (updateLocks_++ == 0) setUpdatesEnabled(false);
}

void TVekWinEditor::unlockUpdate() {
    if (updateLocks_ > 0 && --updateLocks_ > 0) return;
    setUpdatesEnabled(true);
    redraw();
}

void TVekWinEditor::releaseUpdateLocks() {
    if (updateLocks_ == 0) return;
    updateLocks_ = 1;
    unlockUpdate();
}

bool TVekWinEditor::vetoedByPlugIn(int notification) {
    return sendEvent(kEventViewNotify, reinterpret_cast<intptr_t>(doc_), notification, 0, true) != 0;
}

void TVekWinEditor::updateScrollBars() {
    if (!live()) return;
    QScrollBar* v = verticalScrollBar();
    const QSignalBlocker blockV(v);
    v->setRange(0, lastLine(*doc_));
    v->setPageStep(visibleRows());
    v->setValue(firstLine_);
    QScrollBar* h = horizontalScrollBar();
    const QSignalBlocker blockH(h);
    if (wrapping()) {
        firstCol_ = 0;
        h->setRange(0, 0);
    } else {
        h->setRange(0, std::max(0, kMaxColumns - visibleColumns() / 2));
        h->setPageStep(visibleColumns());
        h->setValue(firstCol_);
    }
}

void TVekWinEditor::scrollContentsBy(int, int) {
    firstLine_ = verticalScrollBar()->value();
    firstCol_ = wrapping() ? 0 : horizontalScrollBar()->value();
    viewport()->update();
}

void TVekWinEditor::ensureCursorVisible() {
    if (!live()) return;
    const Pos c = doc_->cursor;
    const int rows = visibleRows();
    if (c.line < firstLine_) {
        firstLine_ = c.line;
    } else if (!wrapping()) {
        if (c.line >= firstLine_ + rows) firstLine_ = c.line - rows + 1;
    } else {
        // The cursor's row within its line, then whole lines upwards while they fit.
        LineRef r = doc_->lines.find(c.line);
        std::string_view text = doc_->lines.text(r);
        const size_t offset = locateColumn(text, c.col).offset;
        std::vector<size_t> starts = rowStarts(text);
        int used = static_cast<int>(std::upper_bound(starts.begin(), starts.end(), offset) - starts.begin());
        int32_t top = c.line;
        while (top > firstLine_) {
            r = doc_->lines.prev(r);
            const int n = static_cast<int>(rowStarts(doc_->lines.text(r)).size());
            if (used + n > rows) break;
            used += n;
            --top;
        }
        if (top > firstLine_) firstLine_ = top;
    }
    if (!wrapping()) {
        const int cols = visibleColumns();
        if (c.col < firstCol_) firstCol_ = std::max(0, c.col - cols / 4);
        else if (c.col >= firstCol_ + cols) firstCol_ = c.col - cols + cols / 4 + 1;
    }
    updateScrollBars();
}

Pos TVekWinEditor::posAt(QPoint p) const {
    if (!live()) return {};
    // Above the text (dragging out of the window): the line before the first one shown.
    if (p.y() < rulerHeight() && firstLine_ > 0) {
        const std::string_view above = lineText(*doc_, firstLine_ - 1);
        const int col = std::clamp(firstCol_ + std::max(0, (p.x() - gutterWidth()) / charWidth_), 0, kMaxColumns);
        return makePos(options().cursorBeyondEol ? col : std::min(col, zol::lineWidth(above)), firstLine_ - 1);
    }
    const int rowIndex = std::max(0, (p.y() - rulerHeight()) / lineHeight_);
    const std::vector<Row> rows = layoutRows(firstLine_, rowIndex + 1);
    if (rows.empty()) return makePos(0, lastLine(*doc_));
    const Row& row = rows.back();
    const std::string_view text = lineText(*doc_, row.line);
    int col = row.startCol + firstCol_ + std::max(0, (p.x() - gutterWidth() + charWidth_ / 2) / charWidth_);
    if (!row.lastOfLine) col = std::min(col, columnOfOffset(text, row.end) - 1);
    if (!options().cursorBeyondEol) col = std::min(col, zol::lineWidth(text));
    col = std::clamp(col, 0, kMaxColumns);
    if (!options().cursorThroughTabs) {
        const ColumnHit hit = locateColumn(text, col);
        if (hit.insideTab) col = hit.charColumn;
    }
    return makePos(col, row.line);
}

QRect TVekWinEditor::caretRect() const {
    if (!live()) return {};
    const Pos c = doc_->cursor;
    if (c.line < firstLine_) return {};
    const std::vector<Row> rows = layoutRows(firstLine_, visibleRows() + 1);
    const std::string_view text = lineText(*doc_, c.line);
    const size_t offset = locateColumn(text, c.col).offset;
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (row.line != c.line) continue;
        if (offset >= row.end && !row.lastOfLine) continue;
        const int x = gutterWidth() + (c.col - row.startCol - firstCol_) * charWidth_;
        const int y = rulerHeight() + static_cast<int>(i) * lineHeight_;
        const bool block = options().blockCaret || options().overwrite;
        return QRect(x, y, block ? charWidth_ : kLineCaretWidth, lineHeight_);
    }
    return {};
}

// ---- painting ----

void TVekWinEditor::paintEvent(QPaintEvent*) {
    QPainter p(viewport());
    p.setFont(font_);
    if (!live()) return;
    const SyntaxHighlightTable& table = syntaxTable();
    const int slot = doc_->syntaxSlot;
    const std::optional<Rgb> bg = backgroundColour(table, slot);
    const QColor background = bg ? toQColor(*bg) : palette().color(QPalette::Base);
    p.fillRect(viewport()->rect(), background);

    const int gutter = gutterWidth();
    const std::vector<Row> rows = layoutRows(firstLine_, visibleRows() + 1);
    int32_t scannedLine = -1;
    MisspeltFinder misspelt(*doc_);
    std::vector<WordSpan> misspeltWords;
    if (!rows.empty()) ensureCommentStates(*doc_, rows.back().line);
    LineRef r = rows.empty() ? kNoLine : doc_->lines.find(rows.front().line);
    p.save();
    p.setClipRect(QRect(gutter, rulerHeight(), viewport()->width() - gutter, viewport()->height()));
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (row.line != scannedLine) {
            if (scannedLine >= 0) r = doc_->lines.next(r);
            scannedLine = row.line;
            const std::string_view text = doc_->lines.text(r);
            colourBuf_.resize(text.size() + 1);
            const LineRef before = doc_->lines.prev(r);
            const int inComment = before != kNoLine ? doc_->lines.header(before).comment & 1 : 0;
            scanLine(table, slot, text, colourBuf_.data(), inComment);
            misspeltWords = misspelt.line(*doc_, row.line);
        }
        paintRow(p, row, rulerHeight() + static_cast<int>(i) * lineHeight_, doc_->lines.text(r), colourBuf_.data());
        for (const WordSpan& w : misspeltWords)
            paintMisspelt(p, row, rulerHeight() + static_cast<int>(i) * lineHeight_, doc_->lines.text(r), w.begin, w.end);
    }
    p.restore();

    paintWrapColumn(p);
    if (gutter > 0) paintGutter(p, rows);
    if (options().ruler) paintRuler(p);

    if (hasFocus() && caretOn_) {
        const QRect caret = caretRect();
        if (!caret.isEmpty() && caret.left() >= gutter) {
            p.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
            p.fillRect(caret, Qt::white);
        }
    }
}

void TVekWinEditor::paintRuler(QPainter& p) {
    const int gutter = gutterWidth();
    const QRect band(0, 0, viewport()->width(), rulerHeight());
    p.fillRect(band, palette().color(QPalette::Button));
    p.setPen(palette().color(QPalette::ButtonText));
    const int cols = visibleColumns() + 1;
    for (int i = 0; i < cols; ++i) {
        const int column = firstCol_ + i + 1;  // the ruler counts from 1, as the status bar does
        const int x = gutter + i * charWidth_ + charWidth_ / 2;
        if (column % 10 == 0) {
            p.drawText(QRect(x + 2, 0, charWidth_ * 4, band.height()), Qt::AlignLeft | Qt::AlignVCenter,
                       QString::number(column));
            p.drawLine(x, band.height() / 3, x, band.height() - 1);
        } else {
            const int tick = column % 5 == 0 ? band.height() / 3 : band.height() / 6;
            p.drawLine(x, band.height() - tick, x, band.height() - 1);
        }
    }
    const int cx = gutter + (doc_->cursor.col - firstCol_) * charWidth_;
    p.fillRect(QRect(cx, band.height() - 3, charWidth_, 3), palette().color(QPalette::Highlight));
    p.drawLine(0, band.height() - 1, band.width(), band.height() - 1);
}

// A red wave under the part of a misspelt word that lies on this row.
void TVekWinEditor::paintMisspelt(QPainter& p, const Row& row, int y, std::string_view text, size_t begin, size_t end) {
    begin = std::max(begin, row.begin);
    end = std::min(end, row.end);
    if (begin >= end) return;
    const int leftCol = row.startCol + firstCol_;
    const int x0 = gutterWidth() + (columnOfOffset(text, begin) - leftCol) * charWidth_;
    const int x1 = gutterWidth() + (columnOfOffset(text, end) - leftCol) * charWidth_;
    const int base = y + lineHeight_ - 2;
    QPolygon wave;
    for (int x = x0, k = 0; x <= x1; x += 2, ++k) wave << QPoint(x, base + (k % 2 ? -1 : 1));
    p.setPen(QPen(QColor(220, 0, 0), 1));
    p.drawPolyline(wave);
}

void TVekWinEditor::paintRow(QPainter& p, const Row& row, int y, std::string_view text, const uint8_t* colours) {
    const int gutter = gutterWidth();
    const int leftCol = row.startCol + firstCol_;
    const int rightCol = leftCol + visibleColumns() + 1;
    auto xOf = [&](int col) { return gutter + (col - leftCol) * charWidth_; };

    // Selection: the columns of this row that lie inside it.
    int selFrom = 0, selTo = 0;
    Pos b, e;
    if (hasSelection(*doc_) && selectionRange(*doc_, b, e) && row.line >= b.line && row.line <= e.line) {
        if (isColumnSelection(*doc_)) {
            selFrom = selLeftCol(*doc_);
            selTo = selRightCol(*doc_);
        } else {
            selFrom = row.line == b.line ? b.col : 0;
            selTo = row.line == e.line ? e.col : std::max(zol::lineWidth(text), selFrom) + 1;
        }
        if (!row.lastOfLine) selTo = std::min(selTo, columnOfOffset(text, row.end));
        selFrom = std::max(selFrom, row.startCol);
    }
    if (selTo > selFrom)
        p.fillRect(QRect(xOf(selFrom), y, (selTo - selFrom) * charWidth_, lineHeight_),
                   palette().color(QPalette::Highlight));

    const std::optional<Rgb> textRgb = textColour(syntaxTable(), doc_->syntaxSlot);
    const QColor plain = textRgb ? toQColor(*textRgb) : palette().color(QPalette::Text);
    const QColor selectedText = palette().color(QPalette::HighlightedText);
    const bool visible = options().visibleSpaces;

    QString run;
    QColor runColour;
    int runCol = 0;
    auto flush = [&] {
        if (run.isEmpty()) return;
        p.setPen(runColour);
        p.drawText(xOf(runCol), y + ascent_, run);
        run.clear();
    };
    int col = row.startCol;
    for (size_t i = row.begin; i < row.end && col < rightCol; ++i) {
        const char ch = text[i];
        const int next = advanceColumn(ch, col);
        if (next <= leftCol) {
            col = next;
            continue;
        }
        const bool selected = col >= selFrom && col < selTo;
        const uint8_t index = colours[i];
        const QColor colour = selected ? selectedText : index == 0 ? plain : toQColor(paletteColour(index));
        QChar glyph;
        if (ch == '\t') glyph = visible ? QChar(0x00BB) : QChar(' ');
        else if (ch == ' ') glyph = visible ? QChar(0x00B7) : QChar(' ');
        else glyph = ansiChar(static_cast<uint8_t>(ch));
        if (colour != runColour || col != runCol + run.size()) {
            flush();
            runColour = colour;
            runCol = std::max(col, leftCol);
        }
        if (col >= leftCol) run += glyph;
        for (int k = std::max(col + 1, leftCol); k < next; ++k) run += QLatin1Char(' ');
        col = next;
    }
    flush();
}

// ---- commands ----

bool TVekWinEditor::preCommand(uint16_t id, uint32_t, uint32_t) {
    return frameCommand && frameCommand(this, id);
}

void TVekWinEditor::readOnlyNotify() { shell().message(qtmsg::kReadOnlyDocument); }

void TVekWinEditor::redraw() {
    updateScrollBars();
    viewport()->update();
}

void TVekWinEditor::refreshCaption() { Q_EMIT captionChanged(); }
void TVekWinEditor::refreshStatus() { Q_EMIT statusChanged(); }

void TVekWinEditor::macroCommand() {
    if (doc_) TMacroDialog::run(this, doc_);
}

void TVekWinEditor::namedBookmarksDialog() {
    if (doc_) TNamedBookmarks::run(this, doc_);
    if (doc_ && (!documentAlive || documentAlive(doc_))) afterCommand();
}

void TVekWinEditor::scriptCommand() {
    if (!(frameCommand && frameCommand(this, idOf(Cmd::ExecScript)))) shell().statusMessage(qtmsg::kNotAvailable);
}

void TVekWinEditor::runCommand(uint16_t id, uint32_t param) {
    if (!live()) return;
    if (const CommandRecord* r = findCommand(id); r && r->owner == CommandOwner::Inert) {
        shell().statusMessage(qtmsg::kNotAvailable);
        return;
    }
    Document* doc = doc_;
    const int32_t lines = doc->lines.count();
    execute(*doc, id, param);
    // The command may have closed the document (scripts, plug-ins).
    if (doc_ != doc || !live()) {
        doc_ = nullptr;
        Q_EMIT documentClosed();
        return;
    }
    if (changesMarks(id) || (marksShown_ && doc_->lines.count() < lines)) refreshMarks();
    afterCommand();
    Q_EMIT commandDone(id);
}

void TVekWinEditor::afterCommand() {
    ensureCursorVisible();
    caretOn_ = true;
    if (hasFocus()) caretTimer_.start();
    viewport()->update();
    Q_EMIT statusChanged();
    Q_EMIT captionChanged();
}

// ---- keyboard ----

void TVekWinEditor::typeText(const QString& text) {
    for (const char32_t ch : text.toUcs4()) {
        const int byte = ansiByteOf(ch);
        if (byte < 0 || byte == '\t') {
            const QString code = QString::number(static_cast<uint>(ch), 16).toUpper().rightJustified(4, QLatin1Char('0'));
            shell().statusMessage(QString::fromLatin1(qtmsg::kNotInCodePage).arg(code).toStdString());
            continue;
        }
        uint16_t pending = pending_;
        const uint16_t cmd = keyCommand(keyMap(), *doc_, static_cast<uint16_t>(byte), pending);
        pending_ = pending;
        if (cmd) runCommand(cmd, cmd == idOf(Cmd::InsertChar) ? static_cast<uint32_t>(byte) : 0);
        if (!live()) return;
        if (cmd == idOf(Cmd::InsertChar) && autoCorrectTyped(*doc_, autoCorrect())) afterCommand();
    }
}

void TVekWinEditor::keyPressEvent(QKeyEvent* e) {
    if (!live()) return;
    if (outputLineChosen(e)) return e->accept();
    const QString text = e->text();
    const Qt::KeyboardModifiers mods = e->modifiers();
    const bool ctrl = mods.testFlag(Qt::ControlModifier), alt = mods.testFlag(Qt::AltModifier);
    bool printable = !text.isEmpty();
    for (const QChar c : text)
        if (c.unicode() < 0x20 || c.unicode() == 0x7F) printable = false;
    // Ctrl and Alt together is AltGr on many layouts: its characters are typed.
    if (printable && pending_ == 0 && (ctrl == alt)) {
        // Keypad keys type their character unless the key map gives them a command.
        const bool keypad = mods.testFlag(Qt::KeypadModifier);
        if (!keypad || lookupPrimaryKey(keyWordOf(e->key(), mods)) == 0) {
            typeText(text);
            e->accept();
            return;
        }
    }
    const uint16_t word = keyWordOf(e->key(), mods);
    if (word == 0) {
        QAbstractScrollArea::keyPressEvent(e);
        return;
    }
    e->accept();
    uint16_t pending = pending_;
    const uint16_t cmd = keyCommand(keyMap(), *doc_, word, pending);
    pending_ = pending;
    if (pending_) prefixKey_ = word;
    Q_EMIT statusChanged();
    // A line break ends the word before it too.
    if (cmd == idOf(Cmd::NewLine) && autoCorrectTyped(*doc_, autoCorrect(), false)) afterCommand();
    if (cmd) runCommand(cmd);
}

// Enter on a message line of an output document goes to the place it names.
bool TVekWinEditor::outputLineChosen(const QKeyEvent* e) {
    const bool enter = e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
    const bool plain = (e->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return doc_->outputWindow && enter && plain && pending_ == 0 && messageAt(*doc_, doc_->cursor.line);
}

void TVekWinEditor::inputMethodEvent(QInputMethodEvent* e) {
    if (live() && !e->commitString().isEmpty()) typeText(e->commitString());
    e->accept();
}

bool TVekWinEditor::focusNextPrevChild(bool) { return false; }

QVariant TVekWinEditor::inputMethodQuery(Qt::InputMethodQuery query) const {
    // Input methods put their window beside the caret.
    if (query == Qt::ImCursorRectangle) return caretRect();
    return QAbstractScrollArea::inputMethodQuery(query);
}

void TVekWinEditor::focusInEvent(QFocusEvent* e) {
    caretOn_ = true;
    caretTimer_.start();
    viewport()->update();
    QAbstractScrollArea::focusInEvent(e);
    Q_EMIT gotFocus();
}

void TVekWinEditor::focusOutEvent(QFocusEvent* e) {
    caretTimer_.stop();
    viewport()->update();
    QAbstractScrollArea::focusOutEvent(e);
}

// ---- mouse ----

void TVekWinEditor::mousePressEvent(QMouseEvent* e) {
    if (live() && e->button() == Qt::RightButton && settings().rightMouseBtn == kRightButtonPastes) {
        pasteAt(e->position().toPoint());
        return;
    }
    if (!live() || e->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(e);
    setFocus(Qt::MouseFocusReason);
    const Pos at = posAt(e->position().toPoint());
    if (e->modifiers().testFlag(Qt::ShiftModifier)) {
        extendSelection(*doc_, at);
        dragAnchor_ = doc_->selAnchor;
    } else {
        clearSelection(*doc_);
        dragAnchor_ = at;
    }
    doc_->selMode = e->modifiers().testFlag(Qt::AltModifier) ? SelMode::Column : SelMode::Char;
    zol::setCursor(*doc_, at);
    doc_->desiredCol = -1;
    dragging_ = true;
    afterCommand();
}

void TVekWinEditor::pasteAt(QPoint p) {
    setFocus(Qt::MouseFocusReason);
    clearSelection(*doc_);
    zol::setCursor(*doc_, posAt(p));
    doc_->desiredCol = -1;
    runCommand(idOf(Cmd::Paste));
}

bool TVekWinEditor::onSelection(Pos p) const {
    Pos b, e;
    if (!hasSelection(*doc_) || !selectionRange(*doc_, b, e)) return false;
    if (isColumnSelection(*doc_))
        return p.line >= b.line && p.line <= e.line && p.col >= selLeftCol(*doc_) && p.col < selRightCol(*doc_);
    return !before(p, b) && before(p, e);
}

void TVekWinEditor::contextMenuEvent(QContextMenuEvent* e) {
    if (!live() || !contextMenu) return;
    QPoint at = e->globalPos();
    if (e->reason() == QContextMenuEvent::Mouse) {
        if (settings().rightMouseBtn == kRightButtonPastes) return;
        // The menu acts where the click was, unless it was on the selection.
        const Pos p = posAt(e->pos());
        if (!onSelection(p)) {
            clearSelection(*doc_);
            zol::setCursor(*doc_, p);
            doc_->desiredCol = -1;
            afterCommand();
        }
    } else {
        at = viewport()->mapToGlobal(caretRect().bottomLeft());
    }
    if (vetoedByPlugIn(kViewContextMenu) || !live()) return;
    const std::unique_ptr<QMenu> menu(contextMenu(this));
    if (menu) menu->exec(at);
}

bool TVekWinEditor::event(QEvent* e) {
    // Keys of the key map (and every key that ends a prefix) belong to the editor,
    // even where a menu item of the window has a shortcut of its own.
    if (e->type() == QEvent::ShortcutOverride && live()) {
        const auto* k = static_cast<QKeyEvent*>(e);
        if (pending_ || lookupPrimaryKey(keyWordOf(k->key(), k->modifiers())) != 0) {
            e->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(e);
}

void TVekWinEditor::mouseMoveEvent(QMouseEvent* e) {
    if (!live() || !dragging_) return;
    const Pos at = posAt(e->position().toPoint());
    if (at == doc_->cursor) return;
    setSelection(*doc_, dragAnchor_, at);
    zol::setCursor(*doc_, at);
    afterCommand();
}

void TVekWinEditor::mouseReleaseEvent(QMouseEvent*) { dragging_ = false; }

void TVekWinEditor::mouseDoubleClickEvent(QMouseEvent* e) {
    if (!live() || e->button() != Qt::LeftButton) return;
    dragging_ = false;
    // A message line of an output document goes to the place it names.
    if (doc_->outputWindow && messageAt(*doc_, doc_->cursor.line)) return;
    if (vetoedByPlugIn(kViewDoubleClick) || !live()) return;
    runCommand(idOf(Cmd::SelectWord));
}

void TVekWinEditor::resizeEvent(QResizeEvent* e) {
    QAbstractScrollArea::resizeEvent(e);
    updateScrollBars();
}

}  // namespace zol
