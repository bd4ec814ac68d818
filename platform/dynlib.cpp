#include "platform/dynlib.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol {
namespace {

bool readAt(int fd, void* into, size_t bytes, uint64_t at) {
    return ::pread(fd, into, bytes, static_cast<off_t>(at)) == static_cast<ssize_t>(bytes);
}

// The loader maps a library's segments straight from the file; a truncated file
// then faults on first touch instead of failing to load. So every part the headers
// name must lie inside the file before the loader sees it.
bool wholeLibraryFile(const std::string& path, std::string* error) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return true;  // the loader reports this one itself
    struct stat st {};
    ElfW(Ehdr) eh{};
    std::vector<ElfW(Phdr)> ph;
    bool whole = ::fstat(fd, &st) == 0 && readAt(fd, &eh, sizeof eh, 0) &&
                 std::memcmp(eh.e_ident, ELFMAG, SELFMAG) == 0 && eh.e_phentsize == sizeof(ElfW(Phdr));
    const auto size = static_cast<uint64_t>(st.st_size);
    if (whole) {
        const uint64_t phEnd = uint64_t{eh.e_phoff} + uint64_t{eh.e_phnum} * eh.e_phentsize;
        const uint64_t shEnd = uint64_t{eh.e_shoff} + uint64_t{eh.e_shnum} * eh.e_shentsize;
        ph.resize(eh.e_phnum);
        whole = phEnd <= size && shEnd <= size && readAt(fd, ph.data(), ph.size() * sizeof(ElfW(Phdr)), eh.e_phoff);
    }
    ::close(fd);
    for (const ElfW(Phdr)& p : ph)
        if (uint64_t{p.p_offset} + p.p_filesz > size) whole = false;
    if (!whole && error) *error = "not a complete shared library";
    return whole;
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
