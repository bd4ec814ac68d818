// The Key Mapping dialog in a running desktop editor: keys pressed into it, what OK
// writes to the key file, and what a key file that cannot be read or written does.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>

#include "app/qt/dialogs/key_capture.h"
#include "app/qt/dialogs/key_mapping_dialog.h"
#include "config/keyfile.h"
#include "config/keymap_messages.h"
#include "engine/executor.h"
#include "script/macros.h"
#include "tests/qt/qt_fixture.h"
#include "tests/support/files.h"

namespace zol::qttest {
namespace {

namespace fs = std::filesystem;

constexpr uint16_t V = kVirtualKey, S = kShiftKey, C = kCtrlKey, A = kAltKey;

uint16_t id(const char* name) { return commandId(name, true); }

class KeyMappingTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        answer_ = QMessageBox::No;
    }
    void TearDown() override {
        owned_.reset();
        DesktopTest::TearDown();
    }

    void open() {
        owned_ = std::make_unique<TKeyMappingDlg>(frame_.get());
        dlg_ = owned_.get();
        dlg_->show();
    }
    // Shows the command alone and makes it the current one.
    void select(const char* name) {
        child<QLineEdit>(dlg_, "filter")->setText(QString::fromLatin1(name));
        auto* tree = child<QTreeWidget>(dlg_, "commands");
        const auto found = tree->findItems(QString::fromLatin1(name), Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << name;
        tree->setCurrentItem(found[0]);
    }
    void press(QWidget* dialog, int key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        auto* capture = child<TKeyCaptureEdit>(dialog, "capture");
        QTest::mouseClick(capture, Qt::LeftButton);
        QTest::keyClick(capture, static_cast<Qt::Key>(key), mods);
    }
    void clickButton(const char* name) { child<QPushButton>(dlg_, name)->click(); }
    void assign(int key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        press(dlg_, key, mods);
        clickButton("assign");
    }
    QString info() { return child<QLabel>(dlg_, "captureInfo")->text(); }
    QStringList keys() {
        QStringList names;
        auto* list = child<QListWidget>(dlg_, "keys");
        for (int i = 0; i < list->count(); ++i) names << list->item(i)->text();
        return names;
    }
    void pressOk() { dlgtest::pressOk(dlg_); }
    std::string keyFile() { return test::readBytes(keyFilePath()); }
    // The key map as the next start reads it from the key file.
    KeyMap reloaded() {
        KeyMap map;
        EXPECT_EQ(parseKeyFile(keyFile(), map, nullptr), KeyFileStatus::Ok);
        return map;
    }

    std::unique_ptr<TKeyMappingDlg> owned_;
    TKeyMappingDlg* dlg_ = nullptr;
};

TEST_F(KeyMappingTest, PressedKeyIsCheckedNamedAssignedAndFoundInTheKeyFileAfterARestart) {
    whenModal<TKeyMappingDlg>([this](TKeyMappingDlg* d) {
        dlg_ = d;
        select("GoToLineNum");  // takes a parameter, which no key can give
        press(d, Qt::Key_F5, Qt::ControlModifier);
        EXPECT_FALSE(child<QPushButton>(d, "assign")->isEnabled());
        select("DupLine");
        EXPECT_EQ(keys(), QStringList{"Ctrl+D"});
        press(d, Qt::Key_A, Qt::ShiftModifier);
        EXPECT_EQ(info(), "Shift+A types a character: hold Ctrl or Alt with it, or choose another key.");
        press(d, Qt::Key_F13);
        EXPECT_TRUE(info().endsWith(" cannot be mapped: choose a letter, digit, function, cursor or editing key."));
        EXPECT_FALSE(child<QPushButton>(d, "assign")->isEnabled());
        press(d, Qt::Key_D, Qt::ShiftModifier | Qt::AltModifier);
        EXPECT_EQ(child<TKeyCaptureEdit>(d, "capture")->text(), "Alt+Shift+D");
        EXPECT_EQ(info(), "Alt+Shift+D is not assigned.");
        // The field took its one key: Enter now presses Assign.
        QTest::keyClick(child<TKeyCaptureEdit>(d, "capture"), Qt::Key_Return);
        EXPECT_EQ(keys(), (QStringList{"Ctrl+D", "Alt+Shift+D"}));
        EXPECT_EQ(boundCommand(keyMap(), 0, A | S | V | 'D'), 0) << "nothing changes before OK";
        pressOk();
    });
    EXPECT_TRUE(TKeyMappingDlg::run(frame_.get()));
    EXPECT_EQ(boundCommand(keyMap(), 0, A | S | V | 'D'), id("DupLine"));
    EXPECT_EQ(boundCommand(reloaded(), 0, A | S | V | 'D'), id("DupLine"));
    EXPECT_FALSE(keyMapChanged());
}

TEST_F(KeyMappingTest, KeyBoundElsewhereMovesOnlyWhenTheUserAgrees) {
    open();
    select("DupLine");
    press(dlg_, Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(info(), "Ctrl+Shift+L is assigned to DeleteLine.");
    clickButton("assign");
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_EQ(boxTexts_[0], "Ctrl+Shift+L is assigned to DeleteLine.\n\nAssign it to DupLine instead?");
    EXPECT_EQ(keys(), QStringList{"Ctrl+D"});

    answer_ = QMessageBox::Yes;
    assign(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    // A prefix key asks for the key that follows it, where Shift does not matter on
    // letters: Ctrl+K, B belongs to StartSelect.
    press(dlg_, Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(info(), "Ctrl+K is a prefix key: Assign asks for the key that follows it.");
    whenModal<TKeyMappingPrefixDlg>([this](TKeyMappingPrefixDlg* p) {
        press(p, Qt::Key_B, Qt::ShiftModifier);
        EXPECT_EQ(child<TKeyCaptureEdit>(p, "capture")->text(), "B");
        EXPECT_EQ(child<QLabel>(p, "info")->text(), "Ctrl+K, B is assigned to StartSelect.");
        dlgtest::pressOk(p);
    });
    clickButton("assign");
    EXPECT_EQ(boxTexts_.back(), "Ctrl+K, B is assigned to StartSelect.\n\nAssign it to DupLine instead?");
    EXPECT_EQ(keys(), (QStringList{"Ctrl+Shift+L", "Ctrl+D", "Ctrl+K, B"}));
    select("DeleteLine");
    EXPECT_TRUE(keys().isEmpty());
    pressOk();
    const KeyMap map = reloaded();
    EXPECT_EQ(boundCommand(map, 0, C | S | V | 'L'), id("DupLine"));
    EXPECT_EQ(boundCommand(map, 1, V | 'B'), id("DupLine"));
}

TEST_F(KeyMappingTest, RemoveAndResetOneCommand) {
    open();
    select("Undo");
    EXPECT_EQ(keys(), (QStringList{"Ctrl+Z", "Alt+Backspace"}));
    child<QListWidget>(dlg_, "keys")->setCurrentRow(1);
    clickButton("remove");
    assign(Qt::Key_F5);
    EXPECT_EQ(keys(), (QStringList{"Ctrl+Z", "F5"}));
    // Ctrl+Z goes to Redo; resetting Undo asks to take it back.
    select("Redo");
    answer_ = QMessageBox::Yes;
    assign(Qt::Key_Z, Qt::ControlModifier);
    select("Undo");
    EXPECT_EQ(keys(), QStringList{"F5"});
    clickButton("reset");
    EXPECT_EQ(boxTexts_.back(), "Ctrl+Z is assigned to Redo.\n\nAssign it to Undo instead?");
    EXPECT_EQ(keys(), (QStringList{"Ctrl+Z", "Alt+Backspace"}));
    pressOk();
    const KeyMap map = reloaded();
    EXPECT_EQ(commandKeyNames(map, id("Undo")), (std::vector<std::string>{"Ctrl+Z", "Alt+Backspace"}));
    EXPECT_EQ(commandKeyNames(map, id("Redo")), (std::vector<std::string>{"Ctrl+Y", "Ctrl+Shift+Z"}));
}

TEST_F(KeyMappingTest, ResetAllAsksThenCopiesTheShippedKeyFile) {
    bindKey(keyMap(), 0, C | V | 0x74, id("DupLine"));
    addMacro(macros(), Macro{true, "mine", "", {{2, 'x'}}});
    ASSERT_TRUE(saveKeyFile());
    const std::string before = keyFile();
    open();
    clickButton("resetAll");
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("all keystroke macros are deleted"), std::string::npos) << boxTexts_[0];
    EXPECT_EQ(keyFile(), before);

    answer_ = QMessageBox::Yes;
    clickButton("resetAll");
    EXPECT_EQ(keyFile(), test::readBytes(home_.string() + "DEFKEY.ZOL"));
    EXPECT_EQ(findMacro("mine"), 0);
    select("DupLine");
    EXPECT_EQ(keys(), QStringList{"Ctrl+D"});
    // Nothing is left to save.
    dlg_->reject();
    EXPECT_EQ(boxTexts_.size(), 2u);
}

TEST_F(KeyMappingTest, MacrosAreListedAndGetKeys) {
    const uint16_t macro = addMacro(macros(), Macro{true, "wrapline", "wraps the line", {{2, 'w'}, {15, 0}}});
    open();
    select("wrapline");
    assign(Qt::Key_W, Qt::AltModifier);
    pressOk();
    EXPECT_EQ(commandKeyNames(reloaded(), macro), std::vector<std::string>{"Alt+W"});
}

// OK keeps the dialog open and the old key file whole when the file cannot be written;
// Cancel then leaves both as they were.
TEST_F(KeyMappingTest, KeyFileThatCannotBeWrittenKeepsTheOldOne) {
    ASSERT_TRUE(saveKeyFile());
    const std::string before = keyFile();
    open();
    select("DupLine");
    assign(Qt::Key_F6);
    {
        const test::FileSizeLimit full(64);
        pressOk();
    }
    EXPECT_EQ(boxTexts_, std::vector<std::string>{keymsg::kReadError});
    EXPECT_TRUE(dlg_->isVisible());
    fs::permissions(home_, fs::perms::owner_read | fs::perms::owner_exec);
    const bool readOnly = !std::ofstream(home_ / "probe");
    if (readOnly) {  // rights that ignore permissions could write it anyway
        pressOk();
        EXPECT_EQ(boxTexts_.back().rfind("Cannot open " + keyFilePath() + " file.", 0), 0u) << boxTexts_.back();
    }
    fs::permissions(home_, fs::perms::owner_all);
    EXPECT_TRUE(dlg_->isVisible());
    dlg_->reject();
    EXPECT_EQ(boxTexts_.back(), keymsg::kAskSaveChanges);
    EXPECT_FALSE(dlg_->isVisible());
    EXPECT_EQ(keyFile(), before);
    EXPECT_EQ(boundCommand(keyMap(), 0, V | 0x75), 0);
}

}  // namespace
}  // namespace zol::qttest
