// Random patterns, subjects and templates: compiling either fails with a known code
// or gives a program; running it forwards and backwards keeps every group inside the
// subject; substituting stays inside the buffer and terminates it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "search/regex.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

void checkGroups(const zol::RegexProgram& prog, const std::string& subject) {
    const char* begin = subject.c_str();
    const char* end = begin + subject.size();
    for (int i = 0; i < zol::kRegexGroups; ++i) {
        const char* s = prog.groupStart[i];
        const char* e = prog.groupEnd[i];
        if (i == 0) check(s && e);
        if (s) check(s >= begin && s <= end);
        if (e) check(e >= begin && e <= end);
    }
}

}  // namespace

// Input: pattern, NUL, subject, NUL, template; missing parts are empty. The subject is
// NUL-free by construction, as every line is.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t a = input.find('\0');
    const std::string pattern = input.substr(0, a);
    const size_t b = a == std::string::npos ? a : input.find('\0', a + 1);
    const std::string subject = a == std::string::npos ? "" : input.substr(a + 1, b == std::string::npos ? b : b - a - 1);
    const std::string tmpl = b == std::string::npos ? "" : input.substr(b + 1);

    int err = -1;
    auto prog = zol::regexCompile(pattern.c_str(), &err);
    if (!prog) {
        check(err >= zol::kReNullArgument && err <= zol::kReUnknown);
        return 0;
    }
    check(err == zol::kReOk && prog->code.size() < zol::kRegexMaxCode);
    // Runaway patterns reach the bound the same way at a hundredth of the steps, and
    // each input runs four times: at the full bound a few of them take a second.
    prog->stepBudget = zol::kRegexStepBudget / 100;
    const char* text = subject.c_str();
    char out[64];
    for (int backward = 0; backward < 2; ++backward) {
        const char* limit = subject.empty() ? nullptr : text + subject.size() / 2;
        for (const char* lim : {static_cast<const char*>(nullptr), limit}) {
            if (!zol::regexExecute(prog.get(), text, lim, backward != 0, true)) continue;
            checkGroups(*prog, subject);
            std::memset(out, 'x', sizeof out);
            zol::regexSubstitute(prog.get(), tmpl.c_str(), out, sizeof out);
            check(std::memchr(out, '\0', sizeof out) != nullptr);
        }
    }
    return 0;
}
