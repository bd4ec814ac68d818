// The handles a script holds. Script values are 32 bits wide and must never reach the
// editor as addresses, so documents and windows are handed to scripts as tokens: a
// token names the document it was made for, or nothing once that document is gone,
// and never comes to name another.
#pragma once
#include <cstdint>

#include "plugin/zolder_api.h"

namespace zol {

// 0 for a null handle.
uint32_t scriptDocToken(HDOC doc);
// Null for 0, a token no document was given and the token of a closed document.
HDOC scriptDoc(uint32_t token);

// The main window and the documents' windows; 0 for no window or one the editor does
// not know.
uint32_t scriptWindowToken(ZOL_WND window);
ZOL_WND scriptWindow(uint32_t token);

}  // namespace zol
