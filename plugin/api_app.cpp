// Application services and dialogs of the exported interface. Dialogs go through the
// shell; a shell without windows cancels them.
#include <string>
#include <vector>

#include "engine/document_list.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "files/prompts.h"
#include "platform/file_io.h"
#include "platform/paths.h"
#include "platform/tempfile.h"
#include "plugin/api_guard.h"
#include "plugin/api_version.h"
#include "script/macros.h"
#include "tools/run_tool.h"

using namespace zol;

namespace {

constexpr int kTempNameSize = ZOL_MAX_PATH;
constexpr size_t kFindTextSize = ZOL_FIND_TEXT_SIZE;
constexpr int kMinOpenDialogBuffer = 3;
constexpr int kMinSaveDialogBuffer = 2;

// Runs a dialog that edits a path in the caller's buffer.
BOOL pathDialog(char* buffer, int size, const auto& show) {
    std::string path(buffer, strnlen(buffer, static_cast<size_t>(size)));
    if (!show(path)) return 0;
    copyOut(buffer, size, path);
    return 1;
}

}  // namespace

int ZOLAPI Zol_GetVersion(void) { return apiVersion(); }

ZOL_WND ZOLAPI Zol_GetMainWndHandle(void) {
    return guarded<ZOL_WND>(0, [] { return documentList() ? documentList()->mainWindow() : 0; });
}

void ZOLAPI Zol_CheckFileTime(void) {
    guardedVoid([] {
        DocumentList* list = documentList();
        if (!list) return;
        std::vector<Document*> docs;
        for (size_t i = 0, n = list->count(); i < n; ++i) docs.push_back(list->at(i));
        checkFileTime(docs);
    });
}

void ZOLAPI Zol_StatusBarMsg(const char* text) {
    guardedVoid([&] {
        if (text) shell().statusMessage(text);
    });
}

BOOL ZOLAPI Zol_GetTextEditorDir(char* buffer, int size) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size <= 0) return 0;
        copyOut(buffer, size, homeDir());
        return 1;
    });
}

BOOL ZOLAPI Zol_GetModuleDir(char* buffer, int size) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size <= 0) return 0;
        const std::string exe = executablePath();
        copyOut(buffer, size, std::string_view(exe).substr(0, exe.rfind('/') + 1));
        return 1;
    });
}

BOOL ZOLAPI Zol_GetTempFileName(char* buffer) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer) return 0;
        const std::string path = createTempFile("", "zol");
        copyOut(buffer, kTempNameSize, path);
        return !path.empty();
    });
}

// Runs as a user tool would. A captured tool is waited for, so that its output
// document is complete when the caller goes on.
BOOL ZOLAPI Zol_ExecuteTool(const char* program, const char* arguments, int flags, const char* directory) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!program || !*program || !arguments || !*arguments) return 0;
        ToolRequest r;
        r.title = std::string(fileNamePart(program));
        r.program = program;
        r.arguments = arguments;
        r.initialDir = directory ? directory : "";
        r.captureOutput = (flags & ZOL_TOOL_CAPTURE) != 0;
        r.askArguments = (flags & ZOL_TOOL_ASKARGS) != 0;
        return runTool(r, true) ? 1 : 0;
    });
}

BOOL ZOLAPI Zol_ExecuteMacro(HDOC h, const char* macro) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        return executeMacro(docOf(h), macro);
    });
}

BOOL ZOLAPI Zol_FindDlg(char* text, BOOL* wholeWord, BOOL* matchCase, BOOL* regExp, BOOL* forward) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!text || !wholeWord || !matchCase || !regExp || !forward) return 0;
        FindDialogData d;
        d.findText.assign(text, strnlen(text, kFindTextSize - 1));
        d.wholeWord = *wholeWord;
        d.matchCase = *matchCase;
        d.regex = *regExp;
        d.forward = *forward;
        if (shell().findDialog(d, false) == FindDialogResult::Cancel) return 0;
        copyOut(text, kFindTextSize, d.findText);
        *wholeWord = d.wholeWord;
        *matchCase = d.matchCase;
        *regExp = d.regex;
        *forward = d.forward;
        return 1;
    });
}

// The Replace dialog's "Replace All" button is its button 3.
int ZOLAPI Zol_ReplaceDlg(char* findText, char* replaceText, BOOL* wholeWord, BOOL* matchCase, BOOL* regExp,
                          BOOL* forward, BOOL* inSelection) {
    return guarded<int>(0, [&]() -> int {
        if (!findText || !replaceText || !wholeWord || !matchCase || !regExp || !forward || !inSelection) return 0;
        FindDialogData d;
        d.findText.assign(findText, strnlen(findText, kFindTextSize - 1));
        d.replaceText.assign(replaceText, strnlen(replaceText, kFindTextSize - 1));
        d.wholeWord = *wholeWord;
        d.matchCase = *matchCase;
        d.regex = *regExp;
        d.forward = *forward;
        d.inSelection = *inSelection;
        const FindDialogResult r = shell().findDialog(d, true);
        if (r == FindDialogResult::Cancel) return 0;
        copyOut(findText, kFindTextSize, d.findText);
        copyOut(replaceText, kFindTextSize, d.replaceText);
        *wholeWord = d.wholeWord;
        *matchCase = d.matchCase;
        *regExp = d.regex;
        *forward = d.forward;
        *inSelection = d.inSelection;
        return r == FindDialogResult::ReplaceAll ? 2 : 1;
    });
}

BOOL ZOLAPI Zol_OpenFileDlg(char* buffer, int size, const char* filter, const char* title) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size < kMinOpenDialogBuffer) return 0;
        return pathDialog(buffer, size, [&](std::string& path) {
            return shell().openFileDialog(path, filter ? filter : "", title ? title : "");
        });
    });
}

BOOL ZOLAPI Zol_SaveFileDlg(char* buffer, int size, short* format, const char* title) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size < kMinSaveDialogBuffer) return 0;
        int chosen = format ? *format : 0;
        const BOOL ok = pathDialog(buffer, size, [&](std::string& path) {
            return shell().saveFileDialog(path, chosen, title ? title : "");
        });
        if (ok && format) *format = static_cast<short>(chosen);
        return ok;
    });
}

BOOL ZOLAPI Zol_BrowseForFileDlg(char* buffer, int size, const char* filter, const char* title,
                                 const char* startDir, int /*flags*/, ZOL_WND /*owner*/) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || !filter || !title || size < 1) return 0;
        return pathDialog(buffer, size, [&](std::string& path) {
            if (path.empty() && startDir) path = startDir;
            return shell().openFileDialog(path, filter, title);
        });
    });
}

BOOL ZOLAPI Zol_BrowseForDirDlg(char* buffer, int size, const char* title) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size < 1) return 0;
        return pathDialog(buffer, size, [&](std::string& path) {
            return shell().browseForDirDialog(path, title ? title : "");
        });
    });
}

BOOL ZOLAPI Zol_GetStringDlg(const char* title, const char* prompt, char* buffer, int size) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!buffer || size < 1) return 0;
        return pathDialog(buffer, size, [&](std::string& value) {
            return shell().stringDialog(value, title ? title : "", prompt ? prompt : "");
        });
    });
}

BOOL ZOLAPI Zol_GetIntDlg(const char* title, const char* prompt, int* value, int minimum, int maximum) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!value) return 0;
        int v = *value;
        if (!shell().intDialog(v, minimum, maximum, title ? title : "", prompt ? prompt : "")) return 0;
        *value = v;
        return 1;
    });
}

int ZOLAPI Zol_ListBoxDlg(const char* title, char* items) {
    return guarded<int>(0, [&]() -> int {
        if (!items) return 0;
        std::vector<std::string> list;
        for (const char* p = items; *p; p += list.back().size() + 1) list.emplace_back(p);
        const int chosen = shell().listDialog(list, title ? title : "");
        if (chosen < 0 || chosen >= static_cast<int>(list.size())) return 0;
        // The choice is never longer than the list it came from.
        const std::string& item = list[static_cast<size_t>(chosen)];
        std::memcpy(items, item.c_str(), item.size() + 1);
        return 1;
    });
}

BOOL ZOLAPI Zol_ReadMeStringDlg(const char* title, const char* text, int /*width*/, int /*height*/) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!text) return 0;
        return shell().readMeDialog(title ? title : "", text);
    });
}

BOOL ZOLAPI Zol_ReadMeFileDlg(const char* title, const char* path, int /*width*/, int /*height*/) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        if (!path) return 0;
        std::string text;
        if (!readWholeFile(path, text)) return 0;
        return shell().readMeDialog(title ? title : "", text);
    });
}
