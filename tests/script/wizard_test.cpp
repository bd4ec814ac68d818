// The script wizard's generated scripts, byte for byte against tests/script/wizard/,
// and converted keystroke macros run for real. After a deliberate change to the
// templates, ZOLDER_REWRITE_EXPECTED=1 build/tests/test_script --gtest_filter='ScriptWizard.*'
// rewrites the expected files; read the difference before committing it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/application.h"
#include "engine/command_table.h"
#include "engine/executor.h"
#include "script/macro_convert.h"
#include "script/macros.h"
#include "script/run_script.h"
#include "script/script_messages.h"
#include "script/wizard.h"
#include "tests/support/documents.h"
#include "tests/support/fake_shell.h"
#include "tests/support/temp_dir.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

namespace fs = std::filesystem;

const fs::path kExpected = fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script" / "wizard";

MacroStep step(Cmd c, uint16_t param = 0) { return {idOf(c), param}; }

std::vector<MacroStep> typed(std::string_view text) {
    std::vector<MacroStep> steps;
    for (char c : text) steps.push_back(step(Cmd::InsertChar, static_cast<unsigned char>(c)));
    return steps;
}

std::vector<MacroStep> operator+(std::vector<MacroStep> a, const std::vector<MacroStep>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// An edit that touches typed text, commands without, with a number and with a
// character parameter: what the run test plays both ways.
std::vector<MacroStep> tidyMacro() {
    return typed("// \"a\"\t\\ ") + std::vector<MacroStep>{step(Cmd::NewLine), step(Cmd::GoToLineNum, 3),
                                                           step(Cmd::LineEnd)} +
           typed(";") + std::vector<MacroStep>{step(Cmd::DupLine), step(Cmd::SelectLine), step(Cmd::CommentBlock, '#'),
                                               step(Cmd::EndSelect), step(Cmd::TextStart)};
}

WizardChoices named(ScriptKind kind, const char* name) {
    WizardChoices c;
    c.kind = kind;
    c.name = name;
    c.description = std::string("What ") + name + " does";
    c.syntax = std::string(name) + " [file]";
    return c;
}

struct GeneratedCase {
    const char* expected;
    WizardChoices choices;
};

std::vector<GeneratedCase> generatedCases() {
    std::vector<GeneratedCase> cases;
    cases.push_back({"console", named(ScriptKind::Console, "hello")});
    cases.push_back({"editor_plain", named(ScriptKind::Editor, "plain")});
    // Without end modes, so that the command macros alone must bring in their header.
    WizardChoices options = named(ScriptKind::Editor, "fixed");
    options.commandMacros = options.refuseReadOnly = options.saveOptions = true;
    options.fixed = {OptionFix::On, OptionFix::Off, OptionFix::On, OptionFix::Off, OptionFix::Keep, OptionFix::On,
                     OptionFix::Keep, OptionFix::Off, OptionFix::Keep, OptionFix::On};
    cases.push_back({"options_fixed", options});
    WizardChoices convert = named(ScriptKind::ConvertMacro, "tidy");
    convert.refuseReadOnly = convert.endModes = true;
    convert.macro = tidyMacro() + typed(std::string(130, 'x')) +
                    std::vector<MacroStep>{step(Cmd::InsertChar, 1), step(Cmd::InsertChar, '2'), step(Cmd::Param1, '\''),
                                           step(Cmd::CommentBlock, 200)};
    cases.push_back({"converted", convert});
    return cases;
}

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

TEST(ScriptWizard, GeneratesTheCommittedScripts) {
    for (const GeneratedCase& c : generatedCases()) {
        const fs::path file = kExpected / (std::string(c.expected) + ".c.expected");
        if (std::getenv("ZOLDER_REWRITE_EXPECTED")) std::ofstream(file, std::ios::binary) << generateScript(c.choices);
        ASSERT_TRUE(fs::exists(file)) << file;
        EXPECT_EQ(generateScript(c.choices), slurp(file)) << c.expected;
    }
    // Nothing fixed, no block for it; word wrap fixed off turns the document's off too.
    WizardChoices saved = named(ScriptKind::Editor, "saved");
    saved.saveOptions = true;
    EXPECT_EQ(generateScript(saved).find("runs with"), std::string::npos);
    saved.fixed[0] = OptionFix::Off;
    EXPECT_NE(generateScript(saved).find("runs with\n   Zol_SetWordWrap(FALSE);\n   Zol_SetDocWordWrap(hDoc, FALSE);\n\n"),
              std::string::npos);
}

TEST(ScriptWizard, NamesWithAnyOfTheForbiddenCharactersAreRefused) {
    for (const char* bad : {"what?", "say\"hi\"", "a/b", "a\\b", "<x>", "a|b", "a*", "c:x"})
        EXPECT_STREQ(scriptNameProblem(bad), scriptmsg::kBadName) << bad;
    EXPECT_STREQ(scriptNameProblem("  "), scriptmsg::kEmptyName);
    EXPECT_EQ(scriptNameProblem("word wrap-2.c"), nullptr);
    EXPECT_STREQ(bannerTextProblem("ends */ early"), scriptmsg::kBannerEnd);
}

TEST(ScriptWizard, StepsWithoutAScriptFormAreMarkedWhereTheyStood) {
    const std::vector<MacroStep> bad[] = {
        {{kFirstMacroId, 0}},                   // another macro
        {step(Cmd::ExecScript)},                // a script cannot start one
        {step(Cmd::InsertChar, 0)},             // no C string holds it
        {step(Cmd::InsertChar, 0x100)},         // no character at all
        {{static_cast<uint16_t>(kFirstExternalCommand + 5), 0}},  // a plug-in's
    };
    for (const auto& steps : bad) {
        const std::string body = convertMacroBody(typed("a") + steps + typed("b"));
        EXPECT_NE(body.find("   Zol_InsertText(hDoc, \"a\");\n#error converting macro\n   Zol_InsertText(hDoc, \"b\");\n"),
                  std::string::npos)
            << body;
    }
}

class WizardWriting : public test::TempHome {};

// Whatever stands in the way, the user's files stay as they were.
TEST_F(WizardWriting, WritesOnlyWhereItMayAndReplacesOnlyWhenTold) {
    const std::string path = wizardScriptPath("mine");
    EXPECT_EQ(path, dir + "script/mine.c");
    EXPECT_EQ(wizardScriptPath("mine.c"), path);

    put("script/keep", "");
    EXPECT_EQ(writeWizardScript(path, "new\n", false), WizardWrite::Written);
    EXPECT_EQ(get("script/mine.c"), "new\n");
    EXPECT_EQ(writeWizardScript(path, "other\n", false), WizardWrite::Exists);
    EXPECT_EQ(get("script/mine.c"), "new\n");
    EXPECT_EQ(writeWizardScript(path, "other\n", true), WizardWrite::Written);
    EXPECT_EQ(get("script/mine.c"), "other\n");

    put("script/dir.c/inside", "x");
    EXPECT_EQ(writeWizardScript(dir + "script/dir.c", "t", true), WizardWrite::Failed);
    EXPECT_EQ(get("script/dir.c/inside"), "x");
    // A place no file can be made in, for root as for anyone: below a plain file.
    EXPECT_EQ(writeWizardScript(dir + "script/keep/x.c", "t", false), WizardWrite::Failed);
    EXPECT_EQ(get("script/keep"), "");
}

// A home with the shipped headers and a document to run the wizard's script on.
class ConvertedMacroRun : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(home_.empty());
        setShell(&shell_);
        startUp(app_, StartupOptions{home_, {tmp_.put("doc.c", kFixture)}, {}});
        ASSERT_NE(app_.active, nullptr);
    }
    void TearDown() override {
        for (const auto& d : app_.documents) d->modified = false;
        shutDown(app_);
        setShell(nullptr);
    }
    static constexpr const char* kFixture = "int main(void)\n{\n   return 0;\n}\n";
    test::TempDir tmp_{"zolwizard"};
    std::string home_ = tmp_.dir() + "home/";
    test::FakeShell shell_;
    Application app_;
};

TEST_F(ConvertedMacroRun, ReproducesTheMacrosEdit) {
    Document played;
    test::fill(played, kFixture);
    const uint16_t id = addMacro(macros(), Macro{true, "tidy", "", tidyMacro()});
    ASSERT_NE(id, 0);
    execute(played, id);
    ASSERT_NE(test::textOf(played), kFixture);

    WizardChoices c = named(ScriptKind::ConvertMacro, "converted");
    c.refuseReadOnly = c.endModes = c.saveOptions = true;
    c.macro = tidyMacro();
    const std::string path = wizardScriptPath(c.name);
    ASSERT_EQ(writeWizardScript(path, generateScript(c), false), WizardWrite::Written);
    const ScriptRunResult r = runScript(path, {}, "converted.c", ScriptStarter::User);
    EXPECT_EQ(r.error, 0) << r.message;
    EXPECT_EQ(test::textOf(*app_.active), test::textOf(played));
    EXPECT_EQ(app_.active->cursor, played.cursor);
}

}  // namespace
}  // namespace zol
