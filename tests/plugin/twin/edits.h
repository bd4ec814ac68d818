/* The edits of the twin test, made once by a plug-in and once by a script, each on its
   own copy of one text: inserting, deleting through editor commands, finding and
   replacing, moving the cursor and selecting, options, and reading lines. Everything
   the editor answers goes into the log, so that the two runs compare word for word.
   Plain C89 that both compilers read; commands[] holds the numbers of the commands
   named below, which the test looks up by name. */
#define TWIN_DELETE_LINE 0
#define TWIN_UNDO 1
#define TWIN_LINE_END 2
#define TWIN_BACKSPACE 3
#define TWIN_COMMANDS 4

static void twinNumber(char *log, const char *label, int value)
{
    sprintf(log + strlen(log), "%s=%d ", label, value);
}

static void twinText(char *log, const char *label, const char *text)
{
    sprintf(log + strlen(log), "%s=[%s] ", label, text ? text : "(none)");
}

static void twinPlace(char *log, const char *label, HDOC doc, int begin)
{
    int col = -1, line = -1;
    int ok = begin ? Zol_GetSelBeginPos(doc, &col, &line) : Zol_GetSelEndPos(doc, &col, &line);
    sprintf(log + strlen(log), "%s=%d:%d,%d ", label, ok, col, line);
}

static void twinReadAndInsert(HDOC doc, const int *commands, char *log)
{
    char line[64];
    int col = 0, row = 0;

    twinNumber(log, "lines", Zol_GetNumberOfLines(doc));
    twinNumber(log, "get", Zol_GetLine(doc, 3, line, sizeof line));
    twinText(log, "line3", line);
    twinNumber(log, "width", Zol_GetLineLen(doc, 3, 0));
    twinNumber(log, "bytes", Zol_GetLineLen(doc, 3, 1));
    Zol_SetCursorPos(doc, 1, 1, FALSE);
    twinNumber(log, "insert", Zol_InsertText(doc, "/* twin */\n"));
    Zol_GetCursorPos(doc, &col, &row);
    twinNumber(log, "col", col);
    twinNumber(log, "row", row);
    Zol_SetCursorPos(doc, 1, 5, FALSE);
    twinNumber(log, "delete", Zol_EdCmd(doc, commands[TWIN_DELETE_LINE], 0));
    twinNumber(log, "undo", Zol_EdCmd(doc, commands[TWIN_UNDO], 0));
    twinNumber(log, "delete", Zol_EdCmd(doc, commands[TWIN_DELETE_LINE], 0));
    Zol_SetCursorPos(doc, 1, 2, FALSE);
    Zol_EdCmd(doc, commands[TWIN_LINE_END], 0);
    twinNumber(log, "backspace", Zol_EdCmd(doc, commands[TWIN_BACKSPACE], 0));
    twinNumber(log, "lines", Zol_GetNumberOfLines(doc));
}

static void twinSearch(HDOC doc, char *log)
{
    char *text;
    int pos = -1, len = -1;

    twinNumber(log, "find", Zol_Find(doc, "value", 1, 1, FALSE, TRUE, FALSE, TRUE));
    twinPlace(log, "hit", doc, 1);
    twinNumber(log, "back", Zol_Find(doc, "int", 1, 6, FALSE, TRUE, FALSE, FALSE));
    twinPlace(log, "hit", doc, 0);
    twinNumber(log, "replace", Zol_Replace(doc, "value", "amount", 1, 1, FALSE, TRUE, FALSE, TRUE));
    text = Zol_GetSelection(doc);
    twinText(log, "selected", text);
    Zol_MemFree(text);
    twinNumber(log, "inline", Zol_ReplaceInLine(doc, "[0-9]+", "42", 1, 4, FALSE, TRUE, TRUE, TRUE));
    twinNumber(log, "missing", Zol_Find(doc, "nowhere", 1, 1, TRUE, FALSE, FALSE, TRUE));
    twinNumber(log, "string", Zol_FindInString("one two", "TWO", FALSE, FALSE, FALSE, &pos, &len));
    twinNumber(log, "pos", pos);
    twinNumber(log, "len", len);
}

static void twinSelectAndChange(HDOC doc, char *log)
{
    char line[64];
    char *text;

    Zol_SetCursorPos(doc, 6, 4, FALSE);
    Zol_SetCursorPos(doc, 2, 2, TRUE);
    twinNumber(log, "type", Zol_GetSelType(doc));
    twinPlace(log, "begin", doc, 1);
    twinPlace(log, "end", doc, 0);
    text = Zol_GetText(doc, 1, 2, 6, 3);
    twinText(log, "range", text);
    Zol_MemFree(text);
    Zol_SetSelMode(doc, 2);
    twinNumber(log, "mode", Zol_GetSelMode(doc));
    Zol_SetSelMode(doc, 1);
    Zol_SetCursorPosExactly(doc, 3, 4, FALSE);
    twinNumber(log, "char", Zol_GetCurrentChar(doc));
    twinNumber(log, "set", Zol_SetLine(doc, 1, "/* TWIN */"));
    Zol_GetLine(doc, 2, line, sizeof line);
    Zol_StrUpr(line);
    twinNumber(log, "column", Zol_GetCharColumnPos(line, Zol_GetCharPtr(line, 4)));
    twinNumber(log, "upper", Zol_SetLine(doc, 2, line));
    twinNumber(log, "modified", Zol_IsModified(doc));
    twinNumber(log, "lines", Zol_GetNumberOfLines(doc));
}

static void twinEdits(HDOC doc, const int *commands, char *log)
{
    Zol_SetTabSize(50);
    twinNumber(log, "tab", Zol_GetTabSize());
    Zol_SetTabSize(4);
    Zol_SetAutoIndentMode(TRUE);
    Zol_SetOverwriteMode(FALSE);
    twinNumber(log, "indent", Zol_IsAutoIndentMode());
    twinReadAndInsert(doc, commands, log);
    twinSearch(doc, log);
    twinSelectAndChange(doc, log);
}
