// The places one document remembers for the user: ten numbered marks and the stack of
// positions kept by "SaveCursorPos". Positions are plain numbers and do not follow
// later edits; going to one clamps it to the text as it is then.
#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "engine/position.h"

namespace zol {

constexpr int kNumberedMarks = 10;
// "SaveCursorPos" beyond this depth forgets the oldest saved position.
constexpr size_t kCursorStackDepth = 16;

struct NumberedMark {
    Pos pos;
    bool set = false;  // pos is meaningful only when set
};

struct DocMarks {
    std::array<NumberedMark, kNumberedMarks> numbered;
    std::vector<Pos> cursorStack;  // size <= kCursorStackDepth; back() is restored first
};

}  // namespace zol
