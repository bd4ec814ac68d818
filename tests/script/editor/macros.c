/* Keystroke macros by name: recorded through the editor commands, played by name in a
   document, the document's flags, and 0 for an unknown name or no document. */
#include <stdio.h>
#include <editor/doc.h>
#include "commands.h"
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

    printf("recording %d", Zol_EdCmd(h, CMD_RecordMacro, 0));
    printf(" %d\n", Zol_IsMacroRecording(h));
    Zol_EdCmd(h, CMD_InsertChar, 'x');
    Zol_EdCmd(h, CMD_InsertChar, 'y');
    printf("stopped %d", Zol_EdCmd(h, CMD_MacroStopRecorder, 0));
    printf(" %d\n", Zol_IsMacroRecording(h));
    printf("play %d unknown %d %d %d", Zol_ExecuteMacro(h, "Macro1"), Zol_ExecuteMacro(h, "Macro2"),
           Zol_ExecuteMacro(0, "Macro1"), Zol_ExecuteMacro(h, 0));
    printf(" flags %d %d %d\n", Zol_IsMacroRunning(h), Zol_IsMacroRecording(0), Zol_IsMacroRunning(0));
    return 0;
}
