// soak: runs the editor-command soak from the command line.
//   soak [--seed N] [--commands M] [--docs D] [--trace] [--verify-each]
// Exits 0 when every check held, 1 with the failure report (seed, command number,
// the last commands and the line that replays it) otherwise, 2 on bad arguments.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/soak/lib/soak.h"

#if defined(__has_include)
#if __has_include(<sanitizer/common_interface_defs.h>) && (defined(__SANITIZE_ADDRESS__) || defined(ZOLDER_SOAK_SANITIZED))
#include <sanitizer/common_interface_defs.h>
#define ZOLDER_SOAK_DEATH_CALLBACK 1
#endif
#endif

namespace {

void usage() { std::fprintf(stderr, "usage: soak [--seed N] [--commands M] [--docs D] [--trace] [--verify-each]\n"); }

bool number(const char* text, long long& out) {
    char* end = nullptr;
    out = std::strtoll(text, &end, 10);
    return end && *end == '\0' && end != text && out >= 0;
}

#ifdef ZOLDER_SOAK_DEATH_CALLBACK
// A sanitizer stopping the run still says which command it was at.
void lastWords() { std::fputs(zol::soak::soakLastWords(), stderr); }
#endif

}  // namespace

int main(int argc, char** argv) {
    zol::soak::SoakConfig config;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        long long value = 0;
        if (arg == "--trace") {
            config.trace = true;
        } else if (arg == "--verify-each") {
            config.verifyEach = true;
        } else if ((arg == "--seed" || arg == "--commands" || arg == "--docs") && i + 1 < argc &&
                   number(argv[i + 1], value)) {
            ++i;
            if (arg == "--seed") config.seed = static_cast<uint64_t>(value);
            else if (arg == "--commands") config.commands = static_cast<long>(value);
            else config.docs = static_cast<int>(value < 1 ? 1 : value > 64 ? 64 : value);
        } else {
            usage();
            return 2;
        }
    }
#ifdef ZOLDER_SOAK_DEATH_CALLBACK
    __sanitizer_set_death_callback(lastWords);
#endif
    const zol::soak::SoakResult r = zol::soak::runSoak(config, config.trace ? stdout : nullptr);
    if (!r.ok) {
        std::fputs(r.failure.c_str(), stderr);
        return 1;
    }
    std::printf("soak: seed %llu, %ld commands over %d documents (%ld with checkpoints), %ld checkpoints undid %ld "
                "records, longest document %d lines: every check held\n",
                static_cast<unsigned long long>(config.seed), config.commands, config.docs, r.executed,
                r.checkpoints, r.undoneSteps, r.mostLines);
    return 0;
}
