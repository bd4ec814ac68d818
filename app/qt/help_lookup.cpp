#include "app/qt/help_lookup.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QToolTip>

#include "app/qt/editor_view.h"
#include "app/qt/help_messages.h"
#include "app/qt/help_window.h"
#include "app/qt/local_text.h"
#include "app/qt/messages.h"
#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/shell.h"
#include "engine/words.h"
#include "script/builtin_table.h"
#include "tools/user_tools.h"

namespace zol {

namespace {

// Context help files that the help window can search itself; others go to the
// desktop's viewer, which is handed the whole file.
bool searchable(const QString& path) {
    static const QStringList kinds = {QStringLiteral("html"), QStringLiteral("htm"), QStringLiteral("txt"),
                                      QStringLiteral("md")};
    return kinds.contains(QFileInfo(path).suffix().toLower());
}

bool inContextHelp(const QString& word) {
    const QString file = qs(userHelp().contextHelpFile);
    if (file.isEmpty()) return false;
    if (!searchable(file)) return shell().openHelp(local(file));
    return QFileInfo::exists(file) && THelpWindow::instance()->showText(file, word, true);
}

bool inScriptReference(const std::string& word) {
    const BuiltinEntry* b = findBuiltin(word);
    return b && THelpWindow::instance()->showText(QStringLiteral("scripts.html"), qs(std::string(b->prototype)), false);
}

bool isScriptFile(const Document& doc) {
    const QString suffix = QFileInfo(qs(doc.fileName)).suffix().toLower();
    return suffix == QLatin1String("c") || suffix == QLatin1String("h");
}

}  // namespace

std::string wordAtCursor(const Document& doc) {
    const std::string_view text = lineText(doc, doc.cursor.line);
    size_t begin = 0, end = 0;
    if (!wordAt(text, locateColumn(text, doc.cursor.col).offset, begin, end)) return {};
    return std::string(text.substr(begin, end - begin));
}

void helpKeywordSearch(const Document& doc) {
    const std::string word = wordAtCursor(doc);
    if (word.empty()) {
        shell().message(helpqt::kNoWord);
        return;
    }
    THelpWindow* help = THelpWindow::instance();
    if (help->showTerm(qs(word)) || inScriptReference(word) || inContextHelp(qs(word))) return;
    shell().message(local(QString::fromUtf8(helpqt::kNotFound).arg(qs(word))));
}

void openExternHelp(size_t index) {
    const auto& entries = userHelp().entries;
    if (index < entries.size()) shell().openHelp(entries[index].helpFile);
}

bool& apiAssistance() {
    static bool on = true;
    return on;
}

QString callPrototype(const Document& doc) {
    const std::string_view text = lineText(doc, doc.cursor.line);
    size_t at = std::min(locateColumn(text, doc.cursor.col).offset, text.size());
    for (int depth = 0; at > 0; --at) {
        const char c = text[at - 1];
        if (c == ')') ++depth;
        else if (c == '(' && depth > 0) --depth;
        else if (c == '(') break;
    }
    if (at == 0) return {};
    size_t end = at - 1;
    while (end > 0 && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
    size_t begin = end;
    while (begin > 0 && isWordChar(text[begin - 1])) --begin;
    const BuiltinEntry* b = begin < end ? findBuiltin(text.substr(begin, end - begin)) : nullptr;
    return b ? qs(std::string(b->prototype)) : QString();
}

void apiAssistAfter(TVekWinEditor* view, uint16_t command) {
    const Document* doc = view ? view->document() : nullptr;
    if (!doc || !apiAssistance() || !isScriptFile(*doc)) return;
    if (command != idOf(Cmd::InsertChar) && command != idOf(Cmd::Backspace)) {
        QToolTip::hideText();
        return;
    }
    const QString prototype = callPrototype(*doc);
    if (prototype.isEmpty()) {
        QToolTip::hideText();
        return;
    }
    const QRect caret = view->caretRect();
    QToolTip::showText(view->viewport()->mapToGlobal(caret.bottomLeft() + QPoint(0, 4)), prototype, view->viewport());
}

void toggleApiAssistance(TVekWinEditor* view) {
    apiAssistance() = !apiAssistance();
    shell().statusMessage(apiAssistance() ? helpqt::kApiOn : helpqt::kApiOff);
    if (!apiAssistance() || !view || !view->document()) {
        QToolTip::hideText();
        return;
    }
    if (const QString prototype = callPrototype(*view->document()); !prototype.isEmpty())
        QToolTip::showText(view->viewport()->mapToGlobal(view->caretRect().bottomLeft() + QPoint(0, 4)), prototype,
                           view->viewport());
}

}  // namespace zol
