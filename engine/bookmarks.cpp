#include "engine/bookmarks.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>

#include "engine/edit.h"
#include "engine/line_list.h"
#include "platform/profile.h"

namespace zol {
namespace {

// One field of a settings value: a double-quoted text, or a run up to the next blank.
bool takeField(std::string_view& s, std::string& out) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    if (s.empty()) return false;
    size_t end;
    if (s.front() == '"') {
        s.remove_prefix(1);
        end = s.find('"');
        if (end == std::string_view::npos) end = s.size();
        out.assign(s.substr(0, end));
        s.remove_prefix(std::min(end + 1, s.size()));
    } else {
        end = s.find(' ');
        if (end == std::string_view::npos) end = s.size();
        out.assign(s.substr(0, end));
        s.remove_prefix(end);
    }
    return true;
}

bool takeNumber(std::string_view& s, long& out) {
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
    bool negative = false;
    if (!s.empty() && (s.front() == '-' || s.front() == '+')) {
        negative = s.front() == '-';
        s.remove_prefix(1);
    }
    if (s.empty() || !std::isdigit(static_cast<unsigned char>(s.front()))) return false;
    long v = 0;
    while (!s.empty() && std::isdigit(static_cast<unsigned char>(s.front()))) {
        if (v < 1000000000L) v = v * 10 + (s.front() - '0');
        s.remove_prefix(1);
    }
    out = negative ? -v : v;
    return true;
}

}  // namespace

bool isBookmarked(const Document& doc, int32_t line) {
    if (line < 0 || line > lastLine(doc)) return false;
    return doc.lines.header(doc.lines.find(line)).bookmark != 0;
}

void setBookmark(Document& doc, int32_t line, bool on) {
    if (line < 0 || line > lastLine(doc)) return;
    doc.lines.header(doc.lines.find(line)).bookmark = on ? 1 : 0;
}

void clearAllBookmarks(Document& doc) {
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) doc.lines.header(r).bookmark = 0;
}

int32_t nextBookmark(const Document& doc, int32_t line) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    for (int32_t i = line + 1; i <= ll.lastIndex; ++i) {
        r = ll.next(r);
        if (ll.header(r).bookmark) return i;
    }
    r = ll.first;
    for (int32_t i = 0; i < line; ++i, r = ll.next(r))
        if (ll.header(r).bookmark) return i;
    return -1;
}

int32_t prevBookmark(const Document& doc, int32_t line) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    for (int32_t i = line - 1; i >= 0; --i) {
        r = ll.prev(r);
        if (ll.header(r).bookmark) return i;
    }
    r = ll.find(ll.lastIndex);
    for (int32_t i = ll.lastIndex; i > line; --i, r = ll.prev(r))
        if (ll.header(r).bookmark) return i;
    return -1;
}

std::vector<int32_t> bookmarkedLines(const Document& doc) {
    std::vector<int32_t> out;
    int32_t i = 0;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r), ++i)
        if (doc.lines.header(r).bookmark) out.push_back(i);
    return out;
}

NamedBookmarks& namedBookmarks() {
    static NamedBookmarks list;
    static const bool following = [] {
        addChangeListener([](Document& doc, int32_t line, int32_t removed, int32_t added) {
            shiftNamedBookmarks(namedBookmarks(), doc, line, removed, added);
        });
        return true;
    }();
    (void)following;
    return list;
}

AddBookmark addNamedBookmark(NamedBookmarks& list, std::string_view name, Pos pos, std::string_view file,
                             const Document* doc) {
    if (findNamedBookmark(list, name) >= 0) return AddBookmark::NameTaken;
    if (list.entries.size() >= static_cast<size_t>(kMaxNamedBookmarks)) return AddBookmark::ListFull;
    list.entries.push_back(NamedBookmark{std::string(name), std::string(file), pos, doc});
    return AddBookmark::Added;
}

const char* addBookmarkMessage(AddBookmark result) {
    switch (result) {
        case AddBookmark::ListFull: return kMsgTooManyBookmarks;
        case AddBookmark::NameTaken: return kMsgBookmarkExists;
        default: return nullptr;
    }
}

int findNamedBookmark(const NamedBookmarks& list, std::string_view name) {
    for (size_t i = 0; i < list.entries.size(); ++i)
        if (list.entries[i].name == name) return static_cast<int>(i);
    return -1;
}

bool removeNamedBookmark(NamedBookmarks& list, std::string_view name) {
    const int i = findNamedBookmark(list, name);
    if (i < 0) return false;
    list.entries.erase(list.entries.begin() + i);
    return true;
}

std::string bookmarkFile(const NamedBookmark& b) {
    if (b.doc && b.doc->hasFile) return b.doc->fileName;
    return b.file;
}

void detachDocument(NamedBookmarks& list, const Document& doc) {
    for (NamedBookmark& b : list.entries) {
        if (b.doc != &doc) continue;
        b.file = bookmarkFile(b);
        b.doc = nullptr;
    }
}

void shiftNamedBookmarks(NamedBookmarks& list, const Document& doc, int32_t line, int32_t removed, int32_t added) {
    for (NamedBookmark& b : list.entries) {
        if (b.doc != &doc || b.pos.line <= line) continue;
        // An entry on a removed line stays on the line that replaced it (a replace-all
        // or a conversion gives each line back one for one), or, when fewer lines came
        // back, on the last of them: the edited line itself when none did.
        const int32_t offset = b.pos.line - line;
        if (offset <= removed) b.pos.line = line + std::min(offset, added);
        else b.pos.line += added - removed;
    }
}

bool parseNamedBookmark(std::string_view value, NamedBookmark& out) {
    std::string name, file;
    if (!takeField(value, name) || !takeField(value, file)) return false;
    long col = 0, line = 0;
    if (!takeNumber(value, col) || !takeNumber(value, line)) return false;
    out = NamedBookmark{};
    out.name = std::move(name);
    out.file = std::move(file);
    out.pos = makePos(static_cast<int>(std::clamp<long>(col, 0, kMaxColumns)),
                      static_cast<int32_t>(std::clamp<long>(line, 0, INT32_MAX)));
    return true;
}

void loadNamedBookmarks(NamedBookmarks& list, std::string_view section, std::string_view file) {
    list.entries.clear();
    for (int i = 1; i <= kMaxNamedBookmarks; ++i) {
        const std::string value = getProfileString(section, std::to_string(i), "", file);
        if (value.empty()) break;
        NamedBookmark b;
        if (parseNamedBookmark(value, b)) addNamedBookmark(list, b.name, b.pos, b.file);
    }
}

bool saveNamedBookmarks(const NamedBookmarks& list, std::string_view section, std::string_view file) {
    ProfileBatch batch(file);
    bool ok = true;
    int key = 0;
    for (const NamedBookmark& b : list.entries) {
        const std::string path = bookmarkFile(b);
        if (path.empty()) continue;
        const std::string value = "\"" + b.name + "\" \"" + path + "\" " + std::to_string(b.pos.col) + " " +
                                  std::to_string(b.pos.line);
        ok = writeProfileString(section, std::to_string(++key), value, file) && ok;
    }
    for (int i = static_cast<int>(list.entries.size()) + 1; i <= kMaxNamedBookmarks; ++i)
        ok = writeProfileString(section, std::to_string(i), nullptr, file) && ok;
    return batch.commit() && ok;
}

}  // namespace zol
