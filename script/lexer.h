// Turns the expanded text into the token stream the interpreter reads: one code per
// token (script/tokens.h), identifiers as symbol numbers, constants with their values,
// and the file and line each token came from.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace zol {

// Integer constant kinds, in the order of the usual C ranks.
enum NumKind : uint8_t { kNumInt, kNumUInt, kNumLong, kNumULong, kNumLLong, kNumULLong, kNumFloat, kNumDouble };

struct Token {
    uint8_t code = 0;
    uint8_t kind = 0;   // NumKind of a constant
    uint16_t file = 0;
    int32_t line = 0;
    int64_t i = 0;      // integer value, symbol number, or string index
    double d = 0;       // value of a floating constant
};

// Identifier names sorted by name; numbers are given 1, 2, 3 ... in order of first appearance.
struct SymbolTable {
    std::vector<std::string> names;  // index = symbol number - 1
    // sorted view: (name, number) pairs, kept sorted by name; never above kMaxSymbols entries
    std::vector<std::pair<std::string, int>> sorted;
    // The number of name, entering it when new; 0 when the table is full.
    int intern(const std::string& name);
    int find(const std::string& name) const;
};

struct TokenStream {
    std::vector<Token> toks;          // ends with a kTokEnd token
    std::vector<std::string> strings; // string constants, by index
    SymbolTable symbols;
};

// Tokenizes text (with its line markers); errors leave through raiseScriptError.
void tokenize(const std::string& text, TokenStream& out);

}  // namespace zol
