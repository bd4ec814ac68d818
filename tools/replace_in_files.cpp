#include "tools/replace_in_files.h"

#include "engine/document.h"
#include "engine/options.h"
#include "files/textfile.h"
#include "platform/file_io.h"
#include "platform/folder_walk.h"
#include "search/messages.h"
#include "search/replace.h"

namespace zol {
namespace {

std::string_view firstLineEnd(std::string_view text) {
    const size_t at = text.find_first_of("\r\n");
    if (at == std::string_view::npos) return "\n";
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') return "\r\n";
    return text.substr(at, 1);
}

// Appends text with each of its line ends (CR LF, LF or CR) written as eol.
void appendWithLineEnds(std::string& out, std::string_view text, std::string_view eol) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') {
            out += text[i];
            continue;
        }
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        out += eol;
    }
}

std::string joinedLines(const Document& doc) {
    std::string text;
    for (int32_t i = 0; i <= lastLine(doc); ++i) {
        if (i) text += '\n';
        text.append(lineText(doc, i));
    }
    return text;
}

std::string firstLineOf(const std::string& s) { return s.substr(0, s.find_first_of("\r\n")); }

class ReplaceVisitor final : public FileWalkVisitor {
public:
    ReplaceVisitor(const FileReplaceQuery& q, const ReplaceInFilesHooks& hooks, Searcher& s)
        : q_(q), hooks_(hooks), s_(s) {}

    void file(const std::string& path, std::string_view rel) override {
        Document* doc = hooks_.openDocument ? hooks_.openDocument(path) : nullptr;
        if (doc) {
            bytes_ = joinedLines(*doc);
        } else if (const FsResult res = readRegularFile(path, bytes_); res != FsResult::Ok) {
            if (res != FsResult::Missing)
                unreadable(rel, res == FsResult::Denied ? Unreadable::Denied : Unreadable::Failed);
            return;
        }
        if (isBinaryText(bytes_)) {
            ++totals.search.binary;
            return;
        }
        ++totals.search.searched;
        // Most files hold no hit: the fast search of find in files tells them apart.
        const int any = searchText(s_, bytes_, [](int64_t, std::string_view) { return false; });
        if (any == kSearchNotFound) return;
        s_.gaveUp = false;
        std::vector<ChangedLine> changed;
        int64_t gaveUpAt = 0;
        const int hits = replaceInText(s_, bytes_, q_.replacement.c_str(), out_, &changed, &gaveUpAt);
        if (hits == kSearchError) {
            s_.gaveUp = false;
            ++totals.search.unreadable;
            emit({hitLine(rel, gaveUpAt, unreadableReason(Unreadable::TooLong))});
            return;
        }
        if (hits == 0) return;
        ++totals.search.withHits;
        if (doc ? doc->readOnly : isReadOnlyFile(path)) {
            ++totals.left;
            emit({std::string(rel) + (doc ? searchmsg::kReadOnlyDocument : searchmsg::kReadOnlyFile)});
            return;
        }
        if (!askAbout(rel, doc != nullptr, hits, changed)) return;
        if (doc ? !changeDocument(*doc, rel) : !writeBack(path, rel)) return;
        if (!doc) totals.replacements += static_cast<uint64_t>(hits);
        totals.search.lines += changed.size();
        std::vector<std::string> lines;
        for (const ChangedLine& c : changed) lines.push_back(hitLine(rel, c.line, firstLineOf(c.after)));
        emit(std::move(lines));
    }
    void unreadable(std::string_view rel, Unreadable why) override {
        ++totals.search.unreadable;
        emit({unreadableLine(rel, why)});
    }
    bool stopped() override {
        if (!cancelled_ && hooks_.stopped && hooks_.stopped()) cancelled_ = true;
        return cancelled_;
    }
    bool cancelled() const { return cancelled_; }

    ReplaceTotals totals;

private:
    void emit(std::vector<std::string> lines) {
        if (hooks_.output) hooks_.output(lines);
    }
    // False when the file is to be left as it is.
    bool askAbout(std::string_view rel, bool open, int hits, const std::vector<ChangedLine>& changed) {
        if (!hooks_.ask || all_) return true;
        FileReplacePreview p{std::string(rel), open, hits, {}};
        p.lines.assign(changed.begin(), changed.begin() + static_cast<std::ptrdiff_t>(std::min(changed.size(), kPreviewLines)));
        switch (hooks_.ask(p)) {
            case FilePromptAnswer::Replace: return true;
            case FilePromptAnswer::All: all_ = true; return true;
            case FilePromptAnswer::Skip: return false;
            case FilePromptAnswer::Cancel: break;
        }
        cancelled_ = true;
        return false;
    }
    bool changeDocument(Document& doc, std::string_view rel) {
        ReplaceAllResult r;
        if (replaceAll(doc, s_, q_.replacement.c_str(), r) != kSearchFound) return false;
        ++totals.documentsChanged;
        totals.replacements += static_cast<uint64_t>(r.replaced);
        if (r.skippedLines) {
            ++totals.left;
            emit({std::string(rel) + searchmsg::kLinesTooLong});
        }
        return true;
    }
    bool writeBack(const std::string& path, std::string_view rel) {
        bool written = true;
        if (options().backupFiles) written = replaceFile(backupName(path, options().backupFilesAs), bytes_);
        written = written && replaceFile(path, out_);
        if (!written) {
            ++totals.left;
            emit({std::string(rel) + searchmsg::kNotWritten});
            return false;
        }
        ++totals.filesChanged;
        return true;
    }

    const FileReplaceQuery& q_;
    const ReplaceInFilesHooks& hooks_;
    Searcher& s_;
    std::string bytes_, out_;  // reused from file to file
    bool all_ = false;
    bool cancelled_ = false;
};

}  // namespace

int replaceInText(Searcher& s, std::string_view text, const char* replacement, std::string& out,
                  std::vector<ChangedLine>* changed, int64_t* gaveUpLine) {
    out.clear();
    out.reserve(text.size());
    const std::string_view fileEnd = firstLineEnd(text);
    std::string line, replaced;
    int hits = 0;
    int64_t lineNo = 1;
    for (size_t pos = 0;; ++lineNo) {
        size_t end = text.find_first_of("\r\n", pos);
        if (end == std::string_view::npos) end = text.size();
        std::string_view eol;
        if (end < text.size()) eol = text.substr(end, text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        // A copy: the search must see the line end as the end of the text.
        line.assign(text.substr(pos, end - pos));
        const int n = replaceInSpan(s, line, 0, line.size(), replacement, replaced);
        if (n == kSearchError) {
            if (gaveUpLine) *gaveUpLine = lineNo;
            return kSearchError;
        }
        if (n == 0) {
            out += line;
        } else {
            hits += n;
            const size_t from = out.size();
            appendWithLineEnds(out, replaced, eol.empty() ? fileEnd : eol);
            if (changed) changed->push_back({lineNo, line, out.substr(from)});
        }
        out += eol;
        if (end == text.size()) break;
        pos = end + eol.size();
    }
    return hits;
}

ReplaceTotals replaceInFiles(const FileReplaceQuery& q, const ReplaceInFilesHooks& hooks) {
    Searcher s;
    SearchOptions opt = q.find.options;
    opt.forward = true;
    if (prepareSearch(s, q.find.pattern.c_str(), opt) != kSearchFound) return {};
    ReplaceVisitor v(q, hooks, s);
    walkFiles(q.find, v);
    v.totals.search.cancelled = v.cancelled();
    return v.totals;
}

std::vector<std::string> replaceSummaryLines(const ReplaceTotals& t) {
    std::vector<std::string> out;
    if (t.search.cancelled) out.emplace_back(searchmsg::kSearchStopped);
    out.push_back(countLine(searchmsg::kReplacements, t.replacements));
    out.push_back(countLine(searchmsg::kFilesChanged, t.filesChanged));
    if (t.documentsChanged) out.push_back(countLine(searchmsg::kDocumentsChanged, t.documentsChanged));
    if (t.left) out.push_back(countLine(searchmsg::kFilesLeft, t.left));
    out.push_back(countLine(searchmsg::kFilesSearched, t.search.searched));
    if (t.search.binary) out.push_back(countLine(searchmsg::kBinarySkipped, t.search.binary));
    if (t.search.unreadable) out.push_back(countLine(searchmsg::kUnreadable, t.search.unreadable));
    return out;
}

}  // namespace zol
