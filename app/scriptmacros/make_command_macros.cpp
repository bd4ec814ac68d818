// Build step: writes the script header editor/macros.h from the command list, one
// macro VM_<CommandName>(hDoc) per editor command, with a second argument for the
// commands that take a parameter, so that the header always matches the table.
#include <cstdio>
#include <string>

#include "engine/command_table.h"
#include "platform/file_io.h"

namespace {

constexpr const char* kPrologue =
    "/* Editor commands as macros: VM_<CommandName>(hDoc) runs the command in the\n"
    "   document as its key would, VM_<CommandName>(hDoc, p) for a command that takes a\n"
    "   character or a number. Generated from the editor's command list. */\n"
    "#ifndef __EDITOR_MACROS_H\n"
    "#define __EDITOR_MACROS_H\n"
    "#include <editor/doc.h>\n\n";
constexpr const char* kEpilogue = "\n#endif\n";
// Where the expansions line up, past the longest head of the list.
constexpr size_t kExpansionColumn = 40;

std::string macroLine(const zol::CommandRecord& c) {
    const bool takesParam = c.kind == zol::ParamKind::Char || c.kind == zol::ParamKind::Number;
    std::string head = std::string("#define VM_") + c.name + (takesParam ? "(hDoc, p)" : "(hDoc)");
    if (head.size() < kExpansionColumn) head.resize(kExpansionColumn, ' ');
    return head + " Zol_EditorCommand(hDoc, " + std::to_string(c.id) + (takesParam ? ", p)" : ", 0)") + "\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_command_macros OUTPUT\n");
        return 2;
    }
    std::string text = kPrologue;
    for (const zol::CommandRecord& c : zol::commandTable()) text += macroLine(c);
    text += kEpilogue;
    if (!zol::replaceFile(argv[1], text)) {
        std::fprintf(stderr, "make_command_macros: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
