/* The numbers of the editor commands these scripts run, as engine/commands.def gives
   them (a script of the editor takes them from editor/macros.h). */
#define CMD_InsertChar 2
#define CMD_DeleteLine 13
#define CMD_LineEnd 37
#define CMD_Undo 120
#define CMD_RecordMacro 230
#define CMD_MacroStopRecorder 231
