// TVekWinEditor: the gutter at the left of the text and the word-wrap column. The
// gutter holds a column of marks while the document has line bookmarks or numbered
// marks (a bookmark is a filled box, a numbered mark its digit), then the line
// numbers when they are on.
#include <QPainter>
#include <array>

#include "app/qt/editor_view.h"
#include "engine/options.h"
#include "syntax/table.h"

namespace zol {
namespace {

constexpr int kMarkColumns = 2;  // the marks column, in characters
constexpr int kNumberMinDigits = 3;
constexpr qreal kMarkRadius = 3;
const QColor kMarkColour(0x2f, 0x6f, 0xc8);

}  // namespace

int TVekWinEditor::marksWidth() const { return marksShown_ ? kMarkColumns * charWidth_ : 0; }

int TVekWinEditor::gutterWidth() const {
    int width = marksWidth();
    if (options().lineNumbers && doc_) {
        const int digits = std::max(kNumberMinDigits, static_cast<int>(std::to_string(doc_->lines.count()).size()));
        width += (digits + 1) * charWidth_;
    }
    return width;
}

void TVekWinEditor::refreshMarks() {
    const bool was = marksShown_;
    marksShown_ = false;
    if (live()) {
        for (const NumberedMark& m : doc_->marks.numbered) marksShown_ = marksShown_ || m.set;
        for (LineRef r = doc_->lines.first; !marksShown_ && r != kNoLine; r = doc_->lines.next(r))
            marksShown_ = doc_->lines.header(r).bookmark != 0;
    }
    if (was == marksShown_) return;
    updateScrollBars();
    viewport()->update();
}

void TVekWinEditor::paintGutter(QPainter& p, const std::vector<Row>& rows) {
    const int gutter = gutterWidth();
    const int marks = marksWidth();
    p.fillRect(QRect(0, 0, gutter, viewport()->height()), palette().color(QPalette::AlternateBase));
    p.setPen(palette().color(QPalette::Midlight));
    p.drawLine(gutter - 1, rulerHeight(), gutter - 1, viewport()->height());
    if (rows.empty()) return;
    if (gutter > marks) {
        const std::optional<Rgb> colour = lineNumberColour(syntaxTable(), doc_->syntaxSlot);
        p.setPen(colour ? QColor(colour->r, colour->g, colour->b) : palette().color(QPalette::PlaceholderText));
        for (size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].begin != 0) continue;
            const QRect cell(marks, rulerHeight() + static_cast<int>(i) * lineHeight_, gutter - marks - charWidth_ / 2,
                             lineHeight_);
            p.drawText(cell, Qt::AlignRight | Qt::AlignVCenter, QString::number(rows[i].line + 1));
        }
    }
    if (!marks) return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    QFont bold = font_;
    bold.setBold(true);
    p.setFont(bold);
    LineRef r = doc_->lines.find(rows.front().line);
    int32_t at = rows.front().line;
    for (size_t i = 0; i < rows.size(); ++i) {
        for (; at < rows[i].line; ++at) r = doc_->lines.next(r);
        if (rows[i].begin != 0) continue;
        int digit = -1;
        for (int m = kNumberedMarks - 1; m >= 0; --m)
            if (doc_->marks.numbered[m].set && doc_->marks.numbered[m].pos.line == rows[i].line) digit = m;
        const bool bookmarked = doc_->lines.header(r).bookmark != 0;
        const QRectF cell(1, rulerHeight() + static_cast<int>(i) * lineHeight_ + 1, marks - 2, lineHeight_ - 2);
        if (bookmarked) {
            p.setPen(Qt::NoPen);
            p.setBrush(kMarkColour);
            p.drawRoundedRect(cell, kMarkRadius, kMarkRadius);
        }
        if (digit >= 0) {
            p.setPen(bookmarked ? QColor(Qt::white) : kMarkColour);
            p.drawText(cell, Qt::AlignCenter, QString::number(digit));
        }
    }
    p.restore();
}

void TVekWinEditor::paintWrapColumn(QPainter& p) {
    const EditOptions& o = options();
    if (!o.wordWrapVisible || !wrapping() || o.wordWrapMethod != WrapMethod::ColumnWords) return;
    const int x = gutterWidth() + (o.wordWrapColumn - firstCol_) * charWidth_;
    if (x <= gutterWidth() || x >= viewport()->width()) return;
    p.setPen(palette().color(QPalette::Mid));
    p.drawLine(x, rulerHeight(), x, viewport()->height());
}

}  // namespace zol
