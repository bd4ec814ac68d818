#include "plugin/plugin_manager.h"

#include <algorithm>

#include "engine/command_params.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/editor_events.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "platform/dirsearch.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "plugin/api_version.h"
#include "plugin/view_records.h"

namespace zol {
namespace {

constexpr const char* kPlugInFolder = "PlugIns";
constexpr const char* kSplashModule = "splash.zop";
constexpr const char* kSdkModule = "sdk.zop";

using XppCanUnload = int (*)();
using XppUnload = void (*)(intptr_t owner);
using XppOnMenuCommand = void (*)(int itemId, intptr_t reserved);
using XppOnMenuHelp = void (*)(int helpContext, int itemId);
using XppWindowEntry = void (*)(intptr_t window);

template <class Fn>
Fn entry(LibraryHandle lib, const char* name) {
    return reinterpret_cast<Fn>(librarySymbol(lib, name));
}

// Views and dockable windows go with their module.
void dropWindowsOf(PlugInManager& m, LibraryHandle module) {
    std::erase_if(m.windows, [module](const PlugInWindow& w) { return w.module == module; });
    for (PlugInCommand& c : m.commands)
        if (c.module == module) c.module = nullptr;
}

void removeModule(PlugInManager& m, LibraryHandle module) {
    std::erase_if(m.modules, [module](const PlugInRecord& r) { return r.module == module; });
    dropWindowsOf(m, module);
    shell().plugInsChanged();
}

intptr_t onEvent(int event, intptr_t p1, intptr_t p2, intptr_t p3, bool stopOnNonZero) {
    const intptr_t answer = broadcastEvent(event, p1, p2, p3, stopOnNonZero);
    if (event == kEventDestroying) forgetViewRecord(reinterpret_cast<const Document*>(p1));
    return answer;
}

int cmdPlugInCommandId(Document& doc, const CommandCall& call) {
    return runPlugInCommand(static_cast<int>(call.param), &doc) != 0;
}

// Run from a key or a menu: a recording macro keeps the command by name, as Param1
// characters followed by "PlugInCommand", because numbers change between runs.
int runExternal(Document& doc, uint16_t id) {
    const PlugInCommand* c = findPlugInCommand(id);
    if (!c || !c->module) return 0;
    if (doc.recorder == Recorder::Recording && macroStore()) {
        for (char ch : c->name) macroStore()->recordStep(doc, idOf(Cmd::Param1), static_cast<unsigned char>(ch));
        macroStore()->recordStep(doc, idOf(Cmd::PlugInCommand), 0);
    }
    return runPlugInCommand(id, &doc) != 0;
}

int cmdPlugInCommand(Document& doc, const CommandCall&) {
    const PlugInCommand* c = findPlugInCommand(commandParam(1));
    return c && runPlugInCommand(c->number, &doc) != 0;
}

}  // namespace

PlugInManager& plugInManager() {
    static PlugInManager manager;
    return manager;
}

void loadAllPlugIns(intptr_t mainWindow) {
    PlugInManager& m = plugInManager();
    m.mainWindow = mainWindow;
    if (!m.enabled) return;
    const std::string folder = joinPath(homeDir(), kPlugInFolder);
    // Names are compared without regard to case, as the folder's owner expects.
    std::vector<std::string> modules, splash, sdk;
    for (const FoundFile& f : findFiles(joinPath(folder, "*.zop"))) {
        if (f.isDirectory) continue;
        if (equalsNoCase(f.name, kSplashModule)) splash.push_back(f.name);
        else if (equalsNoCase(f.name, kSdkModule)) sdk.push_back(f.name);
        else modules.push_back(f.name);
    }
    if (!splash.empty()) loadPlugIn(joinPath(folder, splash.front()), false);
    for (const std::string& name : modules) loadPlugIn(joinPath(folder, name), false);
    if (!sdk.empty()) loadPlugIn(joinPath(folder, sdk.front()), false);
}

int loadPlugIn(const std::string& path, bool notify) {
    PlugInManager& m = plugInManager();
    if (m.modules.size() > kMaxPlugIns) return 0;
    if (!fileExists(path) || isDirectory(path)) return 0;
    LibraryHandle lib = openLibrary(path);
    if (!lib) return 0;

    PlugInRecord rec;
    rec.module = lib;
    rec.path = fullPath(path);
    rec.initialize = entry<XppInitialize>(lib, "XPP_Initialize");
    if (!rec.initialize) {
        closeLibrary(lib);
        return 0;
    }
    rec.getInformation = entry<XppGetInformation>(lib, "XPP_GetInformation");
    rec.onEditorEvent = entry<XppOnEditorEvent>(lib, "XPP_OnEditorEvent");
    rec.onEditorCommand = entry<XppOnEditorCommand>(lib, "XPP_OnEditorCommand");
    rec.name = std::string(fileNamePart(path));
    if (rec.getInformation) {
        char info[kPlugInInfoSize] = {};
        rec.getInformation(1, info);
        info[kPlugInInfoSize - 1] = '\0';
        if (info[0]) rec.name = info;
    }
    if (rec.name.size() > kPlugInNameLength) rec.name.resize(kPlugInNameLength);

    // The loader hands out the same handle for a library that is already open.
    for (const PlugInRecord& r : m.modules) {
        if (r.module == lib && equalsNoCase(r.name, rec.name)) {
            closeLibrary(lib);  // drops only the reference taken above
            return 1;
        }
    }
    m.modules.push_back(rec);
    if (!rec.initialize(lib, m.mainWindow, apiVersion())) {
        removeModule(m, lib);
        closeLibrary(lib);
        return 0;
    }
    if (notify && rec.onEditorEvent) rec.onEditorEvent(kEventStarted, 0, 0, 0);
    return 1;
}

intptr_t dispatchCommand(int command, Document* doc, intptr_t p1, intptr_t p2) {
    // A module may unload another while answering; walk a copy.
    const std::vector<PlugInRecord> modules = plugInManager().modules;
    for (const PlugInRecord& r : modules) {
        if (!r.onEditorCommand || !findPlugIn(r.module)) continue;
        if (intptr_t res = r.onEditorCommand(command, doc, p1, p2)) return res;
    }
    return 0;
}

intptr_t broadcastEvent(int event, intptr_t p1, intptr_t p2, intptr_t p3, bool stopOnNonZero) {
    const std::vector<PlugInRecord> modules = plugInManager().modules;
    intptr_t last = 0;
    for (const PlugInRecord& r : modules) {
        if (!r.onEditorEvent || !findPlugIn(r.module)) continue;
        last = r.onEditorEvent(event, p1, p2, p3);
        if (stopOnNonZero && last) return last;
    }
    return last;
}

bool unloadPlugIn(LibraryHandle module) {
    PlugInManager& m = plugInManager();
    if (!findPlugIn(module)) return false;
    if (auto canUnload = entry<XppCanUnload>(module, "XPP_CanUnload"); canUnload && !canUnload()) return false;
    removeModule(m, module);
    closeLibrary(module);
    return true;
}

void unloadAllPlugIns(intptr_t owner) {
    PlugInManager& m = plugInManager();
    while (!m.modules.empty()) {
        LibraryHandle lib = m.modules.front().module;
        if (auto unload = entry<XppUnload>(lib, "XPP_Unload")) unload(owner);
        removeModule(m, lib);
        closeLibrary(lib);
    }
    m.commands.clear();
}

const PlugInRecord* findPlugIn(LibraryHandle module) {
    if (!module) return nullptr;
    for (const PlugInRecord& r : plugInManager().modules)
        if (r.module == module) return &r;
    return nullptr;
}

const PlugInRecord* findPlugInByName(const std::string& name) {
    for (const PlugInRecord& r : plugInManager().modules)
        if (equalsNoCase(r.name, name) || equalsNoCase(fileNamePart(r.path), name)) return &r;
    return nullptr;
}

int addPlugInCommand(LibraryHandle module, int itemId, const std::string& name, const std::string& menuText,
                     const std::string& description) {
    PlugInManager& m = plugInManager();
    if (!findPlugIn(module) || name.empty()) return 0;
    for (PlugInCommand& c : m.commands) {
        if (c.module == module && c.name == name) {
            c.itemId = itemId;
            c.menuText = menuText;
            c.description = description;
            shell().plugInsChanged();
            return c.number;
        }
    }
    PlugInCommand c;
    c.module = module;
    c.number = kFirstPlugInCommand + static_cast<int>(m.commands.size());
    c.itemId = itemId;
    c.name = name;
    c.menuText = menuText;
    c.description = description;
    m.commands.push_back(c);
    shell().plugInsChanged();
    return c.number;
}

const PlugInCommand* findPlugInCommand(int number) {
    const auto& cmds = plugInManager().commands;
    const int index = number - kFirstPlugInCommand;
    if (index < 0 || index >= static_cast<int>(cmds.size())) return nullptr;
    return &cmds[static_cast<size_t>(index)];
}

const PlugInCommand* findPlugInCommand(const std::string& name) {
    for (const PlugInCommand& c : plugInManager().commands)
        if (c.module && equalsNoCase(c.name, name)) return &c;
    return nullptr;
}

intptr_t runPlugInCommand(int number, Document* doc) {
    const PlugInCommand* c = findPlugInCommand(number);
    if (!c || !c->module) return 0;
    return dispatchCommand(number, doc, 0, 0);
}

bool runPlugInMenuItem(int number) {
    const PlugInCommand* c = findPlugInCommand(number);
    if (!c || !c->module) return false;
    auto onMenu = entry<XppOnMenuCommand>(c->module, "XPP_OnMenuCommand");
    if (!onMenu) return false;
    onMenu(c->itemId, 0);
    return true;
}

intptr_t addPlugInWindow(const PlugInWindow& window) {
    PlugInManager& m = plugInManager();
    if (!findPlugIn(window.module) || !window.handle || findPlugInWindow(window.handle)) return 0;
    m.windows.push_back(window);
    shell().plugInsChanged();
    return window.handle;
}

const PlugInWindow* findPlugInWindow(intptr_t handle) {
    for (const PlugInWindow& w : plugInManager().windows)
        if (w.handle == handle) return &w;
    return nullptr;
}

bool plugInHasEntry(LibraryHandle module, const char* name) {
    return findPlugIn(module) && librarySymbol(module, name);
}

bool callPlugInWindowEntry(LibraryHandle module, const char* name, intptr_t window) {
    if (!findPlugIn(module)) return false;
    auto fn = entry<XppWindowEntry>(module, name);
    if (!fn) return false;
    fn(window);
    return true;
}

bool runPlugInMenuHelp(int number) {
    const PlugInCommand* c = findPlugInCommand(number);
    if (!c || !c->module) return false;
    auto onHelp = entry<XppOnMenuHelp>(c->module, "XPP_OnMenuHelp");
    if (!onHelp) return false;
    onHelp(number, c->itemId);
    return true;
}

bool removePlugInWindow(intptr_t handle) {
    PlugInManager& m = plugInManager();
    const size_t removed = std::erase_if(m.windows, [handle](const PlugInWindow& w) { return w.handle == handle; });
    if (removed) shell().plugInsChanged();
    return removed != 0;
}

void initPlugIns() {
    setEventListener(onEvent);
    setCommandHandler(Cmd::PlugInCommandID, cmdPlugInCommandId);
    setCommandHandler(Cmd::PlugInCommand, cmdPlugInCommand);
    setExternalCommandRunner(runExternal);
}

}  // namespace zol
