#include "tools/output_document.h"

#include <map>

#include "engine/columns.h"
#include "engine/document.h"
#include "engine/document_list.h"
#include "engine/line_capacity.h"
#include "engine/shell.h"

namespace zol {
namespace {

struct OutputState {
    OutputOrigin origin;
    bool tracked = false;  // filled by a tool, so origin means something
    int32_t index = -1;
    int writers = 0;
    uint64_t opened = 0;  // order of opening, for latestOutputDocument
};

// By document serial: the documents themselves belong to the application.
std::map<uint64_t, OutputState>& states() {
    static std::map<uint64_t, OutputState> map;
    return map;
}

uint64_t openCounter = 0;

Document* openDocumentWithSerial(uint64_t serial) {
    DocumentList* list = documentList();
    for (size_t i = 0; list && i < list->count(); ++i)
        if (Document* d = list->at(i); d->serial == serial) return d;
    return nullptr;
}

void forgetClosed() {
    for (auto it = states().begin(); it != states().end();)
        it = openDocumentWithSerial(it->first) ? std::next(it) : states().erase(it);
}

OutputState& stateOf(const Document& doc) { return states()[doc.serial]; }

Document* reusable(std::string_view name) {
    DocumentList* list = documentList();
    for (size_t i = 0; list && i < list->count(); ++i) {
        Document* d = list->at(i);
        if (!d->outputWindow || d->fileName != name) continue;
        const auto it = states().find(d->serial);
        if (it == states().end() || it->second.writers == 0) return d;
    }
    return nullptr;
}

}  // namespace

Document* openOutputDocument(std::string_view name, const OutputOrigin& origin) {
    DocumentList* list = documentList();
    if (!list) return nullptr;
    forgetClosed();
    Document* doc = reusable(name);
    if (doc) {
        resetText(*doc);
        list->activate(doc);
    } else {
        doc = list->create();
        if (!doc) return nullptr;
    }
    doc->fileName = std::string(name);
    doc->hasFile = false;
    doc->outputWindow = true;
    doc->syntaxSlot = 0;
    doc->modified = false;
    OutputState& s = stateOf(*doc);
    s = OutputState{origin, true, -1, 0, ++openCounter};
    if (doc->view) {
        doc->view->refreshCaption();
        doc->view->redraw();
    }
    return doc;
}

const OutputOrigin* outputOrigin(const Document& doc) {
    const auto it = states().find(doc.serial);
    return it != states().end() && it->second.tracked ? &it->second.origin : nullptr;
}

int32_t messageIndex(const Document& doc) {
    const auto it = states().find(doc.serial);
    return it != states().end() ? it->second.index : -1;
}

void setMessageIndex(Document& doc, int32_t index) { stateOf(doc).index = index; }

Document* latestOutputDocument() {
    Document* best = nullptr;
    uint64_t bestOrder = 0;
    DocumentList* list = documentList();
    for (size_t i = 0; list && i < list->count(); ++i) {
        Document* d = list->at(i);
        if (!d->outputWindow) continue;
        const auto it = states().find(d->serial);
        // A document flagged by a script counts as older than any a tool filled.
        const uint64_t order = it != states().end() ? it->second.opened : 0;
        if (!best || order >= bestOrder) {
            best = d;
            bestOrder = order;
        }
    }
    return best;
}

OutputWriter::OutputWriter(Document& doc) : doc_(&doc), serial_(doc.serial) {
    ++stateOf(doc).writers;
    placeholder_ = doc.lines.count() == 1 && doc.lines.text(doc.lines.first).empty();
}

OutputWriter::~OutputWriter() {
    const auto it = states().find(serial_);
    if (it != states().end() && it->second.writers > 0) --it->second.writers;
}

bool OutputWriter::alive() const { return isOpenDocument(doc_) && doc_->serial == serial_; }

void OutputWriter::emit(std::string_view line) {
    LineList& ll = doc_->lines;
    if (placeholder_) {
        ll.setText(ll.first, line);
        placeholder_ = false;
        return;
    }
    if (tail_ == kNoLine) tail_ = ll.find(ll.lastIndex);
    tail_ = ll.insertAfter(tail_, ll.lastIndex + 1, line);
}

// A line wider than a line may be goes on in the next one; the cut never falls inside
// a tab.
void OutputWriter::emitWrapped(std::string_view line) {
    while (line.size() >= static_cast<size_t>(kMaxColumns) || lineWidth(line) > kMaxColumns) {
        const ColumnHit hit = locateColumn(line, kMaxColumns);
        if (hit.offset >= line.size()) break;
        const size_t cut = hit.offset > 0 ? hit.offset : 1;
        emit(line.substr(0, cut));
        line.remove_prefix(cut);
    }
    emit(line);
}

void OutputWriter::splitPartial() {
    size_t from = 0;
    while (partial_.size() - from > static_cast<size_t>(kMaxColumns)) {
        const std::string_view rest(partial_.data() + from, partial_.size() - from);
        const ColumnHit hit = locateColumn(rest, kMaxColumns);
        if (hit.offset >= rest.size()) break;
        const size_t cut = hit.offset > 0 ? hit.offset : 1;
        emit(rest.substr(0, cut));
        from += cut;
    }
    partial_.erase(0, from);
}

void OutputWriter::append(std::string_view bytes) {
    const size_t from = partial_.size();
    partial_.append(bytes);
    // Lines are kept zero-terminated: a NUL would end one early.
    for (size_t i = from; i < partial_.size(); ++i)
        if (partial_[i] == '\0') partial_[i] = ' ';
    if (partial_.size() > static_cast<size_t>(kMaxColumns)) splitPartial();
}

void OutputWriter::endLine() {
    emitWrapped(partial_);
    partial_.clear();
}

void OutputWriter::write(std::string_view bytes) {
    if (finished_ || !alive() || bytes.empty()) return;
    const bool follow = doc_->cursor.line == lastLine(*doc_);
    tail_ = kNoLine;
    size_t i = 0;
    while (i < bytes.size()) {
        if (pendingCr_) {
            pendingCr_ = false;
            if (bytes[i] == '\n') {
                ++i;
                continue;
            }
        }
        size_t end = i;
        while (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r') ++end;
        append(bytes.substr(i, end - i));
        if (end == bytes.size()) break;
        endLine();
        pendingCr_ = bytes[end] == '\r';
        i = end + 1;
    }
    afterWrite(follow);
}

void OutputWriter::finish() {
    if (finished_) return;
    finished_ = true;
    if (!alive()) return;
    const bool follow = doc_->cursor.line == lastLine(*doc_);
    tail_ = kNoLine;
    if (!partial_.empty()) endLine();
    afterWrite(follow);
}

void OutputWriter::afterWrite(bool followed) {
    doc_->modified = false;
    if (followed) setCursor(*doc_, Pos{0, lastLine(*doc_)});
    if (!doc_->view) return;
    doc_->view->redraw();
    if (followed) doc_->view->refreshStatus();
}

}  // namespace zol
