// A sample text coloured by a language definition through the editor's own scanner,
// with the background and text colours the editor's views would give it.
#pragma once
#include <QPlainTextEdit>
#include <QString>

#include "syntax/table.h"

class QComboBox;

namespace zol {

class TSyntaxPreview : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit TSyntaxPreview(QWidget* parent);
    // Colours the text with def from now on.
    void setDefinition(const SyntaxHighlight& def);
    // Replaces the text with sample unless the user has typed into it.
    void offerSample(const QString& sample);
    const SyntaxHighlightTable& table() const { return table_; }

private:
    class Colourer;
    SyntaxHighlightTable table_;  // slot 1 holds the definition shown
    Colourer* colourer_;
};

// A few lines that show each colour class the definition has: its comment forms,
// preprocessor lines, strings, keywords, numbers, operators and tags.
QString sampleText(const SyntaxHighlight& def);

// A choice of the palette's entries, each with its colour; the item data is the index.
QComboBox* paletteChoice(QWidget* parent);

}  // namespace zol
