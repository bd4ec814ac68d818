#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>

#include "app/qt/dialogs/options_dialog.h"
#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/options.h"
#include "engine/wordwrap.h"
#include "search/find.h"
#include "tests/qt/dialogs_support.h"

namespace zol::qttest {
namespace {

class OptionsDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        dlgtest::ensureApp();
        savedOptions_ = options();
        savedSettings_ = settings();
        savedWordMode_ = wordCharMode();
    }
    void TearDown() override {
        options() = savedOptions_;
        settings() = savedSettings_;
        setWordCharMode(savedWordMode_);
        wrapFileRules() = WrapFileRules{settings().alwaysWordWrapFileExt, settings().neverWordWrapFileExt};
    }
    EditOptions savedOptions_;
    Settings savedSettings_;
    int savedWordMode_ = 0;
};

void choose(QWidget* d, const char* key, int value) {
    QComboBox* c = child<QComboBox>(d, key);
    c->setCurrentIndex(c->findData(value));
}

TEST_F(OptionsDialogTest, OkAppliesEveryKindOfOption) {
    options().tabSize = 8;
    options().lineNumbers = false;
    options().autoSaveEvery = 10;
    settings().fontSize = 10;
    whenModal<TOptionsDialog>([](TOptionsDialog* d) {
        EXPECT_EQ(child<QSpinBox>(d, "TabSize")->value(), 8);
        child<QSpinBox>(d, "TabSize")->setValue(4);
        child<QSpinBox>(d, "AutoSaveEvery")->setValue(3);
        child<QCheckBox>(d, "LineNumbers")->click();
        child<QCheckBox>(d, "CursorThroughtTabs")->setChecked(true);
        choose(d, "DefaultFileFormat", 1);
        choose(d, "WordWrapMethod", 2);
        choose(d, "BackupFilesAs", 1);
        choose(d, "Language", 0);
        child<QLineEdit>(d, "NewFileExtension")->setText("c");
        child<QLineEdit>(d, "NeverWordWrapFileExt")->setText("log");
        child<QLineEdit>(d, "KeyMappingFile")->setText("/home/me/keys/my.key");
        child<QSpinBox>(d, "FontSize")->setValue(12);
        pressOk(d);
    });
    ASSERT_TRUE(TOptionsDialog::run(nullptr));
    EXPECT_EQ(options().tabSize, 4);
    EXPECT_EQ(options().autoSaveEvery, 3);
    EXPECT_TRUE(options().lineNumbers);
    EXPECT_TRUE(options().cursorThroughTabs);
    EXPECT_EQ(options().defaultFileFormat, 1);
    EXPECT_EQ(options().wordWrapMethod, WrapMethod::ColumnWords);
    EXPECT_EQ(options().backupFilesAs, 1);
    EXPECT_EQ(settings().language, 0);
    EXPECT_EQ(wordCharMode(), 0);
    EXPECT_EQ(settings().newFileExtension, "c");
    EXPECT_EQ(settings().neverWordWrapFileExt, "log");
    EXPECT_EQ(wrapFileRules().never, "log");
    EXPECT_EQ(settings().keyMappingFile, "my.key");
    EXPECT_EQ(settings().fontSize, 12);
}

TEST_F(OptionsDialogTest, RefusedOrCancelledChoicesChangeNothing) {
    const EditOptions before = options();
    const std::string ext = settings().newFileExtension;
    whenModal<TOptionsDialog>([](TOptionsDialog* d) {
        child<QSpinBox>(d, "TabSize")->setValue(3);
        child<QCheckBox>(d, "Ruler")->click();
        // A name that could not be a file's extension is refused; the dialog stays.
        child<QLineEdit>(d, "NewFileExtension")->setText("a*b");
        whenModal<QMessageBox>([](QMessageBox* box) { box->accept(); });
        pressOk(d);
        EXPECT_TRUE(d->isVisible());
        d->reject();
    });
    EXPECT_FALSE(TOptionsDialog::run(nullptr));
    EXPECT_EQ(options().tabSize, before.tabSize);
    EXPECT_EQ(options().ruler, before.ruler);
    EXPECT_EQ(settings().newFileExtension, ext);
}

// Every number the dialog offers is the range of its key in the settings list.
TEST_F(OptionsDialogTest, RangesComeFromTheSettingsList) {
    TOptionsDialog d(nullptr);
    auto rowOf = [](const QObject* w) {
        const std::string key = w->objectName().toStdString();
        const SettingRow* row = findSetting("Editor", key);
        return row ? row : findSetting("Settings", key);
    };
    const QList<QSpinBox*> spins = d.findChildren<QSpinBox*>();
    ASSERT_GE(spins.size(), 6);
    for (const QSpinBox* s : spins) {
        const SettingRow* row = rowOf(s);
        ASSERT_NE(row, nullptr) << s->objectName().toStdString();
        EXPECT_EQ(s->minimum(), row->minimum) << row->key;
        EXPECT_EQ(s->maximum(), row->maximum) << row->key;
    }
    int choices = 0;
    for (const QComboBox* c : d.findChildren<QComboBox*>()) {
        const SettingRow* row = rowOf(c);
        if (!row || row->kind == SettingKind::Text) continue;
        ++choices;
        EXPECT_EQ(c->itemData(0).toInt(), row->minimum) << row->key;
        EXPECT_EQ(c->itemData(c->count() - 1).toInt(), row->maximum) << row->key;
    }
    EXPECT_EQ(choices, 5);
    EXPECT_EQ(child<QLineEdit>(&d, "NewFileExtension")->maxLength(),
              static_cast<int>(findSetting("Editor", "NewFileExtension")->size) - 1);
}

}  // namespace
}  // namespace zol::qttest
