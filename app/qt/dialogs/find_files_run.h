// Running find in files and replace in files from the desktop. A find runs on a worker
// thread that reads the files and hands batches of result lines to the window thread,
// which appends them to an output document; the editor stays usable meanwhile. Closing
// that document, or starting another search, stops the one running. Replace in files
// changes documents and may ask about each file, so it runs on the window thread.
#pragma once
#include <QObject>
#include <atomic>
#include <string>
#include <vector>

#include "app/qt/dialogs/find_files_dialog.h"
#include "platform/worker_thread.h"

namespace zol {

class TMainFrame;
struct Document;

class TFindFilesRun : public QObject {
    Q_OBJECT
public:
    // The frame's one runner, made on first use.
    static TFindFilesRun& of(TMainFrame& frame);
    explicit TFindFilesRun(TMainFrame& frame);
    ~TFindFilesRun() override;

    // The dialogs, then the search or the replacement.
    void findInFiles();
    void replaceInFiles();
    // Starts a find for a query that fileSearchProblem accepts; a running one stops first.
    void startFind(const FileSearchQuery& q);
    // Replaces as the dialog's choice says; returns when done.
    void runReplace(const FindFilesChoice& choice);
    bool running() const { return running_; }
    // Asks the running find to stop; its summary says so once it has.
    void stop() { stop_ = true; }
    // Waits for a running find to end, handing over what it found (tests).
    void waitForEnd();
    // The output document of the last run while it is open, else null.
    Document* output() const;

Q_SIGNALS:
    void finished();

private:
    Document* freshOutput(const std::string& folder, const char* title);
    void append(const std::vector<std::string>& lines);
    void done(const FileSearchTotals& totals);
    // False when the user would rather let the running find go on.
    bool endRunning();

    TMainFrame& frame_;
    WorkerThread worker_;
    std::atomic<bool> stop_{false};
    bool running_ = false;
    Document* output_ = nullptr;
    uint64_t outputSerial_ = 0;
    bool outputEmpty_ = true;
    FindFilesChoice last_;
};

}  // namespace zol
