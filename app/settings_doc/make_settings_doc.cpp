// Writes the settings reference, docs/settings.md, from the settings list; the target
// settings_doc runs it on the source tree's copy.
#include <cstdio>
#include <fstream>

#include "config/settings_list.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_settings_doc OUTPUT\n");
        return 2;
    }
    const std::string text = zol::settingsReference();
    std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out) {
        std::fprintf(stderr, "make_settings_doc: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
