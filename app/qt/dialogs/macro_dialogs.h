// The keystroke-macro dialogs: the name of a recording, the macro list, the name and
// description of a macro, and its text form.
#pragma once
#include <QDialog>
#include <cstdint>
#include <string>

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace zol {

struct Document;

class TRecordMacroDialog : public QDialog {
    Q_OBJECT
public:
    TRecordMacroDialog(QWidget* parent, const std::string& name);
    // name comes in as the suggestion; false cancels the recording.
    static bool run(QWidget* parent, std::string& name);

private:
    QLineEdit* name_;
};

// Name and description of a new or renamed macro. The name must be non-empty and not
// taken by another macro than `self` (0 for a new one).
class TMacroNameDialog : public QDialog {
    Q_OBJECT
public:
    TMacroNameDialog(QWidget* parent, const QString& title, uint16_t self, const std::string& name,
                     const std::string& description);
    static bool run(QWidget* parent, const QString& title, uint16_t self, std::string& name,
                    std::string& description);

private:
    void check();
    uint16_t self_;
    std::string nameBytes_, descriptionBytes_;
    QLineEdit* name_;
    QLineEdit* description_;
};

// The text form of one macro. Closing with OK after a change asks whether to compile;
// a text that does not compile keeps the dialog open with the caret on the bad line,
// and the macro keeps its old steps.
class TMacroEditDialog : public QDialog {
    Q_OBJECT
public:
    TMacroEditDialog(QWidget* parent, uint16_t id, const std::string& text);
    // False when the macro cannot be shown (already told) or nothing was compiled.
    static bool run(QWidget* parent, uint16_t id);

    void reject() override;

private:
    void finish();
    uint16_t id_;
    QString original_;
    bool compiled_ = false;
    QPlainTextEdit* text_;
};

// The macro list: run, new, delete, rename, edit as text.
class TMacroDialog : public QDialog {
    Q_OBJECT
public:
    TMacroDialog(QWidget* parent, Document* doc);
    // doc is where Run plays the chosen macro; without one Run is unavailable.
    static void run(QWidget* parent, Document* doc);

private:
    void fill(uint16_t select);
    uint16_t current() const;
    void updateButtons();
    void newMacro();
    void deleteMacro();
    void renameMacro();
    void editMacro();

    Document* doc_;
    uint16_t runId_ = 0;
    QListWidget* list_;
    QPushButton* run_;
    QPushButton* delete_;
    QPushButton* rename_;
    QPushButton* edit_;
};

}  // namespace zol
