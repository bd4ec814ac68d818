// Find and replace in files from the desktop: the dialog refuses what cannot run and
// keeps its histories, hits stream into an output document from the worker thread,
// closing the output stops the search, and replace in files asks file by file.

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "app/qt/dialogs/find_dialog.h"
#include "app/qt/dialogs/find_files_dialog.h"
#include "app/qt/dialogs/find_files_run.h"
#include "config/settings.h"
#include "engine/undo.h"
#include "tests/qt/qt_fixture.h"
#include "tests/support/documents.h"

namespace zol::qttest {
namespace {

class FindFilesDesktop : public DesktopTest {
protected:
    std::string text(const Document* d) const { return d ? test::textOf(*d) : "no output"; }
    std::string tree() const { return tmp_.path("tree"); }
};

TEST_F(FindFilesDesktop, DialogRefusesWhatCannotRunAndKeepsHistories) {
    tmp_.put("tree/a.txt", "x");
    FindFilesChoice choice;
    choice.query.find.pattern = "needle";
    choice.query.find.folder = tmp_.path("missing");
    settings().multiFindFolderHistory = {"/older"};
    bool refusedFirst = false;
    whenModal<TFindFilesDialog>([&](TFindFilesDialog* d) {
        child<QPushButton>(d, "okButton")->click();  // the folder is missing: the dialog stays
        refusedFirst = d->isVisible();
        child<QComboBox>(d, "folder")->setEditText(QString::fromStdString(tree() + "/"));
        child<QComboBox>(d, "masks")->setEditText("*.txt");
        child<QCheckBox>(d, "regex")->setChecked(true);
        child<QPushButton>(d, "okButton")->click();
    });
    ASSERT_TRUE(TFindFilesDialog::run(frame_.get(), choice, false));
    EXPECT_TRUE(refusedFirst);
    EXPECT_EQ(boxTexts_, std::vector<std::string>{"The folder " + tmp_.path("missing") + " does not exist."});
    EXPECT_EQ(choice.query.find.folder, tree());
    EXPECT_TRUE(choice.query.find.options.regex);
    EXPECT_EQ(settings().multiFindFolderHistory, (std::vector<std::string>{tree(), "/older"}));
    EXPECT_EQ(settings().multiFindFileFilters.front(), "*.txt");
}

TEST_F(FindFilesDesktop, HitsStreamIntoAnOutputDocument) {
    tmp_.put("tree/a.c", "one\r\nneedle two\r\n");
    tmp_.put("tree/sub/b.c", "needle\n");
    // An open document is searched as it stands, not as saved.
    Document* open = frame_->openFile(tmp_.put("tree/c.c", "nothing"));
    ASSERT_NE(open, nullptr);
    test::fill(*open, "x\nneedle in the editor");
    open->modified = true;
    TFindFilesRun& run = TFindFilesRun::of(*frame_);
    run.startFind({"needle", {}, tree(), "*.c", true});
    run.waitForEnd();
    Document* out = run.output();
    ASSERT_NE(out, nullptr);
    EXPECT_TRUE(out->outputWindow);
    EXPECT_FALSE(out->modified);
    EXPECT_EQ(text(out), "a.c(2): needle two\nc.c(2): needle in the editor\nsub/b.c(1): needle\n"
                         "3 matching lines\n3 files with hits\n3 files searched");
    EXPECT_EQ(out->undo.undo.size(), 0u);

    // F4 walks the hits: the relative names are found below the searched folder.
    frame_->syncViews();
    frame_->runOnActive(idOf(Cmd::NextCompilerError));
    frame_->runOnActive(idOf(Cmd::NextCompilerError));
    frame_->runOnActive(idOf(Cmd::NextCompilerError));
    ASSERT_NE(app_->active, nullptr);
    EXPECT_EQ(app_->active->fileName, tree() + "/sub/b.c");
    EXPECT_EQ(app_->active->cursor.line, 0);

    // A second search reuses the output; closing it stops a search.
    for (int i = 0; i < 300; ++i) tmp_.put("tree/many/f" + std::to_string(i) + ".c", "needle\n");
    run.startFind({"needle", {}, tree(), "*.c", true});
    EXPECT_EQ(run.output(), out);
    frame_->closeDocumentWindow(out);
    run.waitForEnd();
    EXPECT_FALSE(run.running());
    EXPECT_EQ(run.output(), nullptr);
}

TEST_F(FindFilesDesktop, ReplaceInFilesAsksFileByFile) {
    options().backupFiles = false;
    tmp_.put("tree/a.txt", "old\r\nold\r\n");
    tmp_.put("tree/b.txt", "old");
    FindFilesChoice choice;
    choice.query = {{"old", {}, tree(), "", true}, "new"};
    choice.prompt = true;
    std::vector<std::string> asked;
    std::function<void(TReplaceInFilesPromptDlg*)> answer = [&](TReplaceInFilesPromptDlg* d) {
        asked.push_back(child<QPlainTextEdit>(d, "preview")->toPlainText().toStdString());
        const bool first = asked.size() == 1;
        child<QPushButton>(d, first ? "skipButton" : "replaceButton")->click();
        if (first) whenModal<TReplaceInFilesPromptDlg>(answer);
    };
    whenModal<TReplaceInFilesPromptDlg>(answer);
    TFindFilesRun::of(*frame_).runReplace(choice);
    EXPECT_EQ(asked, (std::vector<std::string>{"1: - old\n1: + new\n2: - old\n2: + new\n", "1: - old\n1: + new\n"}));
    EXPECT_EQ(tmp_.get("tree/a.txt"), "old\r\nold\r\n");
    EXPECT_EQ(tmp_.get("tree/b.txt"), "new");
    EXPECT_EQ(text(TFindFilesRun::of(*frame_).output()),
              "b.txt(1): new\n1 replacement\n1 file changed\n2 files searched");
}

TEST_F(FindFilesDesktop, ReplacePromptShowsTheHitAndTakesEachAnswer) {
    open("a.txt", "one\ntwo x\nthree");
    const char* names[] = {"yesButton", "noButton", "allButton", "cancelButton"};
    const ReplacePromptAnswer answers[] = {ReplacePromptAnswer::Yes, ReplacePromptAnswer::No,
                                           ReplacePromptAnswer::All, ReplacePromptAnswer::Cancel};
    for (int i = 0; i < 4; ++i) {
        whenModal<TReplacePromptDlg>([&](TReplacePromptDlg* d) { child<QPushButton>(d, names[i])->click(); });
        EXPECT_EQ(frame_->qtShell().replacePrompt(doc()), answers[i]) << names[i];
    }
    whenModal<TReplacePromptDlg>([](TReplacePromptDlg* d) { d->reject(); });  // Escape
    EXPECT_EQ(frame_->qtShell().replacePrompt(doc()), ReplacePromptAnswer::Cancel);
}

}  // namespace
}  // namespace zol::qttest
