#include <cstdio>

#include "engine/shell.h"
#include "platform/profile.h"
#include "syntax/edit_copy.h"
#include "syntax/messages.h"

namespace zol {
namespace {

constexpr unsigned char kHardSpace = 0xA0;
constexpr int kKeywordKeysAlwaysWritten = 16;  // longer lists are written only when not empty

// Writes one language's keys in the order of the key list, each in the form its kind
// takes in the file.
class SectionWriter {
public:
    SectionWriter(const std::string& section, const std::string& path) : section_(section), path_(path) {}

    void putText(HglKey k, const std::string& v) const { put(k, v); }
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
            if (n <= kKeywordKeysAlwaysWritten || !lists[n].empty())
                writeProfileString(section_, keywordKey(n), lists[n], path_);
            else
                writeProfileString(section_, keywordKey(n), nullptr, path_);
        }
    }
    void putColour(HglKey k, int v) const { put(k, std::to_string(v)); }

private:
    void put(HglKey k, const std::string& v) const { writeProfileString(section_, hglKey(k).key, v, path_); }
    const std::string& section_;
    const std::string& path_;
};

std::string cut(std::string s, size_t bufferSize) {
    if (s.size() > bufferSize - 1) s.resize(bufferSize - 1);
    return s;
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
    auto raw = [&](HglKey k) { return getProfileString(d.name, hglKey(k).key, "", path, hglKey(k).buffer); };
    SyntaxEditLanguage e;
    e.name = cut(d.name, kEditNameSize);
    e.pattern = d.pattern;
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
    if (d.multiOpen[0]) e.multiComment = raw(HglKey::MultiComment);
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

}  // namespace

std::vector<SyntaxEditLanguage> readEditCopy(const std::string& path) {
    SyntaxHighlightTable t;
    loadDefinitions(t, path);
    std::vector<SyntaxEditLanguage> out;
    for (const auto& d : t.slots)
        if (d) out.push_back(editCopyOf(*d, path));
    return out;
}

bool saveDefinitions(SyntaxHighlightTable& table, const std::string& path, const std::vector<SyntaxEditLanguage>& langs) {
    {
        ProfileBatch batch(path);
        for (const std::string& s : getProfileSectionNames(path)) writeProfileString(s, nullptr, nullptr, path);
        for (const SyntaxEditLanguage& e : langs) {
            const SectionWriter out(e.name, path);
#define ZOL_HGL_PUT(id, key, kind, def, buffer, field) out.put##kind(HglKey::id, e.field);
            ZOL_HGL_KEYS(ZOL_HGL_PUT)
#undef ZOL_HGL_PUT
        }
        if (!batch.commit()) return false;
    }
    flushProfileCache();
    loadDefinitions(table, path);
    return true;
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
    for (const SyntaxEditLanguage& l : langs) {
        if (sameName(l.name, name)) {
            shell().message(syntaxmsg::fill(syntaxmsg::kLanguageExists, name));
            return false;
        }
    }
    if (langs.size() >= static_cast<size_t>(kSyntaxSlots)) {
        shell().message(syntaxmsg::kTooManyLanguages);
        return false;
    }
    SyntaxEditLanguage e;
    e.name = cut(std::string(name), kEditNameSize);
    langs.push_back(std::move(e));
    return true;
}

}  // namespace zol
