// The program-wide table of language definitions. A document names its definition by
// slot 1..kSyntaxSlots; slot 0 means no highlighting.
#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "syntax/definition.h"

namespace zol {

struct ProfileDoc;

constexpr int kSyntaxSlots = 20;  // sections after the twentieth are not loaded
// The definitions' file, in the home folder.
constexpr const char* kSyntaxFile = "syntax.hgl";

struct SyntaxHighlightTable {
    // slots[i] is slot i + 1; null when empty. Filled from the front when loaded.
    std::array<std::unique_ptr<SyntaxHighlight>, kSyntaxSlots> slots;
};

// The table the editor uses.
SyntaxHighlightTable& syntaxTable();

// The definition in a slot, or null for slot 0, a slot out of range or an empty one.
const SyntaxHighlight* definitionAt(const SyntaxHighlightTable& table, int slot);

// Empties every slot, then loads the sections of the file in order. A file that
// cannot be read leaves the table empty. Returns the number of definitions loaded.
int loadDefinitions(SyntaxHighlightTable& table, const std::string& path);
// The same from the file's bytes.
int loadDefinitionsFromText(SyntaxHighlightTable& table, std::string_view data);
// Reads the file now and loads its definitions into syntaxTable() when the table is
// first asked for: a run that colours no document never parses them.
void loadDefinitionsOnFirstUse(const std::string& path);
// One section into a definition, with every correction of bad values applied.
SyntaxHighlight loadDefinition(std::string_view section, const std::string& path);
// The same from a file held in memory.
SyntaxHighlight loadDefinition(std::string_view section, const ProfileDoc& file);

// Slot 1..20 whose pattern matches the file name (its part after the last "/" or
// "\"), the earliest one winning; 0 when none does.
int findDefinitionForFile(const SyntaxHighlightTable& table, std::string_view fileName);
// One ";"-separated pattern list against a bare file name, without regard to case.
bool patternMatches(std::string_view patterns, std::string_view name);

struct Rgb {
    uint8_t r, g, b;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};
Rgb paletteColour(int index);  // out-of-range indices give entry 0
// nullopt stands for the system's colour (window text or window background).
std::optional<Rgb> textColour(const SyntaxHighlightTable& table, int slot);
std::optional<Rgb> backgroundColour(const SyntaxHighlightTable& table, int slot);
std::optional<Rgb> lineNumberColour(const SyntaxHighlightTable& table, int slot);
// Whether an output byte of the scanner is the comment (keyword) colour; compares the
// low four bits. False for slot 0 or an empty slot.
bool isCommentColour(const SyntaxHighlightTable& table, int slot, uint8_t colour);
bool isKeywordColour(const SyntaxHighlightTable& table, int slot, uint8_t colour);

}  // namespace zol
