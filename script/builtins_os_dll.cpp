// CallDLLFunc: a C function of a shared library, called with the script's arguments.
// Integers go as 32-bit words sign-extended into the machine's word (long long whole);
// a script pointer goes as the host address inside the one script object it points
// into, so that the function reads and writes the script's own bytes. Floating-point
// values have no word and are error 81.
#include <algorithm>

#include "platform/dynlib.h"
#include "platform/paths.h"
#include "script/builtins_os.h"

namespace zol {
namespace {

constexpr size_t kFirstWord = 2;  // after the library's and the function's names

intptr_t wordOf(BArgs& a, size_t k) {
    const Type* t = a.e->argTypes[k];
    if (isFloating(t)) a.en.fail(kErrArgMismatch);
    if (isPtr(t)) {
        const uint32_t p = a.p(k);
        if (p == 0) return 0;
        uint32_t avail = 0;
        return reinterpret_cast<intptr_t>(a.en.span(p, &avail));
    }
    if (t->size == sizeof(int64_t)) return static_cast<intptr_t>(a.v[k].i);
    return static_cast<intptr_t>(static_cast<int32_t>(a.v[k].i));
}

std::string withSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

// A name with a folder is taken as it stands; a bare one is looked for where the loader
// looks, then in the home's plug-in folder.
LibraryHandle openScriptLibrary(const std::string& name) {
    if (name.empty()) return nullptr;
    if (hasFolderPart(name)) return openLibrary(withSlashes(name));
    if (LibraryHandle lib = openLibrary(name)) return lib;
    return openLibrary(joinPath(joinPath(homeDir(), kPlugInsFolder), name));
}

}  // namespace

Val bi_CallDLLFunc(BArgs& a) {
    const std::string library = a.s(0), function = a.s(1);
    const size_t n = a.n > kFirstWord ? a.n - kFirstWord : 0;
    if (n > kMaxLibraryCallWords) a.en.fail(kErrArgMismatch);
    intptr_t words[kMaxLibraryCallWords] = {};
    for (size_t k = 0; k < n; ++k) words[k] = wordOf(a, kFirstWord + k);
    LibraryHandle lib = openScriptLibrary(library);
    if (!lib) return intVal(0);
    void* fn = librarySymbol(lib, function.c_str());
    const int64_t result = fn ? callLibraryFunction(fn, words, n) : 0;
    closeLibrary(lib);
    return intVal(static_cast<int32_t>(result));
}

}  // namespace zol
