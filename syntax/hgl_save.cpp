#include <cstdio>
#include <functional>

#include "engine/shell.h"
#include "platform/profile.h"
#include "platform/profile_doc.h"
#include "syntax/edit_copy.h"
#include "syntax/messages.h"

namespace zol {
namespace {

constexpr unsigned char kHardSpace = 0xA0;
constexpr int kKeywordKeysAlwaysWritten = 16;  // longer lists are written only when not empty

// Where the keys of one section go: the file, or a copy of it held in memory. A null
// value deletes the key.
using KeySink = std::function<void(const std::string& key, const std::string* value)>;

// A value in a pair of quotes loses them when read; another pair around it keeps them.
std::string quotedIfRead(const std::string& v) {
    const bool enclosed = v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front();
    return enclosed ? '"' + v + '"' : v;
}

// Writes one language's keys in the order of the key list, each in the form its kind
// takes in the file.
class SectionWriter {
public:
    explicit SectionWriter(KeySink sink) : sink_(std::move(sink)) {}

    void putText(HglKey k, const std::string& v) const { put(k, v); }
    void putPair(HglKey k, const std::string& v) const { put(k, v); }
    void putExtensions(HglKey, const std::string&) const {}
    void putYesNo(HglKey k, bool v) const { put(k, v ? "yes" : "No"); }
    void putNumber(HglKey k, int16_t v) const { put(k, std::to_string(v)); }
    void putChar(HglKey k, char c) const { put(k, c ? std::string(1, c) : std::string()); }
    void putLineComment(HglKey k, std::string v) const {
        for (char& c : v)
            if (c == ' ') c = static_cast<char>(kHardSpace);
        put(k, v);
    }
    void putKeywords(HglKey, const std::array<std::string, kMaxKeywordLen + 1>& lists) const {
        for (int n = 1; n <= kMaxKeywordLen; ++n) {
            const bool keep = n <= kKeywordKeysAlwaysWritten || !lists[n].empty();
            const std::string list = quotedIfRead(lists[n]);
            sink_(keywordKey(n), keep ? &list : nullptr);
        }
    }
    void putColour(HglKey k, int v) const { put(k, std::to_string(v)); }

    void putAll(const SyntaxEditLanguage& e) const {
#define ZOL_HGL_PUT(id, key, kind, def, buffer, field) put##kind(HglKey::id, e.field);
        ZOL_HGL_KEYS(ZOL_HGL_PUT)
#undef ZOL_HGL_PUT
    }

private:
    void put(HglKey k, const std::string& v) const {
        const std::string written = quotedIfRead(v);
        sink_(hglKey(k).key, &written);
    }
    KeySink sink_;
};

std::string cut(std::string s, size_t bufferSize) {
    if (s.size() > bufferSize - 1) s.resize(bufferSize - 1);
    return s;
}

// Cut to its field, a value or a section name may end in blanks that the file cannot
// keep (both are read without them), so they are dropped: the copy is what a save
// gives back.
std::string trimmed(std::string v) {
    while (!v.empty() && std::string_view(" \t\r\v\f").find(v.back()) != std::string_view::npos) v.pop_back();
    return v;
}

bool sameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
    return true;
}

SyntaxEditLanguage editCopyOf(const SyntaxHighlight& d, const std::string& path) {
    // The loaded definition already holds every corrected value; the texts typed as
    // sets and ranges are taken from the file as they stand.
    auto raw = [&](HglKey k) { return trimmed(getProfileString(d.name, hglKey(k).key, "", path, hglKey(k).buffer)); };
    SyntaxEditLanguage e;
    e.name = trimmed(cut(d.name, kEditNameSize));
    e.pattern = trimmed(d.pattern);
    e.caseSensitive = !(d.flags & kIgnoreCase);
    e.unixTexKeywords = d.flags & kUnixTexKeywords;
    e.fortranComment = d.flags & kFortranComments;
    e.lineNumbers = d.flags & kLineNumbers;
    e.cobol = d.flags & kCobol;
    e.cobolCommentPos = d.cobolCommentPos;
    e.maxLineLen = d.maxLineLen;
    e.cobolCommentChar = d.cobolCommentChar;
    e.firstComment = d.firstComment;
    e.stringDelim = d.stringDelim;
    e.charDelim = d.charDelim;
    e.quoteChar = d.quoteChar;
    e.preprocess = d.preprocessChar;
    // The pair in force rather than the text in the file: the field holds seven
    // characters, and a longer value cut there could lose its closer, so that saving
    // would switch multi-line comments off.
    if (d.multiOpen[0]) {
        for (char c : d.multiOpen)
            if (c) e.multiComment += c;
        e.multiComment += ' ';
        for (char c : d.multiClose)
            if (c) e.multiComment += c;
    }
    e.lineComment1 = d.lineComment1;
    e.lineComment2 = d.lineComment2;
    e.openCloseDelim = raw(HglKey::OpenCloseDelim);
    e.delimiters = raw(HglKey::Delimiters);
    e.operators = raw(HglKey::Operators);
    e.words = raw(HglKey::Words);
    e.numbers = raw(HglKey::Numbers);
    e.html = raw(HglKey::HTML);
    for (int n = 1; n <= kMaxKeywordLen; ++n) {
        std::string k = cut(d.keywords[n], syntaxmsg::kKeywordListSize);
        k.resize(k.size() - k.size() % static_cast<size_t>(n));
        e.keywords[n] = std::move(k);
    }
    for (int s = 1; s <= kColourSlots; ++s) e.colour[s] = d.colour[s];
    return e;
}

// Names that agree up to the field's end would be saved as one section: the later
// ones end in "~2", "~3" and so on instead, so that no language is lost to the cut.
void makeNamesDistinct(std::vector<SyntaxEditLanguage>& langs) {
    auto taken = [&](size_t upTo, const std::string& name) {
        for (size_t j = 0; j < upTo; ++j)
            if (sameName(langs[j].name, name)) return true;
        return false;
    };
    for (size_t i = 1; i < langs.size(); ++i) {
        const std::string base = langs[i].name;
        for (int n = 2; taken(i, langs[i].name); ++n) {
            const std::string suffix = "~" + std::to_string(n);
            langs[i].name = trimmed(cut(base, kEditNameSize - suffix.size())) + suffix;
        }
    }
}

}  // namespace

std::vector<SyntaxEditLanguage> readEditCopy(const std::string& path) {
    // One reading of the file for every raw value: a file saved a moment ago would
    // otherwise be parsed again for each key (its time stamp cannot be trusted yet).
    ProfileBatch batch(path);
    SyntaxHighlightTable t;
    loadDefinitions(t, path);
    std::vector<SyntaxEditLanguage> out;
    for (const auto& d : t.slots)
        if (d) out.push_back(editCopyOf(*d, path));
    makeNamesDistinct(out);
    return out;
}

bool saveDefinitions(SyntaxHighlightTable& table, const std::string& path, const std::vector<SyntaxEditLanguage>& langs) {
    {
        ProfileBatch batch(path);
        for (const std::string& s : getProfileSectionNames(path)) writeProfileString(s, nullptr, nullptr, path);
        for (const SyntaxEditLanguage& e : langs) {
            SectionWriter([&](const std::string& key, const std::string* value) {
                writeProfileString(e.name, key, value ? NullableText(*value) : NullableText(nullptr), path);
            }).putAll(e);
        }
        if (!batch.commit()) return false;
    }
    flushProfileCache();
    loadDefinitions(table, path);
    return true;
}

SyntaxHighlight definitionOf(const SyntaxEditLanguage& lang) {
    ProfileDoc file;
    SectionWriter([&](const std::string& key, const std::string* value) {
        if (value) profileSet(file, lang.name, key, *value);
        else profileDeleteKey(file, lang.name, key);
    }).putAll(lang);
    return loadDefinition(lang.name, file);
}

bool roomForLanguage(const std::vector<SyntaxEditLanguage>& langs) {
    if (langs.size() < static_cast<size_t>(kSyntaxSlots)) return true;
    shell().message(syntaxmsg::kTooManyLanguages);
    return false;
}

bool addKeyword(SyntaxEditLanguage& lang, std::string_view word) {
    if (word.empty() || word.size() > static_cast<size_t>(kMaxKeywordLen)) return false;
    std::string& list = lang.keywords[word.size()];
    if (list.size() + word.size() > syntaxmsg::kKeywordListSize - 1) {
        shell().message(syntaxmsg::fill(syntaxmsg::kTooManyKeywords, std::to_string(word.size())));
        return false;
    }
    list += word;
    return true;
}

bool addLanguage(std::vector<SyntaxEditLanguage>& langs, std::string_view name) {
    const std::string own = trimmed(cut(std::string(name), kEditNameSize));
    for (const SyntaxEditLanguage& l : langs) {
        if (sameName(l.name, own)) {
            shell().message(syntaxmsg::fill(syntaxmsg::kLanguageExists, name));
            return false;
        }
    }
    if (!roomForLanguage(langs)) return false;
    SyntaxEditLanguage e;
    e.name = own;
    langs.push_back(std::move(e));
    return true;
}

}  // namespace zol
