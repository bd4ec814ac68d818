// How a script's call reaches an exported function: the arguments are converted by the
// types of the function's own parameters, the function runs, and its result comes back
// as a script value. Every pointer the function will read or write through is checked
// against the one script object it points into before the function runs, so a bad
// pointer ends the script (errors 42 and 66) and leaves the editor untouched.
//
// A parameter's type says what it is: int a number, HDOC a document token, ZOL_WND a
// window token, const char * a terminated string, int * and short * a value the
// function may change. A char * is a terminated string changed in place unless a mark
// says more: Buffer<arg, sizeArg> (as many bytes as another argument says),
// FixedBuffer<arg, bytes>, StringList<arg> (strings up to an empty one). A char *
// result needs a mark: Allocated (text the caller frees) or PointsInto<arg>.
#pragma once
#include <array>
#include <cstdint>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "plugin/script_handles.h"
#include "plugin/zolder_api.h"
#include "script/builtin_proto.h"
#include "script/builtins.h"

namespace zol::scriptcall {

enum class MarkKind : uint8_t { None, Buffer, FixedBuffer, StringList, Allocated, PointsInto };
struct Mark {
    int arg = -1;  // the argument marked; -1 for the result
    MarkKind kind = MarkKind::None;
    int size = 0;  // the size argument, the byte count, or the argument a result points into
};

template <int Arg, int SizeArg>
struct Buffer {
    static constexpr Mark mark{Arg, MarkKind::Buffer, SizeArg};
};
template <int Arg, int Bytes>
struct FixedBuffer {
    static constexpr Mark mark{Arg, MarkKind::FixedBuffer, Bytes};
};
template <int Arg>
struct StringList {
    static constexpr Mark mark{Arg, MarkKind::StringList, 0};
};
struct Allocated {
    static constexpr Mark mark{-1, MarkKind::Allocated, 0};
};
template <int Arg>
struct PointsInto {
    static constexpr Mark mark{-1, MarkKind::PointsInto, Arg};
};

template <class... M>
constexpr Mark markOf(int arg) {
    const std::array<Mark, sizeof...(M) + 1> marks{M::mark..., Mark{-2, MarkKind::None, 0}};
    for (const Mark& m : marks)
        if (m.arg == arg) return m;
    return Mark{arg, MarkKind::None, 0};
}

// ---- checked views of script memory ----

// The host address of a terminated string at addr; null for a null address.
inline char* scriptString(Engine& en, uint32_t addr) {
    if (addr == 0) return nullptr;
    uint32_t avail = 0;
    uint8_t* p = en.span(addr, &avail);
    if (!std::memchr(p, 0, avail)) en.fail(kErrIllegalPointer);
    return reinterpret_cast<char*>(p);
}

// The host address of bytes bytes at addr, all inside one script object; a size below
// 1 checks only that addr is an address, since the function then writes nothing.
inline char* scriptBytes(Engine& en, uint32_t addr, int bytes) {
    if (addr == 0) return nullptr;
    return reinterpret_cast<char*>(en.host(addr, bytes > 0 ? static_cast<uint32_t>(bytes) : 0));
}

// "one\0two\0\0": strings up to an empty one, all inside one object.
inline char* scriptStringList(Engine& en, uint32_t addr) {
    if (addr == 0) return nullptr;
    uint32_t avail = 0;
    uint8_t* p = en.span(addr, &avail);
    for (uint32_t k = 0; k < avail; ++k)
        if (p[k] == 0 && (k == 0 || p[k - 1] == 0)) return reinterpret_cast<char*>(p);
    en.fail(kErrIllegalPointer);
}

// ---- arguments: one converter per parameter type ----

template <class T, Mark K>
struct In;  // a parameter type without a converter does not compile

template <Mark K>
struct In<int, K> {
    int v;
    In(BArgs& a, size_t i) : v(static_cast<int>(a.i(i))) {}
    int get() const { return v; }
    void done() {}
};

template <Mark K>
struct In<HDOC, K> {
    HDOC h;
    In(BArgs& a, size_t i) : h(scriptDoc(a.p(i))) {}
    HDOC get() const { return h; }
    void done() {}
};

template <Mark K>
struct In<ZOL_WND, K> {
    ZOL_WND w;
    In(BArgs& a, size_t i) : w(scriptWindow(a.p(i))) {}
    ZOL_WND get() const { return w; }
    void done() {}
};

template <Mark K>
struct In<const char*, K> {
    const char* s;
    In(BArgs& a, size_t i) : s(scriptString(a.en, a.p(i))) {}
    const char* get() const { return s; }
    void done() {}
};

template <Mark K>
struct In<char*, K> {
    char* s;
    In(BArgs& a, size_t i) : s(convert(a, i)) {}
    static char* convert(BArgs& a, size_t i) {
        if constexpr (K.kind == MarkKind::Buffer) return scriptBytes(a.en, a.p(i), static_cast<int>(a.i(K.size)));
        else if constexpr (K.kind == MarkKind::FixedBuffer) return scriptBytes(a.en, a.p(i), K.size);
        else if constexpr (K.kind == MarkKind::StringList) return scriptStringList(a.en, a.p(i));
        else return scriptString(a.en, a.p(i));
    }
    char* get() const { return s; }
    void done() {}
};

// A number the function reads or writes through a pointer. It goes through a copy of
// its own, since script memory keeps no alignment promise to the host.
template <class N, Mark K>
    requires(std::is_integral_v<N> && !std::is_same_v<std::remove_const_t<N>, char>)
struct In<N*, K> {
    uint8_t* at = nullptr;
    N v{};
    In(BArgs& a, size_t i) {
        if (a.p(i) == 0) return;
        at = a.en.host(a.p(i), sizeof(N));
        std::memcpy(&v, at, sizeof v);
    }
    N* get() { return at ? &v : nullptr; }
    void done() {
        if (at) std::memcpy(at, &v, sizeof v);
    }
};

// ---- the result ----

// Text the function allocated, moved into the script's heap; 0 when that is full.
inline Val allocatedText(Engine& en, char* text) {
    if (!text) return intVal(0);
    const size_t n = std::strlen(text) + 1;
    const uint32_t addr = en.heapAlloc(n, false);
    if (addr) std::memcpy(en.host(addr, static_cast<uint32_t>(n)), text, n);
    Zol_MemFree(text);
    return intVal(addr);
}

template <class R, Mark K, class Ins>
Val result(BArgs& a, R r, Ins& ins) {
    if constexpr (std::is_same_v<R, HDOC>) {
        return intVal(scriptDocToken(r));
    } else if constexpr (std::is_same_v<R, ZOL_WND>) {
        return intVal(scriptWindowToken(r));
    } else if constexpr (std::is_same_v<R, char*>) {
        static_assert(K.kind == MarkKind::Allocated || K.kind == MarkKind::PointsInto,
                      "a char * result needs a mark: Allocated or PointsInto");
        if constexpr (K.kind == MarkKind::Allocated) {
            return allocatedText(a.en, r);
        } else {
            // Inside the argument's own object, so the offset carries over to its address.
            const char* base = std::get<K.size>(ins).get();
            return intVal(r ? a.p(K.size) + static_cast<uint32_t>(r - base) : 0);
        }
    } else {
        static_assert(std::is_same_v<R, int>, "a result type without a conversion");
        return intVal(r);
    }
}

// ---- the call ----

template <class T>
constexpr char letterOf() {
    if constexpr (std::is_void_v<T>) return 'v';
    else if constexpr (std::is_same_v<T, ZOL_WND>) return 'p';
    else if constexpr (std::is_same_v<T, char*> || std::is_same_v<T, const char*>) return 'c';
    else if constexpr (std::is_pointer_v<T>) return 'p';
    else if constexpr (std::is_same_v<T, int>) return 'i';
    else return '?';
}

// The letters script/builtins.def's prototype must have for the function.
template <class R, class... A>
constexpr BuiltinSig signatureOf(R (*)(A...)) {
    return BuiltinSig{letterOf<R>(), letterOf<A>()...};
}

template <auto F, class... M>
struct Bound {
    template <class R, class... A, size_t... I>
    static Val call(BArgs& a, R (*)(A...), std::index_sequence<I...>) {
        // Braces convert the arguments left to right; any of them may end the script
        // before the function runs.
        std::tuple<In<A, markOf<M...>(static_cast<int>(I))>...> ins{
            In<A, markOf<M...>(static_cast<int>(I))>(a, I)...};
        if constexpr (std::is_void_v<R>) {
            F(std::get<I>(ins).get()...);
            (std::get<I>(ins).done(), ...);
            return Val{};
        } else {
            R r = F(std::get<I>(ins).get()...);
            (std::get<I>(ins).done(), ...);
            return result<R, markOf<M...>(-1)>(a, r, ins);
        }
    }
    template <class R, class... A>
    static constexpr size_t arity(R (*)(A...)) {
        return sizeof...(A);
    }
    static Val run(BArgs& a) { return call(a, F, std::make_index_sequence<arity(F)>{}); }
};

}  // namespace zol::scriptcall
