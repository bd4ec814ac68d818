// Naming a script the way the script dialog and the macro menu do: names resolved below
// the home's script folder, command lines cut into script and arguments, and the
// scripts offered for picking.
#include <gtest/gtest.h>

#include "files/messages.h"
#include "script/run_script.h"
#include "script/script_choice.h"
#include "script/script_messages.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

class ScriptChoice : public test::TempHome {};

TEST_F(ScriptChoice, NamesResolveBelowTheScriptFolder) {
    put("script/plain", "");  // an existing file keeps its name as it is
    const std::string folder = dir + "script/";
    struct Row {
        const char* what;
        std::string name, path;
    } rows[] = {
        {"a first-run entry", "wordwrap", folder + "wordwrap.c"},
        {"a subfolder", "tools/tidy", folder + "tools/tidy.c"},
        {"an extension of its own", "notes.txt", folder + "notes.txt"},
        {"an existing file without extension", "plain", folder + "plain"},
        {"an absolute path", "/elsewhere/x.c", "/elsewhere/x.c"},
        {"nothing", "", ""},
    };
    for (const Row& r : rows) EXPECT_EQ(resolveScriptName(r.name), r.path) << r.what;

    const ScriptCommand c = scriptCommandOf("  unhtml -k 'two words' \"q\\\"\"");
    EXPECT_EQ(c.path, folder + "unhtml.c");
    EXPECT_EQ(c.args, (std::vector<std::string>{"-k", "two words", "q\""}));
    EXPECT_TRUE(scriptCommandOf("   ").path.empty());
}

// What the Choose button writes into a command line must come back as the one word.
TEST_F(ScriptChoice, QuotedWordsSurviveTheArgumentSplit) {
    for (const char* word : {"plain.c", "two words.c", "it's.c", "back\\slash", "say \"hi\"", ""}) {
        const std::vector<std::string> words = splitArgumentLine(quotedWord(word) + " next");
        ASSERT_EQ(words.size(), 2u) << word;
        EXPECT_EQ(words[0], word);
    }
}

TEST_F(ScriptChoice, OnlyAnExistingFileCanRun) {
    const std::string script = put("script/ok.c", "int main(){return 0;}\n");
    put("script/sub/inner.c", "");
    EXPECT_EQ(scriptPathProblem(script), "");
    EXPECT_EQ(scriptPathProblem(""), scriptmsg::kNoScriptChosen);
    EXPECT_EQ(scriptPathProblem(dir + "script/sub"), filemsg::withFileName(scriptmsg::kScriptIsFolder, dir + "script/sub"));
    EXPECT_EQ(scriptPathProblem(dir + "script/gone.c"),
              filemsg::withFileName(scriptmsg::kScriptMissing, dir + "script/gone.c"));
}

TEST_F(ScriptChoice, ScriptsBelowTheFolderAreOfferedFilesFirst) {
    for (const char* name : {"script/b.c", "script/A.C", "script/notes.txt", "script/zz/deep.c", "script/include/x.h",
                             "script/m/n/o.c"})
        put(name, "");
    EXPECT_EQ(scriptsBelow(dir + "script"), (std::vector<std::string>{"A.C", "b.c", "m/n/o.c", "zz/deep.c"}));
    EXPECT_EQ(scriptDisplayName(dir + "script/m/n/o.c"), "m/n/o.c");
    EXPECT_EQ(scriptDisplayName("/elsewhere/x.c"), "/elsewhere/x.c");
    EXPECT_TRUE(scriptsBelow(dir + "no-such-folder").empty());
}

}  // namespace
}  // namespace zol
