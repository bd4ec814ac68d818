// Find in files: the files under a folder that a set of masks names, searched line by
// line as the find commands search a document. Everything here may run on a worker
// thread: it reads only the query, its own copies of texts and the files themselves,
// and never a document, a setting or the shell.
#pragma once
#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folder_walk.h"
#include "search/find.h"
#include "search/messages.h"
#include "search/text_search.h"

namespace zol {

struct FileSearchQuery {
    std::string pattern;
    SearchOptions options;  // the direction does not matter
    std::string folder;     // absolute
    std::string masks;      // "*.c;*.h": ";", "," or blanks between masks; empty: every file
    bool subfolders = true;
};

// Why the query cannot run, as the user is told; empty when it can.
std::string fileSearchProblem(const FileSearchQuery& q);

// The masks of a mask list, in order, without empty ones.
std::vector<std::string> splitMasks(std::string_view masks);
// A name the masks take (without regard to case); every name when there are none.
bool masksTake(const std::vector<std::string>& masks, std::string_view name);

// Why a file or folder of the walk was not searched.
enum class Unreadable : uint8_t { Denied, NotRegular, BrokenLink, Failed, TooLong };
const char* unreadableReason(Unreadable why);

// What a walk meets, in order: folder by folder, entries by name, a folder's files and
// subfolders mixed as their names sort. Paths are absolute; rel is the part below the
// query's folder, with "/" between parts.
struct FileWalkVisitor {
    virtual ~FileWalkVisitor() = default;
    virtual void file(const std::string& path, std::string_view rel) = 0;
    virtual void unreadable(std::string_view rel, Unreadable why) = 0;
    // Asked before every entry; true ends the walk.
    virtual bool stopped() = 0;
};
// Walks the query's folder (and its subfolders when asked), following links to files
// and folders but never into a folder it has been in already, and skipping the
// version-control folders ".git", ".hg" and ".svn".
void walkFiles(const FileSearchQuery& q, FileWalkVisitor& visitor);

// Searches one file as find in files does, reading it a piece at a time. read is Ok,
// or why the file could not be opened, or read to its end (the search ended there).
StreamOutcome searchFile(Searcher& s, StreamBuffer& buf, const std::string& path, const FoundLineFn& found,
                         FsResult& read);

// The texts of open documents by full path: searched in place of their files, whose
// contents on disk may be older. Lines are joined by "\n".
using OpenTexts = std::map<std::string, std::string>;

// What a search found, as the output shows it.
struct FileSearchTotals {
    uint64_t searched = 0;    // files searched
    uint64_t withHits = 0;    // files with at least one hit
    uint64_t lines = 0;       // lines with hits
    uint64_t binary = 0;      // files skipped as binary
    uint64_t unreadable = 0;  // files and folders that could not be read
    bool cancelled = false;
};

// Hands over a batch of output lines, in order; the search goes on after it returns.
using OutputFn = std::function<void(std::vector<std::string>& lines)>;
// The whole find in files: one "path(line): text" line for every line with a hit and
// one line for each file or folder that could not be read, handed over in batches (the
// first hit at once, then as they fill or time passes). Ends when the walk does or
// stop is set.
FileSearchTotals findInFiles(const FileSearchQuery& q, const OpenTexts& open, const std::atomic<bool>& stop,
                             const OutputFn& output);

// An output line shows this much of a hit's line: enough to recognise it, and short
// enough that the output document takes it as one line (kMaxColumns).
constexpr size_t kMaxHitText = 1000;
// Hits go to the window thread in batches of this many lines, or sooner when the
// oldest waiting line is this old: a batch per hit would swamp the window thread on a
// common word, and the user watches the output grow.
constexpr size_t kOutputBatchLines = 512;
constexpr uint64_t kOutputBatchMs = 50;

// The output lines of a search. A hit line, "rel(line): text", is a message line that
// names its file and line, so the message stepping walks the hits.
std::string hitLine(std::string_view rel, int64_t line, std::string_view text);
std::string unreadableLine(std::string_view rel, Unreadable why);
// The summary that ends the output, one count a line.
std::vector<std::string> summaryLines(const FileSearchTotals& t);
// One count of a summary, in the singular or the plural as n asks.
std::string countLine(const searchmsg::CountText& t, uint64_t n);

}  // namespace zol
