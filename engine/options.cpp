#include "engine/options.h"

#include <algorithm>

namespace zol {

EditOptions& options() {
    static EditOptions opts;
    return opts;
}

void setTabSize(int size) { options().tabSize = std::clamp(size, kMinTabSize, kMaxTabSize); }

bool setWordWrapMethod(int method) {
    if (method < 1 || method > 3) return false;
    options().wordWrapMethod = method;
    return true;
}

}  // namespace zol
