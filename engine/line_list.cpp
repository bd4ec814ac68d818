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
    textBytes = 0;
    seen = kNoLine;
}

void LineList::swap(LineList& other) noexcept {
    std::swap(arena, other.arena);
    std::swap(first, other.first);
    std::swap(current, other.current);
    std::swap(currentIndex, other.currentIndex);
    std::swap(lastIndex, other.lastIndex);
    std::swap(textBytes, other.textBytes);
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
        textBytes = textBytes - h.len + len;
        std::memmove(arena.text(r), s.data(), len);
        arena.text(r)[len] = '\0';
        h.len = len;
        return r;
    }
    LineRef n = arena.allocate(len);
    std::memcpy(arena.text(n), s.data(), len);
    LineHeader& nh = header(n);
    const LineHeader& oh = header(r);  // re-read: the arena may have grown
    nh.comment = oh.comment;
    nh.bookmark = oh.bookmark;
    textBytes = textBytes - oh.len + len;
    const LineRef p = prev(r), x = next(r);
    arena.setLinks(n, p, x);
    if (p != kNoLine) arena.setNext(p, n); else first = n;
    if (x != kNoLine) arena.setPrev(x, n);
    if (current == r) current = n;
    if (seen == r) seen = n;
    arena.release(r);
    return n;
}

LineRef LineList::insertAfter(LineRef after, int32_t index, std::string_view s) {
    const auto len = static_cast<uint16_t>(s.size());
    LineRef n = arena.allocate(len);
    std::memcpy(arena.text(n), s.data(), len);
    const LineRef x = after != kNoLine ? next(after) : first;
    arena.setLinks(n, after, x);
    if (x != kNoLine) arena.setPrev(x, n);
    if (after != kNoLine) arena.setNext(after, n); else first = n;
    textBytes += len;
    ++lastIndex;
    if (index <= currentIndex) ++currentIndex;
    if (seen != kNoLine && index <= seenIndex) ++seenIndex;
    return n;
}

LineRef LineList::append(LineRef last, std::string_view s) {
    const auto len = static_cast<uint16_t>(s.size());
    LineRef n = arena.allocate(len);
    std::memcpy(arena.text(n), s.data(), len);
    arena.setLinks(n, last, kNoLine);
    arena.setNext(last, n);
    textBytes += len;
    ++lastIndex;
    return n;
}

void LineList::erase(LineRef r, int32_t index) {
    if (lastIndex == 0) {
        setText(r, {});
        return;
    }
    const LineRef p = prev(r), x = next(r);
    if (p != kNoLine) arena.setNext(p, x); else first = x;
    if (x != kNoLine) arena.setPrev(x, p);
    textBytes -= header(r).len;
    if (current == r) {
        if (x != kNoLine) {
            current = x;
        } else {
            current = p;
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
