// The "Find in Files" and "Replace in Files" dialogs, and the question asked before
// each file of a replace in files ("ReplaceInFilesPrompt").
#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "tools/replace_in_files.h"

class QCheckBox;
class QComboBox;
class QPushButton;

namespace zol {

// What the dialogs edit. The folder and mask lists are the multi-find histories of the
// settings ("MultiFindFolderHistory", "MultiFindFileFilters"); the file dialogs' own
// lists ("FolderHistory", "FileFilters") follow them in the choices.
struct FindFilesChoice {
    FileReplaceQuery query;
    bool prompt = false;  // replace: ask before each file
};

class TFindFilesDialog : public QDialog {
    Q_OBJECT
public:
    TFindFilesDialog(QWidget* parent, const FindFilesChoice& start, bool replace);
    // False when cancelled. Otherwise the choice is one that can run (checked with
    // fileSearchProblem, whose message the dialog showed while it could not), and the
    // texts, the folder and the masks are at the front of their histories.
    static bool run(QWidget* parent, FindFilesChoice& choice, bool replace);

private:
    void browse();
    void finish();

    bool replace_;
    FindFilesChoice choice_;
    QComboBox* findText_;
    QComboBox* replaceText_ = nullptr;
    QComboBox* masks_;
    QComboBox* folder_;
    QCheckBox* wholeWord_;
    QCheckBox* matchCase_;
    QCheckBox* regex_;
    QCheckBox* subfolders_;
    QCheckBox* confirm_ = nullptr;
    QPushButton* okButton_;
};

// "ReplaceInFilesPrompt": the file, how many hits, and the first changed lines as
// they are and as they will be; Replace, Skip, Replace in All, Cancel.
class TReplaceInFilesPromptDlg : public QDialog {
    Q_OBJECT
public:
    TReplaceInFilesPromptDlg(QWidget* parent, const FileReplacePreview& preview);
    static FilePromptAnswer run(QWidget* parent, const FileReplacePreview& preview);

private:
    FilePromptAnswer answer_ = FilePromptAnswer::Cancel;
};

// The entries of a history list followed by those of a second list it lacks.
std::vector<std::string> mergedHistory(const std::vector<std::string>& first, const std::vector<std::string>& second);
// Puts text at the front of a history list of at most `capacity` entries.
void pushFront(std::vector<std::string>& list, const std::string& text, size_t capacity);

}  // namespace zol
