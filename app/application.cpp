#include "app/application.h"

#include <algorithm>
#include <cstdlib>
#include <set>

#include "config/default_keys.h"
#include "config/keyfile.h"
#include "config/keymap_messages.h"
#include "config/profile_owners.h"
#include "config/settings.h"
#include "engine/bookmarks.h"
#include "engine/editor_events.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "engine/wordwrap.h"
#include "files/autosave.h"
#include "files/convert_command.h"
#include "files/doc_names.h"
#include "files/prompts.h"
#include "files/save.h"
#include "files/textfile.h"
#include "platform/clock.h"
#include "platform/fileinfo.h"
#include "platform/instance_lock.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "plugin/plugin_manager.h"
#include "plugin/script_bindings.h"
#include "proofing/commands.h"
#include "script/macros.h"
#include "script/run_script.h"
#include "script/script_history.h"
#include "search/commands.h"
#include "syntax/commands.h"
#include "syntax/doc_syntax.h"
#include "syntax/table.h"
#include "tools/run_tool.h"

namespace zol {
namespace {

const char* const kFormatNames[] = {"DOS/Windows", "UNIX", "Macintosh"};
constexpr int64_t kMsPerMinute = 60 * 1000;

void registerOwnedLists() {
    registerProfileOwner(
        "Bookmarks",
        [](std::string_view section, std::string_view file) { loadNamedBookmarks(namedBookmarks(), section, file); },
        [](std::string_view section, std::string_view file) { saveNamedBookmarks(namedBookmarks(), section, file); });
    registerProfileOwner(kScriptHistorySection, scriptHistoryLoad, scriptHistorySave);
}

// A document leaves normally: its side file and its ties to named bookmarks go.
void letGo(Document& doc) {
    removeAutoSaveFile(doc);
    detachDocument(namedBookmarks(), doc);
}

// Only the instance that holds the home's lock alone may take the side files: another
// running instance may still be writing them.
void recoverIfAlone(Application& app) {
    if (app.anotherInstance || processInstanceLock().fd < 0) return;
    // Recovered documents get their own names, so they take no number of new documents.
    auto create = [&app] {
        auto doc = std::make_unique<Document>();
        doc->textFormat = textFormatOf(options().defaultFileFormat).value_or(TextFormat::Dos);
        app.documents.push_back(std::move(doc));
        Document* made = app.documents.back().get();
        sendDocumentEvent(kEventDocumentCreated, *made);
        setActiveDocument(app, made);
        return made;
    };
    app.recovered = recoverAutoSaved(homeDir(), create, [&app](Document* d) { destroyDocument(app, d); });
}

}  // namespace

namespace {

Application* guarded = nullptr;

void saveGuardedWork() {
    if (guarded && guarded->started) autoSaveNow(*guarded);
}

}  // namespace

Application::~Application() {
    if (guarded == this) guarded = nullptr;
    if (documentList() == &list) setDocumentList(nullptr);
    documents.clear();
}

size_t ApplicationDocuments::count() const { return app_.documents.size(); }
Document* ApplicationDocuments::at(size_t index) const {
    return index < app_.documents.size() ? app_.documents[index].get() : nullptr;
}
Document* ApplicationDocuments::active() const { return app_.active; }
void ApplicationDocuments::activate(Document* doc) { setActiveDocument(app_, doc); }
Document* ApplicationDocuments::create() { return newDocument(app_); }
Document* ApplicationDocuments::open(const std::string& path) { return openDocument(app_, path); }
bool ApplicationDocuments::close(Document* doc) { return closeDocument(app_, doc); }
void ApplicationDocuments::destroy(Document* doc) { destroyDocument(app_, doc); }
intptr_t ApplicationDocuments::mainWindow() const { return app_.mainWindow; }

std::string shippedDataDir() {
    const std::string exe = executablePath();
    if (!exe.empty()) {
        // Beside the binary in a build or a portable copy, else an installed prefix.
        const std::string bin(folderPart(exe));
        for (const std::string& p : {bin + "data", bin + "../share/zolder"})
            if (isDirectory(p)) return fullPath(p);
    }
    return ZOLDER_BUILD_DATA_DIR;
}

// Each shipped file is offered to the home once, at the first start or at the first
// start of the version that added it; the settings remember which were offered, so a
// file the user deleted stays deleted.
void seedOnce(const std::string& dataDir) {
    const std::vector<std::string> before = getProfileKeys(kSeededSection, kSettingsFile);
    const SeedResult seeded = seedHome(dataDir, std::set<std::string>(before.begin(), before.end()));
    if (seeded.offered.empty()) return;
    ProfileBatch batch(kSettingsFile);
    for (const std::string& name : seeded.offered) writeProfileString(kSeededSection, name, "1", kSettingsFile);
}

void startUp(Application& app, const StartupOptions& opts) {
    initHomeDir(opts.home);
    seedOnce(opts.dataDir.empty() ? shippedDataDir() : opts.dataDir);
    initMacros();
    registerOwnedLists();
    installConvertCommand();
    installTools();
    installProofing();
    {
        // Until the plug-ins and scripts run, nothing but this start-up changes the
        // home's profile files.
        ProfileReadScope scope;
        loadProfile();
        keyMap() = defaultKeyMap();
        macros() = MacroTable{};
        loadKeyFile();
        initSearch(&settings().findHistory, &settings().replaceHistory);
        loadDefinitionsOnFirstUse(homeDir() + kSyntaxFile);
    }
    initSyntax([] { return settings().includeDirs; });
    addFileNameListener(&followFileName);
    app.anotherInstance = !acquireInstanceLock();
    setDocumentList(&app.list);
    registerScriptBindings();
    initPlugIns();
    loadAllPlugIns(app.mainWindow);
    // The desktop's bars are set up for the modules now loaded; the runner has none.
    if (app.mainWindow) sendEvent(kEventToolBar, app.mainWindow);
    // The command line's files come before the start-up scripts, so that those can
    // work on them, and stay in front of what the scripts and recovery open.
    Document* last = nullptr;
    for (const std::string& f : opts.files) {
        Document* d = opts.desktop ? openOrCreateDocument(app, f) : openDocument(app, f);
        if (d) last = d;
        else ++app.failedOpens;
    }
    runStartUpScripts();
    if (opts.desktop) recoverIfAlone(app);
    if (isDocument(app, last)) setActiveDocument(app, last);
    app.started = true;
    sendEvent(kEventStarted, 0, reinterpret_cast<intptr_t>(&app), 0);
}

void shutDown(Application& app) {
    if (guarded == &app) guarded = nullptr;
    if (app.started) {
        const intptr_t active = reinterpret_cast<intptr_t>(app.active);
        sendEvent(kEventFrameClosing, active);
        sendEvent(kEventFrameGroupEnd, active);
        saveProfile(settings().saveSettings);
        if (keyMapChanged() && shell().ask(keymsg::kAskSaveChanges, false) == Answer::Yes) saveKeyFile();
        setKeyMapChanged(false);
    }
    while (!app.documents.empty()) destroyDocument(app, app.documents.back().get());
    unloadAllPlugIns(reinterpret_cast<intptr_t>(&app));
    if (documentList() == &app.list) setDocumentList(nullptr);
    releaseInstanceLock();
    app.started = false;
}

Document* newDocument(Application& app) {
    auto doc = std::make_unique<Document>();
    doc->fileName = nextNewDocumentName(settings().newFileExtension);
    doc->textFormat = textFormatOf(options().defaultFileFormat).value_or(TextFormat::Dos);
    applyWrapRule(*doc);
    app.documents.push_back(std::move(doc));
    Document* made = app.documents.back().get();
    sendDocumentEvent(kEventDocumentCreated, *made);
    setActiveDocument(app, made);
    return made;
}

Document* findDocument(const Application& app, const std::string& path) {
    const std::string full = fullPath(path);
    for (const auto& d : app.documents)
        if (d->hasFile && d->fileName == full) return d.get();
    return nullptr;
}

Document* openDocument(Application& app, const std::string& path) {
    if (Document* open = findDocument(app, path)) {
        setActiveDocument(app, open);
        return open;
    }
    auto doc = std::make_unique<Document>();
    doc->textFormat = textFormatOf(options().defaultFileFormat).value_or(TextFormat::Dos);
    if (!readFile(*doc, path, options().detectFileFormat)) return nullptr;
    app.documents.push_back(std::move(doc));
    Document* opened = app.documents.back().get();
    sendDocumentEvent(kEventDocumentOpened, *opened);
    setActiveDocument(app, opened);
    return opened;
}

Document* openOrCreateDocument(Application& app, const std::string& path) {
    const std::string full = fullPath(path);
    const size_t slash = full.rfind('/');
    const std::string folder = slash == 0 ? "/" : full.substr(0, slash);
    // Anything else gets the reader's own answer, a missing folder included.
    if (findDocument(app, full) || fileExists(full) || !isDirectory(folder)) return openDocument(app, path);
    Document* doc = newDocument(app);
    renameDocument(*doc, full);
    return doc;
}

bool closeDocument(Application& app, Document* doc) {
    if (!isDocument(app, doc)) return true;
    switch (askSaveChanges(*doc)) {
    case Answer::Cancel: return false;
    case Answer::Yes:
        if (!saveDocument(*doc)) return false;
        break;
    case Answer::No: break;
    }
    if (vetoed(kEventBeforeClose, *doc)) return false;
    destroyDocument(app, doc);
    return true;
}

void destroyDocument(Application& app, Document* doc) {
    auto it = std::find_if(app.documents.begin(), app.documents.end(),
                           [doc](const auto& d) { return d.get() == doc; });
    if (it == app.documents.end()) return;
    sendDocumentEvent(kEventDestroying, *doc);
    // The listener may have closed documents itself.
    it = std::find_if(app.documents.begin(), app.documents.end(), [doc](const auto& d) { return d.get() == doc; });
    if (it == app.documents.end()) return;
    const size_t index = static_cast<size_t>(it - app.documents.begin());
    if (app.active == doc) sendDocumentEvent(kEventDeactivated, *doc);
    letGo(*doc);
    app.documents.erase(it);
    if (app.active == doc) {
        app.active = nullptr;
        if (!app.documents.empty())
            setActiveDocument(app, app.documents[std::min(index, app.documents.size() - 1)].get());
    }
}

namespace {

void autoSaveAll(Application& app) {
    std::vector<Document*> docs;
    for (const auto& doc : app.documents) docs.push_back(doc.get());
    autoSaveDocuments(docs, homeDir());
}

}  // namespace

void autoSaveTick(Application& app, int64_t nowMs) {
    if (app.lastAutoSaveMs < 0 || !options().autoSave) {
        app.lastAutoSaveMs = nowMs;
        return;
    }
    if (nowMs - app.lastAutoSaveMs < options().autoSaveEvery * kMsPerMinute) return;
    app.lastAutoSaveMs = nowMs;
    autoSaveAll(app);
}

void autoSaveNow(Application& app) { autoSaveAll(app); }

void guardAgainstAbruptEnd(Application& app) {
    static const bool registered = std::atexit(saveGuardedWork) == 0;
    if (registered) guarded = &app;
}

void autoSaveTick(Application& app) {
    autoSaveTick(app, static_cast<int64_t>(monotonicMilliseconds()));
}

void setActiveDocument(Application& app, Document* doc) {
    if (!isDocument(app, doc) || app.active == doc) return;
    if (app.active) sendDocumentEvent(kEventDeactivated, *app.active);
    app.active = doc;
    sendDocumentEvent(kEventActivated, *doc);
}

bool isDocument(const Application& app, const Document* doc) {
    return doc && std::any_of(app.documents.begin(), app.documents.end(),
                              [doc](const auto& d) { return d.get() == doc; });
}

std::string documentSummary(const Document& doc) {
    size_t bytes = doc.lines.textBytes;
    bytes += static_cast<size_t>(doc.lines.lastIndex) * lineEndOf(doc.textFormat).size();
    const auto fmt = static_cast<size_t>(doc.textFormat);
    std::string s = std::string(fileNamePart(doc.fileName)) + ": " + std::to_string(doc.lines.count()) +
                    (doc.lines.count() == 1 ? " line, " : " lines, ") + std::to_string(bytes) + " bytes, " +
                    kFormatNames[fmt];
    if (doc.readOnly) s += ", read-only";
    if (doc.modified) s += ", modified";
    return s;
}

}  // namespace zol
