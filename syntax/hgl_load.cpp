#include <algorithm>
#include <cctype>
#include <cstring>
#include <new>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/file_io.h"
#include "platform/profile.h"
#include "platform/profile_doc.h"
#include "syntax/table.h"

namespace zol {
namespace {

constexpr size_t kValueBuffer = 1024;   // every value is read through a buffer this size
constexpr size_t kPairValueChars = 127;  // "MultiComment" and "OpenCloseDelim" are read this far
constexpr unsigned char kHardSpace = 0xA0;  // stands for a blank inside a line-comment introducer

int parseInt(std::string_view v, int def) {
    size_t i = 0;
    bool neg = false;
    if (i < v.size() && (v[i] == '-' || v[i] == '+')) neg = v[i++] == '-';
    if (i >= v.size() || !std::isdigit(static_cast<unsigned char>(v[i]))) return def;
    uint32_t n = 0;
    for (; i < v.size() && std::isdigit(static_cast<unsigned char>(v[i])); ++i) n = n * 10 + static_cast<uint32_t>(v[i] - '0');
    return static_cast<int>(neg ? 0u - n : n);
}

std::vector<std::string_view> words(std::string_view s) {
    std::vector<std::string_view> out;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && std::isspace(static_cast<unsigned char>(s[i]))) ++i;
        size_t j = i;
        while (j < s.size() && !std::isspace(static_cast<unsigned char>(s[j]))) ++j;
        if (j > i) out.push_back(s.substr(i, j - i));
        i = j;
    }
    return out;
}

void setRanges(SyntaxHighlight& d, std::string_view items, uint16_t bit) {
    for (auto& c : d.charClass) c &= static_cast<uint16_t>(~bit);
    for (size_t i = 0; i < items.size();) {
        const auto lo = static_cast<unsigned char>(items[i]);
        if (i + 2 < items.size() && items[i + 1] == '-') {
            const auto hi = static_cast<unsigned char>(items[i + 2]);
            for (unsigned c = lo; c <= hi; ++c) d.charClass[c] |= bit;
            i += 3;
        } else {
            d.charClass[lo] |= bit;
            ++i;
        }
    }
}

void setSet(SyntaxHighlight& d, std::string_view items, uint16_t bit) {
    for (auto& c : d.charClass) c &= static_cast<uint16_t>(~bit);
    for (char c : items) d.charClass[static_cast<unsigned char>(c)] |= bit;
}

// Every key of every section, read in one pass so that a huge file costs one parse
// rather than one walk per key. Names compare without regard to case; the first
// section of a name and the first line of a key count, as for any profile lookup.
class HglIndex {
public:
    explicit HglIndex(const std::string& path) {
        std::string data;
        if (readWholeFile(profilePath(path), data)) add(parseProfile(data));
    }
    explicit HglIndex(const ProfileDoc& doc) { add(doc); }
    // Section names in file order, each once.
    std::vector<std::string> sectionNames() const {
        std::vector<std::string> out;
        std::unordered_set<std::string> seen;
        for (const std::string& s : sections_)
            if (seen.insert(lowerCopy(s)).second) out.push_back(s);
        return out;
    }
    const std::unordered_map<std::string, std::string>* keys(std::string_view section) const {
        auto it = index_.find(lowerCopy(section));
        return it == index_.end() ? nullptr : &it->second;
    }

private:
    using Keys = std::unordered_map<std::string, std::string>;
    void add(const ProfileDoc& doc) {
        Keys* keys = nullptr;
        for (const ProfileLine& line : doc.lines) {
            if (line.kind == ProfileLineKind::Section) {
                sections_.emplace_back(line.name());
                auto [it, fresh] = index_.try_emplace(lowerCopy(line.name()));
                keys = fresh ? &it->second : nullptr;
            } else if (line.kind == ProfileLineKind::Key && keys) {
                std::string value;
                if (line.valueAt != std::string::npos)
                    value = unquoteProfileValue(std::string_view(line.text).substr(line.valueAt));
                keys->try_emplace(lowerCopy(line.name()), std::move(value));
            }
        }
    }
    static std::string lowerCopy(std::string_view s) {
        std::string out(s);
        for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return out;
    }
    std::vector<std::string> sections_;
    std::unordered_map<std::string, Keys> index_;
};

class SectionReader {
public:
    SectionReader(const HglIndex& index, std::string_view section) : keys_(index.keys(section)) {}
    // The value as a buffer of kValueBuffer characters holds it; missing keys read as "".
    std::string str(std::string_view key) const {
        if (!keys_) return {};
        std::string k(key);
        for (char& c : k) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        auto it = keys_->find(k);
        if (it == keys_->end()) return {};
        return it->second.substr(0, kValueBuffer - 1);
    }
    std::string str(HglKey key) const { return str(hglKey(key).key); }
    bool boolean(HglKey key) const {
        const std::string v = str(key);
        return v == "yes" || v == "1";
    }
    int integer(HglKey key) const { return parseInt(str(key), hglKey(key).def); }
    // First character, or 0 for an empty value.
    char ch(HglKey key) const {
        const std::string v = str(key);
        return v.empty() ? 0 : v[0];
    }

private:
    const std::unordered_map<std::string, std::string>* keys_;
};

void applyLineComment(SyntaxHighlight& d, std::string v, char* field) {
    if (v.size() > static_cast<size_t>(kLineCommentMax)) return;
    for (char& c : v)
        if (static_cast<unsigned char>(c) == kHardSpace) c = ' ';
    std::memcpy(field, v.data(), v.size());
    field[v.size()] = 0;
    if (v.empty()) return;
    const auto first = static_cast<unsigned char>(v[0]);
    d.charClass[first] |= kClsLineComment;
    if (d.ignoreCase() && std::isalpha(first)) {
        d.charClass[static_cast<unsigned char>(std::tolower(first))] |= kClsLineComment;
        d.charClass[static_cast<unsigned char>(std::toupper(first))] |= kClsLineComment;
    }
}

}  // namespace

namespace {

SyntaxHighlight definitionFrom(const HglIndex& index, std::string_view section) {
    SectionReader in(index, section);
    SyntaxHighlight d;
    d.name = section;

    std::string pattern = in.str(HglKey::FilePattern);
    if (pattern.empty()) {
        const std::string extensions = in.str(HglKey::Extensions);
        for (std::string_view w : words(extensions)) {
            if (!pattern.empty()) pattern += ';';
            pattern += "*.";
            pattern += w;
        }
    }
    if (pattern.size() > kPatternSize - 1) pattern.resize(kPatternSize - 1);
    for (char& c : pattern) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    d.pattern = pattern;

    if (!in.boolean(HglKey::CaseSensitive)) d.flags |= kIgnoreCase;
    if (in.boolean(HglKey::UnixTexKeywords)) d.flags |= kUnixTexKeywords;
    if (in.boolean(HglKey::FortranComment)) d.flags |= kFortranComments;
    d.cobolCommentPos = static_cast<int16_t>(in.integer(HglKey::CobolCommentPos));
    if (d.cobolCommentPos < 0 || d.cobolCommentPos > kMaxCobolCommentPos) d.cobolCommentPos = 0;
    d.cobolCommentChar = in.ch(HglKey::CobolCommentChar);
    d.firstComment = in.ch(HglKey::FirstComment);

    {
        std::string v = in.str(HglKey::MultiComment);
        if (v.size() > kPairValueChars) v.resize(kPairValueChars);
        std::vector<std::string_view> w = words(v);
        if (w.size() >= 2) {
            for (int k = 0; k < kMultiCommentMax; ++k) {
                d.multiOpen[k] = k < static_cast<int>(w[0].size()) ? w[0][k] : 0;
                d.multiClose[k] = k < static_cast<int>(w[1].size()) ? w[1][k] : 0;
            }
            for (char c : {d.multiOpen[0], d.multiOpen[1], d.multiClose[0], d.multiClose[1]})
                if (c) d.charClass[static_cast<unsigned char>(c)] |= kClsMultiComment;
        }
    }
    applyLineComment(d, in.str(HglKey::LineComment1), d.lineComment1);
    applyLineComment(d, in.str(HglKey::LineComment2), d.lineComment2);

    d.maxLineLen = static_cast<int16_t>(in.integer(HglKey::MaxLineLen));
    if (d.maxLineLen < 0) d.maxLineLen = 0;
    // The upper bound checked here has always been the COBOL column's, so "MaxLineLen"
    // keeps any positive value.
    if (d.cobolCommentPos > kMaxCobolCommentPos) d.cobolCommentPos = 0;

    d.stringDelim = in.ch(HglKey::StringDelim);
    if (d.stringDelim) d.charClass[static_cast<unsigned char>(d.stringDelim)] |= kClsString;
    d.charDelim = in.ch(HglKey::CharDelim);
    if (d.charDelim) d.charClass[static_cast<unsigned char>(d.charDelim)] |= kClsString;
    d.quoteChar = in.ch(HglKey::QuoteChar);
    if (d.quoteChar) d.charClass[static_cast<unsigned char>(d.quoteChar)] |= kClsQuote;

    {
        std::string v = in.str(HglKey::OpenCloseDelim);
        if (v.size() > kPairValueChars) v.resize(kPairValueChars);
        std::vector<std::string_view> w = words(v);
        if (w.size() >= 2) {
            const size_t n = std::min(w[0].size(), w[1].size());
            for (size_t i = 0; i < n; ++i) {
                const auto o = static_cast<unsigned char>(w[0][i]);
                const auto c = static_cast<unsigned char>(w[1][i]);
                d.charClass[o] |= kClsOpen;
                d.charClass[c] |= kClsClose;
                d.pairOf[o] = static_cast<char>(c);
                d.pairOf[c] = static_cast<char>(o);
            }
        }
    }
    setSet(d, in.str(HglKey::Delimiters), kClsDelim);
    setSet(d, in.str(HglKey::Operators), kClsOperator);
    d.preprocessChar = in.ch(HglKey::Preprocess);
    setRanges(d, in.str(HglKey::Words), kClsWord);
    setRanges(d, in.str(HglKey::Numbers), kClsNumber);
    if (in.boolean(HglKey::LineNumbers)) d.flags |= kLineNumbers;
    {
        const std::string v = in.str(HglKey::HTML);
        for (size_t i = 0; i + 1 < v.size(); i += 2) {
            d.charClass[static_cast<unsigned char>(v[i])] |= kClsTagOpen;
            d.charClass[static_cast<unsigned char>(v[i + 1])] |= kClsTagClose;
        }
    }
    if (in.boolean(HglKey::Cobol)) d.flags |= kCobol;

    for (int n = 1; n <= kMaxKeywordLen; ++n) {
        std::string v = in.str(keywordKey(n));
        if (v.size() % static_cast<size_t>(n) == 0) d.keywords[n] = std::move(v);
    }
    indexKeywords(d);
    for (int s = 1; s <= kColourSlots; ++s) {
        const int v = in.integer(colourKey(s));
        d.colour[s] = static_cast<uint8_t>(v >= 0 && v <= kMaxColourIndex ? v : 0);
    }
    return d;
}

}  // namespace

SyntaxHighlight loadDefinition(std::string_view section, const std::string& path) {
    return definitionFrom(HglIndex(path), section);
}

SyntaxHighlight loadDefinition(std::string_view section, const ProfileDoc& file) {
    return definitionFrom(HglIndex(file), section);
}

namespace {

// The table's slots are emptied before index is made, so that a failure leaves them so.
template <typename MakeIndex>
int loadDefinitionsWith(SyntaxHighlightTable& table, MakeIndex makeIndex) {
    for (auto& s : table.slots) s.reset();
    int loaded = 0;
    std::unique_ptr<HglIndex> index;
    try {
        index = makeIndex();
    } catch (const std::bad_alloc&) {
        return 0;
    }
    for (const std::string& section : index->sectionNames()) {
        if (loaded == kSyntaxSlots) break;
        auto d = std::unique_ptr<SyntaxHighlight>(new (std::nothrow) SyntaxHighlight);
        if (!d) continue;
        try {
            *d = definitionFrom(*index, section);
        } catch (const std::bad_alloc&) {
            continue;
        }
        table.slots[static_cast<size_t>(loaded++)] = std::move(d);
    }
    return loaded;
}

}  // namespace

int loadDefinitions(SyntaxHighlightTable& table, const std::string& path) {
    return loadDefinitionsWith(table, [&path] { return std::make_unique<HglIndex>(path); });
}

int loadDefinitionsFromText(SyntaxHighlightTable& table, std::string_view data) {
    return loadDefinitionsWith(table, [data] { return std::make_unique<HglIndex>(parseProfile(data)); });
}

}  // namespace zol
