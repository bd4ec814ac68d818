// Reading a file that another process is still writing (a running tool's captured
// output): each read takes what has arrived since the last one.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace zol {

struct FileTail {
    int fd = -1;
    uint64_t offset = 0;  // bytes taken so far
};

// False when the file cannot be opened for reading.
bool openTail(FileTail& tail, const std::string& path);
// Appends to out at most max bytes that arrived since the last read; returns how many,
// 0 when nothing new is there yet, -1 when reading failed.
long readTail(FileTail& tail, std::string& out, size_t max);
void closeTail(FileTail& tail);

}  // namespace zol
