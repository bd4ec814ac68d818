// The script preprocessor: works line by line over the main script and the files it
// includes, expands macros, drops the lines of false conditional blocks and writes one
// expanded text with "\n/*file:line*/" markers that keep every piece's origin.
// Errors leave through raiseScriptError with the file and line of the source.
#pragma once
#include <string>
#include <vector>

namespace zol {

struct PreprocessOutput {
    std::string text;                    // the expanded text, at most kExpandedTextSize bytes
    std::vector<std::string> fileNames;  // [0] the main script's path, [n] the n-th included name
};

// mainText is the whole main script; quoted includes are looked up in mainPath's folder,
// angle-bracket includes in includeDir.
void preprocess(const std::string& mainPath, const std::string& mainText, const std::string& includeDir,
                PreprocessOutput& out);

// The name an error report shows for file number n.
std::string scriptFileNameOf(const PreprocessOutput& pp, int n);

}  // namespace zol
