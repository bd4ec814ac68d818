// Line bookmarks (a byte in each line record, so they travel with their lines) and
// the named bookmarks shared by the whole application.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/commands/messages.h"
#include "engine/document.h"

namespace zol {

bool isBookmarked(const Document& doc, int32_t line);
void setBookmark(Document& doc, int32_t line, bool on);
void clearAllBookmarks(Document& doc);
// The nearest bookmarked line after `line`, wrapping round to the start and stopping
// before `line` itself; -1 when there is none. prevBookmark is its mirror image.
int32_t nextBookmark(const Document& doc, int32_t line);
int32_t prevBookmark(const Document& doc, int32_t line);
// Indexes of the bookmarked lines, in document order.
std::vector<int32_t> bookmarkedLines(const Document& doc);

struct NamedBookmark {
    std::string name;              // unique within its list
    std::string file;              // full file name; may be empty while doc is set
    Pos pos;
    const Document* doc = nullptr; // the open document it was added from, while it lives
};

struct NamedBookmarks {
    std::vector<NamedBookmark> entries;  // size <= kMaxNamedBookmarks, names unique
};

// The application's list.
NamedBookmarks& namedBookmarks();

enum class AddBookmark { Added, ListFull, NameTaken };
// Adds an entry; a full list or a name already present is refused and the list stays.
AddBookmark addNamedBookmark(NamedBookmarks& list, std::string_view name, Pos pos, std::string_view file,
                             const Document* doc = nullptr);
// The text the user sees for a refused add; nullptr for Added.
const char* addBookmarkMessage(AddBookmark result);
// Index of the entry of that name, -1 when none. Names compare exactly.
int findNamedBookmark(const NamedBookmarks& list, std::string_view name);
bool removeNamedBookmark(NamedBookmarks& list, std::string_view name);
// The file an entry points into: its document's current name while that is open.
std::string bookmarkFile(const NamedBookmark& b);
// A document goes away: its entries keep its file name and forget the document.
void detachDocument(NamedBookmarks& list, const Document& doc);
// Lines were inserted or removed in doc: entries into it below the change follow.
void shiftNamedBookmarks(NamedBookmarks& list, const Document& doc, int32_t line, int32_t removed, int32_t added);

// The list's settings section: keys "1" to "32", values "\"name\" \"file\" col line".
// Loading replaces the list and stops at the first missing or empty key; entries that
// do not parse are skipped. Saving writes entries with a file under consecutive keys
// and deletes the keys from the list size + 1 to 32.
void loadNamedBookmarks(NamedBookmarks& list, std::string_view section, std::string_view file);
bool saveNamedBookmarks(const NamedBookmarks& list, std::string_view section, std::string_view file);
// One settings value, parsed; false when the two numbers are not both there.
bool parseNamedBookmark(std::string_view value, NamedBookmark& out);

}  // namespace zol
