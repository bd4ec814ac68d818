#include "script/interp.h"
#include "script/vm.h"

namespace zol {

Engine::Engine() : program(std::make_unique<Program>()) {
    tVoid = basic(kTVoid, 0);
    tChar = basic(kTChar, 1);
    tUChar = basic(kTUChar, 1);
    tShort = basic(kTShort, 2);
    tUShort = basic(kTUShort, 2);
    tInt = basic(kTInt, 4);
    tUInt = basic(kTUInt, 4);
    tLong = basic(kTLong, 4);
    tULong = basic(kTULong, 4);
    tLLong = basic(kTLLong, 8);
    tULLong = basic(kTULLong, 8);
    tFloat = basic(kTFloat, 4);
    tDouble = basic(kTDouble, 8);
    tCharPtr = ptrTo(tChar);
    tVoidPtr = ptrTo(tVoid);
}

Engine::~Engine() {
    for (size_t i = 3; i < files.size(); ++i)
        if (files[i] && ownFile[i]) std::fclose(files[i]);
}

const Type* Engine::basic(TypeKind k, uint32_t size) {
    Type& t = typeStore.emplace_back();
    t.kind = k;
    t.size = size;
    t.align = size ? size : 1;
    return &t;
}

const Type* Engine::ptrTo(const Type* t) {
    if (t->ptrCache) return t->ptrCache;
    Type& p = typeStore.emplace_back();
    p.kind = kTPtr;
    p.size = 4;
    p.align = 4;
    p.base = t;
    t->ptrCache = &p;
    return &p;
}

const Type* Engine::arrayOf(const Type* t, int64_t n) {
    Type& a = typeStore.emplace_back();
    a.kind = kTArray;
    a.base = t;
    a.count = n;
    if (n > 0x7fffffff || (t->size && n > 0 && static_cast<uint64_t>(n) > 0x7fffffffull / t->size)) failAt(kErrDataSpace);
    const uint64_t size = n < 0 ? 0 : static_cast<uint64_t>(n) * t->size;
    a.size = static_cast<uint32_t>(size);
    a.align = t->align;
    return &a;
}

const Type* Engine::funcType(const Type* ret, std::vector<const Type*> params, bool variadic, bool noProto) {
    Type& f = typeStore.emplace_back();
    f.kind = kTFunc;
    f.base = ret;
    f.params = std::move(params);
    f.variadic = variadic;
    f.noProto = noProto;
    f.size = 1;
    return &f;
}

const Type* Engine::constOf(const Type* t) {
    if (t->isConst || t->kind == kTStruct) return t;  // a struct may still be completed later
    Type& c = typeStore.emplace_back(*t);
    c.isConst = true;
    c.ptrCache = nullptr;
    return &c;
}

Record* Engine::newRecord(bool isUnion) {
    Record& r = recordStore.emplace_back();
    r.isUnion = isUnion;
    return &r;
}

const Type* Engine::recordType(Record* r) {
    Type& t = typeStore.emplace_back();
    t.kind = kTStruct;
    t.rec = r;
    return &t;
}

const Type* Engine::promote(const Type* t) const {
    switch (t->kind) {
        case kTChar: case kTUChar: case kTShort: case kTUShort: return tInt;
        default: return t;
    }
}

const Type* Engine::commonType(const Type* a, const Type* b) const {
    if (a->kind == kTDouble || b->kind == kTDouble) return tDouble;
    if (a->kind == kTFloat || b->kind == kTFloat) return tFloat;
    a = promote(a);
    b = promote(b);
    if (a->kind == b->kind) return a;
    const bool ua = isUnsigned(a), ub = isUnsigned(b);
    auto rank = [](const Type* t) { return t->kind == kTInt || t->kind == kTUInt ? 1 : t->kind == kTLong || t->kind == kTULong ? 2 : 3; };
    if (ua == ub) return rank(a) >= rank(b) ? a : b;
    const Type* u = ua ? a : b;
    const Type* s = ua ? b : a;
    if (rank(u) >= rank(s)) return u;
    if (s->size > u->size) return s;
    return s->kind == kTLong ? tULong : tULLong;
}

const Type* Engine::decay(const Type* t) {
    if (t->kind == kTArray) return ptrTo(t->base);
    if (t->kind == kTFunc) return ptrTo(t);
    return t;
}

bool Engine::sameType(const Type* a, const Type* b) const {
    if (a == b) return true;
    if (a->kind != b->kind) return false;
    switch (a->kind) {
        case kTPtr: return sameType(a->base, b->base);
        case kTArray: return (a->count == b->count || a->count < 0 || b->count < 0) && sameType(a->base, b->base);
        case kTStruct: return a->rec == b->rec;
        case kTFunc:
            if (!sameType(a->base, b->base)) return false;
            if (a->noProto || b->noProto) return true;
            if (a->params.size() != b->params.size() || a->variadic != b->variadic) return false;
            for (size_t i = 0; i < a->params.size(); ++i)
                if (!sameType(a->params[i], b->params[i])) return false;
            return true;
        default: return true;
    }
}

}  // namespace zol
