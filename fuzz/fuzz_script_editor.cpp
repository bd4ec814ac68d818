// Random scripts run against documents through the editor family of built-ins (the
// same Zol_ functions plug-ins call), sealed off from files and processes and with a
// step budget. Whatever a script does, every document must stay whole afterwards: its
// line list, the capacity of every line, its cursor and selection.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "engine/document_list.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "plugin/script_bindings.h"
#include "script/runner.h"
#include "tests/soak/lib/soak_check.h"

namespace {

void check(const std::string& why) {
    if (why.empty()) return;
    std::fprintf(stderr, "damaged document: %s\n", why.c_str());
    std::abort();
}

// Documents without windows or files: opening one from disk always fails.
class Documents final : public zol::DocumentList {
public:
    // New documents beyond this many are refused, so that a loop cannot eat memory.
    static constexpr size_t kMaxDocuments = 8;

    size_t count() const override { return docs_.size(); }
    zol::Document* at(size_t i) const override { return i < docs_.size() ? docs_[i].get() : nullptr; }
    zol::Document* active() const override { return active_; }
    void activate(zol::Document* doc) override { active_ = doc; }
    zol::Document* create() override {
        if (docs_.size() >= kMaxDocuments) return nullptr;
        docs_.push_back(std::make_unique<zol::Document>());
        return active_ = docs_.back().get();
    }
    zol::Document* open(const std::string&) override { return nullptr; }
    bool close(zol::Document* doc) override {
        destroy(doc);
        return true;
    }
    void destroy(zol::Document* doc) override {
        for (size_t i = 0; i < docs_.size(); ++i) {
            if (docs_[i].get() != doc) continue;
            docs_.erase(docs_.begin() + static_cast<std::ptrdiff_t>(i));
            active_ = docs_.empty() ? nullptr : docs_.front().get();
            return;
        }
    }
    void reset(std::string_view text) {
        docs_.clear();
        zol::Document* doc = create();
        zol::rawInsert(*doc, zol::Pos{}, text, nullptr);
        zol::setCursor(*doc, zol::Pos{});
    }

private:
    std::vector<std::unique_ptr<zol::Document>> docs_;
    zol::Document* active_ = nullptr;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FILE* sink = std::fopen("/dev/null", "w");
    static FILE* empty = std::tmpfile();
    static Documents docs;
    static const bool bound = [] {
        zol::registerScriptBindings();
        zol::setDocumentList(&docs);
        return true;
    }();
    (void)bound;

    zol::options() = zol::EditOptions{};
    docs.reset("int main(void)\r\n{\r\n\tprintf(\"hello\\n\");  /* greet */\r\n\treturn 0;\r\n}\r\n");
    zol::ScriptRunOptions opts;
    opts.includeDir = ZOLDER_SCRIPT_INCLUDE_DIR;
    opts.stepBudget = 20000;
    opts.sealed = true;
    opts.heapLimit = 64u << 20;
    opts.in = empty;
    opts.out = sink;
    opts.err = sink;
    const std::string text(reinterpret_cast<const char*>(data), size);
    zol::runScriptText("/fuzz/input.c", text, {"input.c"}, opts);
    for (size_t i = 0; i < docs.count(); ++i) {
        const zol::Document& doc = *docs.at(i);
        check(zol::soak::checkLineList(doc.lines));
        check(zol::soak::checkLineTexts(doc.lines, 0, doc.lines.lastIndex));
        check(zol::soak::checkCursorAndSelection(doc));
    }
    return 0;
}
