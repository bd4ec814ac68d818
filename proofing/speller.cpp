#include "proofing/speller.h"

#include <hunspell.h>

#include <algorithm>
#include <array>

#include "config/settings.h"
#include "engine/case_map.h"
#include "engine/text_util.h"
#include "files/codepage.h"
#include "platform/dynlib.h"
#include "platform/file_io.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "proofing/messages.h"
#include "proofing/text.h"

namespace zol {
namespace {

// Where Debian's dictionary packages put their files, after the home's own folder.
const char* const kSystemDictionaryDirs[] = {"/usr/share/hunspell", "/usr/share/myspell", "/usr/share/myspell/dicts"};
constexpr const char* kHomeDictionaryDir = "dict";
// A document of made-up words would otherwise grow the answers without end; starting
// afresh costs one dictionary look-up per word.
constexpr size_t kMaxCachedWords = 200000;

void appendUtf8(std::string& out, uint32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

std::string ansiToUtf8(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    for (char c : s) appendUtf8(out, ansiToUnicode(static_cast<uint8_t>(c)));
    return out;
}

// Characters without a place in the code page become "?".
std::string utf8ToAnsi(std::string_view s) {
    static const std::array<uint16_t, 256> table = [] {
        std::array<uint16_t, 256> t{};
        for (int b = 0; b < 256; ++b) t[static_cast<size_t>(b)] = ansiToUnicode(static_cast<uint8_t>(b));
        return t;
    }();
    std::string out;
    for (size_t i = 0; i < s.size();) {
        const auto b = static_cast<uint8_t>(s[i]);
        uint32_t cp = b;
        size_t len = 1;
        if (b >= 0xF0) cp = b & 0x07, len = 4;
        else if (b >= 0xE0) cp = b & 0x0F, len = 3;
        else if (b >= 0xC0) cp = b & 0x1F, len = 2;
        for (size_t k = 1; k < len && i + k < s.size(); ++k) cp = (cp << 6) | (static_cast<uint8_t>(s[i + k]) & 0x3F);
        i += len;
        auto it = std::find(table.begin(), table.end(), cp);
        out += it == table.end() ? '?' : static_cast<char>(it - table.begin());
    }
    return out;
}

bool isAscii(std::string_view s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return static_cast<uint8_t>(c) < 0x80; });
}

}  // namespace

namespace {

// The library is opened when a dictionary is first loaded: most runs check no word,
// and mapping it cost every start of the program.
struct HunspellCalls {
    decltype(&Hunspell_create) create = nullptr;
    decltype(&Hunspell_destroy) destroy = nullptr;
    decltype(&Hunspell_get_dic_encoding) encoding = nullptr;
    decltype(&Hunspell_add) add = nullptr;
    decltype(&Hunspell_spell) spell = nullptr;
    decltype(&Hunspell_suggest) suggest = nullptr;
    decltype(&Hunspell_free_list) freeList = nullptr;
};

template <typename Fn>
bool bind(LibraryHandle lib, Fn& fn, const char* name) {
    fn = reinterpret_cast<Fn>(librarySymbol(lib, name));
    return fn != nullptr;
}

// Null when the library cannot be opened.
const HunspellCalls* hunspell() {
    static const HunspellCalls* const calls = []() -> const HunspellCalls* {
        static HunspellCalls c;
        LibraryHandle lib = openLibrary(ZOLDER_HUNSPELL_LIBRARY);
        if (!lib) return nullptr;
        if (bind(lib, c.create, "Hunspell_create") && bind(lib, c.destroy, "Hunspell_destroy") &&
            bind(lib, c.encoding, "Hunspell_get_dic_encoding") && bind(lib, c.add, "Hunspell_add") &&
            bind(lib, c.spell, "Hunspell_spell") && bind(lib, c.suggest, "Hunspell_suggest") &&
            bind(lib, c.freeList, "Hunspell_free_list"))
            return &c;
        closeLibrary(lib);
        return nullptr;
    }();
    return calls;
}

}  // namespace

// Only made once the library is open.
struct Speller::Handle {
    const HunspellCalls& calls;
    Hunhandle* h = nullptr;
    ~Handle() {
        if (h) calls.destroy(h);
    }
};

std::string lexiconLanguage(std::string_view lexicon) {
    if (equalsNoCase(lexicon, "spellus.lex") || lexicon.empty()) return "en_US";
    if (equalsNoCase(lexicon, "spelluk.lex")) return "en_GB";
    return std::string(lexicon);
}

DictionaryFiles findDictionary(std::string_view mainLexicon) {
    DictionaryFiles f;
    f.language = lexiconLanguage(mainLexicon);
    auto take = [&f](const std::string& stem) {
        if (!fileExists(stem + ".dic") || !fileExists(stem + ".aff")) return false;
        f.dic = stem + ".dic";
        f.aff = stem + ".aff";
        return true;
    };
    if (hasFolderPart(f.language) || prooftext::endsWithNoCase(f.language, ".dic")) {
        std::string stem = f.language;
        if (prooftext::endsWithNoCase(stem, ".dic")) stem.resize(stem.size() - 4);
        take(hasFolderPart(stem) ? stem : joinPath(homeDir(), stem));
        return f;
    }
    if (take(joinPath(joinPath(homeDir(), kHomeDictionaryDir), f.language))) return f;
    for (const char* dir : kSystemDictionaryDirs)
        if (take(joinPath(dir, f.language))) return f;
    return f;
}

std::string dictionaryPackage(std::string_view language) {
    std::string name = "hunspell-";
    for (char c : language) name += c == '_' ? '-' : cpLower(c);
    return name;
}

Speller::Speller() = default;
Speller::~Speller() = default;

bool Speller::load(const DictionaryFiles& files, const std::string& userDictPath, std::string& error) {
    h_.reset();
    cache_.clear();
    userPath_ = userDictPath;
    if (files.dic.empty()) {
        error = proofmsg::fill(proofmsg::kNoDictionary, files.language, dictionaryPackage(files.language));
        return false;
    }
    const HunspellCalls* calls = hunspell();
    if (!calls) {
        error = proofmsg::fill(proofmsg::kNoSpellingLibrary, ZOLDER_HUNSPELL_LIBRARY);
        return false;
    }
    auto h = std::make_unique<Handle>(Handle{*calls});
    h->h = calls->create(files.aff.c_str(), files.dic.c_str());
    if (!h->h) {
        error = proofmsg::fill(proofmsg::kDictionaryUnreadable, files.dic);
        return false;
    }
    const char* enc = calls->encoding(h->h);
    utf8_ = enc && equalsNoCase(std::string_view(enc), "UTF-8");
    h_ = std::move(h);
    std::string words;
    if (readWholeFile(userPath_, words)) {
        for (std::string_view w : splitLines(words, FinalLineEnd::EndsLastRow)) {
            const std::string_view t = prooftext::trim(w);
            // The file holds UTF-8, as add() writes it; the dictionary may want its own.
            if (!t.empty()) h_->calls.add(h_->h, (utf8_ ? std::string(t) : utf8ToAnsi(t)).c_str());
        }
    }
    return true;
}

bool Speller::loaded() const { return h_ != nullptr; }

std::string Speller::toDictionary(std::string_view word) const {
    return utf8_ && !isAscii(word) ? ansiToUtf8(word) : std::string(word);
}

std::string Speller::fromDictionary(std::string_view word) const {
    return utf8_ && !isAscii(word) ? utf8ToAnsi(word) : std::string(word);
}

bool Speller::correct(std::string_view word) {
    if (!h_) return true;
    std::string key(word);
    if (auto it = cache_.find(key); it != cache_.end()) return it->second;
    bool ok = ignored_.count(word) || h_->calls.spell(h_->h, toDictionary(word).c_str()) != 0;
    if (cache_.size() >= kMaxCachedWords) cache_.clear();
    cache_.emplace(std::move(key), ok);
    return ok;
}

std::vector<std::string> Speller::suggest(std::string_view word) {
    std::vector<std::string> out;
    if (!h_) return out;
    char** list = nullptr;
    const int n = h_->calls.suggest(h_->h, &list, toDictionary(word).c_str());
    for (int i = 0; i < n; ++i) out.push_back(fromDictionary(list[i]));
    if (list) h_->calls.freeList(h_->h, &list, n);
    return out;
}

void Speller::ignore(std::string_view word) {
    ignored_.emplace(word);
    cache_[std::string(word)] = true;
}

bool Speller::add(std::string_view word) {
    ignore(word);
    if (h_) h_->calls.add(h_->h, toDictionary(word).c_str());
    std::string text;
    // A dictionary that is there but cannot be read is not written over with one word.
    if (!readWholeFile(userPath_, text) && fileExists(userPath_)) return false;
    if (!text.empty() && text.back() != '\n') text += '\n';
    text += ansiToUtf8(word);
    text += '\n';
    return replaceFile(userPath_, text);
}

namespace {

struct SpellerState {
    std::unique_ptr<Speller> speller;
    bool tried = false;
    std::string error;  // why the last load failed
};
SpellerState& state() {
    static SpellerState s;
    return s;
}

std::string userDictionaryPath() {
    const std::string& name = settings().spelling.userDictionary;
    return hasFolderPart(name) ? name : joinPath(homeDir(), name.empty() ? "zol.dic" : name);
}

}  // namespace

Speller* speller(std::string* error) {
    SpellerState& s = state();
    if (s.speller) return s.speller.get();
    if (!s.tried) {
        s.tried = true;
        auto sp = std::make_unique<Speller>();
        if (sp->load(findDictionary(settings().spelling.mainLexicon), userDictionaryPath(), s.error))
            s.speller = std::move(sp);
    }
    if (!s.speller) {
        if (error) *error = s.error;
        return nullptr;
    }
    return s.speller.get();
}

void resetSpeller() {
    state() = SpellerState{};
}

}  // namespace zol
