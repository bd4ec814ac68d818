// One language's definition: a control for every key of the definition list, the
// keyword lists, the colours from the palette, and a preview of a sample text that the
// editor's scanner colours with the definition as it stands in the controls.
#pragma once
#include <QDialog>
#include <QString>

#include "app/qt/dialogs/messages.h"
#include "syntax/edit_copy.h"

class QFormLayout;
class QLineEdit;
class QListWidget;
class QTabWidget;

namespace zol {

class TSyntaxPreview;

class TSyntaxHighlightDefineLangDlg : public QDialog {
    Q_OBJECT
public:
    TSyntaxHighlightDefineLangDlg(QWidget* parent, const SyntaxEditLanguage& lang);
    // lang takes the controls' values when the user pressed OK.
    static bool run(QWidget* parent, SyntaxEditLanguage& lang);

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

    // Each key's control carries the key as its object name; a pair's two boxes are the
    // children "open" and "close" of its control.
private:
    QWidget* page(dlgmsg::DefinePage which);
    QWidget* keywordsPage();
    void addControl(QWidget* page, QFormLayout* form, const dlgmsg::DefineField& field);
    void refreshPreview();
    void finish();

    template <class W>
    W* control(HglKey k) const;
    // One pair of functions for each kind of key, called by the key list's rows.
    void showText(HglKey k, const std::string& v);
    void showPair(HglKey k, const std::string& v);
    void showExtensions(HglKey, const std::string&) {}
    void showYesNo(HglKey k, bool v);
    void showNumber(HglKey k, int16_t v);
    void showChar(HglKey k, char v);
    void showLineComment(HglKey k, const std::string& v) { showText(k, v); }
    void showKeywords(HglKey k, const std::array<std::string, kMaxKeywordLen + 1>& v);
    void showColour(HglKey k, int v);
    bool takeText(HglKey k, std::string& v);
    bool takePair(HglKey k, std::string& v);
    bool takeExtensions(HglKey, std::string&) { return true; }
    bool takeYesNo(HglKey k, bool& v);
    bool takeNumber(HglKey k, int16_t& v);
    bool takeChar(HglKey k, char& v);
    bool takeLineComment(HglKey k, std::string& v) { return takeText(k, v); }
    bool takeKeywords(HglKey, std::array<std::string, kMaxKeywordLen + 1>& v);
    bool takeColour(HglKey k, int& v);
    // The controls' values; strict refuses what could not be saved as typed (a
    // character the code page lacks, half a pair) and notes why in problem_.
    bool collect(SyntaxEditLanguage& out, bool strict);
    bool bytesOf(QLineEdit* edit, std::string& out);

    void addKeywords();
    void removeKeywords();
    void fillKeywords();

    SyntaxEditLanguage lang_;  // the keyword lists live here while the dialog is open
    bool strict_ = false;
    QString problem_;
    QWidget* problemAt_ = nullptr;
    QTabWidget* tabs_;
    QLineEdit* newKeyword_ = nullptr;
    QListWidget* keywords_ = nullptr;
    TSyntaxPreview* preview_ = nullptr;  // null while the controls are being filled
};

}  // namespace zol
