// The application object: the document list, the active document, and the start-up
// and exit order shared by both front ends.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/document.h"
#include "engine/document_list.h"

namespace zol {

struct StartupOptions {
    std::string home;                 // --home, empty for the default
    std::vector<std::string> files;   // opened in order; the last becomes active
    std::string dataDir = {};         // seeds the home; empty for the shipped data folder
    // The desktop editor, where a person sees what start-up brings: a file that does
    // not exist yet opens as an empty document of that name, and the side files of a
    // session that did not end are recovered. The headless runner reports a missing
    // file, as batch tools do, and leaves side files alone for the next desktop start:
    // a batch run that recovered them would end without saving and lose the work.
    bool desktop = false;
};

struct Application;

// The application's documents as the lower layers reach them.
class ApplicationDocuments final : public DocumentList {
public:
    explicit ApplicationDocuments(Application& app) : app_(app) {}
    size_t count() const override;
    Document* at(size_t index) const override;
    Document* active() const override;
    void activate(Document* doc) override;
    Document* create() override;
    Document* open(const std::string& path) override;
    bool close(Document* doc) override;
    void destroy(Document* doc) override;
    intptr_t mainWindow() const override;

private:
    Application& app_;
};

struct Application {
    std::vector<std::unique_ptr<Document>> documents;  // in window order
    Document* active = nullptr;                        // null only when the list is empty
    bool started = false;
    bool anotherInstance = false;                      // the lock was held when we started
    int failedOpens = 0;                               // files of the command line that did not open
    intptr_t mainWindow = 0;                           // the desktop frame, 0 headless
    ApplicationDocuments list{*this};
    int recovered = 0;                                 // documents brought back from side files
    int64_t lastAutoSaveMs = -1;                       // clock of the last auto-save round, -1 before the first tick

    Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    ~Application();
};

// Settings, shipped data, plug-ins, the files of the command line, the start-up
// scripts, recovery of auto-saved documents; the last file opened is then the active
// document. Ends by telling the plug-ins that the program has started.
void startUp(Application& app, const StartupOptions& opts);
// Tells the plug-ins the program closes, saves the settings when asked to, drops every
// document and unloads the plug-ins.
void shutDown(Application& app);

Document* newDocument(Application& app);
// The document of this file, null when it is not open.
Document* findDocument(const Application& app, const std::string& path);
// Reads a file into a new document; null (the reason already shown) when it cannot.
// A file that is already open activates its document instead.
Document* openDocument(Application& app, const std::string& path);
// A file named on the command line: opened when it exists; when it does not yet but
// its folder does, an empty document of that name that the first save creates.
Document* openOrCreateDocument(Application& app, const std::string& path);
// Asks to save a modified document and lets listeners keep it open; true when it
// was closed.
bool closeDocument(Application& app, Document* doc);
// Removes the document without asking anything.
void destroyDocument(Application& app, Document* doc);
void setActiveDocument(Application& app, Document* doc);
bool isDocument(const Application& app, const Document* doc);

// The front ends call this from their timer, every few seconds; it auto-saves the
// modified documents once "AutoSaveEvery" minutes have passed since the last round
// (or since the first tick). nowMs is any clock that only moves forward.
void autoSaveTick(Application& app, int64_t nowMs);
// The same on the steady clock.
void autoSaveTick(Application& app);
// Writes every modified document to its side file now, whatever the timer and the
// "AutoSave" setting say: the program is about to end without asking anything.
void autoSaveNow(Application& app);
// From here until shutDown, a process end that skips shutDown (the toolkit exits when
// its display goes away) first writes the modified documents to their side files, so
// the next start offers them back.
void guardAgainstAbruptEnd(Application& app);

// The folder whose files are copied into a new home.
std::string shippedDataDir();
// One line describing a document, as the headless runner prints it.
std::string documentSummary(const Document& doc);

}  // namespace zol
