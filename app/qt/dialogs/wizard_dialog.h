// The script wizard ("ScriptWizard"): its pages gather the choices that
// script/wizard.h turns into a new script below the home's "script/" folder.
#pragma once
#include <QWizard>
#include <array>
#include <string>

#include "script/wizard.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QRadioButton;

namespace zol {

class TScriptWizard : public QWizard {
    Q_OBJECT
public:
    // The pages, in the order a console program skips the macro and the options.
    enum Page { TypePage, MacroPage, NamePage, OptionsPage, GeneratePage };

    explicit TScriptWizard(QWidget* parent);
    // The path of the script written, empty when the user cancelled.
    static std::string run(QWidget* parent);

    // What the pages hold now, the name and texts as the script will carry them.
    WizardChoices choices() const;
    std::string targetPath() const;
    const std::string& written() const { return written_; }

    int nextId() const override;
    bool validateCurrentPage() override;

protected:
    void initializePage(int id) override;

private:
    QWizardPage* makeTypePage();
    QWizardPage* makeMacroPage();
    QWizardPage* makeNamePage();
    QWizardPage* makeOptionsPage();
    QWizardPage* makeGeneratePage();
    uint16_t chosenMacro() const;
    void suggestName();
    void updateOptions();
    bool checkName();
    bool writeScript();

    QRadioButton* console_ = nullptr;
    QRadioButton* editor_ = nullptr;
    QRadioButton* convert_ = nullptr;
    QListWidget* macros_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* description_ = nullptr;
    QLineEdit* syntax_ = nullptr;
    QCheckBox* commandMacros_ = nullptr;
    QCheckBox* readOnly_ = nullptr;
    QCheckBox* endModes_ = nullptr;
    QCheckBox* saveOptions_ = nullptr;
    std::array<QComboBox*, kSavedSettingCount> fixed_{};
    QPlainTextEdit* preview_ = nullptr;
    std::string written_;
};

}  // namespace zol
