// The lines of one document: a doubly linked list of line blocks with a cached
// current record, so that work near the cursor never walks from the start.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/line_arena.h"
#include "engine/line_capacity.h"

namespace zol {

struct LineList {
    LineArena arena;
    LineRef first = kNoLine;     // line 0; never kNoLine once initialised
    LineRef current = kNoLine;   // record of line currentIndex
    int32_t currentIndex = 0;    // 0..lastIndex
    int32_t lastIndex = 0;       // number of lines - 1; a document always has one line
    size_t textBytes = 0;        // the lengths of all lines added up
    // The line find() reached last, so that reading line after line away from the
    // cursor (a script or plug-in walking the text) never walks from the start again.
    mutable LineRef seen = kNoLine;
    mutable int32_t seenIndex = 0;

    LineList();
    LineList(const LineList&) = delete;
    LineList& operator=(const LineList&) = delete;

    std::string_view text(LineRef r) const { return {arena.text(r), arena.header(r)->len}; }
    const char* cstr(LineRef r) const { return arena.text(r); }
    LineRef next(LineRef r) const { return arena.next(r); }
    LineRef prev(LineRef r) const { return arena.prev(r); }
    LineHeader& header(LineRef r) const { return *arena.header(r); }
    int32_t count() const { return lastIndex + 1; }

    // The record of line n, found from the current record, the line found last or the
    // first line, whichever is nearest; never from the end. Past the end gives the last
    // line.
    LineRef find(int32_t n) const;
    // As find, and the found line becomes the cached current record.
    LineRef seek(int32_t n);

    // Replaces the text of a line; the line keeps its state bytes. Returns its
    // (possibly new) record.
    LineRef setText(LineRef r, std::string_view text);
    // Inserts a line so that it gets index `index` (0..lastIndex+1). `after` must be the
    // record of index - 1 (kNoLine when index is 0); it saves a search.
    LineRef insertAfter(LineRef after, int32_t index, std::string_view text);
    // Adds a line after `last`, which must be the last line; the cursor's line stays.
    LineRef append(LineRef last, std::string_view text);
    // Removes line `index` whose record is r. The only line of a document is emptied
    // instead of removed.
    void erase(LineRef r, int32_t index);
    // Back to a single empty line.
    void reset();
    // Exchanges the whole contents with another list.
    void swap(LineList& other) noexcept;
};

}  // namespace zol
