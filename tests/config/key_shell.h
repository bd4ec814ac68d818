// The shell the key map and macro tests record with; see tests/support/fake_shell.h.
#pragma once
#include "tests/support/fake_shell.h"

namespace zol::test {

using KeyShell = FakeShell;

}  // namespace zol::test
