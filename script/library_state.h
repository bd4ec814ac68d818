// What the C library keeps between calls during one run: streams and files, buffers of
// the functions that return static storage, the random seed, the run's arguments.
#pragma once
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "script/console.h"

namespace zol {

struct LibraryState {
    ScriptConsole* console = nullptr;  // the standard streams and the conio calls
    bool consoleAtEnd = false;         // standard input read to its end (feof without a host stream)
    // Carries a call of the editor's to the thread that owns the editor and waits for
    // it; null when the script runs on that thread.
    const std::function<void(const std::function<void()>&)>* editorGate = nullptr;
    std::vector<FILE*> files;        // by handle index; [0..2] the console's host streams, or null
    std::vector<bool> ownFile;
    uint32_t strtokNext = 0;
    uint32_t tmBuf = 0, asctimeBuf = 0, tmpnamBuf = 0, strerrorBuf = 0, lconvBuf = 0, envBuf = 0;
    uint32_t envBufSize = 0;
    unsigned randState = 1;
    int lastErrno = 0;
    bool sealed = false;             // the library refuses every operating-system service
    uint64_t heapLimit = 0, heapBytes = 0;  // live malloc bytes; malloc answers NULL past the limit
    std::vector<std::string> fileNames;  // for __File
    std::vector<std::pair<std::vector<std::string>, size_t>> finds;  // findfirst searches: paths, next
    std::vector<std::string> args;       // the run's argument vector

};

}  // namespace zol
