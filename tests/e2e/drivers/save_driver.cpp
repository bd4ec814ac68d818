// A save that the kill test can interrupt: reads NEWTEXT into a document, stops itself
// so that the test knows to the microsecond when the save begins, and once continued
// saves it over TARGET (with a backup when asked), then prints "saved".
//
//   save_driver TARGET NEWTEXT [bak]
#include <csignal>
#include <cstdio>
#include <cstring>

#include "app/headless_shell.h"
#include "engine/document.h"
#include "engine/shell.h"
#include "files/textfile.h"

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    zol::HeadlessShell shell;
    zol::setShell(&shell);
    zol::Document doc;
    if (!zol::readFile(doc, argv[2], true)) return 1;
    const int backupStyle = argc > 3 && std::strcmp(argv[3], "bak") == 0 ? 1 : -1;
    std::raise(SIGSTOP);
    const bool ok = zol::writeFile(doc, argv[1], doc.textFormat, backupStyle, false, false);
    std::puts(ok ? "saved" : "failed");
    zol::setShell(nullptr);
    return ok ? 0 : 1;
}
