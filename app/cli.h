// The command line of both front ends.
#pragma once
#include <string>
#include <vector>

namespace zol {

struct CommandLine {
    bool headless = false;
    bool help = false;
    bool version = false;
    std::string home;                     // empty: the default home
    std::vector<std::string> files;
    std::string script;                   // --run SCRIPT
    std::vector<std::string> scriptArgs;  // ARGs after SCRIPT
    std::string printPdf;                 // --print-pdf OUT FILE: OUT; FILE is in files
};

// Returns false with `error` set for a command line that cannot be used.
bool parseCommandLine(int argc, const char* const argv[], CommandLine& out, std::string& error);
const char* usageText();

}  // namespace zol
