#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "engine/columns.h"
#include "engine/editor_events.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "engine/undo.h"
#include "engine/wordwrap.h"
#include "files/line_scan.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "platform/file_io.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

// Room kept beyond a chunk for the unfinished line carried into the next read: at
// most a line's capacity plus a CR waiting for its LF.
constexpr size_t kCarryRoom = 4096;
static_assert(kCarryRoom > kSplitBytes + 1);

// Turns the bytes of a file into lines. Every byte is looked at once by the line-end
// scan, and once more when its line is copied.
class LineReader {
public:
    explicit LineReader(InputFile& f) : f_(f), buf_(new char[kReadChunk + kCarryRoom]) {}

    bool error() const { return error_; }
    bool binary() const { return binary_; }

    // Reads everything into lines, calling emit(text) for each; returns false when a
    // line is too long and splitting is off.
    template <class Emit>
    bool run(bool splitLongLines, bool& split, std::optional<TextFormat>& firstFormat, Emit&& emit) {
        for (;;) {
            const char* p = buf_.get() + pos_;
            const char* e = buf_.get() + end_;
            const char* le = lineEnd(p, e);
            const size_t n = static_cast<size_t>(le - p);
            const size_t fit = fittingPrefix(p, n);
            if (fit < n) {
                if (!splitLongLines) return false;
                split = true;
                emit(std::string_view(p, fit));
                pos_ += fit;
                continue;
            }
            if (le == e) {
                if (!eof_) {
                    fill();
                    continue;
                }
                emit(std::string_view(p, n));  // the last line has no line end
                return true;
            }
            TextFormat format = TextFormat::Unix;
            size_t endLen = 1;
            if (*le == '\r') {
                if (le + 1 == e && !eof_) {  // its LF may be in the next chunk
                    fill();
                    continue;
                }
                const bool crlf = le + 1 < e && le[1] == '\n';
                format = crlf ? TextFormat::Dos : TextFormat::Mac;
                endLen = crlf ? 2 : 1;
            }
            if (!firstFormat) firstFormat = format;
            emit(std::string_view(p, n));
            pos_ += n + endLen;
        }
    }

private:
    // Moves the unfinished line to the front and reads the next chunk behind it.
    void fill() {
        const size_t keep = end_ - pos_;
        std::memmove(buf_.get(), buf_.get() + pos_, keep);
        pos_ = 0;
        end_ = keep;
        const size_t want = kReadChunk + kCarryRoom - keep;
        size_t got = 0;
        while (got < want) {
            const long n = f_.read(buf_.get() + end_ + got, want - got);
            if (n <= 0) {
                eof_ = true;
                error_ = n < 0;
                break;
            }
            got += static_cast<size_t>(n);
        }
        // A NUL is held as a blank; doing it here keeps it out of the line scan.
        char* q = buf_.get() + end_;
        char* const stop = q + got;
        while ((q = static_cast<char*>(std::memchr(q, '\0', static_cast<size_t>(stop - q))))) {
            *q++ = ' ';
            binary_ = true;
        }
        end_ += got;
    }

    // The first CR or LF in [p, e), or e. The scan stops one byte past the longest
    // line that needs no split, so that a long line is not scanned again after every
    // piece split off it.
    static const char* lineEnd(const char* p, const char* e) {
        const char* window = static_cast<size_t>(e - p) > kSplitBytes + 1 ? p + kSplitBytes + 1 : e;
        return findLineEnd(p, window);
    }

    // How many of the n bytes at p fit on one line: the line ends before the byte that
    // would take it past the column or byte capacity.
    size_t fittingPrefix(const char* p, size_t n) const {
        if (n <= surelyFits_) return n;
        const size_t fit = locateColumn(std::string_view(p, n), kMaxColumns).offset;
        return std::min(fit, static_cast<size_t>(kSplitBytes));
    }

    InputFile& f_;
    // No byte is wider than a tab, so lines up to this long need no column count.
    const size_t surelyFits_ = static_cast<size_t>(kMaxColumns) / static_cast<size_t>(options().tabSize);
    std::unique_ptr<char[]> buf_;
    size_t pos_ = 0, end_ = 0;  // unread lines are buf_[pos_, end_)
    bool eof_ = false;
    bool error_ = false;
    bool binary_ = false;
};

enum class ReadOutcome { Ok, NoMemory, TooLong, ReadError };

ReadOutcome readLines(InputFile& f, LineList& out, ReadReport& rep) {
    try {
        LineReader reader(f);
        LineRef tail = out.first;
        bool none = true;
        auto emit = [&](std::string_view text) {
            tail = none ? out.setText(out.first, text) : out.append(tail, text);
            none = false;
        };
        const bool complete = reader.run(options().splitLongLines, rep.split, rep.lineEndFormat, emit);
        rep.binary = reader.binary();
        if (reader.error()) return ReadOutcome::ReadError;
        return complete ? ReadOutcome::Ok : ReadOutcome::TooLong;
    } catch (const std::bad_alloc&) {
        return ReadOutcome::NoMemory;
    }
}

}  // namespace

bool readFile(Document& doc, const std::string& path, bool detectFormat, ReadReport* report) {
    ReadReport local;
    ReadReport& rep = report ? *report : local;
    rep = ReadReport{};

    // Folders, devices and pipes are not text files; a pipe would also never end.
    InputFile f(path);
    if (!f.isOpen()) {
        shell().message(filemsg::withFileName(filemsg::kCannotOpenRead, path));
        return false;
    }

    // The old text stays until the new one is complete, so a failure loses nothing.
    std::unique_ptr<LineList> fresh;
    ReadOutcome outcome;
    try {
        fresh = std::make_unique<LineList>();
        outcome = readLines(f, *fresh, rep);
    } catch (const std::bad_alloc&) {
        outcome = ReadOutcome::NoMemory;
    }
    f.close();
    switch (outcome) {
    case ReadOutcome::Ok: break;
    case ReadOutcome::NoMemory: shell().message(filemsg::withFileName(filemsg::kNoMemory, path)); return false;
    case ReadOutcome::TooLong: shell().message(filemsg::kLineTooLong); return false;
    case ReadOutcome::ReadError: shell().message(filemsg::kReadError); return false;
    }

    doc.lines.swap(*fresh);
    fresh.reset();
    forgetEditState(doc);
    if (detectFormat && rep.lineEndFormat) doc.textFormat = *rep.lineEndFormat;
    doc.fileName = fullPath(path);
    doc.hasFile = true;
    doc.fileTime = fileTime32(path);
    if (rep.binary || isReadOnlyFile(path)) doc.readOnly = true;
    setModified(doc, false);
    fileNameChanged(doc, true);
    if (doc.view) {
        doc.view->refreshCaption();
        doc.view->refreshStatus();
        doc.view->redraw();
    }

    if (rep.binary) shell().message(filemsg::kBinaryFile);
    if (rep.split) shell().message(filemsg::kLongLinesSplit);
    return true;
}

}  // namespace zol
