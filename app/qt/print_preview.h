// "Print Preview": one page at a time as it will print, laid out only when shown, so
// the first page of a long document is there at once.
#pragma once
#include <QDialog>
#include <QPrinter>

#include "app/qt/print_page.h"

class QLabel;
class QPushButton;

namespace zol {

struct Document;

class TPrintPreviewPage : public QWidget {
public:
    explicit TPrintPreviewPage(QWidget* parent) : QWidget(parent) {}
    void show(const PrintPlan* plan, const PrintFonts* fonts, const PageFacts* facts, size_t page);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    const PrintPlan* plan_ = nullptr;
    const PrintFonts* fonts_ = nullptr;
    const PageFacts* facts_ = nullptr;
    size_t page_ = 0;
};

class TPrintPreviewDlg : public QDialog {
public:
    TPrintPreviewDlg(QWidget* parent, Document& doc);
    // Shows the preview; the Print button prints from it. False when the page leaves
    // no room for text (the reason is shown) or the dialog was closed.
    static bool run(QWidget* parent, Document& doc);
    bool planned() const { return planned_; }
    size_t pageCount() const { return plan_.pages.size(); }
    void goTo(size_t page);

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    bool replan();
    void pageSetup();

    Document& doc_;
    QPrinter printer_;
    PrintFonts fonts_;
    PrintPlan plan_;
    PageFacts facts_;
    bool planned_ = false;
    size_t page_ = 0;
    TPrintPreviewPage* view_ = nullptr;
    QLabel* label_ = nullptr;
    QPushButton* prev_ = nullptr;
    QPushButton* next_ = nullptr;
};

}  // namespace zol
