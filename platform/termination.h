// How the program learns that it is being ended from outside: a terminal closed
// (SIGHUP), a session logging out or a kill (SIGTERM). The signals only write to a
// pipe; the event loop reads it and does the real work outside the handler.
#pragma once

namespace zol {

// The read end of the pipe, readable once a termination signal came; its byte is the
// signal number. The same descriptor on every call; -1 when no pipe could be made.
int terminationSignalPipe();
// Reads the signal number waiting on the pipe; 0 when none.
int takeTerminationSignal();
// A process ended by signal N exits with this plus N, as shells report it.
constexpr int kSignalExitBase = 128;

// Ends the process at once with status, running no exit handlers and no destructors.
[[noreturn]] void exitAtOnce(int status);

}  // namespace zol
