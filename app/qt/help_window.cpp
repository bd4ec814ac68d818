#include "app/qt/help_window.h"

#include <QDir>
#include <QHash>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "app/application.h"
#include "app/qt/help_messages.h"
#include "app/qt/local_text.h"
#include "platform/file_io.h"

namespace zol {

namespace {

QString txt(const char* s) { return QString::fromUtf8(s); }

// A help file's text; empty when it cannot be read.
QString readText(const QString& path) {
    std::string bytes;
    return readWholeFile(path.toStdString(), bytes) ? QString::fromStdString(bytes) : QString();
}

QStringList readLines(const QString& path) { return readText(path).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

QWidget* filtered(QWidget* parent, QLineEdit* edit, QWidget* list) {
    auto* w = new QWidget(parent);
    auto* l = new QVBoxLayout(w);
    l->setContentsMargins(0, 0, 0, 0);
    l->addWidget(edit);
    l->addWidget(list);
    return w;
}

constexpr int kTargetRole = Qt::UserRole;

}  // namespace

QPointer<THelpWindow> THelpWindow::instance_;

THelpWindow* THelpWindow::instance() {
    if (!instance_) instance_ = new THelpWindow;
    return instance_;
}

QString THelpWindow::helpDir() { return qs(shippedDataDir()) + QStringLiteral("/help"); }

THelpWindow::THelpWindow() {
    setObjectName(QStringLiteral("HelpWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(txt(helpqt::kHelpTitle));
    tabs_ = new QTabWidget(this);
    contents_ = new QTreeWidget(this);
    contents_->setHeaderHidden(true);
    indexFilter_ = new QLineEdit(this);
    indexFilter_->setPlaceholderText(txt(helpqt::kIndexFilter));
    index_ = new QListWidget(this);
    searchText_ = new QLineEdit(this);
    searchText_->setPlaceholderText(txt(helpqt::kSearchFilter));
    results_ = new QListWidget(this);
    tabs_->addTab(contents_, txt(helpqt::kContents));
    tabs_->addTab(filtered(this, indexFilter_, index_), txt(helpqt::kIndex));
    tabs_->addTab(filtered(this, searchText_, results_), txt(helpqt::kSearch));
    browser_ = new QTextBrowser(this);
    browser_->setOpenExternalLinks(true);
    browser_->setSearchPaths({helpDir()});
    auto* split = new QSplitter(this);
    split->addWidget(tabs_);
    split->addWidget(browser_);
    split->setStretchFactor(1, 1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(split);
    resize(980, 680);
    split->setSizes({260, 720});

    auto open = [this](const QVariant& target) {
        if (!target.isNull()) browser_->setSource(QUrl(target.toString()));
    };
    connect(contents_, &QTreeWidget::itemActivated, this, [open](QTreeWidgetItem* i) { open(i->data(0, kTargetRole)); });
    connect(contents_, &QTreeWidget::itemClicked, this, [open](QTreeWidgetItem* i) { open(i->data(0, kTargetRole)); });
    connect(index_, &QListWidget::itemActivated, this, [open](QListWidgetItem* i) { open(i->data(kTargetRole)); });
    connect(index_, &QListWidget::itemClicked, this, [open](QListWidgetItem* i) { open(i->data(kTargetRole)); });
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        if (tab == 1) indexFilter_->setFocus();
        else if (tab == 2) searchText_->setFocus();
    });
    connect(indexFilter_, &QLineEdit::textChanged, this, &THelpWindow::filterIndex);
    connect(indexFilter_, &QLineEdit::returnPressed, this, [this] {
        if (QListWidgetItem* i = index_->currentItem()) browser_->setSource(QUrl(i->data(kTargetRole).toString()));
    });
    connect(searchText_, &QLineEdit::returnPressed, this, [this] { search(searchText_->text()); });
    connect(results_, &QListWidget::itemActivated, this, [this](QListWidgetItem* i) {
        showText(i->data(kTargetRole).toString(), searchText_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts).value(0), false);
    });
    connect(results_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) { Q_EMIT results_->itemActivated(i); });
    load();
}

void THelpWindow::load() {
    QList<QTreeWidgetItem*> parents;
    for (const QString& line : readLines(helpDir() + QStringLiteral("/contents.txt"))) {
        const QStringList f = line.split(QLatin1Char('\t'));
        if (f.size() != 3) continue;
        const int level = std::max(1, f[0].toInt());
        while (parents.size() >= level) parents.removeLast();
        auto* item = parents.isEmpty() ? new QTreeWidgetItem(contents_) : new QTreeWidgetItem(parents.last());
        item->setText(0, f[1]);
        item->setData(0, kTargetRole, f[2]);
        parents.append(item);
    }
    for (const QString& line : readLines(helpDir() + QStringLiteral("/index.txt"))) {
        const QStringList f = line.split(QLatin1Char('\t'));
        if (f.size() != 2) continue;
        terms_.try_emplace(f[0].toLower(), f[0], f[1]);
        auto* item = new QListWidgetItem(f[0], index_);
        item->setData(kTargetRole, f[1]);
    }
}

void THelpWindow::filterIndex(const QString& text) {
    QListWidgetItem* first = nullptr;
    for (int i = 0; i < index_->count(); ++i) {
        QListWidgetItem* item = index_->item(i);
        const bool shown = item->text().contains(text, Qt::CaseInsensitive);
        item->setHidden(!shown);
        if (shown && !first && item->text().startsWith(text, Qt::CaseInsensitive)) first = item;
    }
    if (first) index_->setCurrentItem(first);
}

void THelpWindow::search(const QString& words) {
    results_->clear();
    const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (wanted.isEmpty()) return;
    QHash<QString, QString> pages;  // a page holds many sections: each is read once
    for (const QString& line : readLines(helpDir() + QStringLiteral("/contents.txt"))) {
        const QStringList f = line.split(QLatin1Char('\t'));
        if (f.size() != 3) continue;
        // A section's text runs from its anchor to the next one.
        const QString page = f[2].section(QLatin1Char('#'), 0, 0);
        auto it = pages.find(page);
        if (it == pages.end()) it = pages.insert(page, readText(helpDir() + QLatin1Char('/') + page));
        const QString& html = *it;
        if (html.isEmpty()) continue;
        const QString anchor = QStringLiteral("<a name=\"%1\">").arg(f[2].section(QLatin1Char('#'), 1));
        const qsizetype at = html.indexOf(anchor);
        const qsizetype end = html.indexOf(QStringLiteral("<a name="), at + anchor.size());
        QTextDocument doc;
        doc.setHtml(html.mid(at, end < 0 ? -1 : end - at));
        const QString text = doc.toPlainText();
        if (std::all_of(wanted.begin(), wanted.end(), [&](const QString& w) { return text.contains(w, Qt::CaseInsensitive); })) {
            auto* item = new QListWidgetItem(f[1], results_);
            item->setData(kTargetRole, helpDir() + QLatin1Char('/') + f[2]);
        }
    }
}

void THelpWindow::bringUp() {
    show();
    raise();
    activateWindow();
}

void THelpWindow::showContents() {
    tabs_->setCurrentIndex(0);
    if (contents_->topLevelItemCount() > 0) {
        contents_->setCurrentItem(contents_->topLevelItem(0));
        browser_->setSource(QUrl(contents_->topLevelItem(0)->data(0, kTargetRole).toString()));
    } else {
        browser_->setText(txt(helpqt::kNoManual).arg(helpDir()));
    }
    bringUp();
}

bool THelpWindow::showTerm(const QString& term) {
    const auto it = terms_.find(term.toLower());
    if (it == terms_.end()) return false;
    tabs_->setCurrentIndex(1);
    indexFilter_->setText(it->second.first);
    for (int i = 0; i < index_->count(); ++i)
        if (index_->item(i)->text() == it->second.first) index_->setCurrentRow(i);
    browser_->setSource(QUrl(it->second.second));
    bringUp();
    return true;
}

bool THelpWindow::showText(const QString& fileOrUrl, const QString& text, bool wholeWord) {
    const QUrl url = fileOrUrl.contains(QStringLiteral("://")) || !QFileInfo(fileOrUrl).isAbsolute()
                         ? QUrl(fileOrUrl)
                         : QUrl::fromLocalFile(fileOrUrl.section(QLatin1Char('#'), 0, 0));
    browser_->setSource(url);
    QTextDocument* doc = browser_->document();
    QTextCursor from(doc);
    if (const QString anchor = fileOrUrl.section(QLatin1Char('#'), 1); !anchor.isEmpty()) {
        for (QTextBlock b = doc->begin(); b.isValid(); b = b.next()) {
            bool found = false;
            for (auto f = b.begin(); !f.atEnd() && !found; ++f)
                found = f.fragment().charFormat().anchorNames().contains(anchor);
            if (found) {
                from = QTextCursor(b);
                break;
            }
        }
    }
    QTextDocument::FindFlags flags;
    if (wholeWord) flags |= QTextDocument::FindWholeWords;
    const QTextCursor hit = doc->find(text, from, flags);
    if (hit.isNull()) return false;
    browser_->setTextCursor(hit);
    browser_->ensureCursorVisible();
    bringUp();
    return true;
}

}  // namespace zol
