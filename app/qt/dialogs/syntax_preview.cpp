#include "app/qt/dialogs/syntax_preview.h"

#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QPainter>
#include <QPixmap>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>
#include <iterator>
#include <vector>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "syntax/scanner.h"

namespace zol {
namespace {

constexpr int kPreviewSlot = 1;
constexpr int kSampleKeywords = 6;
constexpr int kLineNumberStep = 10;
constexpr int kSwatchSize = 14;
static_assert(std::size(dlgmsg::kPaletteNames) == kMaxColourIndex + 1, "one name for every palette index");

QColor qcolour(Rgb c) { return QColor(c.r, c.g, c.b); }

std::string chars(const char* c, size_t n) {
    std::string s;
    for (size_t i = 0; i < n && c[i]; ++i) s += c[i];
    return s;
}

// The first keyword of each length, shortest first, up to kSampleKeywords of them.
std::string someKeywords(const SyntaxHighlight& d) {
    std::string out;
    int taken = 0;
    for (size_t n = 1; n < d.keywords.size() && taken < kSampleKeywords; ++n) {
        if (d.keywords[n].size() < n) continue;
        if (!out.empty()) out += ' ';
        out += d.keywords[n].substr(0, n);
        ++taken;
    }
    return out;
}

// The first tag opener and closer of the "HTML" pairs, or 0.
char classChar(const SyntaxHighlight& d, uint16_t bit) {
    for (int c = 1; c < 256; ++c)
        if (d.charClass[static_cast<size_t>(c)] & bit) return static_cast<char>(c);
    return 0;
}

}  // namespace

class TSyntaxPreview::Colourer : public QSyntaxHighlighter {
public:
    Colourer(QTextDocument* doc, const SyntaxHighlightTable& table) : QSyntaxHighlighter(doc), table_(table) {}

protected:
    void highlightBlock(const QString& text) override {
        const std::string bytes = toCp1252Lossy(text);
        std::vector<uint8_t> colours(bytes.size() + 1, 0);
        const int inComment = previousBlockState() == 1 ? 1 : 0;
        setCurrentBlockState(scanLine(table_, kPreviewSlot, bytes, colours.data(), inComment));
        for (size_t i = 0; i < bytes.size();) {
            size_t end = i + 1;
            while (end < bytes.size() && colours[end] == colours[i]) ++end;
            if (colours[i] != 0) {
                QTextCharFormat f;
                f.setForeground(qcolour(paletteColour(colours[i])));
                setFormat(static_cast<int>(i), static_cast<int>(end - i), f);
            }
            i = end;
        }
    }

private:
    const SyntaxHighlightTable& table_;
};

TSyntaxPreview::TSyntaxPreview(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName("preview");
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    colourer_ = new Colourer(document(), table_);
}

void TSyntaxPreview::setDefinition(const SyntaxHighlight& def) {
    table_.slots[0] = std::make_unique<SyntaxHighlight>(def);
    // The view's rules: a definition's text colour counts only with its background.
    QPalette p = QApplication::palette(this);
    if (const std::optional<Rgb> bg = backgroundColour(table_, kPreviewSlot)) p.setColor(QPalette::Base, qcolour(*bg));
    if (const std::optional<Rgb> fg = textColour(table_, kPreviewSlot)) p.setColor(QPalette::Text, qcolour(*fg));
    setPalette(p);
    colourer_->rehighlight();
}

void TSyntaxPreview::offerSample(const QString& sample) {
    if (document()->isModified() || sample == toPlainText()) return;
    setPlainText(sample);
    document()->setModified(false);
}

QString sampleText(const SyntaxHighlight& d) {
    const std::string comment = dlgmsg::kSampleComment;
    std::vector<std::string> lines;
    if (d.preprocessChar) lines.push_back(d.preprocessChar + std::string(dlgmsg::kSampleDirective));
    if (d.multiOpen[0])
        lines.push_back(chars(d.multiOpen, kMultiCommentMax) + " " + comment + " " + chars(d.multiClose, kMultiCommentMax));
    if (const std::string keywords = someKeywords(d); !keywords.empty()) lines.push_back(keywords);
    std::string code = dlgmsg::kSampleCode;
    if (d.lineComment1[0]) code += " " + std::string(d.lineComment1) + " " + comment;
    lines.push_back(code);
    if (d.stringDelim || d.charDelim) {
        const char q = d.stringDelim ? d.stringDelim : d.charDelim;
        std::string s = dlgmsg::kSampleStringName + std::string(1, q) + dlgmsg::kSampleString;
        if (d.quoteChar) s += std::string(1, d.quoteChar) + q;
        lines.push_back(s + q);
    }
    if (d.lineComment2[0]) lines.push_back(std::string(d.lineComment2) + " " + comment);
    if (d.firstComment) lines.push_back(d.firstComment + (" " + comment));
    const char open = classChar(d, kClsTagOpen), close = classChar(d, kClsTagClose);
    if (open && close) lines.push_back(open + std::string(dlgmsg::kSampleTag) + close + comment + open + "/" + dlgmsg::kSampleTag + close);
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i) text += '\n';
        if (d.flags & kLineNumbers) text += std::to_string((i + 1) * kLineNumberStep) + " ";
        text += lines[i];
    }
    return fromCp1252(text);
}

QComboBox* paletteChoice(QWidget* parent) {
    auto* c = new QComboBox(parent);
    for (int i = 0; i <= kMaxColourIndex; ++i) {
        QPixmap swatch(kSwatchSize, kSwatchSize);
        swatch.fill(i == 0 ? Qt::transparent : qcolour(paletteColour(i)));
        QPainter p(&swatch);
        p.setPen(Qt::darkGray);
        p.drawRect(0, 0, kSwatchSize - 1, kSwatchSize - 1);
        if (i == 0) p.drawLine(0, kSwatchSize - 1, kSwatchSize - 1, 0);
        c->addItem(QIcon(swatch), dlgmsg::kPaletteNames[i], i);
    }
    return c;
}

}  // namespace zol
