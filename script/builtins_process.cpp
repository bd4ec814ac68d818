// The engine's own values (__Line, __File, __Errno), the process and its environment.
#include <cctype>

#include "platform/script_os.h"
#include "script/builtins.h"

namespace zol {
namespace {

void flushAll(Engine& en) {
    en.console->flush();
    for (FILE* f : en.files)
        if (f) std::fflush(f);
}

}  // namespace

Val bi_Line(BArgs& a) { return intVal(a.en.curLine); }

Val bi_File(BArgs& a) {
    Engine& en = a.en;
    const uint32_t buf = libBuffer(en, en.envBuf, 264);
    const size_t file = static_cast<size_t>(en.curFile);
    std::string name = file < en.fileNames.size() ? en.fileNames[file] : "xxx.xxx";
    if (name.size() > 263) name.resize(263);
    putString(en, buf, name);
    return intVal(buf);
}

Val bi_Errno(BArgs& a) { return intVal(a.en.lastErrno); }

Val bi_exit(BArgs& a) {
    flushAll(a.en);
    throw ScriptExit{static_cast<int>(a.i(0))};
}

Val bi_system(BArgs& a) {
    Engine& en = a.en;
    if (a.p(0) == 0) return intVal(1);
    flushAll(en);
    std::string cmd = a.s(0);
    for (char& c : cmd) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (cmd == "pause") {
        // Scripts keep their console open this way, for the user to read it.
        en.console->pause(kScriptPausePrompt);
        en.checkStop();
        return intVal(0);
    }
    return intVal(scriptSystem(a.s(0)));
}

Val bi_getenv(BArgs& a) {
    const auto v = scriptGetenv(a.s(0));
    if (!v) return intVal(0);
    const uint32_t p = a.en.heapAlloc(v->size() + 1, false);
    if (!p) a.en.fail(kErrOutOfMemory);
    putString(a.en, p, *v);
    return intVal(p);
}

Val bi_putenv(BArgs& a) {
    const int r = scriptPutenv(a.s(0));
    if (r) a.en.lastErrno = scriptErrno();
    return intVal(r);
}

}  // namespace zol
