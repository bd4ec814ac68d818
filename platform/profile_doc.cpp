#include "platform/profile_doc.h"

#include <algorithm>
#include <unordered_set>

namespace zol {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

std::string_view trim(std::string_view s) {
    while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
    return s;
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Line breaks inside a written name or value would split the line and could forge
// other keys or sections.
std::string oneLine(std::string_view s) {
    std::string out(s);
    std::replace(out.begin(), out.end(), '\n', ' ');
    std::replace(out.begin(), out.end(), '\r', ' ');
    return out;
}

// A section or key name as it reads once written: on one line, without blanks around it.
// Lookups and writes both use this form, so that writing a name with blanks around it
// twice finds the first line again instead of adding a second.
std::string writtenName(std::string_view s) { return std::string(trim(oneLine(s))); }

std::string docEol(const ProfileDoc& doc) {
    for (const ProfileLine& line : doc.lines)
        if (!line.eol.empty()) return line.eol;
    return "\n";
}

ProfileLine makeLine(std::string text, std::string eol) {
    ProfileLine line;
    line.text = std::move(text);
    line.eol = std::move(eol);
    classifyProfileLine(line);
    return line;
}

size_t findSection(const ProfileDoc& doc, std::string_view section, size_t from = 0) {
    const std::string name = writtenName(section);
    for (size_t i = from; i < doc.lines.size(); ++i)
        if (doc.lines[i].kind == ProfileLineKind::Section && profileNameEqual(doc.lines[i].name(), name)) return i;
    return doc.lines.size();
}

size_t sectionEnd(const ProfileDoc& doc, size_t header) {
    size_t i = header + 1;
    while (i < doc.lines.size() && doc.lines[i].kind != ProfileLineKind::Section) ++i;
    return i;
}

size_t findKey(const ProfileDoc& doc, size_t header, std::string_view key) {
    size_t end = sectionEnd(doc, header);
    const std::string name = writtenName(key);
    for (size_t i = header + 1; i < end; ++i)
        if (doc.lines[i].kind == ProfileLineKind::Key && profileNameEqual(doc.lines[i].name(), name)) return i;
    return doc.lines.size();
}

}  // namespace

bool profileNameEqual(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i])) return false;
    return true;
}

std::string_view unquoteProfileValue(std::string_view raw) {
    std::string_view v = trim(raw);
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front()) v = v.substr(1, v.size() - 2);
    return v;
}

void classifyProfileLine(ProfileLine& line) {
    line.kind = ProfileLineKind::Other;
    line.nameAt = line.nameLen = 0;
    line.valueAt = std::string::npos;
    std::string_view text = line.text;
    std::string_view body = trim(text);
    if (body.empty() || body.front() == ';') return;
    size_t bodyAt = static_cast<size_t>(body.data() - text.data());
    if (body.front() == '[') {
        size_t close = body.rfind(']');
        if (close != std::string_view::npos) {
            std::string_view name = trim(body.substr(1, close - 1));
            line.kind = ProfileLineKind::Section;
            line.nameAt = static_cast<size_t>(name.data() - text.data());
            line.nameLen = name.size();
            return;
        }
    }
    size_t eq = body.find('=');
    std::string_view name = trim(body.substr(0, eq));
    if (name.empty()) return;
    line.kind = ProfileLineKind::Key;
    line.nameAt = static_cast<size_t>(name.data() - text.data());
    line.nameLen = name.size();
    if (eq != std::string_view::npos) line.valueAt = bodyAt + eq + 1;
}

ProfileDoc parseProfile(std::string_view data) {
    ProfileDoc doc;
    size_t pos = 0;
    while (pos < data.size()) {
        size_t nl = data.find('\n', pos);
        if (nl == std::string_view::npos) {
            doc.lines.push_back(makeLine(std::string(data.substr(pos)), {}));
            break;
        }
        size_t textEnd = nl > pos && data[nl - 1] == '\r' ? nl - 1 : nl;
        doc.lines.push_back(makeLine(std::string(data.substr(pos, textEnd - pos)), std::string(data.substr(textEnd, nl + 1 - textEnd))));
        pos = nl + 1;
    }
    return doc;
}

std::string serializeProfile(const ProfileDoc& doc) {
    size_t total = 0;
    for (const ProfileLine& line : doc.lines) total += line.text.size() + line.eol.size();
    std::string out;
    out.reserve(total);
    for (const ProfileLine& line : doc.lines) {
        out += line.text;
        out += line.eol;
    }
    return out;
}

std::optional<std::string> profileValue(const ProfileDoc& doc, std::string_view section, std::string_view key) {
    size_t header = findSection(doc, section);
    if (header == doc.lines.size()) return std::nullopt;
    size_t at = findKey(doc, header, key);
    if (at == doc.lines.size()) return std::nullopt;
    const ProfileLine& line = doc.lines[at];
    if (line.valueAt == std::string::npos) return std::string();
    return std::string(unquoteProfileValue(std::string_view(line.text).substr(line.valueAt)));
}

namespace {

// Adds name unless a name equal to it without regard to case is already there; the
// folded names are kept aside so a file of many names is not compared pair by pair.
void addUnseen(std::vector<std::string>& names, std::unordered_set<std::string>& seen, std::string_view name) {
    std::string folded(name);
    for (char& c : folded) c = lower(c);
    if (seen.insert(std::move(folded)).second) names.emplace_back(name);
}

}  // namespace

std::vector<std::string> profileSectionNames(const ProfileDoc& doc) {
    std::vector<std::string> names;
    std::unordered_set<std::string> seen;
    for (const ProfileLine& line : doc.lines)
        if (line.kind == ProfileLineKind::Section) addUnseen(names, seen, line.name());
    return names;
}

std::vector<std::string> profileKeyNames(const ProfileDoc& doc, std::string_view section) {
    std::vector<std::string> names;
    size_t header = findSection(doc, section);
    if (header == doc.lines.size()) return names;
    size_t end = sectionEnd(doc, header);
    std::unordered_set<std::string> seen;
    for (size_t i = header + 1; i < end; ++i)
        if (doc.lines[i].kind == ProfileLineKind::Key) addUnseen(names, seen, doc.lines[i].name());
    return names;
}

bool profileHasSection(const ProfileDoc& doc, std::string_view section) {
    return findSection(doc, section) != doc.lines.size();
}

bool profileSet(ProfileDoc& doc, std::string_view section, std::string_view key, std::string_view value) {
    const std::string eol = docEol(doc);
    const std::string val = oneLine(value);
    size_t header = findSection(doc, section);
    if (header == doc.lines.size()) {
        if (!doc.lines.empty() && doc.lines.back().eol.empty()) doc.lines.back().eol = eol;
        std::string head(1, '[');
        head += writtenName(section);
        head += ']';
        doc.lines.push_back(makeLine(head, eol));
        doc.lines.push_back(makeLine(writtenName(key) + "=" + val, eol));
        return true;
    }
    size_t at = findKey(doc, header, key);
    if (at != doc.lines.size()) {
        ProfileLine& line = doc.lines[at];
        std::string text;
        if (line.valueAt == std::string::npos) {
            text = line.text.substr(0, line.nameAt + line.nameLen) + "=" + val;
        } else {
            // Keep the spacing the user put after "=".
            size_t p = line.valueAt;
            while (p < line.text.size() && (line.text[p] == ' ' || line.text[p] == '\t')) ++p;
            if (p == line.text.size()) p = line.valueAt;
            text = line.text.substr(0, p) + val;
        }
        if (text == line.text) return false;
        line.text = std::move(text);
        classifyProfileLine(line);
        return true;
    }
    size_t after = header;
    size_t end = sectionEnd(doc, header);
    for (size_t i = header + 1; i < end; ++i)
        if (doc.lines[i].kind == ProfileLineKind::Key) after = i;
    if (doc.lines[after].eol.empty()) doc.lines[after].eol = eol;
    doc.lines.insert(doc.lines.begin() + static_cast<std::ptrdiff_t>(after + 1), makeLine(writtenName(key) + "=" + val, eol));
    return true;
}

bool profileDeleteKey(ProfileDoc& doc, std::string_view section, std::string_view key) {
    size_t header = findSection(doc, section);
    if (header == doc.lines.size()) return false;
    size_t end = sectionEnd(doc, header);
    auto first = doc.lines.begin() + static_cast<std::ptrdiff_t>(header + 1);
    auto last = doc.lines.begin() + static_cast<std::ptrdiff_t>(end);
    auto kept = std::remove_if(first, last, [&](const ProfileLine& line) {
        return line.kind == ProfileLineKind::Key && profileNameEqual(line.name(), key);
    });
    if (kept == last) return false;
    doc.lines.erase(kept, last);
    return true;
}

bool profileDeleteSection(ProfileDoc& doc, std::string_view section) {
    bool changed = false;
    for (size_t header = findSection(doc, section); header < doc.lines.size(); header = findSection(doc, section, header)) {
        size_t end = sectionEnd(doc, header);
        doc.lines.erase(doc.lines.begin() + static_cast<std::ptrdiff_t>(header), doc.lines.begin() + static_cast<std::ptrdiff_t>(end));
        changed = true;
    }
    return changed;
}

}  // namespace zol
