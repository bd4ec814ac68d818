#include "app/application.h"

#include <algorithm>
#include <filesystem>

#include "config/settings.h"
#include "engine/options.h"
#include "files/doc_names.h"
#include "files/textfile.h"
#include "platform/instance_lock.h"
#include "platform/paths.h"
#include "syntax/commands.h"
#include "syntax/doc_syntax.h"
#include "syntax/table.h"

namespace zol {
namespace {

const char* const kFormatNames[] = {"DOS/Windows", "UNIX", "Macintosh"};

}  // namespace

Application::~Application() { documents.clear(); }

std::string shippedDataDir() {
    namespace fs = std::filesystem;
    const std::string exe = executablePath();
    if (!exe.empty()) {
        const fs::path dir = fs::path(exe).parent_path();
        for (const fs::path& p : {dir / "data", dir.parent_path() / "share" / "zolder"}) {
            std::error_code ec;
            if (fs::is_directory(p, ec)) return p.string();
        }
    }
    return ZOLDER_BUILD_DATA_DIR;
}

void startUp(Application& app, const StartupOptions& opts) {
    initHomeDir(opts.home);
    seedHome(shippedDataDir());
    loadProfile();
    loadDefinitions(syntaxTable(), homeDir() + "syntax.hgl");
    initSyntax([] { return settings().includeDirs; });
    addFileNameListener(&followFileName);
    app.anotherInstance = !acquireInstanceLock();
    for (const std::string& f : opts.files) {
        if (!openDocument(app, f)) ++app.failedOpens;
    }
    app.started = true;
}

void shutDown(Application& app) {
    if (app.started) saveProfile(settings().saveSettings);
    app.documents.clear();
    app.active = nullptr;
    releaseInstanceLock();
    app.started = false;
}

Document* newDocument(Application& app) {
    auto doc = std::make_unique<Document>();
    doc->fileName = nextNewDocumentName(settings().newFileExtension);
    doc->textFormat = options().defaultFileFormat;
    app.documents.push_back(std::move(doc));
    app.active = app.documents.back().get();
    return app.active;
}

Document* openDocument(Application& app, const std::string& path) {
    auto doc = std::make_unique<Document>();
    doc->textFormat = options().defaultFileFormat;
    if (!readFile(*doc, path, options().detectFileFormat)) return nullptr;
    app.documents.push_back(std::move(doc));
    app.active = app.documents.back().get();
    return app.active;
}

void destroyDocument(Application& app, Document* doc) {
    auto it = std::find_if(app.documents.begin(), app.documents.end(),
                           [doc](const auto& d) { return d.get() == doc; });
    if (it == app.documents.end()) return;
    const size_t index = static_cast<size_t>(it - app.documents.begin());
    app.documents.erase(it);
    if (app.active == doc) {
        app.active = app.documents.empty() ? nullptr
                                           : app.documents[std::min(index, app.documents.size() - 1)].get();
    }
}

void setActiveDocument(Application& app, Document* doc) {
    if (isDocument(app, doc)) app.active = doc;
}

bool isDocument(const Application& app, const Document* doc) {
    return doc && std::any_of(app.documents.begin(), app.documents.end(),
                              [doc](const auto& d) { return d.get() == doc; });
}

std::string documentSummary(const Document& doc) {
    size_t bytes = 0;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) bytes += doc.lines.header(r).len;
    const size_t eol = doc.textFormat == 0 ? 2 : 1;
    bytes += static_cast<size_t>(doc.lines.lastIndex) * eol;
    const int fmt = doc.textFormat >= 0 && doc.textFormat <= 2 ? doc.textFormat : 0;
    std::string s = std::string(fileNamePart(doc.fileName)) + ": " + std::to_string(doc.lines.count()) +
                    (doc.lines.count() == 1 ? " line, " : " lines, ") + std::to_string(bytes) + " bytes, " +
                    kFormatNames[fmt];
    if (doc.readOnly) s += ", read-only";
    if (doc.modified) s += ", modified";
    return s;
}

}  // namespace zol
