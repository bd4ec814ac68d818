#include <filesystem>

#include "config/keymap.h"
#include "engine/executor.h"
#include "tests/engine/command_fixture.h"
#include "engine/editor_events.h"
#include "files/save.h"
#include "platform/paths.h"
#include "plugin/zolder_api.h"
#include "tests/plugin/plugin_fixture.h"
#include "tests/support/files.h"

namespace zol {
namespace {

namespace fs = std::filesystem;
using test::PlugInTest;
using test::fill;

std::vector<std::string> loadedFiles() {
    std::vector<std::string> names;
    for (const PlugInRecord& r : plugInManager().modules) names.push_back(fs::path(r.path).filename().string());
    return names;
}

TEST_F(PlugInTest, SplashLoadsFirstSdkLastAndBrokenModulesAreSkipped) {
    install("recorder.zop", "b.zop");
    install("recorder.zop", "SDK.zop");
    install("recorder.zop", "a.zop");
    install("recorder.zop", "Splash.ZOP");
    install("noinit.zop", "noinit.zop");
    fs::create_directory(plugInDir() + "folder.zop");
    test::writeBytes(plugInDir() + "text.zop", "not a library");
    test::writeBytes(plugInDir() + "truncated.zop", test::readBytes(built("recorder.zop")).substr(0, 2000));
    LibraryHandle splash = keep("Splash.ZOP");
    start();

    EXPECT_EQ(loadedFiles(), (std::vector<std::string>{"Splash.ZOP", "a.zop", "b.zop", "SDK.zop"}));
    EXPECT_EQ(plugInManager().modules.front().name, "Recorder");
    // Started is told once, after every module is in.
    EXPECT_EQ(logOf(splash), "e50 ");
}

TEST_F(PlugInTest, ARefusingModuleLeavesNothingBehind) {
    install("refuser.zop", "refuser.zop");
    install("recorder.zop", "recorder.zop");
    start();

    ASSERT_EQ(loadedFiles(), std::vector<std::string>{"recorder.zop"});
    EXPECT_TRUE(plugInManager().windows.empty());
    for (const PlugInCommand& c : plugInManager().commands) {
        if (c.name == "RefuserCommand") {
            EXPECT_EQ(c.module, nullptr);
        }
    }
    EXPECT_EQ(findPlugInCommand(std::string("RefuserCommand")), nullptr);
}

TEST_F(PlugInTest, LoadingAgainAnswersOneWithoutInitialisingAgain) {
    install("recorder.zop", "recorder.zop");
    LibraryHandle rec = keep("recorder.zop");
    start();
    EXPECT_EQ(XPZ_LoadPlugIn("recorder.zop"), 1);
    EXPECT_EQ(XPZ_LoadPlugIn((plugInDir() + "recorder.zop").c_str()), 1);
    EXPECT_EQ(fn<int (*)()>(rec, "recorder_inits")(), 1);
    EXPECT_EQ(plugInManager().modules.size(), 1u);

    // A module loaded while the program runs hears that it started, alone.
    install("recorder.zop", "late.zop");
    LibraryHandle late = keep("late.zop");
    takeLog(rec);
    EXPECT_EQ(XPZ_LoadPlugIn("late.zop"), 1);
    EXPECT_EQ(logOf(late), "e50 ");
    EXPECT_EQ(logOf(rec), "");
    EXPECT_EQ(XPZ_LoadPlugIn("missing.zop"), 0);
}

TEST_F(PlugInTest, TheFirstVetoStopsTheRound) {
    install("veto1.zop", "veto1.zop");
    install("veto2.zop", "veto2.zop");
    LibraryHandle first = keep("veto1.zop"), second = keep("veto2.zop");
    start();
    Document* doc = newDocument(app_);
    auto asked = [](LibraryHandle h) { return fn<int (*)()>(h, "veto_asked")(); };

    EXPECT_EQ(Zol_CloseDocument(doc), 0);
    EXPECT_TRUE(isDocument(app_, doc));
    EXPECT_EQ(asked(first), 1);
    EXPECT_EQ(asked(second), 0);

    // A vetoed save writes nothing.
    const std::string path = home_ + "kept.txt";
    EXPECT_FALSE(saveDocumentAs(*doc, path, 1));
    EXPECT_FALSE(fs::exists(path));
    EXPECT_NE(doc->fileName, fullPath(path));
}

TEST_F(PlugInTest, NoMoreThanSixtyOneModulesLoad) {
    for (int i = 0; i < 70; ++i) install("veto1.zop", "m" + std::to_string(100 + i) + ".zop");
    start();
    EXPECT_EQ(plugInManager().modules.size(), kMaxPlugIns + 1);
}

TEST_F(PlugInTest, CommandsAndMenuItemsReachTheirModule) {
    install("recorder.zop", "recorder.zop");
    LibraryHandle rec = keep("recorder.zop");
    start();
    const int number = fn<int (*)()>(rec, "recorder_command")();
    ASSERT_GE(number, kFirstPlugInCommand);
    const PlugInCommand* c = findPlugInCommand(std::string("recordercommand"));
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->number, number);
    EXPECT_EQ(c->menuText, "&Recorder");

    Document* doc = newDocument(app_);
    EXPECT_EQ(execute(*doc, commandId("PlugInCommandID", false), static_cast<uint32_t>(number)), 1);
    EXPECT_EQ(lineText(*doc, 0), "<mark>");
    // An unknown number reaches nobody.
    EXPECT_EQ(execute(*doc, commandId("PlugInCommandID", false), 1999), 0);

    EXPECT_TRUE(runPlugInMenuItem(number));
    EXPECT_NE(logOf(rec).find("menu7"), std::string::npos);

    // A shortcut key runs the command through the key map, and a macro keeps it.
    ZOL_MODULE module = XPZ_GetPlugInInstance("recorder.zop", 0);
    const int ctrlAlt = 2 | 4, ctrl = 2;
    EXPECT_FALSE(XPZ_CanAddShortcutKey('K', ctrl, 0, 0));  // a prefix key stays one
    EXPECT_FALSE(XPZ_AddShortcutKey(module, 1999, 'L', ctrlAlt, 0, 0));
    ASSERT_TRUE(XPZ_AddShortcutKey(module, number, 'L', ctrlAlt, 0, 0));
    EXPECT_FALSE(keyMapChanged());
    EXPECT_EQ(XPZ_IsShortcutKeyAlreadyMapped(&plugInManager(), 'L', ctrlAlt, 0), number);
    uint16_t pending = 0;
    const uint16_t key = static_cast<uint16_t>(kVirtualKey | kCtrlKey | kAltKey | 'L');
    EXPECT_EQ(translateKey(keyMap(), key, pending), number);
    fill(*doc, "");
    execute(*doc, commandId("RecordMacro", false));
    execute(*doc, translateKey(keyMap(), key, pending));
    execute(*doc, commandId("MacroStopRecorder", false));
    EXPECT_EQ(lineText(*doc, 0), "<mark>");
    const uint16_t macro = commandId("Macro1", true);
    ASSERT_NE(macro, 0);
    execute(*doc, macro);
    EXPECT_EQ(lineText(*doc, 0), "<mark><mark>");
    EXPECT_TRUE(XPZ_RemoveShortcutKey('L', ctrlAlt));
    EXPECT_EQ(translateKey(keyMap(), key, pending), 0);

    // Once its module is unloaded on request the command reaches nobody.
    EXPECT_EQ(XPZ_UnloadPlugIn(nullptr), 0);
    EXPECT_EQ(XPZ_UnloadPlugIn(XPZ_GetPlugInInstance("recorder.zop", 0)), 1);
    EXPECT_TRUE(plugInManager().modules.empty());
    EXPECT_EQ(execute(*doc, commandId("PlugInCommandID", false), static_cast<uint32_t>(number)), 0);
    EXPECT_FALSE(runPlugInMenuItem(number));
}

TEST_F(PlugInTest, DocumentEventsArriveWhenTheyHappen) {
    install("recorder.zop", "recorder.zop");
    LibraryHandle rec = keep("recorder.zop");
    start();
    const std::string file = home_ + "a.txt";
    test::writeBytes(file, "one\n");
    takeLog(rec);

    Document* first = newDocument(app_);
    EXPECT_EQ(takeLog(rec), "e100 e120 ");
    Document* opened = openDocument(app_, file);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(takeLog(rec), "e107 e101 e121 e120 ");
    EXPECT_TRUE(saveDocument(*opened));
    EXPECT_EQ(takeLog(rec), "e105 e106 ");
    EXPECT_TRUE(closeDocument(app_, opened));
    EXPECT_EQ(takeLog(rec), "e108 e109 e121 e120 ");
    EXPECT_EQ(app_.active, first);

    shutDown(app_);
    EXPECT_EQ(logOf(rec), "e4 e3 e109 e121 unload ");
    EXPECT_TRUE(plugInManager().modules.empty());
}

TEST_F(PlugInTest, AModuleDrivesAWholeEditThroughTheInterface) {
    install("recorder.zop", "recorder.zop");
    LibraryHandle rec = keep("recorder.zop");
    start();
    Document* doc = newDocument(app_);
    const std::string path = home_ + "driven.c";
    EXPECT_EQ(fn<int (*)(void*, const char*)>(rec, "recorder_drive")(doc, path.c_str()), 0);
    EXPECT_EQ(test::readBytes(path), "int main(void)\r\n{\r\n    return 42;\r\n}\r\n");
    EXPECT_FALSE(doc->modified);
    EXPECT_NE(logOf(rec).find("e105 e106"), std::string::npos);
}

}  // namespace
}  // namespace zol
