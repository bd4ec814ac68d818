// Writes the settings reference, docs/settings.md, from the settings list; the target
// settings_doc runs it on the source tree's copy.
#include <cstdio>

#include "config/settings_list.h"
#include "platform/file_io.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_settings_doc OUTPUT\n");
        return 2;
    }
    const std::string text = zol::settingsReference();
    if (!zol::replaceFile(argv[1], text)) {
        std::fprintf(stderr, "make_settings_doc: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
