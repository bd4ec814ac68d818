#include <cstdio>

#include "engine/shell.h"
#include "platform/profile.h"
#include "syntax/edit_copy.h"
#include "syntax/messages.h"

namespace zol {
namespace {

constexpr unsigned char kHardSpace = 0xA0;

std::string oneChar(char c) { return c ? std::string(1, c) : std::string(); }

std::string hardSpaces(std::string s) {
    for (char& c : s)
        if (c == ' ') c = static_cast<char>(kHardSpace);
    return s;
}

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
    auto raw = [&](const char* key, size_t size) { return getProfileString(d.name, key, "", path, size); };
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
    if (d.multiOpen[0]) e.multiComment = raw("MultiComment", kEditMultiCommentSize);
    e.lineComment1 = d.lineComment1;
    e.lineComment2 = d.lineComment2;
    e.openCloseDelim = raw("OpenCloseDelim", kEditSetSize);
    e.delimiters = raw("Delimiters", kEditSetSize);
    e.operators = raw("Operators", kEditSetSize);
    e.words = raw("Words", kEditSetSize);
    e.numbers = raw("Numbers", kEditSetSize);
    e.html = raw("HTML", kEditSetSize);
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
            const std::string& sec = e.name;
            auto put = [&](const char* key, const std::string& v) { writeProfileString(sec, key, v, path); };
            auto yesNo = [&](const char* key, bool v) { put(key, v ? "yes" : "No"); };
            put("FilePattern", e.pattern);
            yesNo("CaseSensitive", e.caseSensitive);
            yesNo("UnixTexKeywords", e.unixTexKeywords);
            yesNo("FortranComment", e.fortranComment);
            yesNo("LineNumbers", e.lineNumbers);
            yesNo("Cobol", e.cobol);
            put("CobolCommentPos", std::to_string(e.cobolCommentPos));
            put("MaxLineLen", std::to_string(e.maxLineLen));
            put("CobolCommentChar", oneChar(e.cobolCommentChar));
            put("FirstComment", oneChar(e.firstComment));
            put("StringDelim", oneChar(e.stringDelim));
            put("CharDelim", oneChar(e.charDelim));
            put("QuoteChar", oneChar(e.quoteChar));
            put("Preprocess", oneChar(e.preprocess));
            put("MultiComment", e.multiComment);
            put("LineComment1", hardSpaces(e.lineComment1));
            put("LineComment2", hardSpaces(e.lineComment2));
            put("OpenCloseDelim", e.openCloseDelim);
            put("Delimiters", e.delimiters);
            put("Operators", e.operators);
            put("Words", e.words);
            put("Numbers", e.numbers);
            put("HTML", e.html);
            for (int n = 1; n <= kMaxKeywordLen; ++n) {
                const std::string key = "Keyword" + std::to_string(n);
                if (n <= 16 || !e.keywords[n].empty())
                    put(key.c_str(), e.keywords[n]);
                else
                    writeProfileString(sec, key, nullptr, path);
            }
            static const char* const kKeys[] = {"ColorComment", "ColorPreproc", "ColorString", "ColorNumber",
                                                "ColorDelim", "ColorOperator", "ColorKeyword", "ColorText",
                                                "ColorBackground", "ColorLineNumbers"};
            for (int s = 1; s <= kColourSlots; ++s) put(kKeys[s - 1], std::to_string(e.colour[s]));
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
