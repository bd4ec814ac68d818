// The program version as the exported interface reports it.
#pragma once

namespace zol {

// (major << 8) | minor of the program.
int apiVersion();

}  // namespace zol
