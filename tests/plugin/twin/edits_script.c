/* The script half of the twin test: the edits of edits.h on the active document, with
   the command numbers as arguments; prints the log. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <editor/doc.h>
#include <editor/options.h>
#include "edits.h"

int main(int argc, char *argv[])
{
    int commands[TWIN_COMMANDS];
    char log[4096];
    int i;

    for (i = 0; i < TWIN_COMMANDS && i + 1 < argc; i++) commands[i] = atoi(argv[i + 1]);
    log[0] = 0;
    twinEdits(Zol_GetActiveDocument(), commands, log);
    printf("%s", log);
    return 0;
}
