#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "app/qt/dialogs/options_dialog.h"
#include "config/settings.h"
#include "engine/options.h"
#include "engine/wordwrap.h"
#include "search/find.h"
#include "tests/qt/dialogs_support.h"

namespace zol {
namespace {

using dlgtest::whenModal;

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
    static void ok(QDialog* d) { d->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click(); }

    EditOptions savedOptions_;
    Settings savedSettings_;
    int savedWordMode_ = 0;
};

template <class T>
T* option(QWidget* d, const char* key) {
    T* w = d->findChild<T*>(key);
    EXPECT_NE(w, nullptr) << key;
    return w;
}

void choose(QWidget* d, const char* key, int value) {
    QComboBox* c = option<QComboBox>(d, key);
    c->setCurrentIndex(c->findData(value));
}

TEST_F(OptionsDialogTest, OkAppliesEveryKindOfOption) {
    options().tabSize = 8;
    options().lineNumbers = false;
    options().autoSaveEvery = 10;
    settings().fontSize = 10;
    whenModal<TOptionsDialog>([](TOptionsDialog* d) {
        EXPECT_EQ(option<QSpinBox>(d, "TabSize")->value(), 8);
        option<QSpinBox>(d, "TabSize")->setValue(4);
        option<QSpinBox>(d, "AutoSaveEvery")->setValue(3);
        option<QCheckBox>(d, "LineNumbers")->click();
        option<QCheckBox>(d, "CursorThroughtTabs")->setChecked(true);
        choose(d, "DefaultFileFormat", 1);
        choose(d, "WordWrapMethod", 2);
        choose(d, "BackupFilesAs", 1);
        choose(d, "Language", 0);
        option<QLineEdit>(d, "NewFileExtension")->setText("c");
        option<QLineEdit>(d, "NeverWordWrapFileExt")->setText("log");
        option<QLineEdit>(d, "KeyMappingFile")->setText("/home/me/keys/my.key");
        option<QSpinBox>(d, "FontSize")->setValue(12);
        ok(d);
    });
    ASSERT_TRUE(TOptionsDialog::run(nullptr));
    EXPECT_EQ(options().tabSize, 4);
    EXPECT_EQ(options().autoSaveEvery, 3);
    EXPECT_TRUE(options().lineNumbers);
    EXPECT_TRUE(options().cursorThroughTabs);
    EXPECT_EQ(options().defaultFileFormat, 1);
    EXPECT_EQ(options().wordWrapMethod, 2);
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
        option<QSpinBox>(d, "TabSize")->setValue(3);
        option<QCheckBox>(d, "Ruler")->click();
        // A name that could not be a file's extension is refused; the dialog stays.
        option<QLineEdit>(d, "NewFileExtension")->setText("a*b");
        whenModal<QMessageBox>([](QMessageBox* box) { box->accept(); });
        ok(d);
        EXPECT_TRUE(d->isVisible());
        d->reject();
    });
    EXPECT_FALSE(TOptionsDialog::run(nullptr));
    EXPECT_EQ(options().tabSize, before.tabSize);
    EXPECT_EQ(options().ruler, before.ruler);
    EXPECT_EQ(settings().newFileExtension, ext);
}

}  // namespace
}  // namespace zol
