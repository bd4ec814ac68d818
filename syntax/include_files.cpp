#include "syntax/include_files.h"

#include <cctype>
#include <cstring>

#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

bool isNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || std::strchr("._-/\\~+$@%", c) != nullptr;
}

std::string lowerCopy(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace

bool parseInclude(std::string_view s, IncludeDirective& out) {
    size_t i = 0;
    auto blanks = [&] {
        while (i < s.size() && std::isspace(static_cast<unsigned char>(s[i]))) ++i;
    };
    blanks();
    if (i == s.size() || s[i] != '#') return false;
    ++i;
    blanks();
    if (s.substr(i, 7) != "include") return false;
    i += 7;
    blanks();
    if (i == s.size() || (s[i] != '<' && s[i] != '"')) return false;
    const bool angled = s[i] == '<';
    const size_t start = ++i;
    while (i < s.size() && (angled ? s[i] != '<' && s[i] != '>' : s[i] != '"')) ++i;
    if (i == s.size() || i == start || (angled && s[i] != '>')) return false;
    out.name.assign(s.substr(start, i - start));
    out.angled = angled;
    return true;
}

std::vector<IncludeDirective> includeDirectives(const Document& doc) {
    std::vector<IncludeDirective> out;
    IncludeDirective inc;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r))
        if (parseInclude(doc.lines.text(r), inc)) out.push_back(inc);
    return out;
}

std::string fileNameAt(std::string_view line, size_t offset) {
    IncludeDirective inc;
    if (parseInclude(line, inc)) return inc.name;
    if (offset >= line.size() || !isNameChar(line[offset])) {
        // Just after a name counts as on it.
        if (offset == 0 || offset > line.size() || !isNameChar(line[offset - 1])) return {};
        --offset;
    }
    size_t a = offset, b = offset;
    while (a > 0 && isNameChar(line[a - 1])) --a;
    while (b < line.size() && isNameChar(line[b])) ++b;
    return std::string(line.substr(a, b - a));
}

std::vector<std::string> splitFolders(std::string_view list) {
    std::vector<std::string> out;
    while (!list.empty()) {
        const size_t semi = list.find(';');
        std::string_view one = list.substr(0, semi);
        while (!one.empty() && isBlank(one.front())) one.remove_prefix(1);
        while (!one.empty() && isBlank(one.back())) one.remove_suffix(1);
        if (!one.empty()) out.emplace_back(one);
        if (semi == std::string_view::npos) break;
        list.remove_prefix(semi + 1);
    }
    return out;
}

std::string findFile(std::string_view name, const std::vector<std::string>& folders) {
    std::string n(name);
    for (char& c : n)
        if (c == '\\') c = '/';
    if (n.empty()) return {};
    if (n.front() == '/') return fileExists(n) && !isDirectory(n) ? fullPath(n) : std::string();
    for (const std::string& f : folders) {
        const std::string p = joinPath(f, n);
        if (fileExists(p) && !isDirectory(p)) return fullPath(p);
    }
    return {};
}

std::vector<std::string> partnerFileNames(std::string_view fileName) {
    static const char* const kHeaders[] = {"h", "hpp", "hh", "hxx", "h++"};
    static const char* const kSources[] = {"c", "cpp", "cc", "cxx", "c++"};
    const std::string ext = lowerCopy(extensionPart(fileName));
    const std::string_view base = fileNamePart(fileName).substr(0, fileNamePart(fileName).size() - ext.size());
    auto in = [&](const char* const(&list)[5]) {
        for (const char* e : list)
            if (ext == e) return true;
        return false;
    };
    std::vector<std::string> out;
    if (ext.empty() || base.size() < 2) return out;  // base ends in the dot
    const bool header = in(kHeaders);
    if (!header && !in(kSources)) return out;
    for (const char* e : header ? kSources : kHeaders) out.push_back(std::string(base) + e);
    return out;
}

}  // namespace zol
