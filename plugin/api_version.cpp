#include "plugin/api_version.h"

namespace zol {

int apiVersion() { return (ZOLDER_VERSION_MAJOR << 8) | ZOLDER_VERSION_MINOR; }

}  // namespace zol
