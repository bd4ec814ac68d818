// Build step: writes the shipped key file DEFKEY.ZOL from the default key table.
// Fails the build when a row of the table names an unknown key or command.
#include <cstdio>
#include <fstream>

#include "config/default_keys.h"
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
    std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
        std::fprintf(stderr, "make_defkey: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
