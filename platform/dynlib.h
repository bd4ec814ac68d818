// Dynamic libraries: plug-in modules are opened, searched for entry points by name,
// and closed again.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace zol {

// An open library; null when none.
using LibraryHandle = void*;

// Opens a shared library with every symbol resolved at once. Null when the file is
// missing, not a library for this machine, or has unresolved symbols; `error` then
// holds the loader's reason when given.
LibraryHandle openLibrary(const std::string& path, std::string* error = nullptr);
// The address of an exported symbol, null when the library has none by that name.
void* librarySymbol(LibraryHandle lib, const char* name);
void closeLibrary(LibraryHandle lib);

// The most argument words callLibraryFunction passes.
constexpr size_t kMaxLibraryCallWords = 12;

// Calls fn, a C function taking integers and pointers, with words[0..n) as its
// arguments, one register or stack slot each as the machine's C calling convention
// passes them, and returns its integer result register. The remaining words up to
// kMaxLibraryCallWords are passed as 0: a function that takes fewer never reads them.
int64_t callLibraryFunction(void* fn, const intptr_t* words, size_t n);

// The handle of the program itself (its executable and the libraries it linked).
LibraryHandle programLibrary();

}  // namespace zol
