// Every text the user-tool dialogs show: the tool list, the argument question, the
// running tool and the external help files.
#pragma once

namespace zol::toolmsg::dlg {

// "Dlg_UserTools"
inline constexpr char kUserToolsName[] = "Dlg_UserTools";
inline constexpr char kUserToolsTitle[] = "User Tools";
inline constexpr char kTools[] = "&Tools:";
inline constexpr char kAdd[] = "&Add";
inline constexpr char kRemove[] = "&Remove";
inline constexpr char kMoveUp[] = "Move &Up";
inline constexpr char kMoveDown[] = "Move Do&wn";
inline constexpr char kMenuText[] = "&Menu text:";
inline constexpr char kProgram[] = "&Program:";
inline constexpr char kBrowse[] = "&Browse...";
inline constexpr char kArguments[] = "A&rguments:";
inline constexpr char kInitialDir[] = "&Initial folder:";
inline constexpr char kMacroButton[] = "&>";
inline constexpr char kMacroTip[] = "Insert a macro";
inline constexpr char kAskArguments[] = "Ask for ar&guments";
inline constexpr char kCaptureOutput[] = "&Capture output";
inline constexpr char kSave[] = "&Save first:";
inline constexpr const char* kSaveChoices[] = {"Nothing", "The active document", "All modified documents"};
inline constexpr char kPromptBeforeSave[] = "As&k before saving";
inline constexpr char kQuoting[] = "&Quote paths:";
inline constexpr const char* kQuoteChoices[] = {"When they hold a blank", "Never", "Always"};
inline constexpr char kNewTool[] = "New Tool";
inline constexpr char kBrowseTitle[] = "Program";
inline constexpr char kIncomplete[] = "Tool %1 needs a menu text and a program.";
// The macros the ">" buttons offer, in the order of the argument expansion.
inline constexpr const char* kMacros[] = {"$(FilePath)", "$(UnixFilePath)", "$(FileDir)", "$(UnixFileDir)",
                                          "$(FileName)", "$(FileNameOnly)", "$(FileExt)",  "$(CurDir)",
                                          "$(UnixCurDir)", "$(ProgDir)",    "$(CurLine)",  "$(CurCol)",
                                          "$(CurText)"};

// "ToolArguments"
inline constexpr char kArgumentsName[] = "ToolArguments";
inline constexpr char kArgumentsTitle[] = "Tool Arguments";
inline constexpr char kArgumentsPrompt[] = "&Arguments for %1:";

// "RunningTool"
inline constexpr char kRunningName[] = "RunningTool";
inline constexpr char kRunningTitle[] = "Running Tool";
inline constexpr char kStop[] = "&Stop";
inline constexpr char kStopping[] = "Stopping...";
inline constexpr char kElapsed[] = "Running for %1 s";

// "HelpOptions"
inline constexpr char kHelpName[] = "HelpOptions";
inline constexpr char kHelpTitle[] = "Help Options";
inline constexpr char kContextHelp[] = "&Context help file:";
inline constexpr char kHelpEntries[] = "&Help menu entries:";
inline constexpr char kHelpMenuText[] = "Menu te&xt:";
inline constexpr char kHelpFile[] = "&File:";
inline constexpr char kNewHelp[] = "New Help";
inline constexpr char kHelpIncomplete[] = "Help entry %1 needs a menu text and a file.";

}  // namespace zol::toolmsg::dlg
