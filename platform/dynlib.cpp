#include "platform/dynlib.h"

#include <dlfcn.h>

namespace zol {

LibraryHandle openLibrary(const std::string& path, std::string* error) {
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

LibraryHandle programLibrary() {
    static void* self = dlopen(nullptr, RTLD_NOW);
    return self;
}

}  // namespace zol
