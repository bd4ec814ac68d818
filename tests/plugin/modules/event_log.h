/* What a test module was told, as words separated by blanks; a word that no longer
   fits is left out. */
#include <string.h>

static char g_log[4096];

static void note(const char *text) {
    if (strlen(g_log) + strlen(text) + 2 < sizeof g_log) {
        strcat(g_log, text);
        strcat(g_log, " ");
    }
}
