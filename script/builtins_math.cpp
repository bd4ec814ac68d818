// Mathematics and random numbers. A floating result that is not a number, or an
// argument outside a function's domain, is error 90; overflow gives the huge value as
// in C.
#include <cerrno>
#include <cmath>
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

// A floating result checked as every math function's is.
Val checked(BArgs& a, double r) {
    if (std::isnan(r) && !std::isnan(a.d(0)) && !std::isnan(a.d(1))) a.en.fail(kErrFloat);
    if (std::isinf(r)) a.en.lastErrno = ERANGE;
    return doubleVal(r);
}

Val logarithm(BArgs& a, double (*fn)(double)) {
    const double x = a.d(0);
    if (x == 0) {
        a.en.lastErrno = ERANGE;
        return checked(a, -HUGE_VAL);
    }
    return checked(a, fn(x));
}

}  // namespace

Val bi_HugeVal(BArgs&) { return doubleVal(HUGE_VAL); }

Val bi_rand(BArgs& a) {
    a.en.randState = a.en.randState * 1103515245u + 12345u;
    return intVal((a.en.randState / 65536u) % 32768u);
}

Val bi_srand(BArgs& a) {
    a.en.randState = static_cast<unsigned>(a.i(0));
    return Val{};
}

Val bi_abs(BArgs& a) {
    const int32_t v = static_cast<int32_t>(a.i(0));
    return intVal(v < 0 ? static_cast<int32_t>(0u - static_cast<uint32_t>(v)) : v);
}

Val bi_labs(BArgs& a) { return bi_abs(a); }

Val bi_frexp(BArgs& a) {
    int e = 0;
    const double r = std::frexp(a.d(0), &e);
    const int32_t e32 = e;
    putBytes(a.en, a.p(1), &e32, 4);
    return checked(a, r);
}

Val bi_ldexp(BArgs& a) { return checked(a, std::ldexp(a.d(0), static_cast<int>(a.i(1)))); }

Val bi_modf(BArgs& a) {
    double whole = 0;
    const double r = std::modf(a.d(0), &whole);
    putBytes(a.en, a.p(1), &whole, 8);
    return checked(a, r);
}

Val bi_fmod(BArgs& a) {
    if (a.d(1) == 0) a.en.fail(kErrFloat);
    return checked(a, std::fmod(a.d(0), a.d(1)));
}

Val bi_acos(BArgs& a) { return checked(a, std::acos(a.d(0))); }
Val bi_asin(BArgs& a) { return checked(a, std::asin(a.d(0))); }
Val bi_atan(BArgs& a) { return checked(a, std::atan(a.d(0))); }
Val bi_ceil(BArgs& a) { return checked(a, std::ceil(a.d(0))); }
Val bi_cos(BArgs& a) { return checked(a, std::cos(a.d(0))); }
Val bi_cosh(BArgs& a) { return checked(a, std::cosh(a.d(0))); }
Val bi_exp(BArgs& a) { return checked(a, std::exp(a.d(0))); }
Val bi_fabs(BArgs& a) { return checked(a, std::fabs(a.d(0))); }
Val bi_floor(BArgs& a) { return checked(a, std::floor(a.d(0))); }
Val bi_sin(BArgs& a) { return checked(a, std::sin(a.d(0))); }
Val bi_sinh(BArgs& a) { return checked(a, std::sinh(a.d(0))); }
Val bi_sqrt(BArgs& a) { return checked(a, std::sqrt(a.d(0))); }
Val bi_tan(BArgs& a) { return checked(a, std::tan(a.d(0))); }
Val bi_tanh(BArgs& a) { return checked(a, std::tanh(a.d(0))); }
Val bi_log(BArgs& a) { return logarithm(a, [](double x) { return std::log(x); }); }
Val bi_log10(BArgs& a) { return logarithm(a, [](double x) { return std::log10(x); }); }
Val bi_pow(BArgs& a) { return checked(a, std::pow(a.d(0), a.d(1))); }

}  // namespace zol
