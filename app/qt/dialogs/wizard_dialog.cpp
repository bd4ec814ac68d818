#include "app/qt/dialogs/wizard_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "app/qt/local_text.h"
#include "engine/command_table.h"
#include "files/messages.h"
#include "script/macros.h"
#include "script/script_choice.h"
#include "script/script_messages.h"

namespace zol {
namespace {


QWizardPage* newPage(const char* objectName, const char* title, const QString& subTitle) {
    auto* p = new QWizardPage;
    p->setObjectName(objectName);
    p->setTitle(title);
    p->setSubTitle(subTitle);
    return p;
}

template <class W>
W* named(W* w, const char* objectName) {
    w->setObjectName(objectName);
    return w;
}

}  // namespace

TScriptWizard::TScriptWizard(QWidget* parent) : QWizard(parent) {
    setObjectName("ScriptWizard");
    setWindowTitle(dlgmsg::kWizardTitle);
    setWizardStyle(QWizard::ClassicStyle);
    setPage(TypePage, makeTypePage());
    setPage(MacroPage, makeMacroPage());
    setPage(NamePage, makeNamePage());
    setPage(OptionsPage, makeOptionsPage());
    setPage(GeneratePage, makeGeneratePage());
    setStartId(TypePage);
    updateOptions();
}

QWizardPage* TScriptWizard::makeTypePage() {
    QWizardPage* p = newPage("ScrWiz_Type", dlgmsg::kWizardTypeTitle, dlgmsg::kWizardTypeText);
    console_ = named(new QRadioButton(dlgmsg::kWizardConsole, p), "console");
    editor_ = named(new QRadioButton(dlgmsg::kWizardEditor, p), "editor");
    convert_ = named(new QRadioButton(dlgmsg::kWizardConvert, p), "convert");
    editor_->setChecked(true);
    auto* group = new QButtonGroup(p);
    auto* layout = new QVBoxLayout(p);
    for (QRadioButton* b : {console_, editor_, convert_}) {
        group->addButton(b);
        layout->addWidget(b);
    }
    layout->addStretch();
    connect(group, &QButtonGroup::buttonToggled, this, [this] { updateOptions(); });
    return p;
}

QWizardPage* TScriptWizard::makeMacroPage() {
    QWizardPage* p = newPage("ScrWiz_Macro", dlgmsg::kWizardMacroTitle, dlgmsg::kWizardMacroText);
    macros_ = named(new QListWidget(p), "macros");
    for (int slot = 0; slot < macromsg::kMacroSlots; ++slot) {
        const uint16_t id = static_cast<uint16_t>(kFirstMacroId + slot);
        const Macro* m = macroById(zol::macros(), id);
        if (!m) continue;
        QString label = fromCp1252(m->name);
        if (!m->description.empty()) label += QStringLiteral(" - ") + fromCp1252(m->description);
        auto* item = new QListWidgetItem(label, macros_);
        item->setData(Qt::UserRole, id);
    }
    macros_->setCurrentRow(0);
    convert_->setEnabled(macros_->count() > 0);
    connect(macros_, &QListWidget::itemDoubleClicked, this, [this] { next(); });
    auto* layout = new QVBoxLayout(p);
    layout->addWidget(macros_);
    return p;
}

QWizardPage* TScriptWizard::makeNamePage() {
    QWizardPage* p = newPage("ScrWiz_Name", dlgmsg::kWizardNameTitle, QString(dlgmsg::kWizardNameText).arg(qs(scriptFolder())));
    name_ = named(new QLineEdit(p), "name");
    description_ = named(new QLineEdit(p), "description");
    syntax_ = named(new QLineEdit(p), "syntax");
    syntax_->setPlaceholderText(QStringLiteral("..."));
    connect(name_, &QLineEdit::textChanged, this, [this](const QString& text) { syntax_->setPlaceholderText(text); });
    auto* form = new QFormLayout(p);
    form->addRow(dlgmsg::kWizardName, name_);
    form->addRow(dlgmsg::kWizardDescription, description_);
    form->addRow(dlgmsg::kWizardSyntax, syntax_);
    return p;
}

QWizardPage* TScriptWizard::makeOptionsPage() {
    QWizardPage* p = newPage("ScrWiz_Options", dlgmsg::kWizardOptionsTitle, dlgmsg::kWizardOptionsText);
    commandMacros_ = named(new QCheckBox(dlgmsg::kWizardCommandMacros, p), "commandMacros");
    readOnly_ = named(new QCheckBox(dlgmsg::kWizardReadOnly, p), "refuseReadOnly");
    endModes_ = named(new QCheckBox(dlgmsg::kWizardEndModes, p), "endModes");
    saveOptions_ = named(new QCheckBox(dlgmsg::kWizardSaveOptions, p), "saveOptions");
    readOnly_->setChecked(true);
    auto* layout = new QVBoxLayout(p);
    for (QCheckBox* b : {commandMacros_, readOnly_, endModes_, saveOptions_}) {
        layout->addWidget(b);
        connect(b, &QCheckBox::toggled, this, [this] { updateOptions(); });
    }
    auto* group = new QGroupBox(dlgmsg::kWizardFixedGroup, p);
    auto* form = new QFormLayout(group);
    for (size_t i = 0; i < kSavedSettingCount; ++i) {
        if (!kSavedSettings[i].label) continue;
        fixed_[i] = new QComboBox(group);
        fixed_[i]->setObjectName(kSavedSettings[i].variable);
        for (const char* choice : dlgmsg::kWizardFixChoices) fixed_[i]->addItem(choice);
        form->addRow(kSavedSettings[i].label, fixed_[i]);
    }
    layout->addWidget(group);
    return p;
}

QWizardPage* TScriptWizard::makeGeneratePage() {
    QWizardPage* p = newPage("ScrWiz_Generate", dlgmsg::kWizardGenerateTitle, QStringLiteral(" "));
    preview_ = named(new QPlainTextEdit(p), "preview");
    preview_->setReadOnly(true);
    preview_->setLineWrapMode(QPlainTextEdit::NoWrap);
    preview_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    preview_->setMinimumSize(520, 260);
    auto* layout = new QVBoxLayout(p);
    layout->addWidget(preview_, 1);
    return p;
}

int TScriptWizard::nextId() const {
    switch (currentId()) {
    case TypePage: return convert_->isChecked() ? MacroPage : NamePage;
    case MacroPage: return NamePage;
    case NamePage: return console_->isChecked() ? GeneratePage : OptionsPage;
    case OptionsPage: return GeneratePage;
    default: return -1;
    }
}

void TScriptWizard::initializePage(int id) {
    QWizard::initializePage(id);
    if (id == NamePage) suggestName();
    if (id == OptionsPage) updateOptions();
    if (id == GeneratePage) {
        page(GeneratePage)->setSubTitle(QString(dlgmsg::kWizardGenerateText).arg(qs(targetPath())));
        preview_->setPlainText(fromCp1252(generateScript(choices())));
    }
}

// A converted macro is named after its macro, where the name will do for a script.
void TScriptWizard::suggestName() {
    const Macro* m = convert_->isChecked() ? macroById(zol::macros(), chosenMacro()) : nullptr;
    if (!m || !name_->text().isEmpty() || scriptNameProblem(m->name)) return;
    name_->setText(fromCp1252(m->name));
    if (description_->text().isEmpty()) description_->setText(fromCp1252(m->description));
}

// The conversion and ending the modes write VM_ calls, which need editor/macros.h.
void TScriptWizard::updateOptions() {
    const bool macrosNeeded = convert_->isChecked() || endModes_->isChecked();
    if (macrosNeeded) commandMacros_->setChecked(true);
    commandMacros_->setEnabled(!macrosNeeded);
    for (QComboBox* c : fixed_)
        if (c) c->setEnabled(saveOptions_->isChecked());
}

uint16_t TScriptWizard::chosenMacro() const {
    const QListWidgetItem* item = macros_->currentItem();
    return item ? static_cast<uint16_t>(item->data(Qt::UserRole).toUInt()) : 0;
}

WizardChoices TScriptWizard::choices() const {
    WizardChoices c;
    c.kind = console_->isChecked() ? ScriptKind::Console : convert_->isChecked() ? ScriptKind::ConvertMacro : ScriptKind::Editor;
    c.name = toCp1252Lossy(name_->text().trimmed());
    c.description = toCp1252Lossy(description_->text());
    c.syntax = syntax_->text().isEmpty() ? c.name : toCp1252Lossy(syntax_->text());
    c.commandMacros = commandMacros_->isChecked();
    c.refuseReadOnly = readOnly_->isChecked();
    c.endModes = endModes_->isChecked();
    c.saveOptions = saveOptions_->isChecked();
    for (size_t i = 0; i < kSavedSettingCount; ++i)
        if (fixed_[i]) c.fixed[i] = static_cast<OptionFix>(fixed_[i]->currentIndex());
    if (const Macro* m = c.kind == ScriptKind::ConvertMacro ? macroById(zol::macros(), chosenMacro()) : nullptr)
        c.macro = m->steps;
    return c;
}

std::string TScriptWizard::targetPath() const { return wizardScriptPath(local(name_->text().trimmed())); }

bool TScriptWizard::validateCurrentPage() {
    if (currentId() == MacroPage && !chosenMacro()) return false;
    if (currentId() == NamePage) return checkName();
    if (currentId() == GeneratePage) return writeScript();
    return true;
}

bool TScriptWizard::checkName() {
    std::string name, description, syntax;
    const char* problem = nullptr;
    if (!toCp1252(name_->text().trimmed(), name) || !toCp1252(description_->text(), description) ||
        !toCp1252(syntax_->text(), syntax))
        problem = dlgmsg::kNotInCodePage;
    else if (!(problem = scriptNameProblem(name)))
        problem = bannerTextProblem(description) ? bannerTextProblem(description) : bannerTextProblem(syntax);
    if (!problem) return true;
    QMessageBox::warning(this, windowTitle(), problem);
    return false;
}

// Nothing is replaced unless the user says so; a write that fails keeps the wizard
// open with every choice.
bool TScriptWizard::writeScript() {
    const std::string path = targetPath();
    const std::string text = generateScript(choices());
    WizardWrite result = writeWizardScript(path, text, false);
    if (result == WizardWrite::Exists) {
        const QString ask = qs(filemsg::withFileName(scriptmsg::kReplaceScript, path));
        if (QMessageBox::question(this, windowTitle(), ask, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) !=
            QMessageBox::Yes)
            return false;
        result = writeWizardScript(path, text, true);
    }
    if (result != WizardWrite::Written) {
        QMessageBox::warning(this, windowTitle(), qs(filemsg::withFileName(scriptmsg::kCannotWrite, path)));
        return false;
    }
    written_ = path;
    return true;
}

std::string TScriptWizard::run(QWidget* parent) {
    TScriptWizard wizard(parent);
    return wizard.exec() == QDialog::Accepted ? wizard.written() : std::string();
}

}  // namespace zol
