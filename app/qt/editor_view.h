// TVekWinEditor: the window of one document. Paints the visible lines, turns key
// presses and mouse actions into editor commands, and answers the engine's view hooks.
// Its members are defined in editor_view.cpp and, for the gutter at the left of the
// text (line bookmarks, numbered marks, line numbers) and the word-wrap column,
// editor_view_gutter.cpp.
#pragma once
#include <QAbstractScrollArea>
#include <QFont>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <vector>

#include "engine/document.h"
#include "engine/shell.h"

class QMenu;

namespace zol {

// The editor font from the "FontName", "FontSize" and "FontWeight" settings; a face
// that is not fixed-pitch gives way to the system's fixed font of that size.
QFont editorFont();

class TVekWinEditor : public QAbstractScrollArea, public EditorView {
    Q_OBJECT

public:
    explicit TVekWinEditor(Document* doc, QWidget* parent = nullptr);
    ~TVekWinEditor() override;

    Document* document() const { return doc_; }
    // The document is still open, and is the one the window was made for, not a later
    // one that took its place in memory.
    bool live() const;
    // Cuts the tie to the document before it is destroyed.
    void detach();

    // Whoever owns the window decides about commands the window itself cannot carry
    // out (files, windows); true means it took the command.
    std::function<bool(TVekWinEditor*, uint16_t)> frameCommand;
    // True while the document is alive; the view may outlive it by a moment.
    std::function<bool(const Document*)> documentAlive;
    // The context menu ("RightMouseBtn" 0), made by whoever owns the window.
    std::function<QMenu*(TVekWinEditor*)> contextMenu;

    // Runs one command on the document and brings the window up to date.
    void runCommand(uint16_t id, uint32_t param = 0);
    // Brings the window up to date in the middle of a command, the cursor in sight.
    void showCursorNow() { afterCommand(); }
    // The key word of the pending prefix key, 0 when none is pending.
    uint16_t pendingPrefixKey() const { return pending_ ? prefixKey_ : 0; }
    void setEditorFont(const QFont& font);
    // Window and tab title: the file's name without its folder, with the modified
    // mark for QMdiSubWindow.
    QString caption() const;
    // Screen rectangle of the caret in viewport coordinates.
    QRect caretRect() const;
    int charWidth() const { return charWidth_; }
    int lineHeight() const { return lineHeight_; }
    // Looks again whether the document has line bookmarks or numbered marks, which the
    // gutter shows; commands of the view look by themselves.
    void refreshMarks();
    bool marksShown() const { return marksShown_; }
    // Width of the gutter at the left of the text, 0 when there is none.
    int gutterWidth() const;

    // EditorView
    bool preCommand(uint16_t id, uint32_t param, uint32_t flags) override;
    void readOnlyNotify() override;
    void redraw() override;
    void refreshCaption() override;
    void refreshStatus() override;
    int pageLines() const override;
    int32_t firstVisibleLine() const override { return firstLine_; }
    void setFirstVisibleLine(int32_t line) override;
    void macroCommand() override;
    void scriptCommand() override;
    void namedBookmarksDialog() override;
    int32_t firstVisibleColumn() const override { return firstCol_; }
    void setFirstVisibleColumn(int32_t column) override;
    void lockUpdate() override;
    void unlockUpdate() override;
    intptr_t windowHandle() const override { return reinterpret_cast<intptr_t>(static_cast<const QWidget*>(this)); }
    bool updateLocked() const { return updateLocks_ > 0; }
    // Drops every lock at once and repaints: a script that ended (or was stopped)
    // between its lock and its unlock must not leave the window frozen.
    void releaseUpdateLocks();

Q_SIGNALS:
    void statusChanged();
    void captionChanged();
    void gotFocus();
    // A command closed the window's own document.
    void documentClosed();
    // A command ran on the document, which is still there.
    void commandDone(uint16_t id);

protected:
    bool event(QEvent* e) override;
    void contextMenuEvent(QContextMenuEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void inputMethodEvent(QInputMethodEvent* e) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;
    bool focusNextPrevChild(bool next) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    // One screen row: bytes [begin, end) of a line, starting at column startCol.
    struct Row {
        int32_t line;
        size_t begin, end;
        int startCol;
        bool lastOfLine;
    };
    bool wrapping() const;
    int wrapColumns() const;
    std::vector<size_t> rowStarts(std::string_view text) const;
    std::vector<Row> layoutRows(int32_t firstLine, int count) const;
    int visibleRows() const;
    int visibleColumns() const;
    int marksWidth() const;
    int rulerHeight() const;
    Pos posAt(QPoint p) const;
    void typeText(const QString& text);
    bool outputLineChosen(const QKeyEvent* e);
    void ensureCursorVisible();
    void updateScrollBars();
    void afterCommand();
    void paintRuler(QPainter& p);
    void paintGutter(QPainter& p, const std::vector<Row>& rows);
    void paintWrapColumn(QPainter& p);
    void pasteAt(QPoint p);
    bool onSelection(Pos p) const;
    void paintRow(QPainter& p, const Row& row, int y, std::string_view text, const uint8_t* colours);
    void paintMisspelt(QPainter& p, const Row& row, int y, std::string_view text, size_t begin, size_t end);
    // Event 125: plug-ins may veto what the window is about to do.
    bool vetoedByPlugIn(int notification);

    Document* doc_;
    uint64_t serial_;
    QFont font_;
    int charWidth_ = 8, lineHeight_ = 16, ascent_ = 12;
    int32_t firstLine_ = 0;
    int firstCol_ = 0;
    uint16_t pending_ = 0;    // prefix table waiting for its second key
    uint16_t prefixKey_ = 0;  // the key that opened it
    bool dragging_ = false;
    Pos dragAnchor_;
    QTimer caretTimer_;
    bool caretOn_ = true;
    bool marksShown_ = false;
    int updateLocks_ = 0;     // Zol_LockUpdate nesting
    mutable std::vector<uint8_t> colourBuf_;
};

}  // namespace zol
