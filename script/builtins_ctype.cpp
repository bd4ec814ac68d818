// Character classes of the "C" locale; anything outside 0..255 belongs to none.
#include <cctype>

#include "script/builtins.h"

namespace zol {
namespace {

Val classify(BArgs& a, int (*is)(int)) {
    const int c = static_cast<int>(a.i(0));
    return intVal(c >= 0 && c <= 255 && is(c) ? 1 : 0);
}

}  // namespace

Val bi_isspace(BArgs& a) { return classify(a, [](int c) { return std::isspace(c); }); }
Val bi_isdigit(BArgs& a) { return classify(a, [](int c) { return std::isdigit(c); }); }
Val bi_isupper(BArgs& a) { return classify(a, [](int c) { return std::isupper(c); }); }
Val bi_islower(BArgs& a) { return classify(a, [](int c) { return std::islower(c); }); }
Val bi_isprint(BArgs& a) { return classify(a, [](int c) { return std::isprint(c); }); }
Val bi_iscntrl(BArgs& a) { return classify(a, [](int c) { return std::iscntrl(c); }); }
Val bi_isalpha(BArgs& a) { return classify(a, [](int c) { return std::isalpha(c); }); }
Val bi_isalnum(BArgs& a) { return classify(a, [](int c) { return std::isalnum(c); }); }
Val bi_isxdigit(BArgs& a) { return classify(a, [](int c) { return std::isxdigit(c); }); }
Val bi_ispunct(BArgs& a) { return classify(a, [](int c) { return std::ispunct(c); }); }
Val bi_isgraph(BArgs& a) { return classify(a, [](int c) { return std::isgraph(c); }); }

}  // namespace zol
