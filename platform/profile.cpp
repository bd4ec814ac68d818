#include "platform/profile.h"

#include "platform/file_io.h"
#include "platform/paths.h"
#include "platform/profile_doc.h"

#include <cstring>
#include <ctime>
#include <map>
#include <sys/stat.h>

namespace zol {

namespace {

// How many parsed files stay in memory for repeated lookups.
constexpr size_t kProfileCacheFiles = 16;
// A file changed within this many nanoseconds before we read it could change again
// without its time stamp moving (coarse file-system clocks), so it is read again.
constexpr int64_t kRacyWindowNs = 2'000'000'000;

struct FileIdentity {
    bool exists = false;
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    int64_t mtimeNs = 0;
    int64_t ctimeNs = 0;
    bool operator==(const FileIdentity&) const = default;
};

struct CachedProfile {
    ProfileDoc doc;
    FileIdentity id;
    int64_t readAtNs = 0;  // wall clock when id was last known to match doc
    int batchDepth = 0;    // > 0: doc is authoritative until the batch ends
    bool dirty = false;    // batch only: doc differs from the file
    uint64_t trustedInScope = 0;  // the read scope in which the file was last checked
};

std::map<std::string, CachedProfile>& cache() {
    static std::map<std::string, CachedProfile> files;
    return files;
}

struct ReadScope {
    int depth = 0;
    uint64_t number = 0;  // of the outermost scope, counted from 1
    std::map<std::string, std::string> resolved;  // home + bare name -> profile path
};

ReadScope& readScope() {
    static ReadScope scope;
    return scope;
}

int64_t nanos(const timespec& ts) { return int64_t(ts.tv_sec) * 1'000'000'000 + ts.tv_nsec; }

int64_t nowNs() {
    timespec ts {};
    ::clock_gettime(CLOCK_REALTIME, &ts);
    return nanos(ts);
}

FileIdentity identityOf(const std::string& path) {
    FileIdentity id;
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return id;
    id.exists = true;
    id.dev = st.st_dev;
    id.ino = st.st_ino;
    id.size = st.st_size;
    id.mtimeNs = nanos(st.st_mtim);
    id.ctimeNs = nanos(st.st_ctim);
    return id;
}

void trimCache(const std::string& keep) {
    auto& files = cache();
    for (auto it = files.begin(); files.size() > kProfileCacheFiles && it != files.end();) {
        if (it->first != keep && it->second.batchDepth == 0) it = files.erase(it);
        else ++it;
    }
}

// The current image of the file at path, read again only when it may have changed.
CachedProfile& load(const std::string& path) {
    CachedProfile& entry = cache()[path];
    if (entry.batchDepth > 0) return entry;
    const ReadScope& scope = readScope();
    if (scope.depth > 0 && entry.trustedInScope == scope.number) return entry;
    FileIdentity id = identityOf(path);
    bool fresh = id == entry.id && entry.readAtNs - id.mtimeNs > kRacyWindowNs && entry.readAtNs - id.ctimeNs > kRacyWindowNs;
    if (!fresh) {
        int64_t readAt = nowNs();
        std::string data;
        if (id.exists && readWholeFile(path, data)) {
            entry.doc = parseProfile(data);
        } else {
            entry.doc = ProfileDoc();
        }
        // The file may have changed while being read; then the next lookup reads again.
        entry.id = identityOf(path) == id ? id : FileIdentity();
        entry.readAtNs = readAt;
    }
    if (scope.depth > 0) entry.trustedInScope = scope.number;
    trimCache(path);
    return entry;
}

bool store(const std::string& path, CachedProfile& entry) {
    if (!replaceFile(path, serializeProfile(entry.doc))) {
        cache().erase(path);
        return false;
    }
    entry.id = identityOf(path);
    entry.readAtNs = nowNs();
    return true;
}

std::string_view trimRight(std::string_view s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

size_t copyText(std::string_view text, char* buffer, size_t size) {
    if (!buffer || size == 0) return 0;
    size_t n = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), n);
    buffer[n] = '\0';
    return n;
}

// Zero-separated names ended by a second zero, cut as the Windows functions cut it.
size_t copyList(const std::vector<std::string>& names, char* buffer, size_t size) {
    if (!buffer || size == 0) return 0;
    if (size < 2) {
        buffer[0] = '\0';
        return 0;
    }
    size_t at = 0;
    for (const std::string& name : names) {
        if (at + name.size() + 1 > size - 1) {
            size_t room = at < size - 2 ? size - 2 - at : 0;
            std::memcpy(buffer + at, name.data(), room);
            buffer[size - 2] = '\0';
            buffer[size - 1] = '\0';
            return size - 2;
        }
        std::memcpy(buffer + at, name.data(), name.size());
        at += name.size();
        buffer[at++] = '\0';
    }
    buffer[at] = '\0';
    return at;
}

}  // namespace

std::string profilePath(std::string_view file) {
    ReadScope& scope = readScope();
    if (scope.depth == 0 || hasFolderPart(file)) return resolveBareName(file);
    const std::string key = homeDir() + std::string(file);
    auto it = scope.resolved.find(key);
    if (it == scope.resolved.end()) it = scope.resolved.emplace(key, resolveBareName(file)).first;
    return it->second;
}

std::optional<std::string> findProfileString(std::string_view section, std::string_view key, std::string_view file) {
    return profileValue(load(profilePath(file)).doc, section, key);
}

std::string getProfileString(std::string_view section, std::string_view key, std::string_view def,
                             std::string_view file, size_t bufferSize) {
    std::optional<std::string> value = findProfileString(section, key, file);
    std::string out = value ? std::move(*value) : std::string(trimRight(def));
    if (bufferSize == 0) return {};
    if (out.size() > bufferSize - 1) out.resize(bufferSize - 1);
    return out;
}

size_t getProfileString(NullableText section, NullableText key, const char* def, char* buffer, size_t size,
                        std::string_view file) {
    if (section.isNull()) return copyList(getProfileSectionNames(file), buffer, size);
    if (key.isNull()) return copyList(getProfileKeys(*section.text, file), buffer, size);
    std::optional<std::string> value = findProfileString(*section.text, *key.text, file);
    return copyText(value ? std::string_view(*value) : trimRight(def ? def : ""), buffer, size);
}

int getProfileInt(std::string_view section, std::string_view key, int def, std::string_view file) {
    std::optional<std::string> value = findProfileString(section, key, file);
    if (!value) return def;
    std::string_view s = *value;
    size_t i = 0;
    bool negative = false;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) negative = s[i++] == '-';
    if (i >= s.size() || s[i] < '0' || s[i] > '9') return def;
    uint32_t n = 0;
    for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i) n = n * 10 + static_cast<uint32_t>(s[i] - '0');
    if (negative) n = 0u - n;
    return static_cast<int>(n);
}

bool writeProfileString(NullableText section, NullableText key, NullableText value, std::string_view file) {
    if (section.isNull()) {
        flushProfileCache();
        return key.isNull() && value.isNull();
    }
    std::string path = profilePath(file);
    CachedProfile& entry = load(path);
    bool changed;
    if (key.isNull()) changed = profileDeleteSection(entry.doc, *section.text);
    else if (value.isNull()) changed = profileDeleteKey(entry.doc, *section.text, *key.text);
    else changed = profileSet(entry.doc, *section.text, *key.text, *value.text);
    if (!changed) return true;
    if (entry.batchDepth > 0) {
        entry.dirty = true;
        return true;
    }
    return store(path, entry);
}

bool writeProfileInt(std::string_view section, std::string_view key, int value, std::string_view file) {
    return writeProfileString(section, key, std::to_string(value), file);
}

std::vector<std::string> getProfileSectionNames(std::string_view file) {
    return profileSectionNames(load(profilePath(file)).doc);
}

size_t getProfileSectionNames(char* buffer, size_t size, std::string_view file) {
    return copyList(getProfileSectionNames(file), buffer, size);
}

std::vector<std::string> getProfileKeys(std::string_view section, std::string_view file) {
    return profileKeyNames(load(profilePath(file)).doc, section);
}

bool profileSectionExists(std::string_view section, std::string_view file) {
    return profileHasSection(load(profilePath(file)).doc, section);
}

void beginProfileBatch(std::string_view file) {
    std::string path = profilePath(file);
    CachedProfile& entry = load(path);
    ++entry.batchDepth;
}

bool endProfileBatch(std::string_view file) {
    std::string path = profilePath(file);
    auto it = cache().find(path);
    if (it == cache().end() || it->second.batchDepth == 0) return false;
    CachedProfile& entry = it->second;
    if (--entry.batchDepth > 0 || !entry.dirty) return true;
    entry.dirty = false;
    return store(path, entry);
}

void beginProfileReadScope() {
    ReadScope& scope = readScope();
    if (scope.depth++ == 0) ++scope.number;
}

void endProfileReadScope() {
    ReadScope& scope = readScope();
    if (scope.depth > 0 && --scope.depth == 0) scope.resolved.clear();
}

void flushProfileCache() {
    readScope().resolved.clear();
    auto& files = cache();
    for (auto it = files.begin(); it != files.end();) {
        if (it->second.batchDepth == 0) it = files.erase(it);
        else ++it;
    }
}

}  // namespace zol
