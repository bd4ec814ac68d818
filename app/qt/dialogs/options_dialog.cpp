#include "app/qt/dialogs/options_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/options.h"
#include "engine/wordwrap.h"
#include "search/find.h"

namespace zol {

namespace {

constexpr int kBoldWeight = 700;
constexpr int kNormalWeight = 400;

QCheckBox* check(QWidget* parent, const char* key, const char* label, bool on) {
    auto* c = new QCheckBox(label, parent);
    c->setObjectName(key);
    c->setChecked(on);
    return c;
}

// Ranges, first choices and text lengths come from the settings list.
const SettingRow& setting(const char* section, const char* key) { return *findSetting(section, key); }

QSpinBox* spin(QWidget* parent, const SettingRow& row, int value) {
    auto* s = new QSpinBox(parent);
    s->setObjectName(row.key);
    s->setRange(row.minimum, row.maximum);
    s->setValue(value);
    return s;
}

// Choices are listed from the row's minimum on, tab-separated in one text.
QComboBox* choice(QWidget* parent, const SettingRow& row, const char* labels, int value) {
    auto* c = new QComboBox(parent);
    c->setObjectName(row.key);
    const QStringList items = QString(labels).split('\t');
    for (int i = 0; i < items.size(); ++i) c->addItem(items[i], row.minimum + i);
    c->setCurrentIndex(std::max(0, c->findData(value)));
    return c;
}

QLineEdit* text(QWidget* parent, const SettingRow& row, const std::string& value) {
    auto* e = new QLineEdit(fromCp1252(value), parent);
    e->setObjectName(row.key);
    // A whole path may be typed where only its name part is kept.
    if (row.load != LoadRule::FileNamePart) e->setMaxLength(static_cast<int>(row.size) - 1);
    return e;
}

}  // namespace

TOptionsDialog::TOptionsDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(dlgmsg::kOptionsTitle);
    auto* tabs = new QTabWidget(this);
    tabs->addTab(editingPage(), dlgmsg::kTabEditing);
    tabs->addTab(filesPage(), dlgmsg::kTabFiles);
    tabs->addTab(displayPage(), dlgmsg::kTabDisplay);
    tabs->addTab(applicationPage(), dlgmsg::kTabApplication);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &TOptionsDialog::tryApply);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
}

QWidget* TOptionsDialog::editingPage() {
    const EditOptions& o = options();
    const Settings& s = settings();
    auto* w = new QWidget(this);
    tabSize_ = spin(w, setting("Editor", "TabSize"), o.tabSize);
    blockIndent_ = spin(w, setting("Editor", "BlockIndent"), o.blockIndent);
    undoLevels_ = spin(w, setting("Editor", "UndoLevels"), o.undoLevels);
    wordWrapColumn_ = spin(w, setting("Editor", "WordWrapColumn"), o.wordWrapColumn);
    wordWrapMethod_ = choice(w, setting("Editor", "WordWrapMethod"), dlgmsg::kOptWrapMethods,
                             static_cast<int>(o.wordWrapMethod));
    language_ = choice(w, setting("Editor", "Language"), dlgmsg::kOptWordCharModes, s.language);
    rightMouseBtn_ = choice(w, setting("Editor", "RightMouseBtn"), dlgmsg::kOptRightMouseModes, s.rightMouseBtn);
    alwaysWrapExt_ = text(w, setting("Editor", "AlwaysWordWrapFileExt"), s.alwaysWordWrapFileExt);
    neverWrapExt_ = text(w, setting("Editor", "NeverWordWrapFileExt"), s.neverWordWrapFileExt);
    useTabChar_ = check(w, "UseTabChar", dlgmsg::kOptUseTabChar, o.useTabChar);
    smartTab_ = check(w, "SmartTab", dlgmsg::kOptSmartTab, o.smartTab);
    autoIndent_ = check(w, "AutoIndent", dlgmsg::kOptAutoIndent, o.autoIndent);
    autoUnindent_ = check(w, "AutoUnindent", dlgmsg::kOptAutoUnindent, o.autoUnindent);
    autoIndentUsingTabs_ = check(w, "AutoIndentUsingTabs", dlgmsg::kOptAutoIndentTabs, o.autoIndentUsingTabs);
    overwrite_ = check(w, "OverwriteMode", dlgmsg::kOptOverwrite, o.overwrite);
    cursorBeyondEol_ = check(w, "CursorBeyondEOL", dlgmsg::kOptCursorBeyondEol, o.cursorBeyondEol);
    keepTrailingBlanks_ = check(w, "KeepTrailingBlanks", dlgmsg::kOptKeepTrailing, o.keepTrailingBlanks);
    cursorThroughTabs_ = check(w, "CursorThroughtTabs", dlgmsg::kOptCursorThroughTabs, o.cursorThroughTabs);
    undoAfterSave_ = check(w, "UndoAfterSave", dlgmsg::kOptUndoAfterSave, o.undoAfterSave);
    wordWrap_ = check(w, "WordWrap", dlgmsg::kOptWordWrap, o.wordWrap);
    auto* form = new QFormLayout;
    form->addRow(dlgmsg::kOptTabSize, tabSize_);
    form->addRow(dlgmsg::kOptBlockIndent, blockIndent_);
    form->addRow(dlgmsg::kOptUndoLevels, undoLevels_);
    form->addRow(dlgmsg::kOptWordWrapColumn, wordWrapColumn_);
    form->addRow(dlgmsg::kOptWordWrapMethod, wordWrapMethod_);
    form->addRow(dlgmsg::kOptAlwaysWrapExt, alwaysWrapExt_);
    form->addRow(dlgmsg::kOptNeverWrapExt, neverWrapExt_);
    form->addRow(dlgmsg::kOptWordChars, language_);
    form->addRow(dlgmsg::kOptRightMouse, rightMouseBtn_);
    auto* layout = new QVBoxLayout(w);
    auto* checks = new QFormLayout;
    for (QCheckBox* c : {useTabChar_, smartTab_, autoIndent_, autoUnindent_, autoIndentUsingTabs_, overwrite_,
                         cursorBeyondEol_, keepTrailingBlanks_, cursorThroughTabs_, undoAfterSave_, wordWrap_})
        checks->addRow(c);
    auto* columns = new QHBoxLayout;
    columns->addLayout(checks);
    columns->addLayout(form);
    layout->addLayout(columns);
    layout->addStretch();
    return w;
}

QWidget* TOptionsDialog::filesPage() {
    const EditOptions& o = options();
    const Settings& s = settings();
    auto* w = new QWidget(this);
    autoSave_ = check(w, "AutoSave", dlgmsg::kOptAutoSave, o.autoSave);
    backupFiles_ = check(w, "BackupFiles", dlgmsg::kOptBackupFiles, o.backupFiles);
    detectFileFormat_ = check(w, "DetectFileFormat", dlgmsg::kOptDetectFormat, o.detectFileFormat);
    checkFileTime_ = check(w, "CheckFileTime", dlgmsg::kOptCheckFileTime, o.checkFileTime);
    autoSaveEvery_ = spin(w, setting("Editor", "AutoSaveEvery"), o.autoSaveEvery);
    backupFilesAs_ = choice(w, setting("Editor", "BackupFilesAs"), dlgmsg::kOptBackupNames, o.backupFilesAs);
    defaultFileFormat_ = choice(w, setting("Editor", "DefaultFileFormat"), dlgmsg::kOptFormats, o.defaultFileFormat);
    newFileExtension_ = text(w, setting("Editor", "NewFileExtension"), s.newFileExtension);
    includeDirs_ = text(w, setting("Editor", "IncludeDirs"), s.includeDirs);
    keyMappingFile_ = text(w, setting("Editor", "KeyMappingFile"), s.keyMappingFile);
    auto* form = new QFormLayout;
    form->addRow(autoSave_);
    form->addRow(dlgmsg::kOptAutoSaveEvery, autoSaveEvery_);
    form->addRow(backupFiles_);
    form->addRow(dlgmsg::kOptBackupAs, backupFilesAs_);
    form->addRow(detectFileFormat_);
    form->addRow(dlgmsg::kOptDefaultFormat, defaultFileFormat_);
    form->addRow(checkFileTime_);
    form->addRow(dlgmsg::kOptNewFileExt, newFileExtension_);
    form->addRow(dlgmsg::kOptIncludeDirs, includeDirs_);
    form->addRow(dlgmsg::kOptKeyFile, keyMappingFile_);
    auto* layout = new QVBoxLayout(w);
    layout->addLayout(form);
    layout->addStretch();
    return w;
}

QWidget* TOptionsDialog::displayPage() {
    const EditOptions& o = options();
    const Settings& s = settings();
    auto* w = new QWidget(this);
    ruler_ = check(w, "Ruler", dlgmsg::kOptRuler, o.ruler);
    lineNumbers_ = check(w, "LineNumbers", dlgmsg::kOptLineNumbers, o.lineNumbers);
    visibleSpaces_ = check(w, "VisibleSpaces", dlgmsg::kOptVisibleSpaces, o.visibleSpaces);
    blockCaret_ = check(w, "BlockCaret", dlgmsg::kOptBlockCaret, o.blockCaret);
    wordWrapVisible_ = check(w, "WordWrapVisible", dlgmsg::kOptWrapVisible, o.wordWrapVisible);
    statusBar_ = check(w, "StatusBar", dlgmsg::kOptStatusBar, s.statusBar);
    buttonBar_ = check(w, "ButtonBar", dlgmsg::kOptButtonBar, s.buttonBar);
    docToolBar_ = check(w, "DocToolBar", dlgmsg::kOptDocToolBar, s.docToolBar);
    fontName_ = new QFontComboBox(w);
    fontName_->setObjectName("FontName");
    fontName_->setFontFilters(QFontComboBox::MonospacedFonts);
    fontName_->setEditable(true);
    fontName_->setEditText(fromCp1252(s.fontName));
    fontName_->lineEdit()->setMaxLength(static_cast<int>(setting("Settings", "FontName").size) - 1);
    fontSize_ = spin(w, setting("Settings", "FontSize"), s.fontSize);
    fontBold_ = check(w, "FontWeight", dlgmsg::kOptFontBold, s.fontWeight >= kBoldWeight);
    auto* form = new QFormLayout;
    for (QCheckBox* c : {ruler_, lineNumbers_, visibleSpaces_, blockCaret_, wordWrapVisible_, statusBar_, buttonBar_,
                         docToolBar_})
        form->addRow(c);
    form->addRow(dlgmsg::kOptFont, fontName_);
    form->addRow(dlgmsg::kOptFontSize, fontSize_);
    form->addRow(fontBold_);
    auto* layout = new QVBoxLayout(w);
    layout->addLayout(form);
    layout->addStretch();
    return w;
}

QWidget* TOptionsDialog::applicationPage() {
    const Settings& s = settings();
    auto* w = new QWidget(this);
    saveSettings_ = check(w, "SaveSettings", dlgmsg::kOptSaveSettings, s.saveSettings);
    saveDesktop_ = check(w, "SaveDesktop", dlgmsg::kOptSaveDesktop, s.saveDesktop);
    autoLoad_ = check(w, "AutoLoad", dlgmsg::kOptAutoLoad, s.autoLoad);
    allowMultiInst_ = check(w, "AllowMultiInst", dlgmsg::kOptAllowMultiInst, s.allowMultiInst);
    auto* layout = new QVBoxLayout(w);
    for (QCheckBox* c : {saveSettings_, saveDesktop_, autoLoad_, allowMultiInst_}) layout->addWidget(c);
    layout->addStretch();
    return w;
}

void TOptionsDialog::tryApply() {
    if (apply()) accept();
}

// Checks every text first, so that a refusal leaves all options as they were.
bool TOptionsDialog::apply() {
    struct TextField {
        QLineEdit* edit;
        std::string value;
    };
    TextField texts[] = {{alwaysWrapExt_, {}}, {neverWrapExt_, {}},    {newFileExtension_, {}},
                         {includeDirs_, {}},   {keyMappingFile_, {}}, {fontName_->lineEdit(), {}}};
    for (TextField& t : texts) {
        if (!toCp1252(t.edit == fontName_->lineEdit() ? fontName_->currentText() : t.edit->text(), t.value)) {
            const QString name = t.edit == fontName_->lineEdit() ? fontName_->objectName() : t.edit->objectName();
            QMessageBox::warning(this, windowTitle(), QString(dlgmsg::kBadOptionText).arg(name));
            t.edit->setFocus();
            return false;
        }
    }
    const std::string& newExt = texts[2].value;
    if (!isSafeExtension(newExt)) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kBadExtension);
        newFileExtension_->setFocus();
        return false;
    }

    EditOptions& o = options();
    setTabSize(tabSize_->value());
    o.blockIndent = blockIndent_->value();
    o.undoLevels = undoLevels_->value();
    o.wordWrapColumn = wordWrapColumn_->value();
    setWordWrapMethod(wordWrapMethod_->currentData().toInt());
    o.useTabChar = useTabChar_->isChecked();
    o.smartTab = smartTab_->isChecked();
    o.autoIndent = autoIndent_->isChecked();
    o.autoUnindent = autoUnindent_->isChecked();
    o.autoIndentUsingTabs = autoIndentUsingTabs_->isChecked();
    o.overwrite = overwrite_->isChecked();
    o.cursorBeyondEol = cursorBeyondEol_->isChecked();
    o.keepTrailingBlanks = keepTrailingBlanks_->isChecked();
    o.cursorThroughTabs = cursorThroughTabs_->isChecked();
    o.undoAfterSave = undoAfterSave_->isChecked();
    o.wordWrap = wordWrap_->isChecked();
    o.autoSave = autoSave_->isChecked();
    o.autoSaveEvery = autoSaveEvery_->value();
    o.backupFiles = backupFiles_->isChecked();
    o.backupFilesAs = backupFilesAs_->currentData().toInt();
    o.detectFileFormat = detectFileFormat_->isChecked();
    o.defaultFileFormat = defaultFileFormat_->currentData().toInt();
    o.checkFileTime = checkFileTime_->isChecked();
    o.ruler = ruler_->isChecked();
    o.lineNumbers = lineNumbers_->isChecked();
    o.visibleSpaces = visibleSpaces_->isChecked();
    o.blockCaret = blockCaret_->isChecked();
    o.wordWrapVisible = wordWrapVisible_->isChecked();

    Settings& s = settings();
    s.alwaysWordWrapFileExt = texts[0].value;
    s.neverWordWrapFileExt = texts[1].value;
    wrapFileRules() = WrapFileRules{s.alwaysWordWrapFileExt, s.neverWordWrapFileExt};
    s.language = language_->currentData().toInt();
    setWordCharMode(s.language);
    s.rightMouseBtn = rightMouseBtn_->currentData().toInt();
    s.newFileExtension = newExt;
    s.includeDirs = texts[3].value;
    s.keyMappingFile = keyFileNameFromPath(texts[4].value);
    if (!texts[5].value.empty()) s.fontName = texts[5].value;
    s.fontSize = fontSize_->value();
    if (fontBold_->isChecked() != (s.fontWeight >= kBoldWeight))
        s.fontWeight = fontBold_->isChecked() ? kBoldWeight : kNormalWeight;
    s.statusBar = statusBar_->isChecked();
    s.buttonBar = buttonBar_->isChecked();
    s.docToolBar = docToolBar_->isChecked();

    // These four are written at once, as the settings store's own writers do: turning
    // "SaveSettings" off must reach the file, since the exit save would skip it.
    if (saveSettings_->isChecked() != s.saveSettings) {
        if (saveSettings_->isChecked()) {
            s.saveSettings = true;
            setSetting("SaveSettings", "1");
        } else {
            clearSaveSettings();
        }
    }
    if (saveDesktop_->isChecked() != s.saveDesktop) setSaveDesktop(saveDesktop_->isChecked());
    if (autoLoad_->isChecked() != s.autoLoad) setAutoLoad(autoLoad_->isChecked());
    if (allowMultiInst_->isChecked() != s.allowMultiInst) setAllowMultiInst(allowMultiInst_->isChecked());
    return true;
}

bool TOptionsDialog::run(QWidget* parent) {
    TOptionsDialog dlg(parent);
    return dlg.exec() == QDialog::Accepted;
}

}  // namespace zol
