#include "tools/arguments.h"

#include <algorithm>

#include "engine/columns.h"
#include "engine/document.h"
#include "engine/text_util.h"
#include "engine/words.h"
#include "platform/paths.h"
#include "tools/messages.h"
#include "tools/user_tools.h"

namespace zol {
namespace {

enum class Quoting { Path, CurDir, ProgDir, None };

constexpr char kProgDir[] = "$(ProgDir)";

struct Macro {
    const char* name;
    Quoting quoting;
    bool unixSlashes;
    std::string (*value)(const ArgumentFacts& f);
};

std::string folderOf(std::string_view path) {
    std::string_view folder = folderPart(path);
    if (folder.size() > 1) folder.remove_suffix(1);
    return std::string(folder);
}

std::string nameOnly(std::string_view path) {
    const std::string_view name = fileNamePart(path);
    return std::string(name.substr(0, name.find('.')));
}

std::string extensionOf(std::string_view path) {
    const std::string_view name = fileNamePart(path);
    const size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot + 1));
}

std::string withoutTrailingSlash(std::string dir) {
    if (dir.size() > 1 && dir.back() == '/') dir.pop_back();
    return dir;
}

// In the order they are compared: each name over its own length.
const Macro kMacros[] = {
    {"$(FilePath)", Quoting::Path, false, [](const ArgumentFacts& f) { return f.filePath; }},
    {"$(UnixFilePath)", Quoting::Path, true, [](const ArgumentFacts& f) { return f.filePath; }},
    {"$(FileDir)", Quoting::Path, false, [](const ArgumentFacts& f) { return folderOf(f.filePath); }},
    {"$(UnixFileDir)", Quoting::Path, true, [](const ArgumentFacts& f) { return folderOf(f.filePath); }},
    {"$(FileName)", Quoting::Path, false, [](const ArgumentFacts& f) { return std::string(fileNamePart(f.filePath)); }},
    {"$(FileNameOnly)", Quoting::Path, false, [](const ArgumentFacts& f) { return nameOnly(f.filePath); }},
    {"$(FileExt)", Quoting::Path, false, [](const ArgumentFacts& f) { return extensionOf(f.filePath); }},
    {"$(CurDir)", Quoting::CurDir, false, [](const ArgumentFacts& f) { return withoutTrailingSlash(f.curDir); }},
    {"$(UnixCurDir)", Quoting::CurDir, true, [](const ArgumentFacts& f) { return withoutTrailingSlash(f.curDir); }},
    {kProgDir, Quoting::ProgDir, false, [](const ArgumentFacts& f) { return f.progDir; }},
    {"$(CurLine)", Quoting::None, false, [](const ArgumentFacts& f) { return f.line; }},
    {"$(CurCol)", Quoting::None, false, [](const ArgumentFacts& f) { return f.column; }},
    {"$(CurText)", Quoting::None, false, [](const ArgumentFacts& f) { return f.word; }},
};

// Where Windows passed a path in its short form because a blank would have split it,
// the path is quoted: for a blank, and for the characters the argument splitter would
// take as quotes or escapes.
bool hasBlank(std::string_view s) { return s.find_first_of(" \t'\"\\") != std::string_view::npos; }

std::string quoted(std::string value, Quoting quoting, int mode) {
    if (value.empty()) return value;
    switch (quoting) {
    case Quoting::None: return value;
    case Quoting::CurDir: return mode != kQuoteNever && hasBlank(value) ? quoteArgument(value) : value;
    case Quoting::Path: break;
    case Quoting::ProgDir: {
        // The folder is quoted without its trailing separator, which follows the quote.
        const bool slash = value.size() > 1 && value.back() == '/';
        if (slash) value.pop_back();
        value = quoted(std::move(value), Quoting::Path, mode);
        return slash ? value + '/' : value;
    }
    }
    const bool quote = mode == kQuoteAlways || (mode == kQuoteWithBlanks && hasBlank(value));
    return quote ? quoteArgument(value) : value;
}

const Macro* macroAt(std::string_view rest) {
    for (const Macro& m : kMacros) {
        const std::string_view name(m.name);
        if (rest.size() >= name.size() && equalsNoCase(rest.substr(0, name.size()), name)) return &m;
    }
    return nullptr;
}

}  // namespace

ArgumentFacts argumentFacts(const Document* doc) {
    ArgumentFacts f;
    f.curDir = currentDir();
    f.progDir = homeDir();
    if (!doc) return f;
    if (doc->hasFile) f.filePath = doc->fileName;
    f.line = std::to_string(static_cast<long>(doc->cursor.line) + 1);
    f.column = std::to_string(doc->cursor.col + 1);
    const std::string_view text = lineText(*doc, doc->cursor.line);
    size_t begin = 0, end = 0;
    if (wordAt(text, locateColumn(text, doc->cursor.col).offset, begin, end))
        f.word = std::string(text.substr(begin, std::min(end - begin, toolmsg::kArgumentLineMax)));
    return f;
}

std::optional<std::string> expandArguments(std::string_view line, const ArgumentFacts& facts, int quoteMode) {
    if (line.size() > toolmsg::kArgumentLineMax) return std::nullopt;
    std::string out;
    size_t i = 0;
    while (i < line.size()) {
        const size_t dollar = line.find('$', i);
        out.append(line.substr(i, dollar == std::string_view::npos ? std::string_view::npos : dollar - i));
        if (dollar == std::string_view::npos) break;
        const Macro* m = macroAt(line.substr(dollar));
        if (!m) {
            out += '$';
            i = dollar + 1;
            continue;
        }
        std::string value = m->value(facts);
        if (value.size() > toolmsg::kArgumentLineMax) return std::nullopt;
        if (m->unixSlashes) std::replace(value.begin(), value.end(), '\\', '/');
        out += quoted(std::move(value), m->quoting, quoteMode);
        i = dollar + std::string_view(m->name).size();
    }
    if (out.size() > toolmsg::kArgumentLineMax) return std::nullopt;
    return out;
}

std::string expandProgDir(std::string_view path, const ArgumentFacts& facts) {
    const std::string_view name(kProgDir);
    if (path.size() >= name.size() && equalsNoCase(path.substr(0, name.size()), name))
        return facts.progDir + std::string(path.substr(name.size()));
    return std::string(path);
}

std::string quoteArgument(std::string_view text) {
    std::string out = "'";
    for (const char c : text) {
        if (c == '\'') out += "'\\''";
        else out += c;
    }
    return out + "'";
}

}  // namespace zol
