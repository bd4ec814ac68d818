// Replace in files: every hit in the files that a find in files would search, each
// changed file written back as a save writes it (a backup when the settings ask for
// one, the new text replacing the old in one step) with its line ends and every byte
// outside the hits as they were. A file open in the editor is changed in its document
// instead, as one undo step, and left for the user to save. Runs on the window thread:
// it touches documents and may ask the user about each file.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "search/find_in_files.h"

namespace zol {

struct Document;

struct FileReplaceQuery {
    FileSearchQuery find;
    std::string replacement;  // a template when find.options.regex
};

// A line of a file as a replacement leaves it.
struct ChangedLine {
    int64_t line = 0;  // 1-based, in the file as it was
    std::string before, after;  // without line ends; `after` may hold new line ends
};

// Replaces every hit of s in text, a file's bytes, line by line (lines end at LF, CR LF
// or CR, and keep their ends). A line end in the replacement becomes the line end of
// its line (the file's first one on a last line without one; LF in a file without any).
// The number of hits, or kSearchError when a regular expression gave up (*gaveUpLine
// names the line). changed, when given, receives the lines that changed.
int replaceInText(Searcher& s, std::string_view text, const char* replacement, std::string& out,
                  std::vector<ChangedLine>* changed = nullptr, int64_t* gaveUpLine = nullptr);

// What the user is asked about before a file changes ("ReplaceInFilesPrompt").
struct FileReplacePreview {
    std::string rel;        // the file below the searched folder
    bool openDocument = false;
    int hits = 0;
    std::vector<ChangedLine> lines;  // the first kPreviewLines changed lines
};
// The preview shows this many changed lines: enough to see what the pattern does.
constexpr size_t kPreviewLines = 20;
enum class FilePromptAnswer { Replace, Skip, All, Cancel };

struct ReplaceInFilesHooks {
    // The open document of a file (by its full path), or null.
    std::function<Document*(const std::string& path)> openDocument;
    // Asked before each file that has hits until it answers All; null: never asked.
    std::function<FilePromptAnswer(const FileReplacePreview&)> ask;
    // Output lines as they come: "rel(line): new text" for each changed line, and a
    // line for each file that could not be read or was left as it was.
    OutputFn output;
    // Asked before each file; true stops the run.
    std::function<bool()> stopped;
};

struct ReplaceTotals {
    FileSearchTotals search;       // searched, files with hits, binary, unreadable
    uint64_t replacements = 0;
    uint64_t filesChanged = 0;     // written back
    uint64_t documentsChanged = 0; // open documents changed, not saved
    uint64_t left = 0;             // read-only, not writable, or declined lines
};

// The whole replace in files. The caller has checked the query (fileSearchProblem).
ReplaceTotals replaceInFiles(const FileReplaceQuery& q, const ReplaceInFilesHooks& hooks);
// The summary that ends the output, one count a line.
std::vector<std::string> replaceSummaryLines(const ReplaceTotals& t);

}  // namespace zol
