// The user manual in a window of its own: contents, index and search beside the page.
// The pages are those made from docs/*.md at build time, in the data folder's "help".
#pragma once
#include <QPointer>
#include <QWidget>
#include <map>

class QLineEdit;
class QListWidget;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;

namespace zol {

class THelpWindow : public QWidget {
public:
    // The one help window, made on first use.
    static THelpWindow* instance();
    // Where the pages are: the shipped data folder's "help".
    static QString helpDir();

    void showContents();
    // Opens the index entry of term (compared without regard to case); false when the
    // index has none.
    bool showTerm(const QString& term);
    // Opens a page of the manual or any HTML or text file, with the first occurrence of
    // text after the section anchor (if any) selected; false when text is not there.
    bool showText(const QString& fileOrUrl, const QString& text, bool wholeWord);
    QTextBrowser* browser() const { return browser_; }
    QListWidget* indexList() const { return index_; }
    bool hasManual() const { return !terms_.empty(); }

private:
    THelpWindow();
    void load();
    void filterIndex(const QString& text);
    void search(const QString& words);
    void bringUp();

    QTabWidget* tabs_;
    QTreeWidget* contents_;
    QLineEdit* indexFilter_;
    QListWidget* index_;
    QLineEdit* searchText_;
    QListWidget* results_;
    QTextBrowser* browser_;
    std::map<QString, std::pair<QString, QString>> terms_;  // lower-case term -> term, target
    static QPointer<THelpWindow> instance_;
};

}  // namespace zol
