// The preprocessor's state while it runs, shared by its stages: the line loop
// (preprocess.cpp), macro expansion (preprocess_expand.cpp), #if expressions
// (preprocess_if.cpp) and the directives (preprocess_directives.cpp).
#pragma once
#include <cctype>
#include <string>
#include <unordered_map>
#include <vector>

#include "script/errors.h"
#include "script/preprocess.h"

namespace zol::pp {

struct Macro {
    bool function = false;
    bool variadic = false;
    std::vector<std::string> params;
    std::string body;
};

struct Level {
    bool skipping;      // lines at this level are dropped
    bool outerSkipping; // the level was opened inside a skipped level
    bool taken;         // some branch of the level was taken
};

// Marks a macro name that must not be expanded again; removed from the final text.
constexpr char kPainted = '\x01';

inline bool isIdStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) || c == '_'; }
inline bool isIdChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }
// s without the white space around it.
std::string trim(const std::string& s);

struct State {
    PreprocessOutput& out;
    std::string mainFolder;
    std::string includeDir;
    std::unordered_map<std::string, Macro> macros;
    std::vector<Level> levels;
    int includeDepth = 0;
    int file = 0;
    int line = 0;
    int outFile = 0;
    int outLine = 1;
    bool inComment = false;

    explicit State(PreprocessOutput& o) : out(o) {}

    [[noreturn]] void fail(int code) { raiseScriptError(code, file, line); }
    bool skipping() const { return !levels.empty() && levels.back().skipping; }
    void define(const std::string& name, Macro m);

    // the line loop (preprocess.cpp)
    void run(const std::string& text);
    void emit(const std::string& text, int lines);

    // macro expansion (preprocess_expand.cpp)
    // Expands in into o. disabled holds the macros being expanded (not expanded again).
    // Returns false when a call of a function-like macro is left open at the end of in.
    bool expand(const std::string& in, std::vector<std::string>& disabled, std::string& o, bool& comment, int depth);
    size_t expandName(const std::string& in, size_t i, std::vector<std::string>& disabled, std::string& o, int depth);
    size_t expandCall(const std::string& in, size_t p, const std::string& id, Macro m,
                      std::vector<std::string>& disabled, std::string& o, int depth);

    // #if expressions (preprocess_if.cpp)
    bool evalIf(const std::string& expr);

    // directives (preprocess_directives.cpp)
    void directive(const std::string& s);
    void openLevel(bool cond);
    void doDefine(const std::string& s, size_t i);
    void doInclude(const std::string& s, size_t i);
};

}  // namespace zol::pp
