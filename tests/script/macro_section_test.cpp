// The macros' section of the key file: which slots the macros it holds fill.
#include <gtest/gtest.h>

#include "script/macro_section.h"

namespace zol {
namespace {

void put16(std::string& s, unsigned v) {
    s += static_cast<char>(v & 0xFF);
    s += static_cast<char>(v >> 8);
}

// A section with one macro per command number, the i-th named "m<i>" and typing "x".
std::string sectionOf(const std::vector<unsigned>& ids) {
    std::string s;
    put16(s, 1);
    put16(s, static_cast<unsigned>(ids.size()));
    for (size_t i = 0; i < ids.size(); ++i) {
        const std::string name = "m" + std::to_string(i);
        s += name + std::string(kMacroNameSize - name.size(), '\0') + std::string(kMacroDescriptionSize, '\0');
        for (unsigned word : {ids[i], 1u, 2u, unsigned{'x'}}) put16(s, word);
    }
    return s;
}

TEST(MacroSection, MacrosOutsideTheSlotRangeAreSkippedWithTheirSteps) {
    MacroTable table;
    table.slots[5] = Macro{true, "kept", "", {{1, 0}}};
    ASSERT_EQ(readMacroSection(sectionOf({999, 1150, 1001}), table), KeyFileStatus::Ok);
    EXPECT_EQ(findMacro(table, "m2"), 1001);
    EXPECT_EQ(table.slots[1].steps, (std::vector<MacroStep>{{2, 'x'}}));
    int used = 0;
    for (const Macro& m : table.slots) used += m.used;
    EXPECT_EQ(used, 1) << "loading empties every slot";
}

TEST(MacroSection, TwoHundredMacrosFillTheSlotsTheyName) {
    std::vector<unsigned> ids;
    for (unsigned i = 0; i < 200; ++i) ids.push_back(1000 + i * 7 % 160);
    MacroTable table;
    ASSERT_EQ(readMacroSection(sectionOf(ids), table), KeyFileStatus::Ok);
    int used = 0;
    for (const Macro& m : table.slots) used += m.used;
    EXPECT_EQ(used, 150);
    EXPECT_EQ(macroById(table, 1000)->name, "m160") << "a later macro of the same number wins";
}

}  // namespace
}  // namespace zol
