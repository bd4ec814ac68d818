// Replacing a file's contents so that, whatever happens meanwhile (a full disk, a crash,
// a power cut), the file's name holds either its complete old bytes or the complete new
// ones. Documents, backups, the key file, settings, language definitions and auto-save
// side files are all written this way.
//
// The new bytes go to a temporary file beside the target, which is flushed to disk and
// renamed over the target; the folder is flushed too, so that the rename itself survives
// a power cut. Until the new name is on disk the old bytes keep a second name, so a
// failure at any step puts them back.
//
// Three kinds of target are written over in place instead, because renaming would
// change what the user sees: a file with more than one hard link (the other names would
// keep the old text), a file owned by someone else that we may write but not give away,
// and a file in a folder we may not write. In place, the old bytes are read first and
// written back if the new ones cannot be written whole.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

enum class ReplaceResult {
    Replaced,       // the new bytes are on disk under the target's name
    CannotOpen,     // target is a folder, not writable, or no temporary file could be made
    WriteFailed,    // writing or flushing failed; the target is as it was
    CannotReplace,  // the new file could not take the target's name; the target is as it was
    BackupFailed,   // the old bytes could not be kept under the backup name; target as it was
};

enum class InPlaceReason { None, HardLinks, Owner, Folder };

// One replacement under way, from beginReplace to finishReplace or abandonReplace.
struct DurableReplace {
    std::string target;   // the file written: symbolic links followed
    std::string temp;     // the new bytes' file beside target; empty in place
    int fd = -1;          // temp, or the target itself in place; -1 when not open
    bool existed = false; // target was there at the start
    bool failed = false;  // a write failed; finishing reports WriteFailed
    unsigned mode = 0;    // permission bits the result gets
    InPlaceReason inPlace = InPlaceReason::None;
    std::string pending;  // bytes not yet written; in place, all of the new bytes
};

// Prepares to replace path (created when missing; its folder must exist). On anything
// but Replaced nothing was made and there is nothing to abandon.
ReplaceResult beginReplace(DurableReplace& r, const std::string& path);
// Adds bytes to the new contents.
void putBytes(DurableReplace& r, std::string_view data);
// Makes the new contents the target's. With a backup path, the old bytes end under
// that name (an older file there is replaced); no backup is made of a new file.
ReplaceResult finishReplace(DurableReplace& r, const std::string& backupPath = {});
// Gives up: the target stays as it was and the temporary file goes.
void abandonReplace(DurableReplace& r);

// The whole of the above for bytes at hand.
ReplaceResult replaceFileWith(const std::string& path, std::string_view data, const std::string& backupPath = {});

// Creates path with data and the given permission bits only when nothing is there yet;
// the file appears complete and on disk, or not at all.
bool createFileDurably(const std::string& path, std::string_view data, unsigned mode);

// Several small files written together, as auto-save writes its side files: all of them
// are written before the first is flushed, so the disk works on them at once, and each
// folder is flushed once for all. Each file appears whole under its name or not at all;
// there is no second name to put old bytes back, as these files can be written again.
struct FileToWrite {
    std::string path;
    std::string_view data;
    bool createOnly = false;  // as createFileDurably: never replaces what is there
    unsigned mode = 0600;     // permission bits of a new file
    bool written = false;     // the result: whole and on disk under path
};
void writeFilesTogether(std::vector<FileToWrite>& files);

}  // namespace zol
