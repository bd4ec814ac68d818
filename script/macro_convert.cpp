#include "script/macro_convert.h"

#include <cstdio>

#include "engine/command_table.h"

namespace zol {
namespace {

constexpr uint16_t kInsertChar = idOf(Cmd::InsertChar);
constexpr char kEscapeLetters[] = "abtnvfr";  // characters 7 to 13
constexpr char kIndent[] = "   ";

constexpr char kBodyStart[] =
    "   // Do not update window after each editor command\n"
    "   Zol_LockUpdate(hDoc);\n"
    "   // Converted keystroke macro\n"
    "   // ~~~~~~~~~~~~~~~~~~~~~~~~~\n";
constexpr char kBodyEnd[] =
    "   // Update window\n"
    "   Zol_UnlockUpdate(hDoc);\n";

bool typable(uint16_t c) { return c != 0 && c <= 0xFF; }

bool isTypedText(const MacroStep& s) { return s.command == kInsertChar && typable(s.param); }

void appendEscaped(std::string& out, unsigned char c, char quote) {
    if (c >= 7 && c <= 13) {
        out += '\\';
        out += kEscapeLetters[c - 7];
    } else if (c == static_cast<unsigned char>(quote) || c == '\\') {
        out += '\\';
        out += static_cast<char>(c);
    } else if (c < 32 || c == 127) {
        char octal[8];
        std::snprintf(octal, sizeof octal, "\\%03o", c);
        out += octal;
    } else {
        out += static_cast<char>(c);
    }
}

// A character parameter as a character constant where one reads well; others, those
// above 127 included (char is signed in VEK C), as their number.
std::string characterArgument(uint16_t c) {
    const bool lettered = c >= 7 && c <= 13, printable = c >= 32 && c < 127;
    if (!lettered && !printable) return std::to_string(c);
    std::string out = "'";
    appendEscaped(out, static_cast<unsigned char>(c), '\'');
    return out + "'";
}

std::string commandLine(const MacroStep& step) {
    const CommandRecord* r = findCommand(step.command);
    std::string line = std::string(kIndent) + "VM_" + r->name + "(hDoc";
    if (r->kind == ParamKind::Char) line += ", " + characterArgument(step.param);
    else if (r->kind == ParamKind::Number) line += ", " + std::to_string(step.param);
    return line + ");\n";
}

}  // namespace

bool stepHasScriptForm(const MacroStep& step) {
    if (step.command == kInsertChar) return typable(step.param);
    const CommandRecord* r = findCommand(step.command);
    return r && r->id != idOf(Cmd::ExecScript);
}

std::string cStringLiteral(std::string_view bytes) {
    std::string out = "\"";
    for (char c : bytes) appendEscaped(out, static_cast<unsigned char>(c), '"');
    return out + "\"";
}

std::string convertMacroBody(const std::vector<MacroStep>& steps) {
    std::string body = kBodyStart;
    for (size_t i = 0; i < steps.size();) {
        if (isTypedText(steps[i])) {
            std::string run;
            for (; i < steps.size() && isTypedText(steps[i]) && run.size() < macromsg::kMaxRunPerLine; ++i)
                run += static_cast<char>(steps[i].param);
            body += std::string(kIndent) + "Zol_InsertText(hDoc, " + cStringLiteral(run) + ");\n";
            continue;
        }
        if (stepHasScriptForm(steps[i])) body += commandLine(steps[i]);
        else body += std::string(kConvertErrorLine) + "\n";
        ++i;
    }
    return body + kBodyEnd;
}

}  // namespace zol
