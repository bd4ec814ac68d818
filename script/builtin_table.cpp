#include "script/builtin_table.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace zol {
namespace {

constexpr BuiltinEntry entry(std::string_view header, int number, std::string_view prototype, unsigned flags,
                             bool implemented) {
    return {splitBuiltinPrototype(prototype).name, number, builtinSignature(prototype), prototype, header, flags,
            implemented};
}

constexpr BuiltinEntry kList[] = {
#define BUILTIN(header, number, prototype, impl, flags) entry(header, number, prototype, flags, true),
#define BUILTIN_DECLARED(header, number, prototype, flags) entry(header, number, prototype, flags, false),
#include "script/builtins.def"
#undef BUILTIN
#undef BUILTIN_DECLARED
};
constexpr size_t kCount = std::size(kList);

constexpr bool byName(const BuiltinEntry& a, const BuiltinEntry& b) { return a.name < b.name; }

constexpr std::array<BuiltinEntry, kCount> sortedByName() {
    std::array<BuiltinEntry, kCount> t{};
    std::copy(std::begin(kList), std::end(kList), t.begin());
    std::sort(t.begin(), t.end(), byName);
    return t;
}
constexpr std::array<BuiltinEntry, kCount> kByName = sortedByName();

constexpr bool everyPrototypeReads() {
    for (const BuiltinEntry& e : kList)
        if (e.name.empty() || e.number <= 0 || !validBuiltinSignature(e.sig)) return false;
    return true;
}
static_assert(everyPrototypeReads(), "a prototype of script/builtins.def cannot be read");

constexpr bool namesAreUnique() {
    for (size_t k = 1; k < kCount; ++k)
        if (kByName[k - 1].name == kByName[k].name) return false;
    return true;
}
static_assert(namesAreUnique(), "a name of script/builtins.def comes twice");

// Names that share a number are one built-in to the dispatcher.
constexpr bool sharedNumbersAgree() {
    for (const BuiltinEntry& a : kList)
        for (const BuiltinEntry& b : kList)
            if (a.number == b.number && (a.flags != b.flags || a.implemented != b.implemented)) return false;
    return true;
}
static_assert(sharedNumbersAgree(), "names that share a number differ in their flags");

}  // namespace

std::span<const BuiltinEntry> builtinList() { return kList; }

std::span<const BuiltinEntry> builtinTable() { return kByName; }

const BuiltinEntry* findBuiltin(std::string_view name) {
    const auto it = std::lower_bound(kByName.begin(), kByName.end(), name,
                                     [](const BuiltinEntry& e, std::string_view n) { return e.name < n; });
    return it != kByName.end() && it->name == name ? &*it : nullptr;
}

}  // namespace zol
