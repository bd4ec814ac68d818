#include "script/builtin_reference.h"

#include <algorithm>

#include "script/builtin_table.h"

namespace zol {
namespace {

// Where the body of block lies in text: after the begin marker's line, up to the end
// marker's line.
bool bodyRange(const std::string& text, const GeneratedBlock& block, size_t* from, size_t* to) {
    const size_t begin = text.find(block.begin);
    if (begin == std::string::npos) return false;
    const size_t lineEnd = text.find('\n', begin);
    if (lineEnd == std::string::npos) return false;
    const size_t end = text.find(block.end, lineEnd);
    if (end == std::string::npos) return false;
    *from = lineEnd + 1;
    *to = end;
    return true;
}

}  // namespace

std::vector<std::string> builtinHeaders() {
    std::vector<std::string> headers;
    for (const BuiltinEntry& e : builtinList())
        if (std::find(headers.begin(), headers.end(), e.header) == headers.end()) headers.emplace_back(e.header);
    std::sort(headers.begin(), headers.end());
    return headers;
}

std::string builtinPrototypes(std::string_view header) {
    std::string out;
    for (const BuiltinEntry& e : builtinList()) {
        if (e.header != header) continue;
        out += e.prototype;
        out += ";\n";
    }
    return out;
}

std::string builtinReference() {
    std::string out;
    for (const std::string& header : builtinHeaders()) {
        out += "\n### `<" + header + ">`\n\n| number | prototype |\n|---:|---|\n";
        for (const BuiltinEntry& e : builtinList()) {
            if (e.header != header) continue;
            out += "| " + std::to_string(e.number) + " | `" + std::string(e.prototype) + "`";
            const bool available = e.implemented || (e.flags & kBuiltinEditor);
            out += available ? " |\n" : " (not available yet) |\n";
        }
    }
    out += '\n';
    return out;
}

bool generatedBlockOf(const std::string& text, const GeneratedBlock& block, std::string* body) {
    size_t from = 0, to = 0;
    if (!bodyRange(text, block, &from, &to)) return false;
    *body = text.substr(from, to - from);
    return true;
}

bool replaceGeneratedBlock(std::string& text, const GeneratedBlock& block, const std::string& body) {
    size_t from = 0, to = 0;
    if (!bodyRange(text, block, &from, &to)) return false;
    text.replace(from, to - from, body);
    return true;
}

}  // namespace zol
