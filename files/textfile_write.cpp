#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "engine/columns.h"
#include "engine/shell.h"
#include "files/autosave.h"
#include "files/messages.h"
#include "files/textfile.h"

#include "files/autosave.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

namespace fs = std::filesystem;

constexpr size_t kWriteChunk = size_t{1} << 20;
constexpr int kTempNameTries = 64;

// Collects small pieces and hands the stream big ones; remembers the first failure.
class ByteSink {
public:
    explicit ByteSink(std::FILE* f) : f_(f), buf_(new char[kWriteChunk]) {}

    void put(std::string_view s) {
        if (failed_) return;
        if (used_ + s.size() > kWriteChunk) flush();
        if (s.size() > kWriteChunk) {
            if (std::fwrite(s.data(), 1, s.size(), f_) != s.size()) failed_ = true;
            return;
        }
        std::memcpy(buf_.get() + used_, s.data(), s.size());
        used_ += s.size();
    }
    // True when every byte reached the file.
    bool finish() {
        flush();
        if (!failed_ && std::fflush(f_) != 0) failed_ = true;
        return !failed_ && !std::ferror(f_);
    }

private:
    void flush() {
        if (!failed_ && used_ && std::fwrite(buf_.get(), 1, used_, f_) != used_) failed_ = true;
        used_ = 0;
    }

    std::FILE* f_;
    std::unique_ptr<char[]> buf_;
    size_t used_ = 0;
    bool failed_ = false;
};

void putWholeText(const Document& doc, ByteSink& out, std::string_view eol) {
    const LineList& ll = doc.lines;
    for (LineRef r = ll.first; r != kNoLine;) {
        out.put(ll.text(r));
        r = ll.next(r);
        if (r != kNoLine) out.put(eol);
    }
}

size_t offsetAt(std::string_view line, int col) { return locateColumn(line, col).offset; }

// The selected text: a character selection from its earlier to its later end, a column
// selection as the same columns of every line it spans.
void putSelection(const Document& doc, ByteSink& out, std::string_view eol) {
    const LineList& ll = doc.lines;
    Pos from = earlier(doc.selAnchor, doc.selEnd);
    Pos to = later(doc.selAnchor, doc.selEnd);
    from.line = std::clamp<int32_t>(from.line, 0, ll.lastIndex);
    to.line = std::clamp<int32_t>(to.line, 0, ll.lastIndex);
    LineRef r = ll.find(from.line);
    if (doc.selMode == SelMode::Column) {
        const int left = std::min(doc.selAnchor.col, doc.selEnd.col);
        const int right = std::max(doc.selAnchor.col, doc.selEnd.col);
        for (int32_t i = from.line; i <= to.line; ++i, r = ll.next(r)) {
            const std::string_view t = ll.text(r);
            const size_t a = offsetAt(t, left);
            const size_t b = std::max(a, offsetAt(t, right));
            if (i > from.line) out.put(eol);
            out.put(t.substr(a, b - a));
        }
        return;
    }
    std::string_view t = ll.text(r);
    const size_t a = offsetAt(t, from.col);
    if (from.line == to.line) {
        out.put(t.substr(a, std::max(a, offsetAt(t, to.col)) - a));
        return;
    }
    out.put(t.substr(a));
    for (int32_t i = from.line + 1; i <= to.line; ++i) {
        r = ll.next(r);
        t = ll.text(r);
        out.put(eol);
        out.put(i == to.line ? t.substr(0, offsetAt(t, to.col)) : t);
    }
}

// Creates a new, empty file beside target for the new text; the name does not matter
// as long as it is free.
std::FILE* createTempBeside(const fs::path& target, fs::path& tempPath) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const auto ticks = static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count());
    for (int i = 0; i < kTempNameTries; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, ".zol%04X.tmp", (ticks + static_cast<unsigned>(i) * 7919u) & 0xFFFFu);
        tempPath = folder / name;
        errno = 0;
        if (std::FILE* f = std::fopen(tempPath.c_str(), "wbx")) return f;
        if (errno != EEXIST) return nullptr;
    }
    return nullptr;
}

// Writing through a symbolic link replaces the file it points to, not the link.
fs::path resolveLinks(const std::string& path) {
    std::error_code ec;
    fs::path p(path);
    if (!fs::is_symlink(p, ec)) return p;
    fs::path real = fs::canonical(p, ec);
    if (!ec) return real;
    fs::path dest = fs::read_symlink(p, ec);  // dangling: create what it points to
    if (ec) return p;
    return dest.is_absolute() ? dest : p.parent_path() / dest;
}

}  // namespace

std::string backupName(std::string_view path, int style) {
    std::string out(path);
    if (style == 0) {
        const size_t sep = path.find_last_of("/\\");
        const size_t start = sep == std::string_view::npos ? 0 : sep + 1;
        const size_t dot = path.rfind('.');
        if (dot != std::string_view::npos && dot > start) out.resize(dot);
    }
    return out + ".bak";
}

bool isReadOnlyFile(const std::string& path) {
    const FileAttributes a = fileAttributes(path);
    if (!a.exists || a.isDirectory) return false;
    if (a.readOnly) return true;
    std::error_code ec;
    const fs::perms p = fs::status(path, ec).permissions();
    constexpr fs::perms anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return !ec && (p & anyWrite) == fs::perms::none;
}

bool writeFile(Document& doc, const std::string& path, TextFormat format, int backupStyle, bool blockOnly,
               bool keepModified) {
    if (blockOnly && !doc.selExists) return false;
    const FileAttributes attrs = fileAttributes(path);
    if (path.empty() || attrs.isDirectory) {
        shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, path));
        return false;
    }
    if (isReadOnlyFile(path)) {
        shell().message(filemsg::withFileName(filemsg::kReadOnlyTarget, path));
        return false;
    }

    const fs::path target = resolveLinks(path);
    fs::path temp;
    std::FILE* f = createTempBeside(target, temp);
    if (!f) {
        shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, path));
        return false;
    }
    bool ok;
    {
        ByteSink out(f);
        const std::string_view eol = lineEndOf(format);
        if (blockOnly) putSelection(doc, out, eol); else putWholeText(doc, out, eol);
        ok = out.finish();
    }
    if (std::fclose(f) != 0) ok = false;
    std::error_code ec;
    if (!ok) {
        fs::remove(temp, ec);
        shell().message(filemsg::kWriteError);
        return false;
    }

    // The old file becomes the backup. A second name for it keeps the target in place
    // until the new text replaces it in one step; where links are not possible the old
    // file is moved aside instead.
    const bool existed = fs::exists(target, ec);
    if (existed) fs::permissions(temp, fs::status(target, ec).permissions(), ec);
    fs::path movedAside;
    if (existed && backupStyle >= 0) {
        const fs::path bak = backupName(target.string(), backupStyle);
        if (bak != target) {
            fs::remove(bak, ec);
            fs::create_hard_link(target, bak, ec);
            if (ec) {
                fs::rename(target, bak, ec);
                if (!ec) movedAside = bak;
            }
        }
    }
    fs::rename(temp, target, ec);
    if (ec) {
        std::error_code ignored;
        if (!movedAside.empty()) fs::rename(movedAside, target, ignored);
        fs::remove(temp, ignored);
        shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, path));
        return false;
    }

    if (!blockOnly) {
        const bool wasModified = doc.modified;
        setModified(doc, false);
        if (keepModified) setModified(doc, wasModified);
        if (doc.hasFile && fullPath(doc.fileName) == fullPath(path)) doc.fileTime = fileTime32(path);
        // Saved text needs no side file any more.
        if (!doc.modified) removeAutoSaveFile(doc);
    }
    return true;
}

}  // namespace zol
