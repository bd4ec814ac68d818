#include "files/convert_command.h"

#include "engine/shell.h"
#include "files/codepage.h"
#include "files/messages.h"
#include "platform/paths.h"

namespace zol {
namespace {

ConvertChooser* chooser = nullptr;

}  // namespace

void setConvertChooser(ConvertChooser* c) { chooser = c; }

ConvertChoice& lastConvertChoice() {
    static ConvertChoice choice;
    return choice;
}

int cmdConvertText(Document& doc, const CommandCall&) {
    if (!chooser) return 0;
    ConvertChoice choice = lastConvertChoice();
    if (!chooser->chooseKind(choice)) return 0;
    lastConvertChoice() = choice;
    ConvertTable table;
    switch (choice.kind) {
        case ConvertKind::OemToAnsi: table = oemToAnsiTable(); break;
        case ConvertKind::AnsiToOem: table = ansiToOemTable(); break;
        default: {
            const std::string path = resolveBareName(kConvertTableFile);
            std::vector<std::string> names;
            if (!userTableNames(path, names)) {
                shell().message(filemsg::withFileName(filemsg::kCannotOpenTables, path));
                return 0;
            }
            if (names.empty()) return 0;
            std::string picked = choice.table;
            if (!chooser->chooseTable(names, picked)) return 0;
            lastConvertChoice().table = picked;
            table = userTable(path, picked);
            break;
        }
    }
    // The selection stays, so that the same text can be converted again.
    return convertDocument(doc, table, choice.selectedOnly) ? 1 : 0;
}

void installConvertCommand() { setCommandHandler(Cmd::ConvertText, cmdConvertText); }

}  // namespace zol
