// FILE streams: the script's handles, opening and closing, reading and writing,
// positioning, temporary files.
#include <cerrno>
#include <cstring>

#include "platform/file_io.h"
#include "platform/script_os.h"
#include "script/builtins.h"

namespace zol {

FILE* fileOf(Engine& en, uint32_t handle) {
    const uint32_t k = (handle - kFileHandleBase) / kFileHandleStep;
    if (handle < kFileHandleBase || (handle - kFileHandleBase) % kFileHandleStep || k >= en.files.size() || !en.files[k])
        en.fail(kErrArgMismatch);
    return en.files[k];
}

uint32_t addFile(Engine& en, FILE* f) {
    for (size_t k = 3; k < static_cast<size_t>(kMaxOpenFiles); ++k) {
        if (k >= en.files.size()) {
            en.files.resize(k + 1, nullptr);
            en.ownFile.resize(k + 1, false);
        }
        if (!en.files[k]) {
            en.files[k] = f;
            en.ownFile[k] = true;
            return kFileHandleBase + kFileHandleStep * static_cast<uint32_t>(k);
        }
    }
    std::fclose(f);
    return 0;
}

void closeFile(Engine& en, uint32_t handle) {
    const uint32_t k = (handle - kFileHandleBase) / kFileHandleStep;
    if (k < en.files.size()) {
        if (en.ownFile[k] && en.files[k]) std::fclose(en.files[k]);
        en.files[k] = nullptr;
    }
}

void writeOut(Engine& en, FILE* f, const std::string& s) {
    if (!s.empty() && std::fwrite(s.data(), 1, s.size(), f) != s.size()) en.lastErrno = errno;
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

namespace {

size_t checkedSize(Engine& en, int64_t size, int64_t count) {
    if (size < 0 || count < 0) en.fail(kErrArgMismatch);
    const uint64_t total = static_cast<uint64_t>(size) * static_cast<uint64_t>(count);
    if (total > 0x40000000ull) en.fail(kErrArgMismatch);
    return static_cast<size_t>(total);
}

// fread and fwrite: whole items moved.
Val transfer(BArgs& a, bool write) {
    FILE* f = fileOf(a.en, a.p(3));
    const size_t total = checkedSize(a.en, static_cast<uint32_t>(a.i(1)), static_cast<uint32_t>(a.i(2)));
    const uint32_t size = static_cast<uint32_t>(a.i(1));
    if (total == 0 || size == 0) return intVal(0);
    uint8_t* p = a.en.host(a.p(0), static_cast<uint32_t>(total));
    const size_t done = write ? std::fwrite(p, 1, total, f) : std::fread(p, 1, total, f);
    return intVal(static_cast<int64_t>(done / size));
}

// A result of the C library where anything but 0 is -1 and sets the script's errno.
Val zeroOrErrno(Engine& en, int r) {
    if (r) en.lastErrno = errno;
    return intVal(r ? -1 : 0);
}

}  // namespace

Val bi_fopen(BArgs& a) {
    Engine& en = a.en;
    const std::string name = a.s(0);
    std::string mode;
    for (char c : a.s(1))
        if (c != 't') mode += c;
    if (mode.empty() || std::strchr("rwa", mode[0]) == nullptr || mode.find_first_not_of("rwab+") != std::string::npos) {
        en.lastErrno = EINVAL;
        return intVal(0);
    }
    FILE* f = openStream(name, mode.c_str());
    if (!f) {
        en.lastErrno = errno;
        return intVal(0);
    }
    return intVal(addFile(en, f));
}

Val bi_fclose(BArgs& a) {
    FILE* f = fileOf(a.en, a.p(0));
    if ((a.p(0) - kFileHandleBase) / kFileHandleStep < 3) return intVal(std::fflush(f));
    closeFile(a.en, a.p(0));
    return intVal(0);
}

Val bi_fgetc(BArgs& a) { return intVal(std::fgetc(fileOf(a.en, a.p(0)))); }

Val bi_fputc(BArgs& a) { return intVal(std::fputc(static_cast<unsigned char>(a.i(0)), fileOf(a.en, a.p(1)))); }

Val bi_fgets(BArgs& a) {
    FILE* f = fileOf(a.en, a.p(2));
    const int64_t n = static_cast<int32_t>(a.i(1));
    if (n <= 0) a.en.fail(kErrArgMismatch);
    a.en.host(a.p(0), static_cast<uint32_t>(n));
    bool eof = false;
    const std::string s = readLine(f, static_cast<size_t>(n - 1), true, &eof);
    if (eof) return intVal(0);
    putString(a.en, a.p(0), s);
    return intVal(a.p(0));
}

Val bi_fputs(BArgs& a) {
    writeOut(a.en, fileOf(a.en, a.p(1)), a.s(0));
    return intVal(0);
}

Val bi_fread(BArgs& a) { return transfer(a, false); }

Val bi_fwrite(BArgs& a) { return transfer(a, true); }

Val bi_fseek(BArgs& a) {
    FILE* f = fileOf(a.en, a.p(0));
    const int whence = static_cast<int>(a.i(2));
    if (whence < 0 || whence > 2) return intVal(-1);
    const long offset = static_cast<long>(static_cast<int32_t>(a.i(1)));
    return intVal(std::fseek(f, offset, whence == 0 ? SEEK_SET : whence == 1 ? SEEK_CUR : SEEK_END) ? -1 : 0);
}

Val bi_ungetc(BArgs& a) { return intVal(std::ungetc(static_cast<int>(a.i(0)), fileOf(a.en, a.p(1)))); }

Val bi_feof(BArgs& a) { return intVal(std::feof(fileOf(a.en, a.p(0))) ? 1 : 0); }

Val bi_ferror(BArgs& a) { return intVal(std::ferror(fileOf(a.en, a.p(0))) ? 1 : 0); }

Val bi_clearerr(BArgs& a) {
    std::clearerr(fileOf(a.en, a.p(0)));
    return Val{};
}

Val bi_ftell(BArgs& a) { return intVal(static_cast<int32_t>(std::ftell(fileOf(a.en, a.p(0))))); }

Val bi_fgetpos(BArgs& a) {
    const int32_t p = static_cast<int32_t>(std::ftell(fileOf(a.en, a.p(0))));
    putBytes(a.en, a.p(1), &p, 4);
    return intVal(p < 0 ? -1 : 0);
}

Val bi_fsetpos(BArgs& a) {
    FILE* f = fileOf(a.en, a.p(0));
    int32_t p = 0;
    std::memcpy(&p, a.en.host(a.p(1), 4), 4);
    return intVal(std::fseek(f, p, SEEK_SET) ? -1 : 0);
}

// The host stream keeps its own buffer.
Val bi_setvbuf(BArgs& a) {
    fileOf(a.en, a.p(0));
    return intVal(a.i(2) >= 0 && a.i(2) <= 2 ? 0 : -1);
}

Val bi_rename(BArgs& a) { return zeroOrErrno(a.en, renamePath(a.s(0), a.s(1))); }

Val bi_rewind(BArgs& a) {
    std::rewind(fileOf(a.en, a.p(0)));
    return Val{};
}

Val bi_fflush(BArgs& a) {
    if (a.p(0) != 0) return intVal(std::fflush(fileOf(a.en, a.p(0))) ? -1 : 0);
    for (FILE* f : a.en.files)
        if (f) std::fflush(f);
    return intVal(0);
}

Val bi_remove(BArgs& a) { return zeroOrErrno(a.en, removePath(a.s(0))); }

Val bi_tmpfile(BArgs& a) {
    FILE* f = std::tmpfile();
    return intVal(f ? addFile(a.en, f) : 0);
}

Val bi_tmpnam(BArgs& a) {
    const std::string name = scriptTempName();
    const uint32_t dst = a.p(0) ? a.p(0) : libBuffer(a.en, a.en.tmpnamBuf, 260);
    if (name.size() >= 260) a.en.fail(kErrOutOfMemory);
    putString(a.en, dst, name);
    return intVal(dst);
}

Val bi_fscanf(BArgs& a) {
    FileSource src(fileOf(a.en, a.p(0)));
    return intVal(scanArgs(a, src, a.s(1), 2));
}

Val bi_fprintf(BArgs& a) {
    FILE* f = fileOf(a.en, a.p(0));
    const std::string s = formatArgs(a, a.s(1), 2);
    writeOut(a.en, f, s);
    return intVal(static_cast<int64_t>(s.size()));
}

Val bi_fileno(BArgs& a) { return intVal(scriptFileno(fileOf(a.en, a.p(0)))); }

}  // namespace zol
