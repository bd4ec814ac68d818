// The interpreter's types and values: what the parser builds and every later stage reads.
#pragma once
#include <cstdint>
#include <cstring>
#include <vector>

namespace zol {

enum TypeKind : uint8_t {
    kTVoid, kTChar, kTUChar, kTShort, kTUShort, kTInt, kTUInt, kTLong, kTULong, kTLLong, kTULLong,
    kTFloat, kTDouble, kTPtr, kTArray, kTStruct, kTFunc,
};

struct Type;
struct Member {
    int sym;
    const Type* type;
    uint32_t off;
    uint8_t bitOff = 0, bitWidth = 0;  // a bit-field: bits [bitOff, bitOff+bitWidth) of the unit at off
};
struct Record {
    bool isUnion = false;
    bool complete = false;
    uint32_t size = 0, align = 1;
    std::vector<Member> members;
};

// A type; built once and shared, never changed after it is complete.
struct Type {
    TypeKind kind = kTVoid;
    bool isConst = false;
    uint32_t size = 0, align = 1;
    const Type* base = nullptr;          // pointee, element or return type
    int64_t count = 0;                   // array length, -1 while unknown
    Record* rec = nullptr;               // struct or union
    std::vector<const Type*> params;     // function parameters
    bool variadic = false;
    bool noProto = false;                // declared with "()": any arguments
    mutable const Type* ptrCache = nullptr;
};

inline bool isInteger(const Type* t) { return t->kind >= kTChar && t->kind <= kTULLong; }
inline bool isFloating(const Type* t) { return t->kind == kTFloat || t->kind == kTDouble; }
inline bool isArith(const Type* t) { return t->kind >= kTChar && t->kind <= kTDouble; }
inline bool isPtr(const Type* t) { return t->kind == kTPtr; }
inline bool isScalar(const Type* t) { return isArith(t) || isPtr(t); }
inline bool isAggregate(const Type* t) { return t->kind == kTStruct || t->kind == kTArray; }
inline bool isUnsigned(const Type* t) {
    return t->kind == kTUChar || t->kind == kTUShort || t->kind == kTUInt || t->kind == kTULong ||
           t->kind == kTULLong || t->kind == kTPtr;
}

union Val {
    int64_t i;
    double d;
};

// A scalar of kind k read from or written to the script's bytes at p.
inline Val loadKind(const uint8_t* p, TypeKind k) {
    Val v;
    switch (k) {
        case kTChar: v.i = static_cast<int8_t>(*p); break;
        case kTUChar: v.i = *p; break;
        case kTShort: { int16_t x; std::memcpy(&x, p, 2); v.i = x; break; }
        case kTUShort: { uint16_t x; std::memcpy(&x, p, 2); v.i = x; break; }
        case kTInt: case kTLong: { int32_t x; std::memcpy(&x, p, 4); v.i = x; break; }
        case kTUInt: case kTULong: case kTPtr: { uint32_t x; std::memcpy(&x, p, 4); v.i = x; break; }
        case kTLLong: case kTULLong: std::memcpy(&v.i, p, 8); break;
        case kTFloat: { float x; std::memcpy(&x, p, 4); v.d = x; break; }
        case kTDouble: std::memcpy(&v.d, p, 8); break;
        default: v.i = 0; break;
    }
    return v;
}
inline void storeKind(uint8_t* p, TypeKind k, Val v) {
    switch (k) {
        case kTChar: case kTUChar: *p = static_cast<uint8_t>(v.i); break;
        case kTShort: case kTUShort: { const uint16_t x = static_cast<uint16_t>(v.i); std::memcpy(p, &x, 2); break; }
        case kTInt: case kTLong: case kTUInt: case kTULong: case kTPtr: {
            const uint32_t x = static_cast<uint32_t>(v.i);
            std::memcpy(p, &x, 4);
            break;
        }
        case kTLLong: case kTULLong: std::memcpy(p, &v.i, 8); break;
        case kTFloat: { const float x = static_cast<float>(v.d); std::memcpy(p, &x, 4); break; }
        case kTDouble: std::memcpy(p, &v.d, 8); break;
        default: break;
    }
}
inline uint32_t kindSize(TypeKind k) {
    switch (k) {
        case kTChar: case kTUChar: return 1;
        case kTShort: case kTUShort: return 2;
        case kTLLong: case kTULLong: case kTDouble: return 8;
        default: return 4;
    }
}

}  // namespace zol
