// stdlib: the process, the environment, memory blocks, number conversion, character
// classes, random numbers; and the engine's own __Line, __File and __Errno.
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "platform/script_os.h"
#include "script/builtins.h"

namespace zol {
namespace {

// Writes the end pointer of a conversion when the script asked for it.
void putEnd(Engine& en, uint32_t endp, uint32_t value) {
    if (endp) putBytes(en, endp, &value, 4);
}

bool ctype(int num, int c) {
    if (c < 0 || c > 255) return false;
    switch (num) {
        case 129: return std::isspace(c);
        case 130: return std::isdigit(c);
        case 131: return std::isupper(c);
        case 132: return std::islower(c);
        case 133: return std::isprint(c);
        case 134: return std::iscntrl(c);
        case 135: return std::isalpha(c);
        case 136: return std::isalnum(c);
        case 137: return std::isxdigit(c);
        case 138: return std::ispunct(c);
        case 139: return std::isgraph(c);
        default: return false;
    }
}

}  // namespace

bool builtinStdlib(BArgs& a, int num, Val& out) {
    Engine& en = a.en;
    switch (num) {
        case 1:
            out.i = en.curLine;
            return true;
        case 2: {
            const uint32_t buf = libBuffer(en, en.envBuf, 264);
            std::string name = static_cast<size_t>(en.curFile) < en.fileNames.size() ? en.fileNames[static_cast<size_t>(en.curFile)] : "xxx.xxx";
            if (name.size() > 263) name.resize(263);
            putString(en, buf, name);
            out.i = buf;
            return true;
        }
        case 3:
            out.i = en.lastErrno;
            return true;
        case 7:
            for (FILE* f : en.files)
                if (f) std::fflush(f);
            throw ScriptExit{static_cast<int>(a.i(0))};
        case 8:
            if (a.p(0) == 0) {
                out.i = 1;
                return true;
            }
            for (FILE* f : en.files)
                if (f) std::fflush(f);
            {
                std::string cmd = a.s(0);
                for (char& c : cmd) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
                if (cmd == "pause") {
                    // Scripts keep their console open this way; headless, the console is stdin.
                    std::fputs(kScriptPausePrompt, en.files[1]);
                    std::fflush(en.files[1]);
                    std::fgetc(en.files[0]);
                    out.i = 0;
                    return true;
                }
            }
            out.i = scriptSystem(a.s(0));
            return true;
        case 9: {
            const auto v = scriptGetenv(a.s(0));
            if (!v) {
                out.i = 0;
                return true;
            }
            const uint32_t p = en.heapAlloc(v->size() + 1, false);
            if (!p) en.fail(kErrOutOfMemory);
            putString(en, p, *v);
            out.i = p;
            return true;
        }
        case 10:
            out.i = scriptPutenv(a.s(0));
            if (out.i) en.lastErrno = scriptErrno();
            return true;
        case 106:
            out.i = en.heapAlloc(static_cast<uint32_t>(a.i(0)), false);
            return true;
        case 107: {
            const uint64_t total = static_cast<uint64_t>(static_cast<uint32_t>(a.i(0))) * static_cast<uint32_t>(a.i(1));
            out.i = en.heapAlloc(total, true);
            return true;
        }
        case 108: {  // realloc
            const uint32_t p = a.p(0);
            const uint32_t n = static_cast<uint32_t>(a.i(1));
            if (p == 0) {
                out.i = en.heapAlloc(n, false);
                return true;
            }
            HeapBlock* b = en.heapBlock(p);
            if (!b || b->freed || b->start != p) en.fail(kErrIllegalPointer);
            if (n == 0) {
                en.heapFree(p);
                out.i = 0;
                return true;
            }
            const uint32_t oldSize = b->size;
            const uint32_t q = en.heapAlloc(n, false);
            if (!q) {
                out.i = 0;
                return true;
            }
            const uint32_t keep = std::min(oldSize, n);
            if (keep) std::memcpy(en.host(q, keep), en.host(p, keep), keep);
            en.heapFree(p);
            out.i = q;
            return true;
        }
        case 109:
            if (a.p(0) && !en.heapFree(a.p(0))) en.fail(kErrIllegalPointer);
            return true;
        case 110:
            out.d = std::strtod(a.s(0).c_str(), nullptr);
            return true;
        case 111:
        case 112:
            out.i = static_cast<int32_t>(std::strtoll(a.s(0).c_str(), nullptr, 10));
            return true;
        case 113: {  // strtod
            const std::string s = a.s(0);
            char* end = nullptr;
            errno = 0;
            out.d = std::strtod(s.c_str(), &end);
            if (errno) en.lastErrno = errno;
            putEnd(en, a.p(1), a.p(0) + static_cast<uint32_t>(end - s.c_str()));
            return true;
        }
        case 114:
        case 115: {  // strtol, strtoul
            const std::string s = a.s(0);
            const int base = static_cast<int>(a.i(2));
            if (base < 0 || base == 1 || base > 36) {
                en.lastErrno = EINVAL;
                putEnd(en, a.p(1), a.p(0));
                out.i = 0;
                return true;
            }
            char* end = nullptr;
            errno = 0;
            if (num == 114) {
                long long v = std::strtoll(s.c_str(), &end, base);
                if (v > INT32_MAX) v = INT32_MAX, errno = ERANGE;
                if (v < INT32_MIN) v = INT32_MIN, errno = ERANGE;
                out.i = v;
            } else {
                const bool neg = s.find('-') != std::string::npos && s.find('-') < s.find_first_of("0123456789abcdefABCDEF");
                unsigned long long v = std::strtoull(s.c_str(), &end, base);
                if (!neg && v > UINT32_MAX) v = UINT32_MAX, errno = ERANGE;
                out.i = static_cast<uint32_t>(v);
            }
            if (errno) en.lastErrno = errno;
            putEnd(en, a.p(1), a.p(0) + static_cast<uint32_t>(end - s.c_str()));
            return true;
        }
        case 129: case 130: case 131: case 132: case 133: case 134: case 135: case 136: case 137: case 138: case 139:
            out.i = ctype(num, static_cast<int>(a.i(0))) ? 1 : 0;
            return true;
        case 140:
            en.randState = en.randState * 1103515245u + 12345u;
            out.i = (en.randState / 65536u) % 32768u;
            return true;
        case 141:
            en.randState = static_cast<unsigned>(a.i(0));
            return true;
        case 142:
        case 143: {
            const int32_t v = static_cast<int32_t>(a.i(0));
            out.i = v < 0 ? static_cast<int32_t>(0u - static_cast<uint32_t>(v)) : v;
            return true;
        }
        default:
            return false;
    }
}

}  // namespace zol
