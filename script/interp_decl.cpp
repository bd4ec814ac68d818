// Declarations: specifiers, declarators, initialisers, the scan of the global
// declarations and the compilation of a function body on its first call.
#include <algorithm>
#include <cstring>

#include "script/builtin_table.h"
#include "script/interp.h"
#include "script/vm.h"
#include "script/tokens.h"

namespace zol {

Binding* Engine::lookup(int sym) {
    for (auto s = scopes.rbegin(); s != scopes.rend(); ++s) {
        auto it = s->names.find(sym);
        if (it != s->names.end()) return &it->second;
    }
    return nullptr;
}

const Type* Engine::lookupTag(int sym) {
    for (auto s = scopes.rbegin(); s != scopes.rend(); ++s) {
        auto it = s->tags.find(sym);
        if (it != s->tags.end()) return it->second;
    }
    return nullptr;
}

bool Engine::isTypeStart() {
    switch (tok().code) {
        case kTokChar: case kTokInt: case kTokLong: case kTokShort: case kTokFloat: case kTokDouble:
        case kTokVoid: case kTokSigned: case kTokUnsigned: case kTokStruct: case kTokUnion: case kTokEnum:
        case kTokConst: case kTokVolatile: case kTokStatic: case kTokExtern: case kTokAuto: case kTokRegister:
        case kTokTypedef:
            return true;
        case kTokIdent: {
            const Binding* b = lookup(static_cast<int>(tok().i));
            return b && b->kind == BindKind::Typedef;
        }
        default:
            return false;
    }
}

Function* Engine::functionBySym(int sym) {
    for (Function& f : functions)
        if (f.sym == sym) return &f;
    const std::string& name = ts.symbols.names[static_cast<size_t>(sym - 1)];
    // The shipped headers declare every built-in; those prototypes must not eat the
    // function space a script has for its own functions.
    const bool libraryDecl = findBuiltin(name) != nullptr;
    if (!libraryDecl) useFunctionRecord();
    Function& f = functions.emplace_back();
    f.sym = sym;
    f.name = name;
    f.libraryDecl = libraryDecl;
    f.index = static_cast<int>(functions.size() - 1);
    return &f;
}

void Engine::useFunctionRecord() {
    if (functionRecords >= kMaxFunctions) failAt(kErrFunctionSpace);
    ++functionRecords;
}

namespace {

uint32_t alignUp(uint32_t v, uint32_t a) { return a ? (v + a - 1) / a * a : v; }

}  // namespace

const Type* Engine::declSpecs(int* storage) {
    int nSigned = 0, nUnsigned = 0, nShort = 0, nLong = 0, nChar = 0, nInt = 0, nFloat = 0, nDouble = 0, nVoid = 0;
    const Type* named = nullptr;
    bool isConst = false, any = false;
    if (storage) *storage = 0;
    specEnumUnsigned = false;
    for (;;) {
        const uint8_t c = tok().code;
        if (c == kTokTypedef || c == kTokStatic || c == kTokExtern || c == kTokAuto || c == kTokRegister) {
            if (!storage) failAt(kErrSyntax);
            *storage = c;
            ++pos;
            any = true;
            continue;
        }
        if (c == kTokConst || c == kTokVolatile) {
            isConst |= c == kTokConst;
            ++pos;
            any = true;
            continue;
        }
        int* counter = c == kTokSigned ? &nSigned : c == kTokUnsigned ? &nUnsigned : c == kTokShort ? &nShort
                     : c == kTokLong ? &nLong : c == kTokChar ? &nChar : c == kTokInt ? &nInt : c == kTokFloat ? &nFloat
                     : c == kTokDouble ? &nDouble : c == kTokVoid ? &nVoid : nullptr;
        if (counter) {
            if (named) failAt(kErrSyntax);
            ++*counter;
            ++pos;
            any = true;
            continue;
        }
        if (c == kTokStruct || c == kTokUnion) {
            if (named) failAt(kErrSyntax);
            const bool isUnion = c == kTokUnion;
            ++pos;
            int tag = 0;
            if (tok().code == kTokIdent) {
                tag = static_cast<int>(tok().i);
                ++pos;
            }
            const Type* t = nullptr;
            if (tok().code == '{') {
                if (tag) {
                    auto it = scopes.back().tags.find(tag);
                    if (it != scopes.back().tags.end() && it->second->kind == kTStruct && !it->second->rec->complete)
                        t = it->second;
                }
                if (!t) {
                    t = recordType(newRecord(isUnion));
                    if (tag) scopes.back().tags[tag] = t;
                }
                Record* r = t->rec;
                if (r->complete) failAt(kErrAlreadyDeclared);
                ++pos;
                uint32_t off = 0, size = 0, align = 1;
                uint32_t unitOff = 0, unitBits = 0, bitPos = 0;  // the storage unit bit-fields are filling
                while (!accept('}')) {
                    if (tok().code == kTokEnd) failAt(kErrMissingRBrace);
                    const Type* mb = declSpecs(nullptr);
                    if (!mb) failAt(kErrSyntax);
                    const bool unsignedEnum = specEnumUnsigned;
                    for (;;) {
                        int msym = 0;
                        const Type* mt = tok().code == ':' ? mb : declarator(mb, &msym, nullptr);
                        if (mt->kind == kTFunc || mt->kind == kTVoid) failAt(kErrSyntax);
                        if (mt->kind == kTStruct && !mt->rec->complete) failAt(kErrUndefinedStruct);
                        if (accept(':')) {
                            const int64_t width = constExpr();
                            if (!isInteger(mt) || width < 0 || width > static_cast<int64_t>(mt->size) * 8) failAt(kErrIntegerRequired);
                            if (unsignedEnum && mt == tInt) mt = tUInt;
                            if (msym) {
                                for (const Member& m : r->members)
                                    if (m.sym == msym) failAt(kErrAlreadyDeclared);
                            }
                            const uint32_t bits = mt->size * 8;
                            if (isUnion) {
                                if (msym && width) r->members.push_back(Member{msym, mt, 0, 0, static_cast<uint8_t>(width)});
                                size = std::max(size, mt->size);
                            } else if (width == 0) {
                                unitBits = 0;  // closes the unit being filled
                            } else {
                                if (unitBits != bits || bitPos + width > bits) {
                                    off = alignUp(off, mt->align);
                                    unitOff = off;
                                    unitBits = bits;
                                    bitPos = 0;
                                    off += mt->size;
                                    size = off;
                                }
                                if (msym)
                                    r->members.push_back(Member{msym, mt, unitOff, static_cast<uint8_t>(bitPos), static_cast<uint8_t>(width)});
                                bitPos += static_cast<uint32_t>(width);
                            }
                            align = std::max(align, mt->align);
                            if (!accept(',')) break;
                            continue;
                        }
                        unitBits = 0;
                        if (msym) {
                            for (const Member& m : r->members)
                                if (m.sym == msym) failAt(kErrAlreadyDeclared);
                            const uint32_t a = mt->align ? mt->align : 1;
                            uint32_t at = 0;
                            if (!isUnion) {
                                off = alignUp(off, a);
                                at = off;
                                off += mt->size;
                                size = off;
                            } else {
                                size = std::max(size, mt->size);
                            }
                            align = std::max(align, a);
                            r->members.push_back(Member{msym, mt, at});
                        }
                        if (!accept(',')) break;
                    }
                    expect(';', kErrMissingSemicolon);
                }
                r->align = align;
                r->size = alignUp(size, align);
                r->complete = true;
                Type* tt = const_cast<Type*>(t);
                tt->size = r->size;
                tt->align = r->align;
            } else {
                if (!tag) failAt(kErrMissingIdent);
                t = lookupTag(tag);
                if (!t || t->kind != kTStruct || t->rec->isUnion != isUnion) {
                    t = recordType(newRecord(isUnion));
                    scopes.back().tags[tag] = t;
                }
            }
            named = t;
            any = true;
            continue;
        }
        if (c == kTokEnum) {
            if (named) failAt(kErrSyntax);
            ++pos;
            int tag = 0;
            if (tok().code == kTokIdent) {
                tag = static_cast<int>(tok().i);
                ++pos;
            }
            if (accept('{')) {
                int64_t v = 0;
                bool negative = false;
                while (!accept('}')) {
                    if (tok().code != kTokIdent) failAt(kErrEnum);
                    const int sym = static_cast<int>(tok().i);
                    ++pos;
                    if (accept('=')) v = constExpr();
                    if (scopes.back().names.count(sym)) failAt(kErrAlreadyDeclared);
                    scopes.back().names[sym] = Binding{BindKind::EnumConst, tInt, static_cast<int32_t>(v)};
                    negative = negative || static_cast<int32_t>(v) < 0;
                    ++v;
                    if (!accept(',')) {
                        expect('}', kErrEnum);
                        break;
                    }
                }
                if (tag) scopes.back().tags[tag] = tInt;
                if (tag) enumTagUnsigned[tag] = !negative;
                specEnumUnsigned = !negative;
            } else if (!tag) {
                failAt(kErrEnum);
            } else {
                const auto known = enumTagUnsigned.find(tag);
                specEnumUnsigned = known != enumTagUnsigned.end() && known->second;
            }
            named = tInt;
            any = true;
            continue;
        }
        if (c == kTokIdent && !named && !(nSigned | nUnsigned | nShort | nLong | nChar | nInt | nFloat | nDouble | nVoid)) {
            const Binding* b = lookup(static_cast<int>(tok().i));
            if (b && b->kind == BindKind::Typedef) {
                named = b->type;
                specEnumUnsigned = b->value != 0;  // a typedef of an enum
                ++pos;
                any = true;
                continue;
            }
        }
        break;
    }
    if (!any) return nullptr;
    const Type* t;
    if (named) {
        t = named;
    } else if (nVoid) {
        t = tVoid;
    } else if (nChar) {
        t = nUnsigned ? tUChar : tChar;
    } else if (nFloat) {
        t = tFloat;
    } else if (nDouble) {
        t = tDouble;
    } else if (nShort) {
        t = nUnsigned ? tUShort : tShort;
    } else if (nLong >= 2) {
        t = nUnsigned ? tULLong : tLLong;
    } else if (nLong) {
        t = nUnsigned ? tULong : tLong;
    } else {
        t = nUnsigned ? tUInt : tInt;
    }
    return isConst ? constOf(t) : t;
}

const Type* Engine::declarator(const Type* base, int* sym, std::vector<int>* paramSyms) {
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    while (accept('*')) {
        base = ptrTo(base);
        bool c = false;
        while (tok().code == kTokConst || tok().code == kTokVolatile) c |= (tok().code == kTokConst), ++pos;
        if (c) base = constOf(base);
    }
    // "(" opens a nested declarator unless it starts a parameter list.
    auto suffixes = [&](auto& self, const Type* t, std::vector<int>* names) -> const Type* {
        if (accept('[')) {
            int64_t n = -1;
            if (tok().code != ']') {
                n = constExpr();
                if (n < 0) failAt(kErrNegativeDim);
            }
            expect(']', kErrMissingRBracket);
            const Type* elem = self(self, t, nullptr);
            if (elem->kind == kTFunc) failAt(kErrSyntax);
            int dims = 1;
            for (const Type* e = elem; e->kind == kTArray; e = e->base) ++dims;
            if (dims > kMaxDimensions) failAt(kErrTooManyDims);
            return arrayOf(elem, n);
        }
        if (accept('(')) {
            std::vector<const Type*> ps;
            std::vector<int> nm;
            bool variadic = false, noProto = false;
            if (accept(')')) {
                noProto = true;
            } else if (tok().code == kTokVoid && peek().code == ')') {
                pos += 2;
            } else if (tok().code == kTokIdent && !isTypeStart()) {
                // An identifier list of an old-style definition: types follow before the body.
                noProto = true;
                for (;;) {
                    if (tok().code != kTokIdent) failAt(kErrMissingIdent);
                    nm.push_back(static_cast<int>(tok().i));
                    ps.push_back(tInt);
                    ++pos;
                    if (!accept(',')) break;
                }
                expect(')', kErrMissingRParen);
            } else {
                for (;;) {
                    if (accept(kTokEllipsis)) {
                        variadic = true;
                        break;
                    }
                    int st = 0;
                    const Type* pb = declSpecs(&st);
                    if (!pb) failAt(kErrSyntax);
                    int psym = 0;
                    const Type* pt = declarator(pb, &psym, nullptr);
                    pt = decay(pt);
                    if (pt->kind == kTVoid) failAt(kErrSyntax);
                    ps.push_back(pt);
                    nm.push_back(psym);
                    if (!accept(',')) break;
                }
                expect(')', kErrMissingRParen);
            }
            if (names && names->empty()) *names = nm;
            const Type* ret = self(self, t, nullptr);
            if (ret->kind == kTFunc || ret->kind == kTArray) failAt(kErrSyntax);
            return funcType(ret, std::move(ps), variadic, noProto);
        }
        return t;
    };
    const Type* result;
    if (tok().code == '(' && (peek().code == '*' || peek().code == '(' ||
                              (peek().code == kTokIdent && [&] {
                                  const Binding* b = lookup(static_cast<int>(peek().i));
                                  return !(b && b->kind == BindKind::Typedef);
                              }()))) {
        const size_t inner = pos + 1;
        int depth = 0;
        do {
            if (tok().code == '(') ++depth;
            else if (tok().code == ')') --depth;
            else if (tok().code == kTokEnd) failAt(kErrMissingRParen);
            ++pos;
        } while (depth > 0);
        std::vector<int> dummy;
        const Type* outer = suffixes(suffixes, base, &dummy);
        const size_t end = pos;
        pos = inner;
        result = declarator(outer, sym, paramSyms);
        expect(')', kErrMissingRParen);
        pos = end;
    } else {
        if (tok().code == kTokIdent) {
            if (sym) *sym = static_cast<int>(tok().i);
            ++pos;
        }
        result = suffixes(suffixes, base, paramSyms);
    }
    --nesting;
    return result;
}

const Type* Engine::typeName() {
    const Type* b = declSpecs(nullptr);
    if (!b) failAt(kErrSyntax);
    int sym = 0;
    const Type* t = declarator(b, &sym, nullptr);
    if (sym) failAt(kErrSyntax);
    return t;
}

// Reads an initialiser for an object of type t at offset off; each scalar becomes one
// (offset, expression) pair. An array of unknown size is completed from the count.
void Engine::initializer(const Type* t, uint32_t off, std::vector<std::pair<uint32_t, Expr*>>& out,
                         const Type** completed) {
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    auto isCharArray = [](const Type* a) {
        return a->kind == kTArray && (a->base->kind == kTChar || a->base->kind == kTUChar);
    };
    auto stringInit = [&](const Type* a) {
        const std::string& s = ts.strings[static_cast<size_t>(tok().i)];
        Expr* e = newExpr(Op::StrInit, a);
        e->v.i = tok().i;
        ++pos;
        int64_t n = a->count;
        if (n < 0) {
            n = static_cast<int64_t>(s.size()) + 1;
            if (completed) *completed = arrayOf(a->base, n);
        } else if (static_cast<int64_t>(s.size()) > n) {
            failAt(kErrTooManyInit);
        }
        e->b = nullptr;
        e->c = nullptr;
        e->builtin = static_cast<int>(std::min<int64_t>(n, static_cast<int64_t>(s.size()) + 1));
        out.emplace_back(off, e);
    };
    // One element list, braced or (with elision) taken from the enclosing list.
    auto elements = [&](const Type* agg, bool braced) {
        if (agg->kind == kTArray) {
            const Type* el = agg->base;
            int64_t i = 0;
            while (tok().code != '}' && tok().code != kTokEnd) {
                if (agg->count >= 0 && i >= agg->count) {
                    if (braced) failAt(kErrTooManyInit);
                    break;
                }
                initializer(el, off + static_cast<uint32_t>(i * el->size), out, nullptr);
                ++i;
                if (tok().code != ',') break;
                if (!braced && (agg->count >= 0 && i >= agg->count)) break;
                if (!braced && peek().code == '}') break;
                ++pos;
            }
            if (agg->count < 0 && completed) *completed = arrayOf(el, i);
        } else {
            const Record* r = agg->rec;
            if (!r->complete) failAt(kErrUndefinedStruct);
            size_t i = 0;
            while (tok().code != '}' && tok().code != kTokEnd) {
                if (i >= r->members.size() || (r->isUnion && i >= 1)) {
                    if (braced) failAt(kErrTooManyInit);
                    break;
                }
                const size_t before = out.size();
                initializer(r->members[i].type, off + r->members[i].off, out, nullptr);
                if (r->members[i].bitWidth && out.size() == before + 1) {
                    // The value goes into its bits only: the wrapper carries where they lie.
                    Expr* w = newExpr(Op::Retype, out.back().second->type);
                    w->a = out.back().second;
                    w->bitOff = r->members[i].bitOff;
                    w->bitWidth = r->members[i].bitWidth;
                    out.back().second = w;
                }
                ++i;
                if (tok().code != ',') break;
                if (!braced && (i >= r->members.size() || r->isUnion)) break;
                if (!braced && peek().code == '}') break;
                ++pos;
            }
        }
    };
    if (isCharArray(t) && tok().code == kTokString) {
        stringInit(t);
    } else if (isCharArray(t) && tok().code == '{' && peek().code == kTokString && peek(2).code == '}') {
        ++pos;
        stringInit(t);
        ++pos;
    } else if (isAggregate(t)) {
        if (accept('{')) {
            elements(t, true);
            accept(',');
            expect('}', kErrInit);
        } else if (t->kind == kTStruct && !(tok().code == '{')) {
            // A struct may also be initialised from a struct value; otherwise elide braces.
            const size_t save = pos;
            Expr* e = assignExpr();
            if (e->type->kind == kTStruct && e->type->rec == t->rec) {
                out.emplace_back(off, e);
            } else {
                pos = save;
                elements(t, false);
            }
        } else {
            elements(t, false);
        }
    } else {
        const bool braced = accept('{');
        if (t->kind == kTVoid || t->kind == kTFunc) failAt(kErrInit);
        Expr* e = convert(rvalue(assignExpr()), t);
        out.emplace_back(off, e);
        if (braced) {
            accept(',');
            expect('}', kErrInit);
        }
    }
    --nesting;
}

// Stores the initial values of a global object at addr, at once.
static void initGlobal(Engine& en, uint32_t addr, const Type* t, const std::vector<std::pair<uint32_t, Expr*>>& inits) {
    (void)t;
    for (const auto& [off, e] : inits) {
        if (e->op == Op::StrInit) {
            const std::string& s = en.ts.strings[static_cast<size_t>(e->v.i)];
            std::memcpy(en.host(addr + off, static_cast<uint32_t>(e->builtin)), s.c_str(), static_cast<size_t>(e->builtin));
        } else if (e->type->kind == kTStruct) {
            const uint32_t src = static_cast<uint32_t>(en.eval(e).i);
            std::memmove(en.host(addr + off, e->type->size), en.host(src, e->type->size), e->type->size);
        } else {
            en.storeLv(e, en.host(addr + off, e->type->size), en.eval(e));
        }
    }
}

void Engine::scanGlobals() {
    scopes.emplace_back();
    while (tok().code != kTokEnd) {
        if (accept(';')) continue;
        curFile = tok().file;
        curLine = tok().line;
        int storage = 0;
        const Type* base = declSpecs(&storage);
        if (!base) {
            if (tok().code == kTokIdent && peek().code == '(') {
                base = tInt;  // an old-style definition without a return type
            } else {
                failAt(tok().code == ')' ? kErrUnexpectedRParen : tok().code == ']' ? kErrUnexpectedRBracket : kErrSyntax);
            }
        }
        if (accept(';')) continue;
        for (;;) {
            int sym = 0;
            std::vector<int> pnames;
            const size_t declPos = pos;
            const Type* t = declarator(base, &sym, &pnames);
            if (!sym) {
                pos = declPos;
                failAt(kErrMissingIdent);
            }
            if (t->kind == kTFunc && storage != kTokTypedef) {
                // Old-style parameter declarations between ")" and "{".
                if (t->noProto && !pnames.empty() && tok().code != '{' && tok().code != ';' && tok().code != ',') {
                    std::vector<const Type*> ps(pnames.size(), tInt);
                    while (tok().code != '{') {
                        const Type* pb = declSpecs(nullptr);
                        if (!pb) failAt(kErrDeclEnd);
                        for (;;) {
                            int ps2 = 0;
                            const Type* pt = decay(declarator(pb, &ps2, nullptr));
                            for (size_t k = 0; k < pnames.size(); ++k)
                                if (pnames[k] == ps2) ps[k] = pt->kind == kTFloat ? tDouble : pt;
                            if (!accept(',')) break;
                        }
                        expect(';', kErrMissingSemicolon);
                    }
                    t = funcType(t->base, ps, false, true);
                }
                Function* f = functionBySym(sym);
                Binding* old = lookup(sym);
                if (old && old->kind != BindKind::Func) failAt(kErrRedeclared);
                if (f->type && !sameType(f->type, t)) failAt(kErrRedeclared);
                if (!f->type || (f->type->noProto && !t->noProto)) f->type = t;
                scopes[0].names[sym] = Binding{BindKind::Func, f->type, 0, f};
                if (tok().code == '{') {
                    if (f->defined) failAt(kErrRedeclared);
                    if (f->libraryDecl) {
                        f->libraryDecl = false;
                        useFunctionRecord();
                    }
                    f->defined = true;
                    f->type = t;
                    f->paramSyms = pnames;
                    scopes[0].names[sym].type = t;
                    f->bodyPos = pos;
                    int depth = 0;
                    do {
                        if (tok().code == '{') ++depth;
                        else if (tok().code == '}') --depth;
                        else if (tok().code == kTokEnd) failAt(kErrMissingRBrace);
                        ++pos;
                    } while (depth > 0);
                    break;
                }
            } else if (storage == kTokTypedef) {
                Binding* old = lookup(sym);
                if (old && (old->kind != BindKind::Typedef || !sameType(old->type, t))) failAt(kErrTypedef);
                scopes[0].names[sym] = Binding{BindKind::Typedef, t, t == tInt && specEnumUnsigned};
            } else {
                if (t->kind == kTVoid) failAt(kErrSyntax);
                std::vector<std::pair<uint32_t, Expr*>> inits;
                Binding* old = lookup(sym);
                if (old && (old->kind != BindKind::GlobalVar || !sameType(old->type, t))) {
                    if (!(old->kind == BindKind::GlobalVar && t->kind == kTArray && old->type->kind == kTArray))
                        failAt(kErrAlreadyDeclared);
                }
                if (accept('=')) {
                    if (old && old->hasInit) failAt(kErrAlreadyDeclared);
                    constContext = true;
                    const Type* done = nullptr;
                    initializer(t, 0, inits, &done);
                    constContext = false;
                    if (done) t = done;
                }
                if (t->kind == kTStruct && !t->rec->complete) failAt(kErrUndefinedStruct);
                if (old && old->type->kind == kTArray && old->type->count < 0 && t->count >= 0) old = nullptr;
                uint32_t addr;
                if (old) {
                    addr = static_cast<uint32_t>(old->value);
                } else {
                    if (++liveVars > kMaxVariables) failAt(kErrTooManyVariables);
                    addr = allocGlobal(t->kind == kTArray && t->count < 0 ? 0 : t->size, t->align);
                }
                Binding b{BindKind::GlobalVar, t, addr};
                b.hasInit = (old && old->hasInit) || !inits.empty();
                scopes[0].names[sym] = b;
                initGlobal(*this, addr, t, inits);
            }
            if (accept(',')) continue;
            if (!accept(';')) failAt(tok().code == kTokEnd ? kErrMissingSemicolon : kErrDeclEnd);
            break;
        }
    }
}

// A declaration inside a function: storage in the frame (static ones in the data
// space), initialisers as statements.
void Engine::declareLocal(const Type* base, int storage, std::vector<Stmt*>& out) {
    if (accept(';')) return;
    for (;;) {
        int sym = 0;
        const Type* t = declarator(base, &sym, nullptr);
        if (!sym) failAt(kErrMissingIdent);
        if (scopes.back().names.count(sym)) failAt(kErrAlreadyDeclared);
        if (storage == kTokTypedef) {
            scopes.back().names[sym] = Binding{BindKind::Typedef, t, t == tInt && specEnumUnsigned};
        } else if (t->kind == kTFunc) {
            Function* f = functionBySym(sym);
            if (f->type && !sameType(f->type, t)) failAt(kErrRedeclared);
            if (!f->type) f->type = t;
            scopes.back().names[sym] = Binding{BindKind::Func, f->type, 0, f};
        } else if (storage == kTokExtern) {
            Binding* g = scopes[0].names.count(sym) ? &scopes[0].names[sym] : nullptr;
            if (!g || g->kind != BindKind::GlobalVar) failAt(kErrUnresolved);
            scopes.back().names[sym] = *g;
        } else {
            if (t->kind == kTVoid) failAt(kErrSyntax);
            std::vector<std::pair<uint32_t, Expr*>> inits;
            const bool isStatic = storage == kTokStatic;
            if (accept('=')) {
                const Type* done = nullptr;
                constContext = isStatic;
                initializer(t, 0, inits, &done);
                constContext = false;
                if (done) t = done;
            }
            if (t->kind == kTStruct && !t->rec->complete) failAt(kErrUndefinedStruct);
            if (t->kind == kTArray && t->count < 0) failAt(kErrInit);
            if (isStatic) {
                if (++liveVars > kMaxVariables) failAt(kErrTooManyVariables);
                const uint32_t addr = allocGlobal(t->size, t->align);
                scopes.back().names[sym] = Binding{BindKind::GlobalVar, t, addr};
                initGlobal(*this, addr, t, inits);
            } else {
                const uint32_t a = std::max<uint32_t>(t->align, 4);
                const uint32_t off = alignUp(frameOffset + kObjectGap, a);
                frameOffset = off + t->size;
                if (frameOffset > kDataSpaceSize) failAt(kErrDataSpace);
                compiling->locals.push_back(MemObject{off, off + t->size});
                ++compiling->nVars;
                scopes.back().names[sym] = Binding{BindKind::LocalVar, t, off};
                if (!inits.empty()) {
                    if (isAggregate(t)) {
                        Stmt* z = newStmt(SOp::Zero);
                        z->id = off;
                        z->size = t->size;
                        out.push_back(z);
                    }
                    for (const auto& [o, e] : inits) {
                        Stmt* s = newStmt(SOp::Expr);
                        Expr* target = newExpr(Op::LVar, e->op == Op::StrInit ? t : e->type);
                        target->v.i = off + o;
                        target->bitOff = e->bitOff;
                        target->bitWidth = e->bitWidth;
                        if (e->op == Op::StrInit) {
                            Expr* c = newExpr(Op::StrInit, t);
                            c->a = target;
                            c->v.i = e->v.i;
                            c->builtin = e->builtin;
                            s->e = c;
                        } else if (e->type->kind == kTStruct) {
                            Expr* c = newExpr(Op::CopyStruct, e->type);
                            c->a = target;
                            c->b = e;
                            s->e = c;
                        } else {
                            Expr* c = newExpr(Op::Assign, e->type);
                            c->a = target;
                            c->b = e;
                            s->e = c;
                        }
                        out.push_back(s);
                    }
                }
            }
        }
        if (accept(',')) continue;
        if (!accept(';')) failAt(kErrDeclEnd);
        break;
    }
}

void Engine::compileFunction(Function* f) {
    const size_t savePos = pos;
    Function* saveFn = compiling;
    const uint32_t saveOff = frameOffset;
    compiling = f;
    frameOffset = 0;
    labelIds.clear();
    gotoTargets.clear();
    labelsDefined.clear();
    scopes.emplace_back();
    const Type* ft = f->type;
    f->paramOffs.clear();
    for (size_t i = 0; i < ft->params.size(); ++i) {
        const Type* pt = ft->params[i];
        const uint32_t off = frameOffset;
        frameOffset += alignUp(pt->size, 4);
        f->paramOffs.push_back(off);
        ++f->nVars;
        const int sym = i < f->paramSyms.size() ? f->paramSyms[i] : 0;
        if (sym) {
            if (scopes.back().names.count(sym)) failAt(kErrAlreadyDeclared);
            scopes.back().names[sym] = Binding{BindKind::LocalVar, pt, off};
        }
    }
    f->paramBytes = frameOffset;
    pos = f->bodyPos;
    f->body = block(false);
    collectKeys(f->body);
    for (int target : gotoTargets)
        if (std::find(labelsDefined.begin(), labelsDefined.end(), target) == labelsDefined.end()) {
            pos = f->bodyPos;
            failAt(kErrUnknownLabel);
        }
    f->frameSize = alignUp(frameOffset + kObjectGap, 8);  // variable arguments follow after a gap
    f->compiled = true;
    f->code = generateCode(*this, f);
    scopes.pop_back();
    compiling = saveFn;
    frameOffset = saveOff;
    pos = savePos;
}

}  // namespace zol
