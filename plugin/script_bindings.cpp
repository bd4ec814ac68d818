// One row per editor built-in, naming the exported function that it is. The number
// and the prototype come from script/builtins.def by the function's name; a row whose
// function does not match its prototype, and a built-in marked kBuiltinEditor that no
// row binds, do not compile.
#include "plugin/script_bindings.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "plugin/script_marshal.h"
#include "script/builtin_table.h"

namespace zol {
namespace {

using namespace scriptcall;

struct DefRow {
    std::string_view name;
    int number;
    BuiltinSig sig;
    unsigned flags;
};

constexpr DefRow defRow(std::string_view prototype, int number, unsigned flags) {
    return {splitBuiltinPrototype(prototype).name, number, builtinSignature(prototype), flags};
}

constexpr DefRow kDef[] = {
#define BUILTIN(header, number, prototype, impl, flags) defRow(prototype, number, flags),
#define BUILTIN_DECLARED(header, number, prototype, flags) defRow(prototype, number, flags),
#include "script/builtins.def"
#undef BUILTIN
#undef BUILTIN_DECLARED
};

// constexpr rather than consteval: clang 14 refuses a consteval call whose argument
// is a parameter of the consteval bind() below. kBindings is constexpr, so a throw
// here still stops the build.
constexpr const DefRow& editorRow(std::string_view name) {
    for (const DefRow& r : kDef)
        if (r.name == name) {
            if (!(r.flags & kBuiltinEditor)) throw "script/builtins.def does not mark this built-in kBuiltinEditor";
            return r;
        }
    throw "no built-in of script/builtins.def has this name";
}

struct BindingRow {
    int number;
    BuiltinFn fn;
};

template <auto F, class... M>
consteval BindingRow bind(std::string_view name) {
    const DefRow& row = editorRow(name);
    if (row.sig != signatureOf(F)) throw "the function's types differ from its prototype in script/builtins.def";
    return {row.number, &Bound<F, M...>::run};
}

// Memory the editor gives a script is the script's own, so the script's free releases
// it, and answers a pointer that no malloc gave as free does.
Val scriptMemFree(BArgs& a) { return bi_free(a); }

#define ZOL_SCRIPT(fn, ...) bind<&fn __VA_OPT__(, ) __VA_ARGS__>(#fn)
#define ZOL_SCRIPT_OWN(fn, impl) BindingRow{editorRow(#fn).number, impl}

constexpr BindingRow kBindings[] = {
    // options
    ZOL_SCRIPT(Zol_IsWordWrap), ZOL_SCRIPT(Zol_SetWordWrap),
    ZOL_SCRIPT(Zol_GetTabSize), ZOL_SCRIPT(Zol_SetTabSize),
    ZOL_SCRIPT(Zol_GetWordWrapCol), ZOL_SCRIPT(Zol_SetWordWrapCol),
    ZOL_SCRIPT(Zol_GetWordWrapMethod), ZOL_SCRIPT(Zol_SetWordWrapMethod),
    ZOL_SCRIPT(Zol_CanSoftWordWrap), ZOL_SCRIPT(Zol_IsDocWordWrap), ZOL_SCRIPT(Zol_SetDocWordWrap),
    ZOL_SCRIPT(Zol_IsAutoIndentMode), ZOL_SCRIPT(Zol_SetAutoIndentMode),
    ZOL_SCRIPT(Zol_IsAutoUnindentMode), ZOL_SCRIPT(Zol_SetAutoUnindentMode),
    ZOL_SCRIPT(Zol_IsOverwriteMode), ZOL_SCRIPT(Zol_SetOverwriteMode),
    ZOL_SCRIPT(Zol_GetBlockIndent), ZOL_SCRIPT(Zol_SetBlockIndent),
    ZOL_SCRIPT(Zol_IsUseTabChar), ZOL_SCRIPT(Zol_SetUseTabChar),
    ZOL_SCRIPT(Zol_IsSmartTab), ZOL_SCRIPT(Zol_SetSmartTab),
    ZOL_SCRIPT(Zol_IsCursorBeyondEOL), ZOL_SCRIPT(Zol_SetCursorBeyondEOL),
    ZOL_SCRIPT(Zol_IsKeepTrailingBlanks), ZOL_SCRIPT(Zol_SetKeepTrailingBlanks),
    ZOL_SCRIPT(Zol_IsCursorThroughtTabs), ZOL_SCRIPT(Zol_SetCursorThroughtTabs),
    ZOL_SCRIPT(Zol_IsBackupFiles), ZOL_SCRIPT(Zol_SetBackupFiles),
    ZOL_SCRIPT(Zol_IsACorrectTwoCapitals), ZOL_SCRIPT(Zol_SetACorrectTwoCapitals),
    ZOL_SCRIPT(Zol_IsACorrectCapitalize), ZOL_SCRIPT(Zol_SetACorrectCapitalize),
    ZOL_SCRIPT(Zol_IsACorrectCapsLock), ZOL_SCRIPT(Zol_SetACorrectCapsLock),
    ZOL_SCRIPT(Zol_IsACorrectReplaceText), ZOL_SCRIPT(Zol_SetACorrectReplaceText),
    ZOL_SCRIPT(Zol_IsLineNumbers), ZOL_SCRIPT(Zol_SetLineNumbers),

    // documents
    ZOL_SCRIPT(Zol_GetActiveDocument), ZOL_SCRIPT(Zol_SetActiveDocument),
    ZOL_SCRIPT(Zol_NewDocument), ZOL_SCRIPT(Zol_OpenDocument),
    ZOL_SCRIPT(Zol_CloseDocument), ZOL_SCRIPT(Zol_DestroyDocument),
    ZOL_SCRIPT(Zol_GetDocWndHandle), ZOL_SCRIPT(Zol_IsDocument), ZOL_SCRIPT(Zol_GetNumberOfDocuments),
    ZOL_SCRIPT(Zol_GetFirstDocument), ZOL_SCRIPT(Zol_GetLastDocument),
    ZOL_SCRIPT(Zol_GetPrevDocument), ZOL_SCRIPT(Zol_GetNextDocument),
    ZOL_SCRIPT(Zol_ReadFile), ZOL_SCRIPT(Zol_SaveFile), ZOL_SCRIPT(Zol_WriteFile),
    ZOL_SCRIPT(Zol_IsModified), ZOL_SCRIPT(Zol_SetModified),
    ZOL_SCRIPT(Zol_IsReadOnly), ZOL_SCRIPT(Zol_SetReadOnly),
    ZOL_SCRIPT(Zol_GetDocumentName, Buffer<1, 2>),
    ZOL_SCRIPT(Zol_GetFileName, Buffer<1, 2>), ZOL_SCRIPT(Zol_SetFileName),
    ZOL_SCRIPT(Zol_GetFileExtension, Buffer<1, 2>),
    ZOL_SCRIPT(Zol_GetTextFileFormat), ZOL_SCRIPT(Zol_SetTextFileFormat),
    ZOL_SCRIPT(Zol_IsOutputWindow), ZOL_SCRIPT(Zol_SetOutputWindow),
    ZOL_SCRIPT(Zol_IsMacroRecording), ZOL_SCRIPT(Zol_IsMacroRunning),

    // commands and redraw; Zol_EditorCommand shares the number, and so this row
    ZOL_SCRIPT(Zol_EdCmd), ZOL_SCRIPT(Zol_ExecuteMacro),
    ZOL_SCRIPT(Zol_LockUpdate), ZOL_SCRIPT(Zol_UnlockUpdate),
    ZOL_SCRIPT(Zol_RedrawWindow), ZOL_SCRIPT(Zol_FixWindowPos),

    // text
    ZOL_SCRIPT(Zol_InsertText), ZOL_SCRIPT(Zol_GetNumberOfLines),
    ZOL_SCRIPT(Zol_GetLine, Buffer<2, 3>), ZOL_SCRIPT(Zol_SetLine), ZOL_SCRIPT(Zol_GetLineLen),
    ZOL_SCRIPT(Zol_GetCurrentChar), ZOL_SCRIPT(Zol_GetMaxLineLen),
    ZOL_SCRIPT(Zol_GetText, Allocated), ZOL_SCRIPT(Zol_GetSelection, Allocated),

    // cursor and selection
    ZOL_SCRIPT(Zol_GetCursorPos), ZOL_SCRIPT(Zol_SetCursorPos), ZOL_SCRIPT(Zol_SetCursorPosExactly),
    ZOL_SCRIPT(Zol_GetWndScrollPos), ZOL_SCRIPT(Zol_SetWndScrollPos),
    ZOL_SCRIPT(Zol_IsSelExist), ZOL_SCRIPT(Zol_IsColumnSelMode),
    ZOL_SCRIPT(Zol_GetSelMode), ZOL_SCRIPT(Zol_SetSelMode), ZOL_SCRIPT(Zol_GetSelType),
    ZOL_SCRIPT(Zol_GetSelBeginPos), ZOL_SCRIPT(Zol_GetSelEndPos),
    ZOL_SCRIPT(Zol_IsSelecting), ZOL_SCRIPT(Zol_IsLineDrawing),

    // search
    ZOL_SCRIPT(Zol_Find), ZOL_SCRIPT(Zol_FindInLine),
    ZOL_SCRIPT(Zol_Replace), ZOL_SCRIPT(Zol_ReplaceInLine), ZOL_SCRIPT(Zol_FindInString),

    // strings and memory
    ZOL_SCRIPT(Zol_GetCharPtr, PointsInto<0>), ZOL_SCRIPT(Zol_GetCharColumnPos),
    ZOL_SCRIPT(Zol_IsAlpha), ZOL_SCRIPT(Zol_IsUpper),
    ZOL_SCRIPT(Zol_StrLen), ZOL_SCRIPT(Zol_StrLenTrim),
    ZOL_SCRIPT(Zol_StrLwr, PointsInto<0>), ZOL_SCRIPT(Zol_StrUpr, PointsInto<0>),
    ZOL_SCRIPT(Zol_ToLower), ZOL_SCRIPT(Zol_ToUpper),
    ZOL_SCRIPT_OWN(Zol_MemFree, scriptMemFree),

    // dialogs
    ZOL_SCRIPT(Zol_FindDlg, FixedBuffer<0, ZOL_FIND_TEXT_SIZE>),
    ZOL_SCRIPT(Zol_ReplaceDlg, FixedBuffer<0, ZOL_FIND_TEXT_SIZE>, FixedBuffer<1, ZOL_FIND_TEXT_SIZE>),
    ZOL_SCRIPT(Zol_OpenFileDlg, Buffer<0, 1>), ZOL_SCRIPT(Zol_SaveFileDlg, Buffer<0, 1>),
    ZOL_SCRIPT(Zol_BrowseForFileDlg, Buffer<0, 1>), ZOL_SCRIPT(Zol_BrowseForDirDlg, Buffer<0, 1>),
    ZOL_SCRIPT(Zol_GetStringDlg, Buffer<2, 3>), ZOL_SCRIPT(Zol_GetIntDlg),
    ZOL_SCRIPT(Zol_ListBoxDlg, StringList<1>),
    ZOL_SCRIPT(Zol_ReadMeFileDlg), ZOL_SCRIPT(Zol_ReadMeStringDlg),

    // the application
    ZOL_SCRIPT(Zol_GetVersion), ZOL_SCRIPT(Zol_GetMainWndHandle), ZOL_SCRIPT(Zol_CheckFileTime),
    ZOL_SCRIPT(Zol_GetTextEditorDir, Buffer<0, 1>), ZOL_SCRIPT(Zol_GetModuleDir, Buffer<0, 1>),
    ZOL_SCRIPT(Zol_GetTempFileName, FixedBuffer<0, ZOL_MAX_PATH>),
    ZOL_SCRIPT(Zol_ExecuteTool), ZOL_SCRIPT(Zol_StatusBarMsg),
};

#undef ZOL_SCRIPT
#undef ZOL_SCRIPT_OWN

constexpr bool bound(int number) {
    return std::any_of(std::begin(kBindings), std::end(kBindings),
                       [number](const BindingRow& b) { return b.number == number; });
}

constexpr bool everyEditorBuiltinIsBoundOnce() {
    for (const DefRow& r : kDef)
        if ((r.flags & kBuiltinEditor) && !bound(r.number)) return false;
    for (const BindingRow& a : kBindings)
        for (const BindingRow& b : kBindings)
            if (&a != &b && a.number == b.number) return false;
    return true;
}
static_assert(everyEditorBuiltinIsBoundOnce(), "a built-in marked kBuiltinEditor has no row here, or two rows");

}  // namespace

void registerScriptBindings() {
    for (const BindingRow& b : kBindings) registerBuiltin(b.number, b.fn);
}

}  // namespace zol
