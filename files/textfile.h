// Reading a text file into a document and writing a document (or its selection) back.
// Files hold plain bytes; lines end in CR LF, LF or CR; the document holds lines
// without their ends. Reading then writing with the detected format gives back the
// same bytes, unless lines were split or NUL bytes were met.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "engine/document.h"

namespace zol {

// Files are read in pieces of this size; a line may span pieces.
constexpr size_t kReadChunk = size_t{1} << 18;

// What reading met, beyond success.
struct ReadReport {
    bool binary = false;     // NUL bytes were met (each stored as a blank)
    bool split = false;      // a line exceeded the capacity and was split
    std::optional<TextFormat> lineEndFormat;  // of the first line end in the file, if any
};

// Replaces the document's text by the file's lines. With detectFormat the first line
// end of the file sets the document's text format (a file without line ends leaves it
// as it was). Honors the tab size and "SplitLongLines" of the global options. On
// success the cursor is at the start, undo and selection are gone, the document is
// unmodified, and its file name (made absolute), file time and read-only flag come from
// the file. On failure the user is told why and the document is left as it was.
bool readFile(Document& doc, const std::string& path, bool detectFormat, ReadReport* report = nullptr);

// Writes the whole text (or, with blockOnly, the selection) to path with the line ends
// of format and no line end after the last line. The file is replaced only once the
// new text is completely written, and keeps its permission bits; a symbolic link
// keeps pointing where it did. backupStyle -1 makes no backup, 0 and 1 keep the old
// file under backupName(path, style). A whole-document write clears the modified flag
// unless keepModified, and stores the file's new time when path is the document's own
// file (so "save as" sets the file name first). On failure the user is told why and
// the document is unchanged; a block write without a selection writes nothing and
// fails.
bool writeFile(Document& doc, const std::string& path, TextFormat format, int backupStyle, bool blockOnly,
               bool keepModified);

// A document took a new file name: after reading a file into it (textReplaced true),
// and after saving under a new name or renaming (files/save.h; textReplaced false).
// Applies the word-wrap rules of the name, tells the listeners (the colouring follows
// the name), then sends the file-named editor event.
using FileNameListener = void (*)(Document& doc, bool textReplaced);
void addFileNameListener(FileNameListener fn);
void fileNameChanged(Document& doc, bool textReplaced);

// Style 1 ("NAME.EXT.BAK") appends ".bak"; style 0 ("NAME.BAK") replaces the extension,
// the text from the last "." of the file part, or appends when there is none. A dot
// that starts the file part (".profile") does not begin an extension.
std::string backupName(std::string_view path, int style);

// True when the file exists and must not be overwritten: this process may not write
// it, or it has no write permission for anyone (the read-only attribute, which binds
// even a superuser).
bool isReadOnlyFile(const std::string& path);

}  // namespace zol
