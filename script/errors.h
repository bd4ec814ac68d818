// The numbered messages of the script engine (preprocessor, lexer, interpreter and
// library) and the fixed capacities that reach them. The numbers are an interface:
// row n of the table is error n.
#pragma once
#include <string>

namespace zol {

enum ScriptErr : int {
    kErrLineTooLong = 1, kErrEofInComment = 2, kErrUnterminatedString = 3, kErrTooManyDefines = 4,
    kErrDefine = 5, kErrTooManyMacroParams = 6, kErrMacroRedefined = 7, kErrMacroArgs = 8,
    kErrUnknownDirective = 9, kErrIncludeOpen = 10, kErrIncludeDepth = 11, kErrIfExpr = 12,
    kErrElse = 13, kErrElif = 14, kErrEndif = 15, kErrIfDepth = 16, kErrIfEof = 17, kErrErrorDirective = 18,
    kErrFileTooLarge = 19, kErrSyntax = 20, kErrMissingLBrace = 21, kErrMissingRBrace = 22,
    kErrMissingLParen = 23, kErrIfLParen = 24, kErrWhileLParen = 25, kErrDoLParen = 26, kErrForLParen = 27,
    kErrSwitchLParen = 28, kErrMissingRParen = 29, kErrIfRParen = 30, kErrWhileRParen = 31,
    kErrDoRParen = 32, kErrForRParen = 33, kErrSwitchRParen = 34, kErrMissingRBracket = 35,
    kErrCaseColon = 36, kErrCondColon = 37, kErrMissingSemicolon = 38, kErrUnexpectedRParen = 39,
    kErrUnexpectedRBracket = 40, kErrNotPointer = 41, kErrNotAddress = 42, kErrSubscript = 43,
    kErrNotStructPointer = 44, kErrUnknownIdent = 45, kErrUnknownSymbol = 46, kErrDeclEnd = 47,
    kErrNeedLvalue = 48, kErrAlreadyDeclared = 49, kErrMisplacedDecl = 50, kErrInit = 51,
    kErrTooManyInit = 52, kErrTooManyDims = 53, kErrIndirection = 54, kErrNegativeDim = 55,
    kErrUndefinedStruct = 56, kErrNotStruct = 57, kErrNotMember = 58, kErrIntegerRequired = 59,
    kErrNotNumeric = 60, kErrIncompatible = 61, kErrTypedef = 62, kErrEnum = 63, kErrExpression = 64,
    kErrConstantRequired = 65, kErrIllegalPointer = 66, kErrVoidPointer = 67, kErrPointerCompare = 68,
    kErrRegisterAddress = 69, kErrPointerTypes = 70, kErrMustReturn = 71, kErrVoidReturn = 72,
    kErrRedeclared = 73, kErrCallUndefined = 74, kErrUndefinedFunction = 75, kErrBadCall = 76,
    kErrNoMain = 77, kErrFunctionName = 78, kErrLongjmp = 79, kErrUnresolved = 80, kErrArgMismatch = 81,
    kErrConstArg = 82, kErrComma = 83, kErrMissingIdent = 84, kErrBreak = 85, kErrContinue = 86,
    kErrMissingWhile = 87, kErrUnknownLabel = 88, kErrDivZero = 89, kErrFloat = 90,
    kErrStackUnderflow = 91, kErrStackOverflow = 92, kErrTooManyVariables = 93, kErrFunctionSpace = 94,
    kErrDataSpace = 95, kErrSymbolTable = 96, kErrOutOfMemory = 97, kErrTerminated = 98, kErrUnknown = 99,
};

// Capacities, each reported by the error named beside it.
constexpr int kPpLineMax = 4096;             // kErrLineTooLong
constexpr int kPpMaxMacros = 8192;           // kErrTooManyDefines
constexpr int kPpMaxMacroParams = 64;        // kErrTooManyMacroParams
constexpr int kPpMaxIfLevels = 30;           // kErrIfDepth
constexpr int kPpMaxIfNesting = 200;         // kErrIfExpr: parentheses and unary operators of #if
constexpr int kPpMaxIncludeDepth = 12;       // kErrIncludeDepth
constexpr int kExpandedTextSize = 131072;    // kErrFileTooLarge
constexpr int kTokenBufferSize = 65536;      // kErrFileTooLarge (bytes the token stream would take)
constexpr int kStackCells = 512;             // kErrStackOverflow on the 513th cell
constexpr int kMaxVariables = 1024;          // kErrTooManyVariables
constexpr int kDataSpaceSize = 32768;        // kErrDataSpace
constexpr int kMaxFunctions = 384;           // kErrFunctionSpace
constexpr int kMaxSymbols = 2048;            // kErrSymbolTable
constexpr int kMaxDimensions = 8;            // kErrTooManyDims
constexpr int kMaxNesting = 600;             // kErrStackOverflow: parser nesting of ( { and operators
constexpr int kMaxExprDepth = 2000;          // kErrStackOverflow: operators applied one to the other
constexpr unsigned kMaxHostStack = 4u << 20; // kErrStackOverflow: machine stack that script calls may use

// The other texts the script library shows: system("pause") on the console, and
// printf's text for a null string; and what start-up says of a folder named like a
// start-up script ("%s" is its path).
inline constexpr const char* kScriptPausePrompt = "Press any key to continue . . .\n";
inline constexpr const char* kScriptNullString = "(null)";
inline constexpr const char* kStartUpScriptIsFolder = "%s is a folder, not a start-up script; it was skipped.";

// The message of error n (1..99); empty for any other number.
const char* scriptErrorMessage(int n);

// The one way an error leaves any stage of a run: the error routine throws this and the
// start of the run catches it.
struct ScriptFault {
    int code;
    int file;
    int line;
};
[[noreturn]] void raiseScriptError(int code, int file, int line);

}  // namespace zol
