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

// Counts the line ends in text[from, to): LF, CR LF and a lone CR each end one line.
int64_t countLineEnds(std::string_view text, size_t from, size_t to, bool hasCr) {
    int64_t n = 0;
    const char* p = text.data() + from;
    const char* end = text.data() + to;
    while ((p = static_cast<const char*>(std::memchr(p, '\n', static_cast<size_t>(end - p))))) {
        ++n;
        ++p;
    }
    if (!hasCr) return n;
    for (size_t i = from; i < to; ++i)
        if (text[i] == '\r' && (i + 1 >= text.size() || text[i + 1] != '\n')) ++n;
    return n;
}

size_t lineStartBefore(std::string_view text, size_t at) {
    while (at > 0 && text[at - 1] != '\n' && text[at - 1] != '\r') --at;
    return at;
}

size_t lineEndFrom(std::string_view text, size_t at, bool hasCr) {
    const size_t lf = text.find('\n', at);
    if (!hasCr) return lf == std::string_view::npos ? text.size() : lf;
    const size_t end = text.find_first_of("\r\n", at);
    return end == std::string_view::npos ? text.size() : end;
}

// Where the next line that can hold a hit starts its search: a hit begins with the
// regular expression's first character or contains its literal, and plain text is
// itself the literal. npos when no line further on can hold one.
size_t nextCandidate(const Searcher& s, std::string_view hay, size_t from) {
    if (!s.prog) return hay.find(s.pattern, from);
    if (s.prog->mustText && s.prog->mustLength > 0)
        return hay.find(std::string_view(s.prog->mustText, static_cast<size_t>(s.prog->mustLength)), from);
    if (s.prog->firstChar && !s.prog->anchored) return hay.find(s.prog->firstChar, from);
    return from;
}

}  // namespace

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

int searchText(Searcher& s, std::string& text, const FoundLineFn& found, int64_t* lineGaveUp) {
    std::string* hay = &text;
    if (!s.options.matchCase) {
        s.folded.resize(text.size());
        for (size_t i = 0; i < text.size(); ++i) s.folded[i] = cpLower(text[i]);
        hay = &s.folded;
    }
    // The pattern and the text now agree in case: searchLine need not fold each line.
    const SearchOptions saved = s.options;
    s.options.matchCase = true;
    s.options.forward = true;
    const bool hasCr = std::memchr(text.data(), '\r', text.size()) != nullptr;
    int result = kSearchNotFound;
    int64_t line = 1;
    size_t counted = 0;  // line ends before this offset are in `line`
    for (size_t pos = 0; pos <= hay->size();) {
        const size_t candidate = nextCandidate(s, *hay, pos);
        if (candidate == std::string::npos) break;
        const size_t start = lineStartBefore(*hay, candidate);
        const size_t end = lineEndFrom(*hay, candidate, hasCr);
        line += countLineEnds(*hay, counted, start, hasCr);
        counted = start;
        // The regular expression must see the line alone: a NUL ends it for a moment.
        const char saved0 = (*hay)[end];
        (*hay)[end] = '\0';
        LineHit hit;
        const int res = searchLine(s, std::string_view(hay->data() + start, end - start), 0, hit);
        (*hay)[end] = saved0;
        if (res == kSearchError) {
            if (lineGaveUp) *lineGaveUp = line;
            result = kSearchError;
            break;
        }
        if (res == kSearchFound) {
            result = kSearchFound;
            if (!found(line, std::string_view(text.data() + start, end - start))) break;
        }
        if (end >= hay->size()) break;
        pos = end + 1;
    }
    s.options = saved;
    return result;
}

bool isBinaryText(std::string_view text) { return std::memchr(text.data(), '\0', text.size()) != nullptr; }

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

struct SearchVisitor final : FileWalkVisitor {
    Searcher& s;
    const OpenTexts& open;
    const std::atomic<bool>& stop;
    Batcher& out;
    FileSearchTotals totals;
    std::string bytes;  // reused from file to file

    SearchVisitor(Searcher& se, const OpenTexts& o, const std::atomic<bool>& st, Batcher& b)
        : s(se), open(o), stop(st), out(b) {}

    void file(const std::string& path, std::string_view rel) override {
        const auto it = open.find(path);
        if (it != open.end()) {
            bytes = it->second;
        } else if (const FsResult res = readRegularFile(path, bytes); res != FsResult::Ok) {
            // A file that vanished since the folder was listed is no longer there to search.
            if (res != FsResult::Missing) unreadable(rel, res == FsResult::Denied ? Unreadable::Denied
                                                           : res == FsResult::NotRegular ? Unreadable::NotRegular
                                                                                         : Unreadable::Failed);
            return;
        }
        if (isBinaryText(bytes)) {
            ++totals.binary;
            return;
        }
        ++totals.searched;
        uint64_t before = totals.lines;
        int64_t gaveUpAt = 0;
        const int res = searchText(s, bytes, [&](int64_t line, std::string_view text) {
            ++totals.lines;
            out.add(hitLine(rel, line, text));
            return !stop.load(std::memory_order_relaxed);
        }, &gaveUpAt);
        if (totals.lines > before) ++totals.withHits;
        if (res == kSearchError) {
            s.gaveUp = false;
            ++totals.unreadable;
            out.add(hitLine(rel, gaveUpAt, unreadableReason(Unreadable::TooLong)));
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
