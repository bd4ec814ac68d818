// The application object: the document list, the active document, and the start-up
// and exit order shared by both front ends.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/document.h"

namespace zol {

struct StartupOptions {
    std::string home;                 // --home, empty for the default
    std::vector<std::string> files;   // opened in order; the last becomes active
};

struct Application {
    std::vector<std::unique_ptr<Document>> documents;  // in window order
    Document* active = nullptr;                        // null only when the list is empty
    bool started = false;
    bool anotherInstance = false;                      // the lock was held when we started
    int failedOpens = 0;                               // files of the command line that did not open
    int recovered = 0;                                 // documents brought back from side files
    int64_t lastAutoSaveMs = -1;                       // clock of the last auto-save round, -1 before the first tick

    Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    ~Application();
};

// Settings, shipped data, then the files of the command line.
void startUp(Application& app, const StartupOptions& opts);
// Saves the settings when asked to and drops every document.
void shutDown(Application& app);

Document* newDocument(Application& app);
// Reads a file into a new document; null (the reason already shown) when it cannot.
Document* openDocument(Application& app, const std::string& path);
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

// The folder whose files are copied into a new home.
std::string shippedDataDir();
// One line describing a document, as the headless runner prints it.
std::string documentSummary(const Document& doc);

}  // namespace zol
