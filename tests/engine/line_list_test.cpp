// The line list against a plain vector of strings under random edits: texts that
// grow out of their blocks, inserts and removals anywhere, lines far apart in storage
// and across slabs, so that links held as short distances and links held aside both
// get made, changed and dropped; then the whole list moves to another and is reset.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "engine/line_list.h"

namespace zol {
namespace {

void expectSame(const LineList& ll, const std::vector<std::string>& model) {
    ASSERT_EQ(ll.count(), static_cast<int32_t>(model.size()));
    size_t bytes = 0, i = 0;
    LineRef last = kNoLine;
    for (LineRef r = ll.first; r != kNoLine; last = r, r = ll.next(r), ++i) {
        ASSERT_LT(i, model.size());
        ASSERT_EQ(ll.text(r), model[i]) << "line " << i;
        ASSERT_EQ(ll.prev(r), last) << "line " << i;
        bytes += model[i].size();
    }
    ASSERT_EQ(i, model.size());
    EXPECT_EQ(ll.textBytes, bytes);
}

TEST(LineList, RandomEditsKeepBothLinksAndTheTexts) {
    std::mt19937 rng(11);
    auto list = std::make_unique<LineList>();
    LineList& ll = *list;
    std::vector<std::string> model{""};
    LineRef tail = ll.first;
    // A long run of appended lines, as a file is read: more than one slab.
    for (int i = 0; i < 16000; ++i) {
        model.push_back(std::string(rng() % 300, static_cast<char>('a' + i % 26)));
        tail = ll.append(tail, model.back());
    }
    expectSame(ll, model);
    for (int round = 0; round < 40000; ++round) {
        const auto n = static_cast<int32_t>(model.size());
        const auto at = static_cast<int32_t>(rng() % static_cast<uint32_t>(n));
        const std::string text(rng() % 300, static_cast<char>('A' + round % 26));
        switch (rng() % 3) {
            case 0:
                ll.setText(ll.find(at), text);
                model[static_cast<size_t>(at)] = text;
                break;
            case 1:
                ll.insertAfter(at == 0 ? kNoLine : ll.find(at - 1), at, text);
                model.insert(model.begin() + at, text);
                break;
            default:
                ll.erase(ll.find(at), at);
                if (n == 1) model[0].clear();
                else model.erase(model.begin() + at);
                break;
        }
        if (round % 5000 == 0) expectSame(ll, model);
        if (round == 20000) {
            ASSERT_GT(ll.arena.farLinkCount(), 0u);  // the run is making links held aside
        }
    }
    expectSame(ll, model);
    for (int i = 0; i < 1000; ++i) {
        const auto at = static_cast<int32_t>(rng() % model.size());
        ASSERT_EQ(ll.text(ll.seek(at)), model[static_cast<size_t>(at)]);
    }
    // The slabs go with the lines: freeing the emptied list must not take them along.
    LineList kept;
    kept.swap(ll);
    list.reset();
    expectSame(kept, model);
    kept.reset();
    kept.insertAfter(kept.first, 1, "after reset");
    expectSame(kept, {"", "after reset"});
}

}  // namespace
}  // namespace zol
