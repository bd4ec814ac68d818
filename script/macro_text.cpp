#include "script/macro_text.h"

#include <cstdio>

#include "config/keymap.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "engine/text_util.h"

namespace zol {
namespace {

constexpr uint16_t kInsertChar = idOf(Cmd::InsertChar), kParam1 = idOf(Cmd::Param1), kParam2 = idOf(Cmd::Param2);
constexpr std::string_view kInsertTextWord = "InsertText";
constexpr char kEscapeLetters[] = "abtnvfr";  // characters 7 to 13

// Typed text and string arguments are written as runs of characters.
const char* runWord(uint16_t id) {
    switch (id) {
        case kInsertChar: return "InsertText";
        case kParam1: return "Param1";
        case kParam2: return "Param2";
        default: return nullptr;
    }
}

void appendEscaped(std::string& out, unsigned char c) {
    if (c >= 7 && c <= 13) {
        out += '\\';
        out += kEscapeLetters[c - 7];
    } else if (c == '"' || c == '\\') {
        out += '\\';
        out += static_cast<char>(c);
    } else if (c < 32) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "\\x%02x", c);
        out += hex;
    } else {
        out += static_cast<char>(c);
    }
}

bool appendLine(std::string& out, const std::string& line) {
    if (out.size() + line.size() + 2 >= macromsg::kMaxTextSize) return false;
    out += line;
    out += "\r\n";
    return true;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char l = asciiLower(c);
    return l >= 'a' && l <= 'f' ? l - 'a' + 10 : -1;
}

// Reads a quoted string that makes up all of text. Null on success, else the reason.
const char* readQuoted(std::string_view text, std::string& chars) {
    if (text.empty() || text[0] != '"') return macromsg::kExpectString;
    size_t i = 1;
    for (;; ++i) {
        if (i >= text.size()) return macromsg::kUnterminated;
        const char c = text[i];
        if (c == '"') break;
        if (c != '\\') {
            chars += c;
            continue;
        }
        if (++i >= text.size()) return macromsg::kUnterminated;
        const char e = text[i];
        if (const char* letter = std::char_traits<char>::find(kEscapeLetters, 7, e)) {
            chars += static_cast<char>(7 + (letter - kEscapeLetters));
        } else if (e == '"' || e == '\\') {
            chars += e;
        } else if (e == 'x' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 && hexValue(text[i + 2]) >= 0) {
            chars += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
        } else {
            return macromsg::kBadEscape;
        }
    }
    return i + 1 == text.size() ? nullptr : macromsg::kTrailingText;
}

std::string_view trimmed(std::string_view s) {
    while (!s.empty() && (isBlank(s.front()) || s.front() == '\r')) s.remove_prefix(1);
    while (!s.empty() && (isBlank(s.back()) || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

// Appends the steps of one non-blank line; null on success, else the reason.
const char* parseLine(std::string_view line, std::vector<MacroStep>& steps) {
    size_t end = 0;
    while (end < line.size() && !isBlank(line[end]) && line[end] != '"') ++end;
    const std::string_view word = line.substr(0, end);
    const std::string_view rest = trimmed(line.substr(end));
    const uint16_t id = equalsNoCase(word, kInsertTextWord) ? kInsertChar : commandId(word, true);
    if (id == 0) return macromsg::kUnknownCommand;
    if (runWord(id)) {
        std::string chars;
        if (const char* err = readQuoted(rest, chars)) return err;
        for (char c : chars) steps.push_back({id, static_cast<unsigned char>(c)});
        return nullptr;
    }
    switch (commandParamKind(id)) {
        case ParamKind::Char: {
            std::string chars;
            if (const char* err = readQuoted(rest, chars)) return err;
            if (chars.size() != 1) return macromsg::kOneCharacter;
            steps.push_back({id, static_cast<unsigned char>(chars[0])});
            return nullptr;
        }
        case ParamKind::Number: {
            unsigned value = 0;
            if (rest.empty() || rest.size() > 5) return macromsg::kExpectNumber;
            for (char c : rest) {
                if (c < '0' || c > '9') return macromsg::kExpectNumber;
                value = value * 10 + static_cast<unsigned>(c - '0');
            }
            if (value > 0xFFFF) return macromsg::kExpectNumber;
            steps.push_back({id, static_cast<uint16_t>(value)});
            return nullptr;
        }
        default:
            if (!rest.empty()) return macromsg::kNoArgument;
            steps.push_back({id, 0});
            return nullptr;
    }
}

}  // namespace

MacroTextStatus stepsToText(const std::vector<MacroStep>& steps, std::string& out) {
    out.clear();
    for (size_t i = 0; i < steps.size();) {
        const uint16_t id = steps[i].command;
        std::string line;
        if (const char* word = runWord(id)) {
            line = std::string(word) + " \"";
            for (size_t n = 0; n < macromsg::kMaxRunPerLine && i < steps.size() && steps[i].command == id; ++n, ++i)
                appendEscaped(line, static_cast<unsigned char>(steps[i].param));
            line += '"';
        } else {
            const uint16_t param = steps[i++].param;
            line = commandName(id);
            if (line.empty()) continue;
            const ParamKind kind = commandParamKind(id);
            if (kind == ParamKind::Char) {
                line += " \"";
                appendEscaped(line, static_cast<unsigned char>(param));
                line += '"';
            } else if (kind == ParamKind::Number) {
                line += " " + std::to_string(param);
            }
        }
        if (!appendLine(out, line)) {
            out.clear();
            return MacroTextStatus::TooLarge;
        }
    }
    return MacroTextStatus::Ok;
}

MacroTextStatus macroToText(uint16_t id, std::string& out) {
    out.clear();
    const Macro* m = macroById(macros(), id);
    return m ? stepsToText(m->steps, out) : MacroTextStatus::NoMacro;
}

MacroParseError textToSteps(std::string_view text, std::vector<MacroStep>& steps) {
    std::vector<MacroStep> parsed;
    int lineNo = 0;
    while (!text.empty()) {
        ++lineNo;
        const size_t nl = text.find('\n');
        const std::string_view line = trimmed(text.substr(0, nl));
        text = nl == std::string_view::npos ? std::string_view() : text.substr(nl + 1);
        if (line.empty()) continue;
        const char* err = parseLine(line, parsed);
        if (!err && parsed.size() > macromsg::kMaxSteps) err = macromsg::kTooManySteps;
        if (err) {
            char prefix[32];
            std::snprintf(prefix, sizeof prefix, macromsg::kLinePrefix, lineNo);
            return {lineNo, prefix + std::string(err)};
        }
    }
    steps = std::move(parsed);
    return {};
}

bool compileMacroText(uint16_t id, std::string_view text) {
    Macro* m = macroById(macros(), id);
    if (!m) return false;
    std::vector<MacroStep> steps;
    const MacroParseError err = textToSteps(text, steps);
    if (err.line != 0) {
        shell().message(err.message);
        return false;
    }
    m->steps = std::move(steps);
    setKeyMapChanged(true);
    return true;
}

bool finishMacroEdit(uint16_t id, std::string_view original, std::string_view edited) {
    if (original == edited) return false;
    if (shell().ask(macromsg::kAskCompile, false) != Answer::Yes) return false;
    return compileMacroText(id, edited);
}

}  // namespace zol
