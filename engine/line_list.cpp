#include "engine/line_list.h"

#include <cstring>

namespace zol {

LineList::LineList() { reset(); }

void LineList::reset() {
    arena.clear();
    first = current = arena.allocate(0);
    currentIndex = 0;
    lastIndex = 0;
}

LineRef LineList::find(int32_t n) const {
    const int32_t c = currentIndex;
    LineRef r;
    if (n == c) return current;
    if (n < c && n > c - n) {
        r = current;
        for (int32_t i = c; i > n && prev(r) != kNoLine; --i) r = prev(r);
    } else if (n < c) {
        r = first;
        for (int32_t i = 0; i < n && next(r) != kNoLine; ++i) r = next(r);
    } else {
        r = current;
        for (int32_t i = c; i < n && next(r) != kNoLine; ++i) r = next(r);
    }
    return r;
}

LineRef LineList::seek(int32_t n) {
    if (n < 0) n = 0;
    if (n > lastIndex) n = lastIndex;
    current = find(n);
    currentIndex = n;
    return current;
}

LineRef LineList::setText(LineRef r, std::string_view s) {
    const auto len = static_cast<uint16_t>(s.size());
    LineHeader& h = header(r);
    if (LineArena::fitsInPlace(h.len, len)) {
        std::memmove(arena.text(r), s.data(), len);
        arena.text(r)[len] = '\0';
        h.len = len;
        return r;
    }
    LineRef n = arena.allocate(len);
    std::memcpy(arena.text(n), s.data(), len);
    LineHeader& nh = header(n);
    LineHeader& oh = header(r);  // re-read: the arena may have grown
    nh.prev = oh.prev;
    nh.next = oh.next;
    nh.comment = oh.comment;
    nh.bookmark = oh.bookmark;
    if (nh.prev != kNoLine) header(nh.prev).next = n; else first = n;
    if (nh.next != kNoLine) header(nh.next).prev = n;
    if (current == r) current = n;
    arena.release(r);
    return n;
}

LineRef LineList::insertAfter(LineRef after, int32_t index, std::string_view s) {
    const auto len = static_cast<uint16_t>(s.size());
    LineRef n = arena.allocate(len);
    std::memcpy(arena.text(n), s.data(), len);
    LineHeader& h = header(n);
    h.prev = after;
    h.next = after != kNoLine ? next(after) : first;
    if (h.next != kNoLine) header(h.next).prev = n;
    if (after != kNoLine) header(after).next = n; else first = n;
    ++lastIndex;
    if (index <= currentIndex) ++currentIndex;
    return n;
}

void LineList::erase(LineRef r, int32_t index) {
    if (lastIndex == 0) {
        setText(r, {});
        return;
    }
    LineHeader h = header(r);
    if (h.prev != kNoLine) header(h.prev).next = h.next; else first = h.next;
    if (h.next != kNoLine) header(h.next).prev = h.prev;
    if (current == r) {
        if (h.next != kNoLine) {
            current = h.next;
        } else {
            current = h.prev;
            --currentIndex;
        }
    } else if (index < currentIndex) {
        --currentIndex;
    }
    --lastIndex;
    arena.release(r);
}

}  // namespace zol
