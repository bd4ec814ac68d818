// The desktop editor's start: the Qt application, the main frame, the start-up
// sequence and the event loop.
#pragma once
#include "app/cli.h"

namespace zol {

// Runs the desktop editor until its window closes; returns the process status.
int runDesktop(int argc, char** argv, const CommandLine& cl);

}  // namespace zol
