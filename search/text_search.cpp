#include "search/text_search.h"

#include <algorithm>
#include <cstring>

#include "engine/case_map.h"
#include "files/line_scan.h"
#include "search/literal_scan.h"

namespace zol {
namespace {

// How the places that can start a hit are found.
enum class Filter : uint8_t {
    Literal,    // the pattern is one literal: where it stands is a hit (but for whole words)
    Required,   // a literal every hit contains, somewhere in its line
    Lead,       // a hit's first byte and the byte after it
    EveryLine,  // nothing known: every line is searched
};

struct Prefilter {
    Filter kind = Filter::EveryLine;
    const char* literal = nullptr;
    size_t length = 0;
};

Prefilter prefilterOf(const Searcher& s) {
    // A literal holding a line end stands across lines, where the line search never
    // finds it.
    auto literal = [](const char* text, size_t n) {
        const bool oneLine = std::string_view(text, n).find_first_of("\r\n") == std::string_view::npos;
        return Prefilter{oneLine ? Filter::Literal : Filter::Required, text, n};
    };
    if (!s.prog) return literal(s.pattern.data(), s.pattern.size());
    const RegexProgram& p = *s.prog;
    if (p.literalOnly && p.required) return literal(p.required, p.requiredLength);
    // A literal of two bytes or more is rarer than most byte pairs and found as fast.
    if (p.required && p.requiredLength >= 2) return {Filter::Required, p.required, p.requiredLength};
    if (p.lead.first) return {Filter::Lead, nullptr, 0};
    if (p.required) return {Filter::Required, p.required, p.requiredLength};
    return {};
}

// The search of one piece of the text: whole lines, but for the text's last line,
// which may lack its line end.
struct PieceSearch {
    Searcher& s;
    const Prefilter& filter;
    const FoundLineFn& found;
    StreamOutcome& outcome;
    const char* text;  // the bytes as read
    char* hay;         // the bytes searched: text itself or its lower-cased copy
    size_t size;
    bool hasCr;
    int64_t line;      // the number of the line that starts at `counted`
    size_t counted = 0;

    // The first place at or after from that can start a hit (or, for Required, that
    // lies in a line that can hold one); size when there is none.
    size_t candidate(size_t from) const {
        switch (filter.kind) {
            case Filter::Literal:
            case Filter::Required: {
                const char* at = findLiteral(hay + from, size - from, filter.literal, filter.length);
                return at ? static_cast<size_t>(at - hay) : size;
            }
            case Filter::Lead: {
                const char* at = findLead(hay + from, size - from, s.prog->lead);
                return at ? static_cast<size_t>(at - hay) : size;
            }
            case Filter::EveryLine: break;
        }
        return from;
    }

    size_t lineStartBefore(size_t from, size_t at) const {
        if (!hasCr) {
            const void* lf = memrchr(hay + from, '\n', at - from);
            return lf ? static_cast<size_t>(static_cast<const char*>(lf) - hay) + 1 : from;
        }
        while (at > from && hay[at - 1] != '\n' && hay[at - 1] != '\r') --at;
        return at;
    }

    size_t lineEndFrom(size_t at) const {
        if (!hasCr) {
            const void* lf = std::memchr(hay + at, '\n', size - at);
            return lf ? static_cast<size_t>(static_cast<const char*>(lf) - hay) : size;
        }
        return static_cast<size_t>(findLineEnd(hay + at, hay + size) - hay);
    }

    // The line ends in [from, to), where `to` starts a line (or ends the text).
    int64_t lineEnds(size_t from, size_t to) const {
        int64_t n = static_cast<int64_t>(countByte(hay + from, to - from, '\n'));
        if (!hasCr) return n;
        for (const char* p = hay + from; (p = static_cast<const char*>(std::memchr(p, '\r', to - (p - hay))));) {
            if (++p == hay + to || *p != '\n') ++n;
        }
        return n;
    }

    // Searches the line [start, end) from offset `from` in it; false ends the search.
    bool searchOne(size_t start, size_t end, size_t from) {
        line += lineEnds(counted, start);
        counted = start;
        int res = kSearchFound;
        if (filter.kind != Filter::Literal || s.options.wholeWord) {
            // The regular expression must see the line alone: a NUL ends it for a moment.
            const char saved = hay[end];
            hay[end] = '\0';
            LineHit hit;
            res = searchLine(s, std::string_view(hay + start, end - start), from, hit);
            hay[end] = saved;
        }
        if (res == kSearchError) {
            outcome.result = kSearchError;
            outcome.lineGaveUp = line;
            return false;
        }
        if (res != kSearchFound) return true;
        outcome.result = kSearchFound;
        return found(line, std::string_view(text + start, end - start));
    }

    // Searches every line that starts in [0, size); `last` says the piece ends the
    // text, whose last line may lack a line end and be empty. False ends the search.
    bool run(bool last) {
        for (size_t pos = 0; pos < size || (last && pos == size);) {
            const size_t at = candidate(pos);
            if (at == size && (filter.kind != Filter::EveryLine || !last)) break;
            const size_t start = lineStartBefore(pos, at);
            const size_t end = lineEndFrom(at);
            // Past a lead, no hit can start earlier in its line; other filters say less.
            const size_t from = filter.kind == Filter::Lead || filter.kind == Filter::Literal ? at - start : 0;
            if (!searchOne(start, end, from)) return false;
            if (end == size) break;
            pos = end + (hay[end] == '\r' && end + 1 < size && hay[end + 1] == '\n' ? 2 : 1);
        }
        line += lineEnds(counted, size);
        counted = size;
        return true;
    }
};

// Where the whole lines of buf[0, n) end: just past the last line end that is surely
// complete (a CR last may be the first half of a CR LF); 0 when there is none.
size_t wholeLinesEnd(const char* buf, size_t n) {
    if (n == 0) return 0;
    if (buf[n - 1] == '\n') return n;
    for (size_t i = n - 1; i-- > 0;)
        if (buf[i] == '\n' || buf[i] == '\r') return i + 1;
    return 0;
}

void reserve(StreamBuffer& buf, size_t size, bool folded) {
    if (buf.size < size) {
        std::unique_ptr<char[]> bigger(new char[size]);
        if (buf.bytes) std::memcpy(bigger.get(), buf.bytes.get(), buf.size);
        buf.bytes = std::move(bigger);
        buf.folded.reset();
        buf.size = size;
    }
    if (folded && !buf.folded) buf.folded.reset(new char[buf.size]);
}

}  // namespace

StreamOutcome searchStream(Searcher& s, StreamBuffer& buf, const ReadFn& read, const FoundLineFn& found,
                           size_t chunk) {
    const Prefilter filter = prefilterOf(s);
    // The pattern and the text will agree in case: searchLine need not fold each line.
    const SearchOptions saved = s.options;
    const bool fold = !s.options.matchCase;
    s.options.matchCase = true;
    s.options.forward = true;
    StreamOutcome outcome;
    reserve(buf, std::max<size_t>(chunk, 2), fold);
    int64_t line = 1;
    size_t have = 0;  // bytes in buf: the start of a line and what follows it
    for (bool last = false; !last;) {
        // One byte stays free for the NUL that ends the last line.
        if (have + 1 == buf.size) reserve(buf, buf.size * 2, fold);
        const long n = read(buf.bytes.get() + have, buf.size - 1 - have);
        if (n < 0) {
            outcome.readFailed = true;
            break;
        }
        char* bytes = buf.bytes.get();
        if (std::memchr(bytes + have, '\0', static_cast<size_t>(n))) {
            outcome.binary = true;
            break;
        }
        last = n == 0;
        have += static_cast<size_t>(n);
        bytes[have] = '\0';
        const size_t whole = last ? have : wholeLinesEnd(bytes, have);
        if (whole == 0 && !last) continue;
        char* hay = bytes;
        if (fold) {
            hay = buf.folded.get();
            for (size_t i = 0; i <= whole; ++i) hay[i] = cpLower(bytes[i]);
        }
        PieceSearch piece{s, filter, found, outcome, bytes, hay, whole,
                          std::memchr(bytes, '\r', whole) != nullptr, line};
        if (!piece.run(last)) break;
        line = piece.line;
        std::memmove(bytes, bytes + whole, have - whole);
        have -= whole;
    }
    s.options = saved;
    if (outcome.result == kSearchError) s.gaveUp = true;
    return outcome;
}

ReadFn textReader(std::string_view text) {
    return [text, at = size_t{0}](char* out, size_t size) mutable {
        const size_t n = std::min(size, text.size() - at);
        std::memcpy(out, text.data() + at, n);
        at += n;
        return static_cast<long>(n);
    };
}

int searchText(Searcher& s, std::string& text, const FoundLineFn& found, int64_t* lineGaveUp) {
    StreamBuffer buf;
    const StreamOutcome o = searchStream(s, buf, textReader(text), found, std::min(kSearchChunk, text.size() + 2));
    if (o.result == kSearchError && lineGaveUp) *lineGaveUp = o.lineGaveUp;
    return o.result;
}

bool isBinaryText(std::string_view text) { return std::memchr(text.data(), '\0', text.size()) != nullptr; }

}  // namespace zol
