#include "engine/options.h"

#include <algorithm>

namespace zol {

EditOptions& options() {
    static EditOptions opts;
    return opts;
}

void setTabSize(int size) { options().tabSize = std::clamp(size, kMinTabSize, kMaxTabSize); }

bool setWordWrapMethod(int method) {
    if (method < static_cast<int>(WrapMethod::WindowChars) || method > static_cast<int>(WrapMethod::WindowWords))
        return false;
    options().wordWrapMethod = static_cast<WrapMethod>(method);
    return true;
}

}  // namespace zol
