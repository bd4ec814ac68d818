// Console and file input and output.
#include <cerrno>
#include <cstring>

#include "platform/script_os.h"
#include "script/builtins.h"

namespace zol {
namespace {

struct FileSource : ScanSource {
    FILE* f;
    explicit FileSource(FILE* file) : f(file) {}
    int get() override { return std::fgetc(f); }
    void unget(int c) override { std::ungetc(c, f); }
};

struct StringSource : ScanSource {
    const std::string& s;
    size_t i = 0;
    explicit StringSource(const std::string& str) : s(str) {}
    int get() override { return i < s.size() ? static_cast<unsigned char>(s[i++]) : EOF; }
    void unget(int) override {
        if (i > 0) --i;
    }
};

size_t checkedSize(Engine& en, int64_t size, int64_t count) {
    if (size < 0 || count < 0) en.fail(kErrArgMismatch);
    const uint64_t total = static_cast<uint64_t>(size) * static_cast<uint64_t>(count);
    if (total > 0x40000000ull) en.fail(kErrArgMismatch);
    return static_cast<size_t>(total);
}

std::string readLine(FILE* f, size_t max, bool keepNewline, bool* eof) {
    std::string s;
    *eof = false;
    while (s.size() < max) {
        const int c = std::fgetc(f);
        if (c == EOF) {
            *eof = s.empty();
            break;
        }
        if (c == '\n') {
            if (keepNewline) s += '\n';
            break;
        }
        s += static_cast<char>(c);
    }
    return s;
}

void writeOut(Engine& en, FILE* f, const std::string& s) {
    if (!s.empty() && std::fwrite(s.data(), 1, s.size(), f) != s.size()) en.lastErrno = errno;
}

}  // namespace

bool builtinStdio(BArgs& a, int num, Val& out) {
    Engine& en = a.en;
    FILE* in = en.files[0];
    FILE* con = en.files[1];
    switch (num) {
        case 11:  // getchar
        case 18:  // getch
            out.i = std::fgetc(in);
            return true;
        case 20: {  // getche
            const int c = std::fgetc(in);
            if (c != EOF) std::fputc(c, con);
            out.i = c;
            return true;
        }
        case 12:  // putchar
        case 19:  // putch
            out.i = std::fputc(static_cast<unsigned char>(a.i(0)), con);
            if (out.i != EOF) out.i = static_cast<unsigned char>(a.i(0));
            return true;
        case 13: {  // gets
            bool eof = false;
            const std::string s = readLine(in, 0x100000, false, &eof);
            if (eof) {
                out.i = 0;
                return true;
            }
            putString(en, a.p(0), s);
            out.i = a.p(0);
            return true;
        }
        case 14:  // puts
            writeOut(en, con, a.s(0) + "\n");
            out.i = 0;
            return true;
        case 15: {  // scanf
            std::fflush(con);
            FileSource src(in);
            out.i = scanArgs(a, src, a.s(0), 1);
            return true;
        }
        case 16: {  // printf
            const std::string s = formatArgs(a, a.s(0), 1);
            writeOut(en, con, s);
            out.i = static_cast<int64_t>(s.size());
            return true;
        }
        case 17: {  // perror
            std::fflush(con);
            const std::string msg = std::strerror(en.lastErrno);
            if (a.p(0) && !a.s(0).empty()) std::fprintf(en.files[2], "%s: %s\n", a.s(0).c_str(), msg.c_str());
            else std::fprintf(en.files[2], "%s\n", msg.c_str());
            return true;
        }
        case 21: out.i = 0; return true;          // kbhit: nothing is waiting headless
        case 23: case 24: return true;            // clrscr, gotoxy: no screen to move on
        case 25: case 26: out.i = 1; return true; // wherex, wherey
        case 27: {  // fopen
            const std::string name = a.s(0);
            std::string mode;
            for (char c : a.s(1))
                if (c != 't') mode += c;
            if (mode.empty() || std::strchr("rwa", mode[0]) == nullptr || mode.find_first_not_of("rwab+") != std::string::npos) {
                en.lastErrno = EINVAL;
                out.i = 0;
                return true;
            }
            FILE* f = std::fopen(name.c_str(), mode.c_str());
            if (!f) {
                en.lastErrno = errno;
                out.i = 0;
                return true;
            }
            out.i = addFile(en, f);
            return true;
        }
        case 28: {  // fclose
            FILE* f = fileOf(en, a.p(0));
            const uint32_t k = (a.p(0) - kFileHandleBase) / kFileHandleStep;
            if (k < 3) {
                out.i = std::fflush(f);
                return true;
            }
            out.i = 0;
            closeFile(en, a.p(0));
            return true;
        }
        case 29:
            out.i = std::fgetc(fileOf(en, a.p(0)));
            return true;
        case 30:
            out.i = std::fputc(static_cast<unsigned char>(a.i(0)), fileOf(en, a.p(1)));
            return true;
        case 31: {  // fgets
            FILE* f = fileOf(en, a.p(2));
            const int64_t n = static_cast<int32_t>(a.i(1));
            if (n <= 0) en.fail(kErrArgMismatch);
            en.host(a.p(0), static_cast<uint32_t>(n));
            bool eof = false;
            const std::string s = readLine(f, static_cast<size_t>(n - 1), true, &eof);
            if (eof) {
                out.i = 0;
                return true;
            }
            putString(en, a.p(0), s);
            out.i = a.p(0);
            return true;
        }
        case 32:  // fputs
            writeOut(en, fileOf(en, a.p(1)), a.s(0));
            out.i = 0;
            return true;
        case 33:
        case 34: {  // fread, fwrite
            FILE* f = fileOf(en, a.p(3));
            const size_t total = checkedSize(en, static_cast<uint32_t>(a.i(1)), static_cast<uint32_t>(a.i(2)));
            const uint32_t size = static_cast<uint32_t>(a.i(1));
            if (total == 0 || size == 0) {
                out.i = 0;
                return true;
            }
            uint8_t* p = en.host(a.p(0), static_cast<uint32_t>(total));
            const size_t done = num == 33 ? std::fread(p, 1, total, f) : std::fwrite(p, 1, total, f);
            out.i = static_cast<int64_t>(done / size);
            return true;
        }
        case 35: {  // fseek
            FILE* f = fileOf(en, a.p(0));
            const int whence = static_cast<int>(a.i(2));
            if (whence < 0 || whence > 2) {
                out.i = -1;
                return true;
            }
            out.i = std::fseek(f, static_cast<long>(static_cast<int32_t>(a.i(1))), whence == 0 ? SEEK_SET : whence == 1 ? SEEK_CUR : SEEK_END) ? -1 : 0;
            return true;
        }
        case 36:
            out.i = std::ungetc(static_cast<int>(a.i(0)), fileOf(en, a.p(1)));
            return true;
        case 37:
            out.i = std::feof(fileOf(en, a.p(0))) ? 1 : 0;
            return true;
        case 38:
            out.i = std::ferror(fileOf(en, a.p(0))) ? 1 : 0;
            return true;
        case 39:
            std::clearerr(fileOf(en, a.p(0)));
            return true;
        case 40:
            out.i = static_cast<int32_t>(std::ftell(fileOf(en, a.p(0))));
            return true;
        case 41: {  // fgetpos
            const int32_t p = static_cast<int32_t>(std::ftell(fileOf(en, a.p(0))));
            putBytes(en, a.p(1), &p, 4);
            out.i = p < 0 ? -1 : 0;
            return true;
        }
        case 42: {  // fsetpos
            FILE* f = fileOf(en, a.p(0));
            int32_t p = 0;
            std::memcpy(&p, en.host(a.p(1), 4), 4);
            out.i = std::fseek(f, p, SEEK_SET) ? -1 : 0;
            return true;
        }
        case 43:  // setvbuf: the host stream keeps its own buffer
            fileOf(en, a.p(0));
            out.i = a.i(2) >= 0 && a.i(2) <= 2 ? 0 : -1;
            return true;
        case 44:
            out.i = std::rename(a.s(0).c_str(), a.s(1).c_str()) ? -1 : 0;
            if (out.i) en.lastErrno = errno;
            return true;
        case 45: {
            FILE* f = fileOf(en, a.p(0));
            std::rewind(f);
            return true;
        }
        case 46:
            if (a.p(0) == 0) {
                for (FILE* f : en.files)
                    if (f) std::fflush(f);
                out.i = 0;
            } else {
                out.i = std::fflush(fileOf(en, a.p(0))) ? -1 : 0;
            }
            return true;
        case 47:
            out.i = std::remove(a.s(0).c_str()) ? -1 : 0;
            if (out.i) en.lastErrno = errno;
            return true;
        case 48: {  // tmpfile
            FILE* f = std::tmpfile();
            out.i = f ? addFile(en, f) : 0;
            return true;
        }
        case 49: {  // tmpnam
            const std::string name = scriptTempName();
            const uint32_t dst = a.p(0) ? a.p(0) : libBuffer(en, en.tmpnamBuf, 260);
            if (name.size() >= 260) en.fail(kErrOutOfMemory);
            putString(en, dst, name);
            out.i = dst;
            return true;
        }
        case 50: {  // fscanf
            FileSource src(fileOf(en, a.p(0)));
            out.i = scanArgs(a, src, a.s(1), 2);
            return true;
        }
        case 51: {  // fprintf
            FILE* f = fileOf(en, a.p(0));
            const std::string s = formatArgs(a, a.s(1), 2);
            writeOut(en, f, s);
            out.i = static_cast<int64_t>(s.size());
            return true;
        }
        case 52:
            out.i = scriptFileno(fileOf(en, a.p(0)));
            return true;
        case 116: {  // sscanf
            const std::string s = a.s(0);
            StringSource src(s);
            out.i = scanArgs(a, src, a.s(1), 2);
            return true;
        }
        case 117: {  // sprintf
            const std::string s = formatArgs(a, a.s(1), 2);
            putString(en, a.p(0), s);
            out.i = static_cast<int64_t>(s.size());
            return true;
        }
        default:
            return false;
    }
}

}  // namespace zol
