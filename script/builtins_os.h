// What the operating-system built-ins share: texts that may be null, and answers in
// buffers the way the Windows calls give them.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "script/builtins.h"

namespace zol {

// Argument k as text; nullopt for a null pointer.
std::optional<std::string> optionalText(BArgs& a, size_t k);

// Puts text into the buffer of argument buf whose size is argument buf + 1, as the
// Windows directory calls do: when it fits with its zero, its length; else the size it
// needs (zero included), the buffer untouched. A size beyond the buffer's object is
// error 66.
Val sizedAnswer(BArgs& a, size_t buf, std::string_view text);

}  // namespace zol
