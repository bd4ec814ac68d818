// The console: standard input and output, and the conio calls, all through the run's
// console (script/console.h).
#include <cerrno>
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

// gets has no size to stop at; a longer line is cut here, where it would overrun any
// buffer a script can have anyway.
constexpr size_t kMaxGetsLine = 0x100000;

ScriptConsole& console(Engine& en) { return *en.console; }

void out(Engine& en, ConsoleStream stream, const std::string& s) {
    if (!console(en).write(stream, s)) en.lastErrno = errno ? errno : EIO;
}

}  // namespace

int consoleGetc(Engine& en) {
    const int c = console(en).readChar();
    // A read that a stop ended is no end of the input: the run ends here.
    en.checkStop();
    if (c == EOF) en.consoleAtEnd = true;
    return c;
}

Val bi_getchar(BArgs& a) { return intVal(consoleGetc(a.en)); }

Val bi_putchar(BArgs& a) {
    const char c = static_cast<char>(a.i(0));
    if (!console(a.en).write(ConsoleStream::Out, std::string_view(&c, 1))) return intVal(EOF);
    return intVal(static_cast<unsigned char>(c));
}

Val bi_gets(BArgs& a) {
    std::string s;
    int c = consoleGetc(a.en);
    if (c == EOF) return intVal(0);
    while (c != EOF && c != '\n') {
        s += static_cast<char>(c);
        if (s.size() == kMaxGetsLine) break;
        c = consoleGetc(a.en);
    }
    putString(a.en, a.p(0), s);
    return intVal(a.p(0));
}

Val bi_puts(BArgs& a) {
    out(a.en, ConsoleStream::Out, a.s(0) + "\n");
    return intVal(0);
}

Val bi_scanf(BArgs& a) {
    console(a.en).flush();
    StreamSource src(a.en, standardHandle(ConsoleStream::In));
    return intVal(scanArgs(a, src, a.s(0), 1));
}

Val bi_printf(BArgs& a) {
    const std::string s = formatArgs(a, a.s(0), 1);
    out(a.en, ConsoleStream::Out, s);
    return intVal(static_cast<int64_t>(s.size()));
}

Val bi_perror(BArgs& a) {
    Engine& en = a.en;
    console(en).flush();
    const std::string msg = std::strerror(en.lastErrno);
    out(en, ConsoleStream::Err, a.p(0) && !a.s(0).empty() ? a.s(0) + ": " + msg + "\n" : msg + "\n");
    return Val{};
}

Val bi_getch(BArgs& a) {
    const int c = console(a.en).readKey(false);
    a.en.checkStop();
    return intVal(c);
}

Val bi_putch(BArgs& a) { return bi_putchar(a); }

Val bi_getche(BArgs& a) {
    const int c = console(a.en).readKey(true);
    a.en.checkStop();
    return intVal(c);
}

Val bi_kbhit(BArgs& a) { return intVal(console(a.en).keyWaiting() ? 1 : 0); }

Val bi_clrscr(BArgs& a) {
    console(a.en).clear();
    return Val{};
}

Val bi_gotoxy(BArgs& a) {
    console(a.en).gotoXY(static_cast<int>(a.i(0)), static_cast<int>(a.i(1)));
    return Val{};
}

Val bi_wherex(BArgs& a) { return intVal(console(a.en).whereX()); }

Val bi_wherey(BArgs& a) { return intVal(console(a.en).whereY()); }

}  // namespace zol
