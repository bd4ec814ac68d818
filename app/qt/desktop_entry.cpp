// The entry the program looks up when it starts the desktop editor. The Qt front end
// is a module of its own so that the headless runner never loads Qt.
#include "app/qt/desktop.h"

extern "C" __attribute__((visibility("default"))) int zolder_run_desktop(int argc, char** argv,
                                                                        const zol::CommandLine* cl) {
    try {
        return zol::runDesktop(argc, argv, *cl);
    } catch (...) {
        return 1;
    }
}
