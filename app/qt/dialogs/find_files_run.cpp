#include "app/qt/dialogs/find_files_run.h"

#include <QCoreApplication>
#include <QEventLoop>

#include "app/qt/dialogs/find_files_dialog.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame.h"
#include "engine/columns.h"
#include "engine/document_list.h"
#include "engine/edit.h"
#include "engine/line_capacity.h"
#include "engine/shell.h"
#include "platform/paths.h"
#include "search/messages.h"
#include "tools/output_document.h"

namespace zol {
namespace {

// A line of the output stays one line of the document: what passes the capacity is cut.
std::string fitted(const std::string& line) {
    if (lineWidth(line) <= kMaxColumns) return line;
    std::string cut = line.substr(0, std::min(line.size(), static_cast<size_t>(kMaxLineBytes)));
    while (lineWidth(cut) > kMaxColumns) cut.resize(locateColumn(cut, kMaxColumns).offset);
    return cut;
}

std::string withText(const char* format, const std::string& text) {
    std::string s = format;
    s.replace(s.find("%s"), 2, text);
    return s;
}

// The open documents whose text differs from their files: searched instead of them.
OpenTexts modifiedTexts(const Document* except) {
    OpenTexts out;
    DocumentList* list = documentList();
    for (size_t i = 0; list && i < list->count(); ++i) {
        const Document* d = list->at(i);
        if (d == except || !d->hasFile || !d->modified) continue;
        std::string& text = out[fullPath(d->fileName)];
        for (int32_t l = 0; l <= lastLine(*d); ++l) {
            if (l) text += '\n';
            text.append(lineText(*d, l));
        }
    }
    return out;
}

Document* openDocumentOf(const std::string& path, const Document* except) {
    DocumentList* list = documentList();
    for (size_t i = 0; list && i < list->count(); ++i) {
        Document* d = list->at(i);
        if (d != except && d->hasFile && fullPath(d->fileName) == path) return d;
    }
    return nullptr;
}

}  // namespace

TFindFilesRun& TFindFilesRun::of(TMainFrame& frame) {
    if (auto* run = frame.findChild<TFindFilesRun*>(QString(), Qt::FindDirectChildrenOnly)) return *run;
    return *new TFindFilesRun(frame);
}

TFindFilesRun::TFindFilesRun(TMainFrame& frame) : QObject(&frame), frame_(frame) {
    last_.query.find.subfolders = true;
}

TFindFilesRun::~TFindFilesRun() {
    stop_ = true;
    worker_.join();
}

Document* TFindFilesRun::output() const {
    return output_ && isOpenDocument(output_) && output_->serial == outputSerial_ ? output_ : nullptr;
}

bool TFindFilesRun::endRunning() {
    if (!running_) return true;
    if (shell().ask(searchmsg::kSearchRunning, false) != Answer::Yes) return false;
    stop_ = true;
    waitForEnd();
    return true;
}

void TFindFilesRun::findInFiles() {
    if (!endRunning()) return;
    FindFilesChoice choice = last_;
    if (TVekWinEditor* v = frame_.activeView(); v && choice.query.find.folder.empty() && v->document()->hasFile)
        choice.query.find.folder = std::string(folderPart(v->document()->fileName));
    if (!TFindFilesDialog::run(&frame_, choice, false)) return;
    last_ = choice;
    startFind(choice.query.find);
}

void TFindFilesRun::replaceInFiles() {
    if (!endRunning()) return;
    FindFilesChoice choice = last_;
    if (!TFindFilesDialog::run(&frame_, choice, true)) return;
    last_ = choice;
    runReplace(choice);
}

Document* TFindFilesRun::freshOutput(const std::string& folder, const char* title) {
    // A hit names its file below the folder, so the folder is where the message action
    // looks for it; the output's name says which folder.
    const std::string root = folder.empty() || folder.back() == '/' ? folder : folder + "/";
    Document* doc = openOutputDocument(root + title, {root, ""});
    if (!doc) return nullptr;
    output_ = doc;
    outputSerial_ = doc->serial;
    outputEmpty_ = true;
    frame_.syncViews();
    if (TVekWinEditor* v = frame_.viewOf(doc)) v->refreshCaption();
    return doc;
}

void TFindFilesRun::append(const std::vector<std::string>& lines) {
    Document* doc = output();
    if (!doc) {
        stop_ = true;  // the user closed the output
        return;
    }
    if (lines.empty()) return;
    std::string text;
    for (const std::string& line : lines) {
        if (!outputEmpty_ || !text.empty()) text += '\n';
        text += fitted(line);
    }
    outputEmpty_ = false;
    const int32_t last = lastLine(*doc);
    rawInsert(*doc, makePos(lineWidthAt(*doc, last), last), text, nullptr);
    setModified(*doc, false);
    if (TVekWinEditor* v = frame_.viewOf(doc)) v->redraw();
}

void TFindFilesRun::startFind(const FileSearchQuery& query) {
    if (running_) {
        stop_ = true;
        waitForEnd();
    }
    FileSearchQuery q = query;
    q.folder = fullPath(q.folder);
    if (!freshOutput(q.folder, searchmsg::kFindInFilesTitle)) return;
    OpenTexts open = modifiedTexts(output_);
    stop_ = false;
    running_ = true;
    shell().statusMessage(withText(searchmsg::kSearching, q.pattern));
    const bool started = worker_.start([this, q, open = std::move(open)] {
        const FileSearchTotals totals = zol::findInFiles(q, open, stop_, [this](std::vector<std::string>& lines) {
            QMetaObject::invokeMethod(this, [this, batch = std::move(lines)] { append(batch); }, Qt::QueuedConnection);
        });
        QMetaObject::invokeMethod(this, [this, totals] { done(totals); }, Qt::QueuedConnection);
    });
    if (!started) done({});
}

void TFindFilesRun::done(const FileSearchTotals& totals) {
    worker_.join();
    running_ = false;
    append(summaryLines(totals));
    shell().statusMessage(summaryLines(totals).front());
    Q_EMIT finished();
}

void TFindFilesRun::waitForEnd() {
    if (!running_) return;
    QEventLoop loop;
    connect(this, &TFindFilesRun::finished, &loop, &QEventLoop::quit);
    if (running_) loop.exec();
}

void TFindFilesRun::runReplace(const FindFilesChoice& choice) {
    FileReplaceQuery q = choice.query;
    q.find.folder = fullPath(q.find.folder);
    Document* out = freshOutput(q.find.folder, searchmsg::kReplaceInFilesTitle);
    if (!out) return;
    ReplaceInFilesHooks hooks;
    hooks.openDocument = [out](const std::string& path) { return openDocumentOf(path, out); };
    if (choice.prompt)
        hooks.ask = [this](const FileReplacePreview& p) { return TReplaceInFilesPromptDlg::run(&frame_, p); };
    hooks.output = [this](std::vector<std::string>& lines) { append(lines); };
    shell().busyCursor(true);
    const ReplaceTotals totals = zol::replaceInFiles(q, hooks);
    shell().busyCursor(false);
    append(replaceSummaryLines(totals));
    DocumentList* list = documentList();
    for (size_t i = 0; list && i < list->count(); ++i)
        if (TVekWinEditor* v = frame_.viewOf(list->at(i))) v->redraw();
    shell().statusMessage(replaceSummaryLines(totals).front());
}

}  // namespace zol
