#include "platform/termination.h"

#include <csignal>
#include <initializer_list>
#include <fcntl.h>
#include <unistd.h>

namespace zol {
namespace {

int pipeEnds[2] = {-1, -1};

void onTermination(int sig) {
    const unsigned char byte = static_cast<unsigned char>(sig);
    // Only async-signal-safe calls here; a full pipe loses nothing that matters.
    [[maybe_unused]] const ssize_t n = ::write(pipeEnds[1], &byte, 1);
}

}  // namespace

int terminationSignalPipe() {
    if (pipeEnds[0] >= 0) return pipeEnds[0];
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return pipeEnds[0] = pipeEnds[1] = -1;
    struct sigaction sa {};
    sa.sa_handler = onTermination;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    for (int sig : {SIGTERM, SIGHUP}) ::sigaction(sig, &sa, nullptr);
    return pipeEnds[0];
}

int takeTerminationSignal() {
    unsigned char byte = 0;
    return pipeEnds[0] >= 0 && ::read(pipeEnds[0], &byte, 1) == 1 ? byte : 0;
}

void exitAtOnce(int status) { ::_exit(status); }

}  // namespace zol
