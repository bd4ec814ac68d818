#include "app/version.h"

namespace zol {
const char* programVersion() { return ZOLDER_VERSION_TEXT; }
}  // namespace zol
