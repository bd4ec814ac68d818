// Token codes of the script language: a single-character operator is its own
// character; keywords and two-character operators share the byte range of the lower
// case letters so that every token fits in one byte. A compound assignment is its
// operator's code with bit 7 set.
#pragma once
#include <cstdint>

namespace zol {

enum Tok : uint8_t {
    kTokChar = 49, kTokInt = 50, kTokStatic = 51, kTokLong = 52, kTokAuto = 53, kTokExtern = 54,
    kTokRegister = 55, kTokFloat = 56, kTokDouble = 57, kTokVolatile = 66, kTokEnum = 69, kTokGoto = 71,
    kTokSigned = 75, kTokShl = 76, kTokConst = 78, kTokShr = 82, kTokShort = 84, kTokVoid = 86,
    kTokDo = 87, kTokArrow = 95, kTokAndAnd = 97, kTokBreak = 98, kTokCase = 99, kTokDefault = 100,
    kTokElse = 101, kTokFor = 102, kTokGe = 103, kTokSwitch = 104, kTokIf = 105, kTokUnsigned = 106,
    kTokDec = 109, kTokNe = 110, kTokOrOr = 111, kTokInc = 112, kTokEq = 113, kTokReturn = 114,
    kTokTypedef = 116, kTokUnion = 117, kTokStruct = 118, kTokWhile = 119, kTokContinue = 120,
    kTokSizeof = 122, kTokLe = 108,
    // Operand tokens, in upper-case letters no keyword uses.
    kTokIdent = 'Y', kTokNumber = 'I', kTokReal = 'F', kTokString = 'S', kTokEllipsis = 'D', kTokEnd = 'Z',
};
constexpr uint8_t kTokAssignBit = 128;

struct KeywordCode {
    const char* name;
    uint8_t code;
};
// Sorted by name; searched by name.
inline constexpr KeywordCode kKeywords[] = {
    {"auto", kTokAuto},         {"break", kTokBreak},       {"case", kTokCase},        {"char", kTokChar},
    {"const", kTokConst},       {"continue", kTokContinue}, {"default", kTokDefault},  {"do", kTokDo},
    {"double", kTokDouble},     {"else", kTokElse},         {"enum", kTokEnum},        {"extern", kTokExtern},
    {"float", kTokFloat},       {"for", kTokFor},           {"goto", kTokGoto},        {"if", kTokIf},
    {"int", kTokInt},           {"long", kTokLong},         {"register", kTokRegister}, {"return", kTokReturn},
    {"short", kTokShort},       {"signed", kTokSigned},     {"sizeof", kTokSizeof},    {"static", kTokStatic},
    {"struct", kTokStruct},     {"switch", kTokSwitch},     {"typedef", kTokTypedef},  {"union", kTokUnion},
    {"unsigned", kTokUnsigned}, {"void", kTokVoid},         {"volatile", kTokVolatile}, {"while", kTokWhile},
};

}  // namespace zol
