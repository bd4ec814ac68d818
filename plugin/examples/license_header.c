/* Example plug-in: a command that puts a license header at the top of the document,
 * in the comment style of the document's language, bound to Ctrl+Alt+L.
 *
 * Build it like any plug-in (see docs/plugins.md):
 *   find_package(Zolder)  add_library(license_header MODULE license_header.c)
 *   target_link_libraries(license_header PRIVATE Zolder::zolder)
 * and drop license_header.zop into the PlugIns folder of the Zolder home. */
#include <stdio.h>
#include <string.h>
#include <time.h>

#include "zolder_api.h"

#define VK_L 0x4C
#define MOD_CTRL 2
#define MOD_ALT 4

static int g_command;

/* The line-comment opener for the document's extension; 0 for block comments. */
static const char *lineComment(HDOC doc) {
    static const char *const hashExt[] = {"py", "sh", "pl", "rb", "mk", "cmake", "yml", "yaml", "toml", "ini", 0};
    char ext[32];
    int i;
    if (Zol_GetFileExtension(doc, ext, sizeof ext) != 1) return 0;
    Zol_StrLwr(ext);
    for (i = 0; hashExt[i]; ++i)
        if (strcmp(ext, hashExt[i]) == 0) return "#";
    if (strcmp(ext, "sql") == 0 || strcmp(ext, "lua") == 0) return "--";
    return 0;
}

static void insertHeader(HDOC doc) {
    char name[260] = "";
    char text[1024];
    const char *hash = lineComment(doc);
    time_t now = time(0);
    int year = localtime(&now)->tm_year + 1900;

    if (Zol_GetDocumentName(doc, name, sizeof name) != 1) strcpy(name, "untitled");
    if (hash)
        sprintf(text, "%s %s\n%s Copyright (c) %d. All rights reserved.\n%s SPDX-License-Identifier: MIT\n\n",
                hash, name, hash, year, hash);
    else
        sprintf(text, "/* %s\n * Copyright (c) %d. All rights reserved.\n * SPDX-License-Identifier: MIT\n */\n\n",
                name, year);
    Zol_SetCursorPos(doc, 1, 1, FALSE);
    Zol_InsertText(doc, text);
}

ZOL_PLUGIN_EXPORT BOOL ZOLAPI XPP_Initialize(ZOL_MODULE module, ZOL_WND mainWindow, int version) {
    (void)mainWindow;
    (void)version;
    g_command = XPZ_AddCommand(module, 1, "InsertLicenseHeader", "Insert &License Header",
                               "Inserts a license header at the top of the document", 0);
    if (!g_command) return FALSE;
    if (XPZ_CanAddShortcutKey(VK_L, MOD_CTRL | MOD_ALT, 0, 0))
        XPZ_AddShortcutKey(module, g_command, VK_L, MOD_CTRL | MOD_ALT, 0, 0);
    return TRUE;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_GetInformation(int kind, char *buffer) {
    if (kind == ZOL_INFO_NAME) strcpy(buffer, "License Header");
}

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorCommand(int command, HDOC doc, ZOL_PARAM p1, ZOL_PARAM p2) {
    (void)p1;
    (void)p2;
    if (command != g_command || !doc) return 0;
    if (Zol_IsReadOnly(doc)) {
        Zol_StatusBarMsg("License Header: the document is read-only");
        return 1;
    }
    insertHeader(doc);
    return 1;
}

ZOL_PLUGIN_EXPORT void ZOLAPI XPP_OnMenuCommand(int itemId, ZOL_PARAM reserved) {
    (void)itemId;
    (void)reserved;
    XPP_OnEditorCommand(g_command, Zol_GetActiveDocument(), 0, 0);
}
