// One private-profile (ini) file held in memory line by line, so that an edit changes
// only its own line and every other byte of the file is written back as it was read.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

enum class ProfileLineKind : unsigned char {
    Other,    // blank line, comment (";" first), text before the first section, "=value"
    Section,  // "[name]" (the last "]" closes it)
    Key,      // "name=value", or a bare "name" (a key with an empty value)
};

struct ProfileLine {
    std::string text;  // the line as in the file, without its line end
    std::string eol;   // "\n" or "\r\n"; empty only on a last line that has none
    ProfileLineKind kind = ProfileLineKind::Other;
    // Section and Key: where the trimmed name sits in text.
    size_t nameAt = 0, nameLen = 0;
    // Key: where the value starts, right after the "="; npos when the line has none.
    size_t valueAt = std::string::npos;

    std::string_view name() const { return std::string_view(text).substr(nameAt, nameLen); }
};

struct ProfileDoc {
    std::vector<ProfileLine> lines;  // concatenating text + eol of all lines gives the file
};

ProfileDoc parseProfile(std::string_view data);
std::string serializeProfile(const ProfileDoc& doc);
// Recomputes kind, name and value position after text changed.
void classifyProfileLine(ProfileLine& line);

// Section and key names match without regard to letter case. Only the first section of
// a name counts for lookups and writes, and in it only the first line of a key.
std::optional<std::string> profileValue(const ProfileDoc& doc, std::string_view section, std::string_view key);
// Names in file order, each once (first spelling).
std::vector<std::string> profileSectionNames(const ProfileDoc& doc);
std::vector<std::string> profileKeyNames(const ProfileDoc& doc, std::string_view section);
bool profileHasSection(const ProfileDoc& doc, std::string_view section);

// Edits; each returns true when the document changed. A new key goes after the last
// key line of its section, a new section at the end of the file.
bool profileSet(ProfileDoc& doc, std::string_view section, std::string_view key, std::string_view value);
// Removes every line of the key in the section, so that no duplicate shows through.
bool profileDeleteKey(ProfileDoc& doc, std::string_view section, std::string_view key);
// Removes every section of the name, from its header to the next section's header.
bool profileDeleteSection(ProfileDoc& doc, std::string_view section);

// The value as a program sees it: blanks around it trimmed, then one pair of enclosing
// double or single quotes removed.
std::string_view unquoteProfileValue(std::string_view raw);
bool profileNameEqual(std::string_view a, std::string_view b);

}  // namespace zol
