#include "app/cli.h"

#include <string_view>

namespace zol {

const char* usageText() {
    return "Usage: zolder [--home DIR] [FILE...]\n"
           "       zolder --headless [--home DIR] [FILE...] [--run SCRIPT [ARG...]]\n"
           "       zolder [--home DIR] --print-pdf OUT FILE\n"
           "\n"
           "A programmer's text editor.\n"
           "\n"
           "  --headless     run without windows; open the files, run SCRIPT, exit\n"
           "  --home DIR     keep settings and data in DIR instead of the default home\n"
           "  --run SCRIPT   run a script on the opened files (the last one active) after\n"
           "                 the start-up scripts; the ARGs after it are passed to it, and\n"
           "                 the exit status is the value its main returns\n"
           "  --print-pdf OUT FILE\n"
           "                 print FILE to the PDF file OUT with the \"Printing\" settings\n"
           "                 of zol.ini (A4, Courier), without windows, and exit\n"
           "  --help         show this help and exit\n"
           "  --version      show the version and exit\n"
           "\n"
           "Without windows, no document is saved unless the script saves it.\n";
}

bool parseCommandLine(int argc, const char* const argv[], CommandLine& out, std::string& error) {
    bool options = true;
    for (int i = 1; i < argc; ++i) {
        std::string_view a = argv[i];
        if (options && a == "--") {
            options = false;
        } else if (options && a == "--headless") {
            out.headless = true;
        } else if (options && (a == "--help" || a == "-h")) {
            out.help = true;
        } else if (options && a == "--version") {
            out.version = true;
        } else if (options && (a == "--home" || a.starts_with("--home="))) {
            if (a == "--home") {
                if (i + 1 >= argc) {
                    error = "option '--home' needs a folder";
                    return false;
                }
                out.home = argv[++i];
            } else {
                out.home = std::string(a.substr(7));
            }
            if (out.home.empty()) {
                error = "option '--home' needs a folder";
                return false;
            }
        } else if (options && a == "--run") {
            if (i + 1 >= argc) {
                error = "option '--run' needs a script";
                return false;
            }
            out.script = argv[++i];
            for (++i; i < argc; ++i) out.scriptArgs.emplace_back(argv[i]);
        } else if (options && a == "--print-pdf") {
            if (i + 2 >= argc) {
                error = "option '--print-pdf' needs an output file and a file to print";
                return false;
            }
            out.printPdf = argv[++i];
            out.files.emplace_back(argv[++i]);
        } else if (options && a.size() > 1 && a[0] == '-') {
            error = "unknown option '" + std::string(a) + "'";
            return false;
        } else {
            out.files.emplace_back(a);
        }
    }
    if (!out.script.empty() && !out.headless) {
        error = "option '--run' needs '--headless'";
        return false;
    }
    if (!out.printPdf.empty() && (out.files.size() != 1 || !out.script.empty())) {
        error = "option '--print-pdf' prints one file and runs no script";
        return false;
    }
    if (!out.printPdf.empty()) out.headless = true;
    return true;
}

}  // namespace zol
