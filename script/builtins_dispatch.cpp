#include <cstring>

#include "script/builtins.h"

namespace zol {

std::string BArgs::s(size_t k) const {
    const uint32_t a = p(k);
    if (a == 0) en.fail(kErrNotAddress);
    return en.cstr(a);
}

void putBytes(Engine& en, uint32_t dst, const void* src, size_t n) {
    if (n == 0) return;
    if (n > 0xffffffffu) en.fail(kErrIllegalPointer);
    std::memmove(en.host(dst, static_cast<uint32_t>(n)), src, n);
}

void putString(Engine& en, uint32_t dst, const std::string& s) { putBytes(en, dst, s.c_str(), s.size() + 1); }

uint32_t libBuffer(Engine& en, uint32_t& slot, uint32_t size) {
    if (!slot) slot = en.allocGlobal(size, 8);
    return slot;
}

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

namespace {

// Built-ins that reach files, folders, the environment or other processes.
bool isSystemService(int num) {
    switch (num) {
        case 8: case 9: case 10: case 27: case 44: case 47: case 48: case 53: case 54: case 55: case 58:
        case 59: case 61: case 63: case 71: case 73:
            return true;
        default:
            return false;
    }
}

}  // namespace

Val Engine::callBuiltin(Expr* e) {
    const size_t n = e->args.size();
    ArgValues args;
    Val* av = evalArgs(e, args);
    curFile = e->file;
    curLine = e->line;
    BArgs a{*this, e, av, n};
    Val out{};
    const int num = e->builtin;
    if (sealed && isSystemService(num)) {
        // Pointer results (fopen, tmpfile, getenv) are NULL; the others fail with -1.
        out.i = (num == 9 || num == 27 || num == 48) ? 0 : -1;
        return out;
    }
    if (builtinStdio(a, num, out) || builtinString(a, num, out) || builtinStdlib(a, num, out) ||
        builtinTime(a, num, out) || builtinMath(a, num, out) || builtinFiles(a, num, out))
        return out;
    fail(kErrCallUndefined);
}

}  // namespace zol
