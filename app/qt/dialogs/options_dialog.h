// Every editing, file and display option of the settings store, applied on OK.
#pragma once
#include <QDialog>

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QLineEdit;
class QSpinBox;

namespace zol {

class TOptionsDialog : public QDialog {
    Q_OBJECT
public:
    explicit TOptionsDialog(QWidget* parent);
    // True when OK applied the choices to the editing options and the settings.
    static bool run(QWidget* parent);

    // Widgets carry the settings key they edit as their object name.
private:
    QWidget* editingPage();
    QWidget* filesPage();
    QWidget* displayPage();
    QWidget* applicationPage();
    void tryApply();
    bool apply();

    QSpinBox *tabSize_, *blockIndent_, *undoLevels_, *wordWrapColumn_, *autoSaveEvery_, *fontSize_;
    QCheckBox *useTabChar_, *smartTab_, *autoIndent_, *autoUnindent_, *autoIndentUsingTabs_, *overwrite_,
        *cursorBeyondEol_, *keepTrailingBlanks_, *cursorThroughTabs_, *undoAfterSave_, *wordWrap_;
    QCheckBox *autoSave_, *backupFiles_, *detectFileFormat_, *checkFileTime_;
    QCheckBox *ruler_, *lineNumbers_, *visibleSpaces_, *blockCaret_, *wordWrapVisible_, *fontBold_;
    QCheckBox *statusBar_, *buttonBar_, *docToolBar_, *saveSettings_, *saveDesktop_, *autoLoad_,
        *allowMultiInst_;
    QComboBox *wordWrapMethod_, *language_, *rightMouseBtn_, *backupFilesAs_, *defaultFileFormat_;
    QLineEdit *alwaysWrapExt_, *neverWrapExt_, *newFileExtension_, *includeDirs_, *keyMappingFile_;
    QFontComboBox* fontName_;
};

}  // namespace zol
