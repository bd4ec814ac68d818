// The built-in library: how an implementation receives a call, the helpers that read
// and write script memory, FILE handles and formatted input and output, and the
// dispatcher, which a layer above may give further implementations.
#pragma once
#include <cstdio>
#include <string>
#include <string_view>

#include "script/interp.h"

namespace zol {

constexpr int kMaxFormatWidth = 65536;  // wider fields or precisions: kErrArgMismatch

// One call: the engine (every script address goes through its checked access), the
// argument values in the order of the prototype, and the built-in's number.
struct BArgs {
    Engine& en;
    Expr* e;
    Val* v;
    size_t n;
    int num;
    int64_t i(size_t k) const { return k < n ? v[k].i : 0; }
    uint32_t p(size_t k) const { return k < n ? static_cast<uint32_t>(v[k].i) : 0; }
    double d(size_t k) const { return k < n ? v[k].d : 0; }
    std::string s(size_t k) const;            // a string argument; a null pointer is error 42
};

inline Val intVal(int64_t i) {
    Val v;
    v.i = i;
    return v;
}
inline Val doubleVal(double d) {
    Val v;
    v.d = d;
    return v;
}
// A comparison's result as the library answers it: -1, 0 or 1.
inline int signOf(int v) { return v < 0 ? -1 : v > 0 ? 1 : 0; }

// Copies n bytes into script memory at dst (checked).
void putBytes(Engine& en, uint32_t dst, const void* src, size_t n);
// A string with its terminating zero.
void putString(Engine& en, uint32_t dst, const std::string& s);
// A buffer of the library (static storage of the C library), placed once per run.
uint32_t libBuffer(Engine& en, uint32_t& slot, uint32_t size);
// The host stream behind a script FILE handle; a bad or closed handle, or a standard
// handle of a console without a C stream behind it, is kErrArgMismatch.
FILE* fileOf(Engine& en, uint32_t handle);
uint32_t addFile(Engine& en, FILE* f);   // 0 when the table is full (the file is closed)
void closeFile(Engine& en, uint32_t handle);
inline uint32_t standardHandle(ConsoleStream s) { return kFileHandleBase + kFileHandleStep * static_cast<uint32_t>(s); }
// Reading and writing through any handle: the standard handles go to the console
// (standard input reads, output and error write), the others to their C streams.
// A write that fails sets the script's errno.
int streamGetc(Engine& en, uint32_t handle);
bool streamWrite(Engine& en, uint32_t handle, std::string_view s);
// The next character of standard input; a stop requested while it waits ends the run.
int consoleGetc(Engine& en);

// printf-style formatting; arguments from index first of the call.
std::string formatArgs(BArgs& a, const std::string& fmt, size_t first);

// scanf-style input from a source of characters.
struct ScanSource {
    virtual int get() = 0;         // EOF at the end
    virtual void unget(int c) = 0;
    virtual ~ScanSource() = default;
};
// Standard input through the console, or a file.
struct StreamSource : ScanSource {
    Engine& en;
    uint32_t handle;
    StreamSource(Engine& e, uint32_t h) : en(e), handle(h) {}
    int get() override { return streamGetc(en, handle); }
    void unget(int c) override;
};
int scanArgs(BArgs& a, ScanSource& src, const std::string& fmt, size_t first);

using BuiltinFn = Val (*)(BArgs& a);

// Gives a built-in that script/builtins.def only declares its implementation, from a
// layer above the script engine (the editor family lives above it); a null fn takes it
// away again. False for a number that no name carries or that the library implements.
bool registerBuiltin(int number, BuiltinFn fn);
// Whether a call of that number has an implementation to run.
bool builtinCallable(int number);

// The library's implementations, one per built-in (script/builtins.def names them).
#define BUILTIN(header, number, prototype, impl, flags) Val impl(BArgs& a);
#define BUILTIN_DECLARED(header, number, prototype, flags)
#include "script/builtins.def"
#undef BUILTIN
#undef BUILTIN_DECLARED

}  // namespace zol
