#pragma once
namespace zol {
// Version of the program as --version prints it.
const char* programVersion();
}  // namespace zol
