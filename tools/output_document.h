// Output documents: documents with the output-window flag, filled with what a user
// tool printed (or with the results of a search in files), through which the commands
// NextCompilerError and PrevCompilerError step from message to message.
//
// Filling one, from any part of the editor:
//
//     Document* out = openOutputDocument("Output - grep", {folder, ""});
//     OutputWriter w(*out);
//     w.write("src/a.c(12): int x;\n");   // any bytes, as they come
//     w.finish();                         // the last line, unfinished or not
//
// The names in the messages are looked for as the message action says: absolute as
// they stand, relative ones in the origin's folders, then in "IncludeDirs".
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zol {

struct Document;

struct OutputOrigin {
    std::string workDir;  // the folder the tool ran in
    std::string docDir;   // the folder of the document the tool ran for; may be empty
};

// A new output document of that name, made active; or, when an output document of
// that name is open and nothing writes to it, that one, emptied and made active.
// Null when no document could be made. Its message index starts before the first line.
Document* openOutputDocument(std::string_view name, const OutputOrigin& origin);

// Where the output came from; null for a document that no tool filled (one a script
// flagged as output, say).
const OutputOrigin* outputOrigin(const Document& doc);

// The 0-based line at which the stepping commands found the last message; -1 before
// the first.
int32_t messageIndex(const Document& doc);
void setMessageIndex(Document& doc, int32_t index);

// The output document that the stepping commands walk when they are given from
// another document: the most recently opened one that is still open; null when none.
Document* latestOutputDocument();

// Appends bytes to the end of an output document as they come. Lines end at LF, CR LF
// or CR (also when a CR LF is split between two writes); a line wider than a line's
// capacity continues on the next line; a NUL byte shows as a blank. A cursor on the
// last line follows the output. Nothing is recorded for undo.
class OutputWriter {
public:
    explicit OutputWriter(Document& doc);
    ~OutputWriter();
    OutputWriter(const OutputWriter&) = delete;
    OutputWriter& operator=(const OutputWriter&) = delete;

    void write(std::string_view bytes);
    // Adds the unfinished last line, if any; later writes are dropped.
    void finish();
    // False once the document has been closed; what is written then goes nowhere.
    bool alive() const;
    Document* document() const { return alive() ? doc_ : nullptr; }

private:
    void emit(std::string_view line);
    void emitWrapped(std::string_view line);
    void append(std::string_view bytes);
    void endLine();
    void splitPartial();
    void afterWrite(bool followed);

    Document* doc_;
    uint64_t serial_;
    uint32_t tail_ = 0;       // record of the last line during one write; 0 unknown
    std::string partial_;    // the line begun but not ended yet
    bool pendingCr_ = false;  // a CR ended the last line; an LF right after it belongs to it
    bool placeholder_ = true; // the document still holds only the empty line it began with
    bool finished_ = false;
};

}  // namespace zol
