// The console: standard input and output, and the conio calls. Headless there is no
// screen to clear or to move on, and nothing waits to be read ahead.
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

FILE* input(Engine& en) { return en.files[0]; }
FILE* console(Engine& en) { return en.files[1]; }

}  // namespace

Val bi_getchar(BArgs& a) { return intVal(std::fgetc(input(a.en))); }

Val bi_putchar(BArgs& a) {
    const int c = std::fputc(static_cast<unsigned char>(a.i(0)), console(a.en));
    return intVal(c == EOF ? EOF : static_cast<unsigned char>(a.i(0)));
}

Val bi_gets(BArgs& a) {
    bool eof = false;
    const std::string s = readLine(input(a.en), 0x100000, false, &eof);
    if (eof) return intVal(0);
    putString(a.en, a.p(0), s);
    return intVal(a.p(0));
}

Val bi_puts(BArgs& a) {
    writeOut(a.en, console(a.en), a.s(0) + "\n");
    return intVal(0);
}

Val bi_scanf(BArgs& a) {
    std::fflush(console(a.en));
    FileSource src(input(a.en));
    return intVal(scanArgs(a, src, a.s(0), 1));
}

Val bi_printf(BArgs& a) {
    const std::string s = formatArgs(a, a.s(0), 1);
    writeOut(a.en, console(a.en), s);
    return intVal(static_cast<int64_t>(s.size()));
}

Val bi_perror(BArgs& a) {
    Engine& en = a.en;
    std::fflush(console(en));
    const std::string msg = std::strerror(en.lastErrno);
    if (a.p(0) && !a.s(0).empty()) std::fprintf(en.files[2], "%s: %s\n", a.s(0).c_str(), msg.c_str());
    else std::fprintf(en.files[2], "%s\n", msg.c_str());
    return Val{};
}

Val bi_getch(BArgs& a) { return bi_getchar(a); }

Val bi_putch(BArgs& a) { return bi_putchar(a); }

Val bi_getche(BArgs& a) {
    const int c = std::fgetc(input(a.en));
    if (c != EOF) std::fputc(c, console(a.en));
    return intVal(c);
}

Val bi_kbhit(BArgs&) { return intVal(0); }

Val bi_clrscr(BArgs&) { return Val{}; }

Val bi_gotoxy(BArgs&) { return Val{}; }

Val bi_wherex(BArgs&) { return intVal(1); }

Val bi_wherey(BArgs&) { return intVal(1); }

}  // namespace zol
