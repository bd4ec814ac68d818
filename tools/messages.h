// Every text the user tools and the compiler-message stepping show the user, with the
// capacities they report.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace zol::toolmsg {

// The fields of a "UserTools" record as buffers of the settings file: at most one
// character less than each size is kept.
inline constexpr size_t kMenuTextSize = 40;
inline constexpr size_t kPathNameSize = 260;
inline constexpr size_t kArgumentsSize = 256;
inline constexpr size_t kInitialDirSize = 256;
// "UserHelp": the menu text as a tool's, the files as a program path.
inline constexpr size_t kHelpMenuSize = kMenuTextSize;
inline constexpr size_t kHelpFileSize = kPathNameSize;

// One tool for each of the commands UserTool1 to UserTool16.
inline constexpr size_t kMaxTools = 16;
inline constexpr char kTooManyTools[] = "There can be at most 16 user tools, one for each of the commands UserTool1 to UserTool16.";
// The Help menu keeps as many external help files.
inline constexpr size_t kMaxHelpEntries = 16;
inline constexpr char kTooManyHelpEntries[] = "There can be at most 16 external help files.";

// The argument line, as the "Arguments%d" buffer holds it, is at most 255 characters
// before and after its macros are expanded, and so is the value of each macro.
inline constexpr size_t kArgumentLineMax = kArgumentsSize - 1;
inline constexpr char kArgumentsTooLong[] =
    "The arguments of '%s' are longer than 255 characters once their macros are expanded. The tool cannot be run.";

inline constexpr char kSaveBeforeRun[] = "Save all modified files before running tool?";
inline constexpr char kCannotChangeDir[] = "The current directory cannot be changed to '%s'.\nContinue ?";
inline constexpr char kInvalidPath[] = "The path '%s' is invalid. The tool cannot be run.";
inline constexpr char kNoCaptureProgram[] =
    "The capture program '%s' is missing beside Zolder. The tool cannot be run.";
inline constexpr char kNoTempFile[] = "No temporary file for the output of '%s' could be made. The tool cannot be run.";
inline constexpr char kNoResources[] = "'%s' could not be started: the system is out of memory or processes.";
inline constexpr char kNoSuchTool[] = "User tool %s is not defined (Tools > User Tools).";

// The output document of a tool, and how the tool ended (status bar).
inline constexpr char kOutputName[] = "Output - %s";
inline constexpr char kRunning[] = "%s: running";
inline constexpr char kEndedOk[] = "%s: done";
inline constexpr char kEndedStatus[] = "%s: ended with exit status %s";
inline constexpr char kEndedSignal[] = "%s: ended by signal %s";
inline constexpr char kStopped[] = "%s: stopped";
inline constexpr char kOutputUnreadable[] = "%s: its output could not be read";

// The message action: a message names a file that is nowhere to be found.
inline constexpr char kMessageFileMissing[] = "Cannot find the file '%s' that the message names.";

// The text with its "%s" marks replaced by the values in order.
inline std::string fill(std::string_view text, std::string_view a, std::string_view b = {}) {
    std::string out;
    out.reserve(text.size() + a.size() + b.size());
    int used = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 1 < text.size() && text[i + 1] == 's' && used < 2) {
            out += used++ == 0 ? a : b;
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace zol::toolmsg
