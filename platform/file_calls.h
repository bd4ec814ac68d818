// The file-system calls that saving makes, counted so that tests can make any one of
// them fail. Every write that must not lose data goes through these.
#pragma once
#include <cstddef>
#include <sys/types.h>

namespace zol {

int fileOpen(const char* path, int flags, unsigned mode = 0);
ssize_t fileWrite(int fd, const void* data, size_t size);
int fileSync(int fd);
int fileRename(const char* from, const char* to);
int fileLink(const char* from, const char* to);
// Gives a name to an open file that has none (opened with O_TMPFILE).
int fileLinkOpen(int fd, const char* to);
int fileClose(int fd);

// Test seam: the n-th counted call from now on (1 for the next one) fails with err, once;
// n = 0 turns the seam off. fileCallsCounted() tells how many calls were counted since
// the seam was last set, so a test can walk n over every step of a save.
void failFileCall(int n, int err);
int fileCallsCounted();

}  // namespace zol
