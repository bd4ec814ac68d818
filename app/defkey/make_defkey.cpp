// Build step: writes the shipped key file DEFKEY.ZOL from the default key table.
// Fails the build when a row of the table names an unknown key or command.
#include <cstdio>

#include "config/default_keys.h"
#include "platform/file_io.h"
#include "script/macro_section.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_defkey OUTPUT\n");
        return 2;
    }
    std::vector<std::string> problems;
    const zol::KeyMap map = zol::defaultKeyMap(&problems);
    for (const std::string& p : problems) std::fprintf(stderr, "default_keys.inc: %s\n", p.c_str());
    if (!problems.empty()) return 1;
    const std::string bytes = zol::keyFileBytes(map, zol::MacroTable{});
    if (!zol::replaceFile(argv[1], bytes)) {
        std::fprintf(stderr, "make_defkey: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
