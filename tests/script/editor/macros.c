/* Keystroke macros by name: recorded through the editor commands, played by name in a
   document, the document's flags, and 0 for an unknown name or no document. */
#include <stdio.h>
#include <editor/doc.h>
#include <editor/macros.h>
/* The commands' answers are checked: the macros' calls go to Zol_EdCmd, the same
   built-in as Zol_EditorCommand, which gives the executor's result. */
#define Zol_EditorCommand Zol_EdCmd
// doc: macro.txt
// | 
// out: recording 1 1
// out: stopped 1 0
// out: play 1 unknown 0 0 0 flags 0 0 0
// stderr: zolder: Do you want to save the key mapping and macro changes?
// doc-after: macro.txt
// | xyxy
int main(void)
{
    HDOC h = Zol_GetActiveDocument();

    printf("recording %d", VM_RecordMacro(h));
    printf(" %d\n", Zol_IsMacroRecording(h));
    VM_InsertChar(h, 'x');
    VM_InsertChar(h, 'y');
    printf("stopped %d", VM_MacroStopRecorder(h));
    printf(" %d\n", Zol_IsMacroRecording(h));
    printf("play %d unknown %d %d %d", Zol_ExecuteMacro(h, "Macro1"), Zol_ExecuteMacro(h, "Macro2"),
           Zol_ExecuteMacro(0, "Macro1"), Zol_ExecuteMacro(h, 0));
    printf(" flags %d %d %d\n", Zol_IsMacroRunning(h), Zol_IsMacroRecording(0), Zol_IsMacroRunning(0));
    return 0;
}
