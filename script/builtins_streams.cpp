// FILE streams: the script's handles, opening and closing, reading and writing,
// positioning, temporary files. The three standard handles belong to the run's
// console; where it has C streams behind them (headless) those answer the calls that
// position, test or number a stream, and elsewhere such calls answer as for a device.
#include <cerrno>
#include <cstring>

#include "platform/file_io.h"
#include "platform/script_os.h"
#include "script/builtins.h"

namespace zol {
namespace {

constexpr size_t kStdIn = static_cast<size_t>(ConsoleStream::In);
constexpr size_t kStandardHandles = 3;

// A handle's index in the file table; a handle that no fopen gave, or one closed
// since, is kErrArgMismatch. The standard handles are always there.
size_t indexOf(Engine& en, uint32_t handle) {
    const uint32_t k = (handle - kFileHandleBase) / kFileHandleStep;
    if (handle < kFileHandleBase || (handle - kFileHandleBase) % kFileHandleStep || k >= en.files.size() ||
        (k >= kStandardHandles && !en.files[k]))
        en.fail(kErrArgMismatch);
    return k;
}

// The C stream behind a handle; null for a standard handle of a console of the
// editor's own.
FILE* hostOf(Engine& en, uint32_t handle) { return en.files[indexOf(en, handle)]; }

bool isStandard(Engine& en, uint32_t handle) { return indexOf(en, handle) < kStandardHandles; }

size_t checkedSize(Engine& en, int64_t size, int64_t count) {
    if (size < 0 || count < 0) en.fail(kErrArgMismatch);
    const uint64_t total = static_cast<uint64_t>(size) * static_cast<uint64_t>(count);
    if (total > 0x40000000ull) en.fail(kErrArgMismatch);
    return static_cast<size_t>(total);
}

// Reads up to max characters up to a newline; eof tells that nothing was left to read.
std::string readLine(Engine& en, uint32_t handle, size_t max, bool* eof) {
    std::string s;
    *eof = false;
    while (s.size() < max) {
        const int c = streamGetc(en, handle);
        if (c == EOF) {
            *eof = s.empty();
            break;
        }
        s += static_cast<char>(c);
        if (c == '\n') break;
    }
    return s;
}

// fread and fwrite: whole items moved.
Val transfer(BArgs& a, bool write) {
    Engine& en = a.en;
    const uint32_t handle = a.p(3);
    FILE* f = hostOf(en, handle);
    const size_t total = checkedSize(en, static_cast<uint32_t>(a.i(1)), static_cast<uint32_t>(a.i(2)));
    const uint32_t size = static_cast<uint32_t>(a.i(1));
    if (total == 0 || size == 0) return intVal(0);
    uint8_t* p = en.host(a.p(0), static_cast<uint32_t>(total));
    size_t done = 0;
    if (f) {
        done = write ? std::fwrite(p, 1, total, f) : std::fread(p, 1, total, f);
    } else if (write) {
        done = streamWrite(en, handle, std::string_view(reinterpret_cast<const char*>(p), total)) ? total : 0;
    } else {
        for (int c; done < total && (c = streamGetc(en, handle)) != EOF;) {
            // The read may have waited for the user: the bytes are looked up again.
            *en.host(a.p(0) + static_cast<uint32_t>(done), 1) = static_cast<uint8_t>(c);
            ++done;
        }
    }
    return intVal(static_cast<int64_t>(done / size));
}

// A result of the C library where anything but 0 is -1 and sets the script's errno.
Val zeroOrErrno(Engine& en, int r) {
    if (r) en.lastErrno = errno;
    return intVal(r ? -1 : 0);
}

}  // namespace

FILE* fileOf(Engine& en, uint32_t handle) {
    FILE* f = hostOf(en, handle);
    if (!f) en.fail(kErrArgMismatch);
    return f;
}

uint32_t addFile(Engine& en, FILE* f) {
    for (size_t k = kStandardHandles; k < static_cast<size_t>(kMaxOpenFiles); ++k) {
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

int streamGetc(Engine& en, uint32_t handle) {
    const size_t k = indexOf(en, handle);
    if (k == kStdIn) return consoleGetc(en);
    return en.files[k] ? std::fgetc(en.files[k]) : EOF;
}

void StreamSource::unget(int c) {
    const size_t k = indexOf(en, handle);
    if (k == kStdIn) en.console->unreadChar(c);
    else if (en.files[k]) std::ungetc(c, en.files[k]);
}

bool streamWrite(Engine& en, uint32_t handle, std::string_view s) {
    const size_t k = indexOf(en, handle);
    bool written = false;
    if (k < kStandardHandles && k != kStdIn) written = en.console->write(static_cast<ConsoleStream>(k), s);
    else written = s.empty() || (en.files[k] && std::fwrite(s.data(), 1, s.size(), en.files[k]) == s.size());
    if (!written) en.lastErrno = errno ? errno : EIO;
    return written;
}

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
    if (isStandard(a.en, a.p(0))) {
        a.en.console->flush();
        FILE* f = hostOf(a.en, a.p(0));
        return intVal(f ? std::fflush(f) : 0);
    }
    closeFile(a.en, a.p(0));
    return intVal(0);
}

Val bi_fgetc(BArgs& a) { return intVal(streamGetc(a.en, a.p(0))); }

Val bi_fputc(BArgs& a) {
    const char c = static_cast<char>(a.i(0));
    return intVal(streamWrite(a.en, a.p(1), std::string_view(&c, 1)) ? static_cast<unsigned char>(c) : EOF);
}

Val bi_fgets(BArgs& a) {
    const int64_t n = static_cast<int32_t>(a.i(1));
    if (n <= 0) a.en.fail(kErrArgMismatch);
    a.en.host(a.p(0), static_cast<uint32_t>(n));
    bool eof = false;
    const std::string s = readLine(a.en, a.p(2), static_cast<size_t>(n - 1), &eof);
    if (eof) return intVal(0);
    putString(a.en, a.p(0), s);
    return intVal(a.p(0));
}

Val bi_fputs(BArgs& a) {
    streamWrite(a.en, a.p(1), a.s(0));
    return intVal(0);
}

Val bi_fread(BArgs& a) { return transfer(a, false); }

Val bi_fwrite(BArgs& a) { return transfer(a, true); }

Val bi_fseek(BArgs& a) {
    FILE* f = hostOf(a.en, a.p(0));
    const int whence = static_cast<int>(a.i(2));
    if (!f || whence < 0 || whence > 2) return intVal(-1);
    const long offset = static_cast<long>(static_cast<int32_t>(a.i(1)));
    return intVal(std::fseek(f, offset, whence == 0 ? SEEK_SET : whence == 1 ? SEEK_CUR : SEEK_END) ? -1 : 0);
}

Val bi_ungetc(BArgs& a) {
    const int c = static_cast<int>(a.i(0));
    if (c == EOF) return intVal(EOF);
    StreamSource(a.en, a.p(1)).unget(c);
    return intVal(static_cast<unsigned char>(c));
}

Val bi_feof(BArgs& a) {
    const uint32_t handle = a.p(0);
    if (FILE* f = hostOf(a.en, handle)) return intVal(std::feof(f) ? 1 : 0);
    return intVal(handle == standardHandle(ConsoleStream::In) && a.en.consoleAtEnd ? 1 : 0);
}

Val bi_ferror(BArgs& a) {
    FILE* f = hostOf(a.en, a.p(0));
    return intVal(f && std::ferror(f) ? 1 : 0);
}

Val bi_clearerr(BArgs& a) {
    if (FILE* f = hostOf(a.en, a.p(0))) std::clearerr(f);
    else a.en.consoleAtEnd = false;
    return Val{};
}

Val bi_ftell(BArgs& a) {
    FILE* f = hostOf(a.en, a.p(0));
    return intVal(f ? static_cast<int32_t>(std::ftell(f)) : -1);
}

Val bi_fgetpos(BArgs& a) {
    FILE* f = hostOf(a.en, a.p(0));
    const int32_t p = f ? static_cast<int32_t>(std::ftell(f)) : -1;
    putBytes(a.en, a.p(1), &p, 4);
    return intVal(p < 0 ? -1 : 0);
}

Val bi_fsetpos(BArgs& a) {
    FILE* f = hostOf(a.en, a.p(0));
    int32_t p = 0;
    std::memcpy(&p, a.en.host(a.p(1), 4), 4);
    return intVal(!f || std::fseek(f, p, SEEK_SET) ? -1 : 0);
}

// The host stream keeps its own buffer.
Val bi_setvbuf(BArgs& a) {
    indexOf(a.en, a.p(0));
    return intVal(a.i(2) >= 0 && a.i(2) <= 2 ? 0 : -1);
}

Val bi_rename(BArgs& a) { return zeroOrErrno(a.en, renamePath(a.s(0), a.s(1))); }

Val bi_rewind(BArgs& a) {
    if (FILE* f = hostOf(a.en, a.p(0))) std::rewind(f);
    return Val{};
}

Val bi_fflush(BArgs& a) {
    if (a.p(0) == 0 || isStandard(a.en, a.p(0))) a.en.console->flush();
    if (a.p(0) != 0) {
        FILE* f = hostOf(a.en, a.p(0));
        return intVal(f && std::fflush(f) ? -1 : 0);
    }
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
    indexOf(a.en, a.p(0));
    StreamSource src(a.en, a.p(0));
    return intVal(scanArgs(a, src, a.s(1), 2));
}

Val bi_fprintf(BArgs& a) {
    const uint32_t handle = a.p(0);
    indexOf(a.en, handle);
    const std::string s = formatArgs(a, a.s(1), 2);
    streamWrite(a.en, handle, s);
    return intVal(static_cast<int64_t>(s.size()));
}

Val bi_fileno(BArgs& a) {
    const size_t k = indexOf(a.en, a.p(0));
    return intVal(a.en.files[k] ? scriptFileno(a.en.files[k]) : static_cast<int>(k));
}

}  // namespace zol
