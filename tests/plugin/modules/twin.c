/* The plug-in half of the twin test: the edits of tests/plugin/twin/edits.h, run when
   the test calls twin_run. */
#include <stdio.h>
#include <string.h>

#include "plugin/zolder_api.h"
#include "tests/plugin/twin/edits.h"

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    (void)module;
    (void)mainWindow;
    (void)version;
    return TRUE;
}

ZOL_PLUGIN_EXPORT void twin_run(HDOC doc, const int *commands, char *log) {
    log[0] = 0;
    twinEdits(doc, commands, log);
}
