#include "syntax/table.h"

#include <cctype>

#include "platform/file_io.h"
#include "platform/profile.h"

namespace zol {
namespace {

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }
bool isSep(char c) { return c == '/' || c == '\\'; }

// One wildcard. "*" takes the rest of the current name part up to its next "."; the
// wildcard goes on at its own next "." (or its end).
bool wildcardMatches(std::string_view pat, std::string_view name) {
    size_t p = 0, n = 0;
    while (p < pat.size()) {
        const char c = pat[p];
        if (c == '*') {
            while (n < name.size() && name[n] != '.') ++n;
            while (p < pat.size() && pat[p] != '.') ++p;
        } else if (c == '?') {
            if (n == name.size()) return false;
            ++n, ++p;
        } else {
            if (n == name.size() || lower(name[n]) != lower(c)) return false;
            ++n, ++p;
        }
    }
    return n == name.size();
}

}  // namespace

namespace {

struct ProgramTable {
    SyntaxHighlightTable table;
    std::optional<std::string> pending;  // the file's bytes, until the table is first used
};

ProgramTable& programTable() {
    static ProgramTable program;
    return program;
}

}  // namespace

SyntaxHighlightTable& syntaxTable() {
    ProgramTable& p = programTable();
    if (p.pending) {
        const std::string data = std::move(*p.pending);
        p.pending.reset();
        loadDefinitionsFromText(p.table, data);
    }
    return p.table;
}

void loadDefinitionsOnFirstUse(const std::string& path) {
    ProgramTable& p = programTable();
    for (auto& s : p.table.slots) s.reset();
    std::string data;
    // A file that cannot be read leaves the table empty, as loadDefinitions does.
    if (!readWholeFile(profilePath(path), data)) data.clear();
    p.pending = std::move(data);
}

const SyntaxHighlight* definitionAt(const SyntaxHighlightTable& table, int slot) {
    if (slot < 1 || slot > kSyntaxSlots) return nullptr;
    return table.slots[static_cast<size_t>(slot - 1)].get();
}

bool patternMatches(std::string_view patterns, std::string_view name) {
    while (true) {
        const size_t semi = patterns.find(';');
        std::string_view one = patterns.substr(0, semi);
        if (!one.empty() && wildcardMatches(one, name)) return true;
        if (semi == std::string_view::npos) return false;
        patterns.remove_prefix(semi + 1);
    }
}

int findDefinitionForFile(const SyntaxHighlightTable& table, std::string_view fileName) {
    size_t cut = fileName.size();
    while (cut > 0 && !isSep(fileName[cut - 1])) --cut;
    const std::string_view name = fileName.substr(cut);
    for (int slot = 1; slot <= kSyntaxSlots; ++slot) {
        const SyntaxHighlight* d = definitionAt(table, slot);
        if (d && patternMatches(d->pattern, name)) return slot;
    }
    return 0;
}

Rgb paletteColour(int index) {
    static constexpr Rgb kPalette[kMaxColourIndex + 1] = {
        {0, 0, 0},       {0, 0, 0},     {0, 0, 128},   {0, 128, 0},   {0, 128, 128},   {128, 0, 0},
        {128, 0, 128},   {128, 128, 0}, {128, 128, 128}, {192, 192, 192}, {0, 0, 255}, {0, 255, 0},
        {0, 255, 255},   {255, 0, 0},   {255, 0, 255}, {255, 255, 0}, {255, 255, 255}};
    return index >= 0 && index <= kMaxColourIndex ? kPalette[index] : kPalette[0];
}

std::optional<Rgb> backgroundColour(const SyntaxHighlightTable& table, int slot) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    if (!d || d->colour[kColBackground] == 0) return std::nullopt;
    return paletteColour(d->colour[kColBackground]);
}

// A text colour without a background colour would be unreadable on some system
// backgrounds, so it only counts together with one.
std::optional<Rgb> textColour(const SyntaxHighlightTable& table, int slot) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    if (!d || d->colour[kColBackground] == 0) return std::nullopt;
    return paletteColour(d->colour[kColText]);
}

std::optional<Rgb> lineNumberColour(const SyntaxHighlightTable& table, int slot) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    if (!d || d->colour[kColLineNumbers] == 0) return std::nullopt;
    return paletteColour(d->colour[kColLineNumbers]);
}

bool isCommentColour(const SyntaxHighlightTable& table, int slot, uint8_t colour) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    return d && (colour & 0x0F) == d->colour[kColComment];
}

bool isKeywordColour(const SyntaxHighlightTable& table, int slot, uint8_t colour) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    return d && (colour & 0x0F) == d->colour[kColKeyword];
}

}  // namespace zol
