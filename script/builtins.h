// Shared helpers of the built-in library: argument access with the script's types,
// checked reads and writes of script memory, FILE handles, formatted input and output.
#pragma once
#include <cstdio>
#include <string>

#include "script/interp.h"

namespace zol {

constexpr int kMaxFormatWidth = 65536;  // wider fields or precisions: kErrArgMismatch

struct BArgs {
    Engine& en;
    Expr* e;
    Val* v;
    size_t n;
    int64_t i(size_t k) const { return k < n ? v[k].i : 0; }
    uint32_t p(size_t k) const { return k < n ? static_cast<uint32_t>(v[k].i) : 0; }
    double d(size_t k) const { return k < n ? v[k].d : 0; }
    std::string s(size_t k) const;            // a string argument; a null pointer is error 42
};

// Copies n bytes into script memory at dst (checked).
void putBytes(Engine& en, uint32_t dst, const void* src, size_t n);
// A string with its terminating zero.
void putString(Engine& en, uint32_t dst, const std::string& s);
// A buffer of the library (static storage of the C library), placed once per run.
uint32_t libBuffer(Engine& en, uint32_t& slot, uint32_t size);
// The host stream behind a script FILE handle; a bad or closed handle is kErrArgMismatch.
FILE* fileOf(Engine& en, uint32_t handle);
uint32_t addFile(Engine& en, FILE* f);   // 0 when the table is full (the file is closed)
void closeFile(Engine& en, uint32_t handle);

// printf-style formatting; arguments from index first of the call.
std::string formatArgs(BArgs& a, const std::string& fmt, size_t first);

// scanf-style input from a source of characters.
struct ScanSource {
    virtual int get() = 0;         // EOF at the end
    virtual void unget(int c) = 0;
    virtual ~ScanSource() = default;
};
int scanArgs(BArgs& a, ScanSource& src, const std::string& fmt, size_t first);

// The groups of the library; each answers true when it knows the number.
bool builtinStdio(BArgs& a, int num, Val& out);
bool builtinString(BArgs& a, int num, Val& out);
bool builtinStdlib(BArgs& a, int num, Val& out);
bool builtinTime(BArgs& a, int num, Val& out);
bool builtinMath(BArgs& a, int num, Val& out);
bool builtinFiles(BArgs& a, int num, Val& out);

}  // namespace zol
