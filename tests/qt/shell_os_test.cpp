// The desktop's answers to the shell services that scripts reach: message boxes with
// the buttons asked for, the editor's windows as scripts hold them.
#include "qt_fixture.h"

namespace zol::qttest {
namespace {

using ShellServices = DesktopTest;

TEST_F(ShellServices, MessageBoxAnswersTheButtonPressed) {
    MessageBoxRequest box;
    box.text = "Try the disk again?";
    box.buttons = BoxButtons::RetryCancel;
    box.icon = BoxIcon::Warning;
    answer_ = QMessageBox::Retry;
    EXPECT_EQ(shell().messageBox(box), BoxButton::Retry);
    box.buttons = BoxButtons::AbortRetryIgnore;
    // Closed without a button: the safe answer.
    answer_ = QMessageBox::NoButton;
    EXPECT_EQ(shell().messageBox(box), BoxButton::Abort);
    EXPECT_EQ(boxTexts_.size(), 2u);
}

TEST_F(ShellServices, FindsTheMainFrameByClassOrTitle) {
    EXPECT_EQ(mainWindowToken(), kMainWindowToken);
    EXPECT_EQ(shell().findWindow("tmainframe", std::nullopt), kMainWindowToken);
    EXPECT_EQ(shell().findWindow(std::nullopt, "ZOLDER"), kMainWindowToken);
    EXPECT_EQ(shell().findWindow("TMainFrame", "Another title"), 0u);
    EXPECT_EQ(shell().findWindow("NoSuchWindowClass", std::nullopt), 0u);
}

}  // namespace
}  // namespace zol::qttest
