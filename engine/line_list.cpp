#include "engine/line_list.h"

#include <cstring>
#include <utility>

namespace zol {

LineList::LineList() { reset(); }

void LineList::reset() {
    arena.clear();
    first = current = arena.allocate(0);
    currentIndex = 0;
    lastIndex = 0;
    seen = kNoLine;
}

void LineList::swap(LineList& other) noexcept {
    std::swap(arena, other.arena);
    std::swap(first, other.first);
    std::swap(current, other.current);
    std::swap(currentIndex, other.currentIndex);
    std::swap(lastIndex, other.lastIndex);
    std::swap(seen, other.seen);
    std::swap(seenIndex, other.seenIndex);
}

LineRef LineList::find(int32_t n) const {
    if (n == currentIndex) return current;
    LineRef r = current;
    int32_t at = currentIndex;
    auto distance = [n](int32_t i) { return n > i ? n - i : i - n; };
    if (seen != kNoLine && distance(seenIndex) < distance(at)) {
        r = seen;
        at = seenIndex;
    }
    if (n < at && n < at - n) {
        r = first;
        at = 0;
    }
    for (; at > n && prev(r) != kNoLine; --at) r = prev(r);
    for (; at < n && next(r) != kNoLine; ++at) r = next(r);
    seen = r;
    seenIndex = at;
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
    if (seen == r) seen = n;
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
    if (seen != kNoLine && index <= seenIndex) ++seenIndex;
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
    if (seen == r) seen = kNoLine;
    else if (index < seenIndex) --seenIndex;
    --lastIndex;
    arena.release(r);
}

}  // namespace zol
