// The line loop: each line of a file is a directive, skipped, or expanded and written
// to the expanded text behind a marker that says where it came from.
#include "script/preprocess.h"

#include <algorithm>
#include <cstdio>

#include "platform/paths.h"
#include "script/preprocess_state.h"

namespace zol {
namespace pp {
namespace {

// The logical lines of one file's text: a backslash at the end of a line joins the next.
struct LineReader {
    const std::string& text;
    size_t pos = 0;

    // The next line into l, count the physical lines it took; false at the end.
    bool next(State& st, std::string& l, int& count) {
        const size_t n = text.size();
        if (pos >= n) return false;
        l.clear();
        count = 0;
        for (;;) {
            size_t e = text.find('\n', pos);
            if (e == std::string::npos) e = n;
            size_t len = e - pos;
            if (len > 0 && text[pos + len - 1] == '\r') --len;
            ++count;
            if (len + 1 > static_cast<size_t>(kPpLineMax)) tooLong(st, count);
            l.append(text, pos, len);
            pos = e + 1;
            if (!l.empty() && l.back() == '\\' && pos < n) {
                l.pop_back();
                continue;
            }
            if (l.size() + 1 > static_cast<size_t>(kPpLineMax)) tooLong(st, count);
            return true;
        }
    }

    [[noreturn]] static void tooLong(State& st, int count) {
        st.line += count;
        st.fail(kErrLineTooLong);
    }
};

bool blankOnly(const std::string& s) {
    for (char c : s)
        if (c != ' ' && c != '\t') return false;
    return true;
}

}  // namespace

void State::define(const std::string& name, Macro m) {
    if (macros.count(name)) fail(kErrMacroRedefined);
    if (macros.size() >= static_cast<size_t>(kPpMaxMacros)) fail(kErrTooManyDefines);
    macros.emplace(name, std::move(m));
}

void State::emit(const std::string& text, int lines) {
    if ((file != outFile || line != outLine) && !inComment) {
        char marker[40];
        std::snprintf(marker, sizeof marker, "\n/*%d:%d*/", file, line);
        out.text += marker;
        outFile = file;
        outLine = line;
    }
    out.text += text;
    out.text += '\n';
    outLine += lines;
    if (out.text.size() > static_cast<size_t>(kExpandedTextSize)) fail(kErrFileTooLarge);
}

void State::run(const std::string& text) {
    LineReader reader{text};
    line = 0;
    std::string l;
    int count = 0;
    while (reader.next(*this, l, count)) {
        ++line;
        const int first = line;
        line += count - 1;
        size_t i = 0;
        while (i < l.size() && (l[i] == ' ' || l[i] == '\t')) ++i;
        if (!inComment && i < l.size() && l[i] == '#') {
            const int save = line;
            line = first;
            directive(l.substr(i + 1));
            line = save;
            continue;
        }
        if (skipping()) continue;
        std::string expanded;
        std::vector<std::string> disabled;
        bool comment = inComment;
        std::string joined = l;
        int lines = count;
        // A call of a function-like macro may run over several lines.
        while (!expand(joined, disabled, expanded, comment, 0)) {
            std::string more;
            int c2 = 0;
            if (!reader.next(*this, more, c2)) fail(kErrMacroArgs);
            joined += ' ';
            joined += more;
            lines += c2;
            line += c2;
            expanded.clear();
            comment = inComment;
        }
        expanded.erase(std::remove(expanded.begin(), expanded.end(), kPainted), expanded.end());
        const int save = line;
        line = first;
        emit(blankOnly(expanded) ? std::string() : expanded, lines);
        line = save;
        inComment = comment;
    }
}

}  // namespace pp

void preprocess(const std::string& mainPath, const std::string& mainText, const std::string& includeDir,
                PreprocessOutput& out) {
    out.text.clear();
    out.fileNames.assign(1, mainPath);
    pp::State st(out);
    st.mainFolder = std::string(folderPart(mainPath));
    st.includeDir = includeDir;
    st.define("__VEKC__", pp::Macro{false, false, {}, "0x105"});
    st.define("__32BIT__", pp::Macro{});
    char num[16];
    std::snprintf(num, sizeof num, "%d", 110);
    st.define("__JBUFSIZE__", pp::Macro{false, false, {}, num});
    std::snprintf(num, sizeof num, "%d", 1312);
    st.define("__BCC__", pp::Macro{false, false, {}, num});
    if (mainText.size() > static_cast<size_t>(kExpandedTextSize) * 64) raiseScriptError(kErrFileTooLarge, 0, 1);
    st.line = 1;
    st.run(mainText);
    if (!st.levels.empty()) st.fail(kErrIfEof);
}

std::string scriptFileNameOf(const PreprocessOutput& pp, int n) {
    if (n == 0) {
        const std::string& p = pp.fileNames.empty() ? std::string() : pp.fileNames[0];
        if (!hasFolderPart(p)) return "mainfile";
        return std::string(fileNamePart(p));
    }
    if (n < 0 || static_cast<size_t>(n) >= pp.fileNames.size()) return "xxx.xxx";
    return pp.fileNames[static_cast<size_t>(n)];
}

}  // namespace zol
