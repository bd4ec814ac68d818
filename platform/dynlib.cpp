#include "platform/dynlib.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstring>
#include <fstream>
#include <vector>

namespace zol {
namespace {

// The loader maps a library's segments straight from the file; a truncated file
// then faults on first touch instead of failing to load. So every part the headers
// name must lie inside the file before the loader sees it.
bool wholeLibraryFile(const std::string& path, std::string* error) {
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    if (!in) return true;  // the loader reports this one itself
    const auto size = static_cast<uint64_t>(in.tellg());
    in.seekg(0);
    ElfW(Ehdr) eh{};
    auto fail = [&] {
        if (error) *error = "not a complete shared library";
        return false;
    };
    if (size < sizeof eh || !in.read(reinterpret_cast<char*>(&eh), sizeof eh)) return fail();
    if (std::memcmp(eh.e_ident, ELFMAG, SELFMAG) != 0) return fail();
    if (eh.e_phentsize != sizeof(ElfW(Phdr))) return fail();
    const uint64_t phEnd = uint64_t{eh.e_phoff} + uint64_t{eh.e_phnum} * eh.e_phentsize;
    const uint64_t shEnd = uint64_t{eh.e_shoff} + uint64_t{eh.e_shnum} * eh.e_shentsize;
    if (phEnd > size || shEnd > size) return fail();
    std::vector<ElfW(Phdr)> ph(eh.e_phnum);
    in.seekg(static_cast<std::streamoff>(eh.e_phoff));
    if (!in.read(reinterpret_cast<char*>(ph.data()), static_cast<std::streamsize>(ph.size() * sizeof(ElfW(Phdr)))))
        return fail();
    for (const ElfW(Phdr)& p : ph)
        if (uint64_t{p.p_offset} + p.p_filesz > size) return fail();
    return true;
}

}  // namespace

LibraryHandle openLibrary(const std::string& path, std::string* error) {
    if (!wholeLibraryFile(path, error)) return nullptr;
    // Local binding keeps one module's symbols from shadowing another's.
    void* lib = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!lib && error) {
        const char* why = dlerror();
        *error = why ? why : "cannot load library";
    }
    return lib;
}

void* librarySymbol(LibraryHandle lib, const char* name) {
    if (!lib || !name) return nullptr;
    return dlsym(lib, name);
}

void closeLibrary(LibraryHandle lib) {
    if (lib) dlclose(lib);
}

int64_t callLibraryFunction(void* fn, const intptr_t* words, size_t n) {
    using Word = intptr_t;
    using Fn = Word (*)(Word, Word, Word, Word, Word, Word, Word, Word, Word, Word, Word, Word);
    static_assert(kMaxLibraryCallWords == 12, "Fn takes kMaxLibraryCallWords words");
    if (!fn) return 0;
    Word w[kMaxLibraryCallWords] = {};
    for (size_t k = 0; k < n && k < kMaxLibraryCallWords; ++k) w[k] = words[k];
    const Fn f = reinterpret_cast<Fn>(fn);
    return static_cast<int64_t>(f(w[0], w[1], w[2], w[3], w[4], w[5], w[6], w[7], w[8], w[9], w[10], w[11]));
}

LibraryHandle programLibrary() {
    static void* self = dlopen(nullptr, RTLD_NOW);
    return self;
}

}  // namespace zol
