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
#include "engine/line_list.h"
#include "engine/options.h"
#include "engine/wordwrap.h"
#include "search/find.h"

namespace zol {

namespace {

constexpr std::string_view kBadExtensionChars = "/<>|\"\\?*:";
constexpr int kBoldWeight = 700;
constexpr int kNormalWeight = 400;

QCheckBox* check(QWidget* parent, const char* key, const char* label, bool on) {
    auto* c = new QCheckBox(label, parent);
    c->setObjectName(key);
    c->setChecked(on);
    return c;
}

QSpinBox* spin(QWidget* parent, const char* key, int lo, int hi, int value) {
    auto* s = new QSpinBox(parent);
    s->setObjectName(key);
    s->setRange(lo, hi);
    s->setValue(value);
    return s;
}

// Choices are listed from `first` on, tab-separated in one text.
QComboBox* choice(QWidget* parent, const char* key, const char* labels, int first, int value) {
    auto* c = new QComboBox(parent);
    c->setObjectName(key);
    const QStringList items = QString(labels).split('\t');
    for (int i = 0; i < items.size(); ++i) c->addItem(items[i], first + i);
    c->setCurrentIndex(std::max(0, c->findData(value)));
    return c;
}

QLineEdit* text(QWidget* parent, const char* key, const std::string& value, size_t size) {
    auto* e = new QLineEdit(fromCp1252(value), parent);
    e->setObjectName(key);
    if (size) e->setMaxLength(static_cast<int>(size) - 1);
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
    tabSize_ = spin(w, "TabSize", kMinTabSize, kMaxTabSize, o.tabSize);
    blockIndent_ = spin(w, "BlockIndent", 1, 16, o.blockIndent);
    undoLevels_ = spin(w, "UndoLevels", 1, kMaxUndoRecords, o.undoLevels);
    wordWrapColumn_ = spin(w, "WordWrapColumn", 4, kMaxColumns, o.wordWrapColumn);
    wordWrapMethod_ = choice(w, "WordWrapMethod", dlgmsg::kOptWrapMethods, 1, o.wordWrapMethod);
    language_ = choice(w, "Language", dlgmsg::kOptWordCharModes, 0, s.language);
    rightMouseBtn_ = choice(w, "RightMouseBtn", dlgmsg::kOptRightMouseModes, 0, s.rightMouseBtn);
    alwaysWrapExt_ = text(w, "AlwaysWordWrapFileExt", s.alwaysWordWrapFileExt, kWordWrapExtSize);
    neverWrapExt_ = text(w, "NeverWordWrapFileExt", s.neverWordWrapFileExt, kWordWrapExtSize);
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
    autoSaveEvery_ = spin(w, "AutoSaveEvery", 1, 120, o.autoSaveEvery);
    backupFilesAs_ = choice(w, "BackupFilesAs", dlgmsg::kOptBackupNames, 0, o.backupFilesAs);
    defaultFileFormat_ = choice(w, "DefaultFileFormat", dlgmsg::kOptFormats, 0, o.defaultFileFormat);
    newFileExtension_ = text(w, "NewFileExtension", s.newFileExtension, kNewFileExtSize);
    includeDirs_ = text(w, "IncludeDirs", s.includeDirs, kIncludeDirsSize);
    keyMappingFile_ = text(w, "KeyMappingFile", s.keyMappingFile, 0);
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
    fontName_->lineEdit()->setMaxLength(static_cast<int>(kFontNameSize) - 1);
    fontSize_ = spin(w, "FontSize", 4, 72, s.fontSize);
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
    if (newExt.find_first_of(kBadExtensionChars) != std::string::npos) {
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
