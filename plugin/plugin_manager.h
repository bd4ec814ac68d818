// The plug-in manager: the modules loaded from the home's "PlugIns" folder, the events
// and commands handed to them, and the commands, menu items and keys they add.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "engine/executor.h"
#include "platform/dynlib.h"

namespace zol {

struct Document;

// Entry points looked up when a module loads.
using XppInitialize = int (*)(void* module, intptr_t mainWindow, int version);
using XppGetInformation = void (*)(int kind, char* buffer);
using XppOnEditorEvent = intptr_t (*)(int event, intptr_t p1, intptr_t p2, intptr_t p3);
using XppOnEditorCommand = intptr_t (*)(int command, void* doc, intptr_t p1, intptr_t p2);

// Loading is refused once more than this many modules are loaded, so the list can
// reach one more than this.
constexpr size_t kMaxPlugIns = 60;
constexpr size_t kPlugInNameLength = 31;
constexpr size_t kPlugInInfoSize = 256;
// Plug-in command numbers start here, clear of editor commands and macro slots; they
// are the ids the executor hands to outside runners.
constexpr int kFirstPlugInCommand = kFirstExternalCommand;

struct PlugInRecord {
    LibraryHandle module = nullptr;
    std::string path;
    std::string name;                            // at most kPlugInNameLength characters
    XppInitialize initialize = nullptr;          // never null in the list
    XppGetInformation getInformation = nullptr;  // the optional ones may be null
    XppOnEditorEvent onEditorEvent = nullptr;
    XppOnEditorCommand onEditorCommand = nullptr;
};

// A command a module registered; number is kFirstPlugInCommand + its index.
struct PlugInCommand {
    LibraryHandle module = nullptr;  // null once the module is gone
    int number = 0;
    int itemId = 0;                  // the module's own id, for its menu item
    std::string name;
    std::string menuText;            // empty: no menu item
    std::string description;
};

// A workspace view or dockable window a module created; the desktop shell shows it.
struct PlugInWindow {
    LibraryHandle module = nullptr;
    intptr_t handle = 0;             // the module's own number for it (never 0)
    bool dockable = false;           // else a workspace view
    std::string title;
    int dockPosition = 0;            // ZOL_DOCK_ value: where it first appears
    int allowedPositions = 0;        // ZOL_ALLOW_ value
    int width = 0, height = 0;       // first size, 0 for the shell's choice
};

struct PlugInManager {
    std::vector<PlugInRecord> modules;   // in load order
    std::vector<PlugInCommand> commands;
    std::vector<PlugInWindow> windows;
    bool enabled = true;                 // off: discovery loads nothing
    intptr_t mainWindow = 0;
};

PlugInManager& plugInManager();

// Loads "PlugIns/splash.zop", every other "*.zop" of the folder, then "PlugIns/sdk.zop".
// Modules that fail are skipped silently.
void loadAllPlugIns(intptr_t mainWindow);
// 1 when loaded (or already loaded), 0 when the module was skipped.
int loadPlugIn(const std::string& path, bool notify);
// Offers a command to every module in load order; the first non-zero answer ends the
// round and is returned, 0 when none handled it.
intptr_t dispatchCommand(int command, Document* doc, intptr_t p1, intptr_t p2);
intptr_t broadcastEvent(int event, intptr_t p1, intptr_t p2, intptr_t p3, bool stopOnNonZero);
// Asks the module first; false when it refuses or is not loaded.
bool unloadPlugIn(LibraryHandle module);
// At exit: every module gets XPP_Unload(owner) and is freed, without being asked.
void unloadAllPlugIns(intptr_t owner);
const PlugInRecord* findPlugIn(LibraryHandle module);
// First module whose name or file name matches, without regard to case.
const PlugInRecord* findPlugInByName(const std::string& name);

// Plug-in commands. Returns the new command's number, 0 when module is not loaded or
// name is empty. A name registered again by the same module keeps its number.
int addPlugInCommand(LibraryHandle module, int itemId, const std::string& name, const std::string& menuText,
                     const std::string& description);
const PlugInCommand* findPlugInCommand(int number);
const PlugInCommand* findPlugInCommand(const std::string& name);
// Runs a plug-in command on doc through dispatchCommand; 0 when nobody handled it.
intptr_t runPlugInCommand(int number, Document* doc);
// A menu item added with a command was chosen; false when its module is gone.
bool runPlugInMenuItem(int number);

// Windows of modules: add returns the handle, 0 when the module is not loaded or the
// handle is 0 or already taken.
intptr_t addPlugInWindow(const PlugInWindow& window);
bool removePlugInWindow(intptr_t handle);
const PlugInWindow* findPlugInWindow(intptr_t handle);

// Entry points looked up by name when needed (XPP_About, XPP_Help, XPP_Options ...).
bool plugInHasEntry(LibraryHandle module, const char* name);
// Calls one of the entry points that take a window (the plug-in list dialog's buttons);
// false when the module is gone or lacks it.
bool callPlugInWindowEntry(LibraryHandle module, const char* name, intptr_t window);
// Help on the menu item of a plug-in command: XPP_OnMenuHelp(number, itemId); false
// when its module is gone or has no help.
bool runPlugInMenuHelp(int number);

// Makes the manager the listener of editor events and installs the handlers of the
// plug-in editor commands.
void initPlugIns();

}  // namespace zol
