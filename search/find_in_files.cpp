#include "search/find_in_files.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "engine/case_map.h"
#include "platform/clock.h"
#include "platform/fileinfo.h"
#include "platform/folder_walk.h"
#include "search/messages.h"

namespace zol {
namespace {

bool maskSeparator(char c) { return c == ';' || c == ',' || c == ' ' || c == '\t'; }

// "*" any run, "?" any one character; letters without regard to case.
bool globMatch(std::string_view mask, std::string_view name) {
    size_t m = 0, n = 0, starM = std::string_view::npos, starN = 0;
    while (n < name.size()) {
        if (m < mask.size() && mask[m] == '*') {
            starM = m++;
            starN = n;
        } else if (m < mask.size() && (mask[m] == '?' || cpLower(mask[m]) == cpLower(name[n]))) {
            ++m;
            ++n;
        } else if (starM != std::string_view::npos) {
            m = starM + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (m < mask.size() && mask[m] == '*') ++m;
    return m == mask.size();
}

bool isVersionControlFolder(std::string_view name) { return name == ".git" || name == ".hg" || name == ".svn"; }

std::string joined(std::string_view a, std::string_view b) {
    std::string s(a);
    if (!s.empty() && s.back() != '/') s += '/';
    s += b;
    return s;
}

struct Walker {
    const FileSearchQuery& q;
    FileWalkVisitor& visitor;
    std::vector<std::string> masks;
    std::set<FolderId> seen;

    void folder(const std::string& path, const std::string& rel) {
        FolderId id;
        if (!folderIdentity(path, id) || !seen.insert(id).second) return;
        std::vector<FolderEntry> entries;
        const FsResult res = listFolder(path, entries);
        if (res == FsResult::Denied || res == FsResult::Failed) {
            visitor.unreadable(rel, res == FsResult::Denied ? Unreadable::Denied : Unreadable::Failed);
            return;
        }
        std::sort(entries.begin(), entries.end(),
                  [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
        for (const FolderEntry& e : entries) {
            if (visitor.stopped()) return;
            const std::string childRel = rel.empty() ? e.name : rel + "/" + e.name;
            if (e.kind == EntryKind::Folder) {
                if (q.subfolders && !isVersionControlFolder(e.name)) folder(joined(path, e.name), childRel);
                continue;
            }
            if (!masksTake(masks, e.name)) continue;
            if (e.kind == EntryKind::File) visitor.file(joined(path, e.name), childRel);
            else visitor.unreadable(childRel, e.kind == EntryKind::Broken ? Unreadable::BrokenLink : Unreadable::NotRegular);
        }
    }
};

}  // namespace

StreamOutcome searchFile(Searcher& s, StreamBuffer& buf, const std::string& path, const FoundLineFn& found,
                         FsResult& read) {
    RegularFileReader f;
    read = f.open(path);
    if (read != FsResult::Ok) return {};
    const StreamOutcome o = searchStream(s, buf, [&f](char* out, size_t size) { return f.read(out, size); }, found);
    if (o.readFailed) read = f.failure();
    return o;
}

std::string countLine(const searchmsg::CountText& t, uint64_t n) {
    std::string s = n == 1 ? t.one : t.many;
    s.replace(s.find("%d"), 2, std::to_string(n));
    return s;
}

std::string fileSearchProblem(const FileSearchQuery& q) {
    if (q.pattern.empty()) return searchmsg::kEmptyPattern;
    if (q.options.regex) {
        int error = 0;
        if (!regexCompile(q.pattern.c_str(), &error)) return std::string(kRegexErrorPrefix) + regexErrorMessage(error);
    }
    const FileAttributes a = fileAttributes(q.folder);
    if (q.folder.empty() || !a.exists || !a.isDirectory) {
        std::string s = searchmsg::kNoFolder;
        s.replace(s.find("%s"), 2, q.folder);
        return s;
    }
    return {};
}

std::vector<std::string> splitMasks(std::string_view masks) {
    std::vector<std::string> out;
    for (size_t i = 0; i < masks.size();) {
        while (i < masks.size() && maskSeparator(masks[i])) ++i;
        size_t j = i;
        while (j < masks.size() && !maskSeparator(masks[j])) ++j;
        if (j > i) out.emplace_back(masks.substr(i, j - i));
        i = j;
    }
    return out;
}

bool masksTake(const std::vector<std::string>& masks, std::string_view name) {
    if (masks.empty()) return true;
    return std::any_of(masks.begin(), masks.end(), [&](const std::string& m) {
        // "*.*" is every file, as on the systems where the masks come from.
        return m == "*.*" || globMatch(m, name);
    });
}

const char* unreadableReason(Unreadable why) {
    switch (why) {
        case Unreadable::Denied: return searchmsg::kReasonDenied;
        case Unreadable::NotRegular: return searchmsg::kReasonNotRegular;
        case Unreadable::BrokenLink: return searchmsg::kReasonBrokenLink;
        case Unreadable::TooLong: return searchmsg::kReasonTooLong;
        case Unreadable::Failed: break;
    }
    return searchmsg::kReasonFailed;
}

void walkFiles(const FileSearchQuery& q, FileWalkVisitor& visitor) {
    Walker w{q, visitor, splitMasks(q.masks), {}};
    w.folder(q.folder, "");
}

std::string hitLine(std::string_view rel, int64_t line, std::string_view text) {
    std::string s(rel);
    s += '(';
    s += std::to_string(line);
    s += "): ";
    s.append(text.substr(0, std::min(text.size(), kMaxHitText)));
    // An output line is one document line: a stray CR or NUL must not split it.
    for (size_t i = s.size() - std::min(text.size(), kMaxHitText); i < s.size(); ++i)
        if (s[i] == '\r' || s[i] == '\0') s[i] = ' ';
    return s;
}

std::string unreadableLine(std::string_view rel, Unreadable why) {
    std::string reason = searchmsg::kCannotRead;
    reason.replace(reason.find("%s"), 2, unreadableReason(why));
    return std::string(rel) + reason;
}

std::vector<std::string> summaryLines(const FileSearchTotals& t) {
    std::vector<std::string> out;
    if (t.cancelled) out.emplace_back(searchmsg::kSearchStopped);
    out.push_back(countLine(searchmsg::kMatchingLines, t.lines));
    out.push_back(countLine(searchmsg::kFilesWithHits, t.withHits));
    out.push_back(countLine(searchmsg::kFilesSearched, t.searched));
    if (t.binary) out.push_back(countLine(searchmsg::kBinarySkipped, t.binary));
    if (t.unreadable) out.push_back(countLine(searchmsg::kUnreadable, t.unreadable));
    return out;
}

namespace {

// Collects output lines and hands them over: the first hit at once, then in batches
// that are big enough or old enough.
class Batcher {
public:
    explicit Batcher(const OutputFn& output) : output_(output) {}
    void add(std::string line) {
        lines_.push_back(std::move(line));
        const uint64_t now = monotonicMilliseconds();
        if (first_ || lines_.size() >= kOutputBatchLines || now - last_ >= kOutputBatchMs) flush(now);
    }
    // Lines that waited long enough go out even when no new one comes.
    void tick() {
        if (!lines_.empty() && monotonicMilliseconds() - last_ >= kOutputBatchMs) flush();
    }
    void flush(uint64_t now = monotonicMilliseconds()) {
        first_ = false;
        last_ = now;
        if (lines_.empty()) return;
        output_(lines_);
        lines_.clear();
    }

private:
    const OutputFn& output_;
    std::vector<std::string> lines_;
    bool first_ = true;
    uint64_t last_ = monotonicMilliseconds();
};

Unreadable unreadableOf(FsResult res) {
    return res == FsResult::Denied ? Unreadable::Denied
           : res == FsResult::NotRegular ? Unreadable::NotRegular
                                         : Unreadable::Failed;
}

struct SearchVisitor final : FileWalkVisitor {
    Searcher& s;
    const OpenTexts& open;
    const std::atomic<bool>& stop;
    Batcher& out;
    FileSearchTotals totals;
    StreamBuffer buf;                  // reused from file to file
    std::vector<std::string> pending;  // a file's hits, shown once the file proves to be text

    SearchVisitor(Searcher& se, const OpenTexts& o, const std::atomic<bool>& st, Batcher& b)
        : s(se), open(o), stop(st), out(b) {}

    void file(const std::string& path, std::string_view rel) override {
        pending.clear();
        const FoundLineFn collect = [&](int64_t line, std::string_view text) {
            pending.push_back(hitLine(rel, line, text));
            return !stop.load(std::memory_order_relaxed);
        };
        StreamOutcome o;
        FsResult res = FsResult::Ok;
        const auto it = open.find(path);
        if (it != open.end()) o = searchStream(s, buf, textReader(it->second), collect);
        else o = searchFile(s, buf, path, collect, res);
        s.gaveUp = false;
        // A file that vanished since the folder was listed is no longer there to search.
        if (res != FsResult::Ok && res != FsResult::Missing) unreadable(rel, unreadableOf(res));
        if (res != FsResult::Ok) return;
        if (o.binary) {
            ++totals.binary;
            return;
        }
        ++totals.searched;
        if (!pending.empty()) ++totals.withHits;
        for (std::string& line : pending) {
            ++totals.lines;
            out.add(std::move(line));
            if (stop.load(std::memory_order_relaxed)) break;
        }
        if (o.result == kSearchError) {
            ++totals.unreadable;
            out.add(hitLine(rel, o.lineGaveUp, unreadableReason(Unreadable::TooLong)));
        }
    }
    void unreadable(std::string_view rel, Unreadable why) override {
        ++totals.unreadable;
        out.add(unreadableLine(rel, why));
    }
    bool stopped() override {
        out.tick();
        return stop.load(std::memory_order_relaxed);
    }
};

}  // namespace

FileSearchTotals findInFiles(const FileSearchQuery& q, const OpenTexts& open, const std::atomic<bool>& stop,
                             const OutputFn& output) {
    Batcher out(output);
    Searcher s;
    SearchOptions opt = q.options;
    opt.forward = true;
    if (prepareSearch(s, q.pattern.c_str(), opt) != kSearchFound) return {};
    SearchVisitor v(s, open, stop, out);
    walkFiles(q, v);
    v.totals.cancelled = stop.load();
    out.flush();
    return v.totals;
}

}  // namespace zol
