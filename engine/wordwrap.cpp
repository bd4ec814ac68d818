#include "engine/wordwrap.h"

#include "engine/columns.h"
#include "engine/options.h"
#include "engine/text_util.h"

namespace zol {

int wrapWidth(WrapMethod method, int windowColumns) {
    return method == WrapMethod::ColumnWords ? options().wordWrapColumn : windowColumns;
}

std::vector<size_t> wrapBreaks(std::string_view line, int width, WrapMethod method) {
    std::vector<size_t> breaks;
    if (width < 1) return breaks;
    const bool atWords = method != WrapMethod::WindowChars;
    size_t rowStart = 0, lastBlank = 0;  // lastBlank: just after the latest blank
    int rowCol = 0, col = 0, lastBlankCol = 0;
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const int next = advanceColumn(c, col);
        if (atWords && isBlank(c)) {
            col = next;
            lastBlank = i + 1;
            lastBlankCol = col;
            continue;
        }
        while (next - rowCol > width && i > rowStart) {
            if (lastBlank > rowStart) {
                rowStart = lastBlank;
                rowCol = lastBlankCol;
            } else {
                rowStart = i;
                rowCol = col;
            }
            breaks.push_back(rowStart);
        }
        col = next;
    }
    return breaks;
}

WrapFileRules& wrapFileRules() {
    static WrapFileRules rules;
    return rules;
}

bool extensionListed(std::string_view list, std::string_view fileName) {
    const size_t slash = fileName.find_last_of("/\\");
    const std::string_view base = slash == std::string_view::npos ? fileName : fileName.substr(slash + 1);
    const size_t dot = base.rfind('.');
    const std::string_view ext = dot == std::string_view::npos ? std::string_view() : base.substr(dot + 1);
    size_t i = 0;
    while (i < list.size()) {
        while (i < list.size() && (list[i] == ' ' || list[i] == ',' || list[i] == ';')) ++i;
        size_t e = i;
        while (e < list.size() && list[e] != ' ' && list[e] != ',' && list[e] != ';') ++e;
        std::string_view item = list.substr(i, e - i);
        if (item.substr(0, 1) == "*") item.remove_prefix(1);
        if (item.substr(0, 1) == ".") item.remove_prefix(1);
        if (e > i && equalsNoCase(item, ext)) return true;
        i = e;
    }
    return false;
}

void applyWrapRule(Document& doc) {
    const WrapFileRules& r = wrapFileRules();
    if (extensionListed(r.never, doc.fileName))
        doc.wordWrap = false;
    else if (extensionListed(r.always, doc.fileName))
        doc.wordWrap = true;
    else
        doc.wordWrap = options().wordWrap;
}

bool canSoftWordWrap(const Document& doc) {
    return !doc.outputWindow && !doc.lineDrawing && doc.selMode != SelMode::Column;
}

}  // namespace zol
