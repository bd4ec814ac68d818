// Private-profile (ini) files as programs written for the Windows profile functions
// expect them. A file name without a folder part lands in the home folder.
//
// Reading: section and key names match without regard to case; the first section of a
// name and the first line of a key win; blanks around a value and one pair of enclosing
// quotes (" or ') are removed; a missing file, section or key yields the default (with
// its trailing blanks removed). Writing changes only the line concerned and keeps every
// other byte of the file; a new key goes after the last key of its section, a new
// section at the end of the file; the file is replaced as a whole, never half-written.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// The file of the profile calls that name none (a script's GetProfileString and
// WriteProfileString): a bare name, so it lives in the home folder.
constexpr const char* kWinIniFile = "win.ini";

// "No buffer limit" for the string readers.
constexpr size_t kProfileNoLimit = SIZE_MAX;

// A name or value that may be null, as the Windows functions take them: from nullptr,
// std::nullopt, a null const char*, or any text.
struct NullableText {
    std::optional<std::string_view> text;

    NullableText(std::nullptr_t) {}
    NullableText(std::nullopt_t) {}
    NullableText(const char* s) { if (s) text = s; }
    NullableText(std::string_view s) : text(s) {}
    NullableText(const std::string& s) : text(std::string_view(s)) {}
    NullableText(const std::optional<std::string>& s) { if (s) text = std::string_view(*s); }
    bool isNull() const { return !text.has_value(); }
};

// The value, or def. The result is cut to bufferSize - 1 characters as a buffer of
// that size would hold it.
std::string getProfileString(std::string_view section, std::string_view key, std::string_view def,
                             std::string_view file, size_t bufferSize = kProfileNoLimit);

// GetPrivateProfileString with a caller's buffer: copies at most size - 1 characters and
// a terminating zero and returns the count copied. A null section lists the section
// names, a null key the section's keys: each name zero-terminated, the list ended by a
// second zero; when the list does not fit, the last name is cut, two zeros end the
// buffer and the result is size - 2. A null def is the empty text.
size_t getProfileString(NullableText section, NullableText key, const char* def, char* buffer, size_t size,
                        std::string_view file);

// The value when the key exists (possibly empty), nullopt when the key or its section
// is missing.
std::optional<std::string> findProfileString(std::string_view section, std::string_view key, std::string_view file);

// GetPrivateProfileInt: an optional sign and the leading decimal digits of the value
// (wrapping at 32 bits); def when the key is missing or the value starts with no number.
int getProfileInt(std::string_view section, std::string_view key, int def, std::string_view file);

// WritePrivateProfileString: a null value deletes the key, a null key deletes the whole
// section; with everything null only the read cache is dropped. A missing file is
// created on its first write. False when the file could not be written (or is
// read-only); the file is then as it was.
bool writeProfileString(NullableText section, NullableText key, NullableText value, std::string_view file);
// The value as "%d".
bool writeProfileInt(std::string_view section, std::string_view key, int value, std::string_view file);

std::vector<std::string> getProfileSectionNames(std::string_view file);
// GetPrivateProfileSectionNames: the list layout and cutting of getProfileString.
size_t getProfileSectionNames(char* buffer, size_t size, std::string_view file);
std::vector<std::string> getProfileKeys(std::string_view section, std::string_view file);
bool profileSectionExists(std::string_view section, std::string_view file);

// The path a profile file name stands for (a bare name resolves into the home folder).
std::string profilePath(std::string_view file);

// Groups many writes to one file into one replacement of the file: between begin and
// the matching end, writes change the file's image in memory (reads see them) and the
// outermost end writes the file once if anything changed. Returns false from end when
// that write failed; the memory image is then dropped.
void beginProfileBatch(std::string_view file);
bool endProfileBatch(std::string_view file);

// Scope guard for a batch; commit() ends it early and reports the write.
class ProfileBatch {
public:
    explicit ProfileBatch(std::string_view file) : file_(file) { beginProfileBatch(file_); }
    ~ProfileBatch() { commit(); }
    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;
    bool commit() {
        if (done_) return ok_;
        done_ = true;
        ok_ = endProfileBatch(file_);
        return ok_;
    }

private:
    std::string file_;
    bool done_ = false;
    bool ok_ = true;
};

// Forgets every parsed file kept for repeated lookups (not the open batches).
void flushProfileCache();

// Between begin and the matching end, a file is checked for outside changes at its
// first lookup only, and a bare name is resolved once: loading or saving the settings
// makes hundreds of lookups in a millisecond. Writes still reach the disk at once.
// Outside every scope, each lookup sees a change that another program made.
void beginProfileReadScope();
void endProfileReadScope();

class ProfileReadScope {
public:
    ProfileReadScope() { beginProfileReadScope(); }
    ~ProfileReadScope() { endProfileReadScope(); }
    ProfileReadScope(const ProfileReadScope&) = delete;
    ProfileReadScope& operator=(const ProfileReadScope&) = delete;
};

}  // namespace zol
