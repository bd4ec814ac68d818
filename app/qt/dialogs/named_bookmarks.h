// The named bookmarks shared by the whole application: add, go to, delete.
#pragma once
#include <QDialog>

class QTreeWidget;
class QPushButton;

namespace zol {

struct Document;

class TNamedBookmarks : public QDialog {
    Q_OBJECT
public:
    TNamedBookmarks(QWidget* parent, Document* doc);
    // doc is where Add takes the position from; without one Add is unavailable.
    // Go To opens the bookmark's file when its document is not open.
    static void run(QWidget* parent, Document* doc);

private:
    void fill(int select);
    int current() const;
    void updateButtons();
    void add();
    void remove();
    void goTo();

    Document* doc_;
    QTreeWidget* list_;
    QPushButton* goTo_;
    QPushButton* delete_;
};

}  // namespace zol
