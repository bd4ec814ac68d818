// Floating-point mathematics. A result that is not a number, or an argument outside a
// function's domain, is error 90; overflow gives the huge value as in C.
#include <cerrno>
#include <cmath>
#include <cstring>

#include "script/builtins.h"

namespace zol {

bool builtinMath(BArgs& a, int num, Val& out) {
    Engine& en = a.en;
    const double x = a.d(0), y = a.d(1);
    double r;
    switch (num) {
        case 4: out.d = HUGE_VAL; return true;
        case 317: {  // frexp
            int e = 0;
            r = std::frexp(x, &e);
            const int32_t e32 = e;
            putBytes(en, a.p(1), &e32, 4);
            break;
        }
        case 318: r = std::ldexp(x, static_cast<int>(a.i(1))); break;
        case 319: {  // modf
            double ip = 0;
            r = std::modf(x, &ip);
            putBytes(en, a.p(1), &ip, 8);
            break;
        }
        case 320:
            if (y == 0) en.fail(kErrFloat);
            r = std::fmod(x, y);
            break;
        case 321: r = std::acos(x); break;
        case 322: r = std::asin(x); break;
        case 323: r = std::atan(x); break;  // atan2 shares this number and this implementation
        case 324: r = std::ceil(x); break;
        case 325: r = std::cos(x); break;
        case 326: r = std::cosh(x); break;
        case 327: r = std::exp(x); break;
        case 328: r = std::fabs(x); break;
        case 329: r = std::floor(x); break;
        case 330: r = std::sin(x); break;
        case 331: r = std::sinh(x); break;
        case 332: r = std::sqrt(x); break;
        case 333: r = std::tan(x); break;
        case 334: r = std::tanh(x); break;
        case 335:
        case 336:
            if (x == 0) {
                en.lastErrno = ERANGE;
                r = -HUGE_VAL;
                break;
            }
            r = num == 335 ? std::log(x) : std::log10(x);
            break;
        case 337: r = std::pow(x, y); break;
        default:
            return false;
    }
    if (std::isnan(r) && !std::isnan(x) && !std::isnan(y)) en.fail(kErrFloat);
    if (std::isinf(r)) en.lastErrno = ERANGE;
    out.d = r;
    return true;
}

}  // namespace zol
