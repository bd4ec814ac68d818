#include "app/qt/dialogs/named_bookmarks.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "engine/bookmarks.h"
#include "engine/document.h"
#include "engine/document_list.h"
#include "engine/shell.h"

namespace zol {

TNamedBookmarks::TNamedBookmarks(QWidget* parent, Document* doc) : QDialog(parent), doc_(doc) {
    setWindowTitle(dlgmsg::kBookmarksTitle);
    list_ = new QTreeWidget(this);
    list_->setObjectName("bookmarks");
    list_->setRootIsDecorated(false);
    list_->setHeaderLabels(QString(dlgmsg::kBookmarkColumns).split('\t'));
    list_->setMinimumSize(480, 240);
    auto button = [this](const char* text, const char* name) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        return b;
    };
    auto* add = button(dlgmsg::kBookmarkAdd, "add");
    add->setEnabled(doc != nullptr);
    goTo_ = button(dlgmsg::kBookmarkGoTo, "goto");
    goTo_->setDefault(true);
    delete_ = button(dlgmsg::kBookmarkDelete, "delete");
    auto* close = button(dlgmsg::kClose, "close");
    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {goTo_, add, delete_}) buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(buttons);

    connect(add, &QPushButton::clicked, this, &TNamedBookmarks::add);
    connect(goTo_, &QPushButton::clicked, this, &TNamedBookmarks::goTo);
    connect(delete_, &QPushButton::clicked, this, &TNamedBookmarks::remove);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(list_, &QTreeWidget::itemDoubleClicked, this, &TNamedBookmarks::goTo);
    connect(list_, &QTreeWidget::currentItemChanged, this, &TNamedBookmarks::updateButtons);
    fill(0);
}

void TNamedBookmarks::fill(int select) {
    list_->clear();
    const NamedBookmarks& marks = namedBookmarks();
    for (size_t i = 0; i < marks.entries.size(); ++i) {
        const NamedBookmark& b = marks.entries[i];
        auto* item = new QTreeWidgetItem(list_, {fromCp1252(b.name), fromCp1252(bookmarkFile(b)),
                                                 QString::number(b.pos.line + 1), QString::number(b.pos.col + 1)});
        item->setData(0, Qt::UserRole, static_cast<int>(i));
        if (static_cast<int>(i) == select) list_->setCurrentItem(item);
    }
    list_->header()->resizeSections(QHeaderView::ResizeToContents);
    updateButtons();
}

int TNamedBookmarks::current() const {
    const QTreeWidgetItem* item = list_->currentItem();
    return item ? item->data(0, Qt::UserRole).toInt() : -1;
}

void TNamedBookmarks::updateButtons() {
    goTo_->setEnabled(current() >= 0);
    delete_->setEnabled(current() >= 0);
}

void TNamedBookmarks::add() {
    if (!doc_) return;
    bool ok = false;
    const QString text =
        QInputDialog::getText(this, dlgmsg::kDropBookmarkTitle, dlgmsg::kBookmarkName, QLineEdit::Normal, {}, &ok)
            .trimmed();
    if (!ok || text.isEmpty()) return;
    std::string name;
    if (!toCp1252(text, name)) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kNotInCodePage);
        return;
    }
    NamedBookmarks& marks = namedBookmarks();
    const AddBookmark result =
        addNamedBookmark(marks, name, doc_->cursor, doc_->hasFile ? doc_->fileName : std::string(), doc_);
    if (const char* refusal = addBookmarkMessage(result)) {
        shell().message(refusal);
        return;
    }
    fill(static_cast<int>(marks.entries.size()) - 1);
}

void TNamedBookmarks::remove() {
    const int i = current();
    NamedBookmarks& marks = namedBookmarks();
    if (i < 0 || i >= static_cast<int>(marks.entries.size())) return;
    removeNamedBookmark(marks, marks.entries[static_cast<size_t>(i)].name);
    fill(std::min(i, static_cast<int>(marks.entries.size()) - 1));
}

void TNamedBookmarks::goTo() {
    const int i = current();
    const NamedBookmarks& marks = namedBookmarks();
    if (i < 0 || i >= static_cast<int>(marks.entries.size())) return;
    const NamedBookmark b = marks.entries[static_cast<size_t>(i)];
    DocumentList* docs = documentList();
    Document* target = nullptr;
    if (b.doc && isOpenDocument(b.doc)) {
        target = const_cast<Document*>(b.doc);
        if (docs) docs->activate(target);
    } else if (!b.file.empty() && shell().openFile(b.file) && docs) {
        target = docs->active();
    }
    if (!target) return;
    zol::setCursor(*target, b.pos);
    accept();
}

void TNamedBookmarks::run(QWidget* parent, Document* doc) {
    TNamedBookmarks dlg(parent, doc);
    dlg.exec();
}

}  // namespace zol
