// The built-in list and what it generates: the name table the compiler searches, the
// argument letters read from the prototypes, the prototypes of the shipped headers,
// the reference in docs/scripts.md, and the dispatcher with its registrations.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "script/builtin_proto.h"
#include "script/builtin_reference.h"
#include "script/builtin_table.h"
#include "script/builtins.h"
#include "script/errors.h"
#include "script/runner.h"

namespace zol {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = ZOLDER_SOURCE_DIR;
const fs::path kIncludes = kSource / "data" / "script" / "include";
constexpr const char* kRegenerate = "rewrite it with: cmake --build build --target script_reference";

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::string letters(std::string_view prototype) { return builtinSignature(prototype).data(); }

TEST(ScriptBuiltinList, PrototypesReadAsTheCompilerConvertsArguments) {
    EXPECT_EQ(letters("unsigned long strtoul(const char *s, char **end, int base)"), "Lcpi");
    EXPECT_EQ(letters("void f(void)"), "v");
    EXPECT_EQ(letters("int f()"), "i");
    EXPECT_EQ(letters("int printf(const char *format, ...)"), "ic.");
    EXPECT_EQ(letters("double f(float x, short s, unsigned char c, long n)"), "ddiil");
    EXPECT_EQ(letters("struct tm *f(const time_t *t, size_t n, unsigned u)"), "ppuu");
    EXPECT_EQ(letters("HDOC f(LPCSTR s, DWORD d, BOOL b, HWND)"), "pcLip");
    // What cannot be read is refused, not guessed.
    for (const char* bad : {"int f(mystery x)", "int f", "f(int x)", "int f(int x, void)", "int f(..., int x)",
                            "int f(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j, int k)"})
        EXPECT_FALSE(validBuiltinSignature(builtinSignature(bad))) << bad;
}

// The letters the compiler uses for a typedef name must be those of the type the
// shipped headers give it.
TEST(ScriptBuiltinList, TypedefLettersAgreeWithTheShippedHeaders) {
    std::string all;
    for (const auto& f : fs::recursive_directory_iterator(kIncludes))
        if (f.is_regular_file()) all += slurp(f.path());
    for (const BuiltinTypedef& t : kBuiltinTypedefs) {
        const std::regex line("typedef ([^;]+?)\\s*\\b" + std::string(t.name) + ";");
        std::smatch m;
        ASSERT_TRUE(std::regex_search(all, m, line)) << t.name << " is typedef'd in no shipped header";
        EXPECT_EQ(builtinTypeLetter(m[1].str()), t.letter) << t.name << " is " << m[1].str();
    }
}

TEST(ScriptBuiltinList, ShippedHeadersAndTheReferenceAreWhatTheListGenerates) {
    for (const std::string& h : builtinHeaders()) {
        std::string body;
        ASSERT_TRUE(generatedBlockOf(slurp(kIncludes / h), kHeaderBlock, &body)) << h << " lacks its markers";
        EXPECT_EQ(body, builtinPrototypes(h)) << h << " is out of date; " << kRegenerate;
    }
    std::string body;
    ASSERT_TRUE(generatedBlockOf(slurp(kSource / "docs" / "scripts.md"), kReferenceBlock, &body));
    EXPECT_EQ(body, builtinReference()) << "docs/scripts.md is out of date; " << kRegenerate;
}

// Read back from the files themselves: each name has its prototype in its header and
// its row in the reference, and every prototype a shipped header declares is a built-in
// that the compiler's search finds by its exact name.
TEST(ScriptBuiltinList, HeadersTheReferenceAndTheTableAgree) {
    const std::string docs = slurp(kSource / "docs" / "scripts.md");
    for (const BuiltinEntry& e : builtinTable()) {
        const std::string proto(e.prototype);
        EXPECT_NE(slurp(kIncludes / std::string(e.header)).find("\n" + proto + ";\n"), std::string::npos) << proto;
        EXPECT_NE(docs.find("| " + std::to_string(e.number) + " | `" + proto + "`"), std::string::npos) << proto;
    }
    const std::regex declaration("^[A-Za-z_][A-Za-z_0-9 ]*[ *]([A-Za-z_][A-Za-z_0-9]*)\\((.*)\\);$");
    for (const auto& f : fs::recursive_directory_iterator(kIncludes)) {
        if (!f.is_regular_file()) continue;
        std::istringstream in(slurp(f.path()));
        std::string line;
        std::smatch m;
        while (std::getline(in, line)) {
            if (line.rfind("typedef", 0) == 0 || !std::regex_match(line, m, declaration)) continue;
            const BuiltinEntry* e = findBuiltin(m[1].str());
            ASSERT_NE(e, nullptr) << f.path() << " declares " << line;
            EXPECT_EQ(line, std::string(e->prototype) + ";");
        }
    }
    for (const char* unknown : {"ATAN", "atan3", ""}) EXPECT_EQ(findBuiltin(unknown), nullptr) << unknown;
}

int gCalledAs = 0;
Val stringLength(BArgs& a) {
    gCalledAs = a.num;
    return intVal(static_cast<int64_t>(a.s(0).size()));
}

ScriptRunResult runText(const std::string& text, bool sealed = false) {
    ScriptRunOptions opts;
    opts.sealed = sealed;
    return runScriptText("/nowhere/t.c", text, {"t.c"}, opts);
}

// A layer above the engine gives a declared built-in its implementation; it reads the
// arguments through the engine's checked access, and taking it away makes the call
// undefined again.
TEST(ScriptBuiltinDispatch, ARegisteredImplementationServesTheDeclaredBuiltin) {
    const BuiltinEntry* strLen = findBuiltin("Zol_StrLen");
    ASSERT_NE(strLen, nullptr);
    ASSERT_FALSE(strLen->implemented);
    const std::string script = "int main(void) { char b[8]; strcpy(b, \"abcd\"); return Zol_StrLen(b) * 10 + Zol_StrLen(\"xy\"); }";
    EXPECT_EQ(runText(script).error, kErrCallUndefined);

    ASSERT_TRUE(registerBuiltin(strLen->number, stringLength));
    EXPECT_TRUE(builtinCallable(strLen->number));
    EXPECT_EQ(runText(script).value, 42);
    EXPECT_EQ(gCalledAs, strLen->number);
    EXPECT_EQ(runText("int main(void) { return Zol_StrLen(0); }").error, kErrNotAddress);

    ASSERT_TRUE(registerBuiltin(strLen->number, nullptr));
    const ScriptRunResult gone = runText(script);
    EXPECT_EQ(gone.error, kErrCallUndefined);
    EXPECT_EQ(gone.message, "t.c Line 1: Call to undefined function");
}

TEST(ScriptBuiltinDispatch, RegistrationCannotReplaceTheLibraryOrInventANumber) {
    EXPECT_FALSE(registerBuiltin(findBuiltin("printf")->number, stringLength));
    EXPECT_FALSE(registerBuiltin(findBuiltin("atan2")->number, stringLength));
    auto named = [](int n) {
        for (const BuiltinEntry& e : builtinTable())
            if (e.number == n) return true;
        return false;
    };
    int unnamed = 1;
    while (named(unnamed)) ++unnamed;
    EXPECT_FALSE(registerBuiltin(unnamed, stringLength)) << unnamed;
    EXPECT_FALSE(registerBuiltin(0, stringLength));
    EXPECT_FALSE(registerBuiltin(-1, stringLength));
    EXPECT_FALSE(registerBuiltin(100000, stringLength));
    EXPECT_EQ(runText("int main(void) { return printf(\"\"); }").value, 0);
}

// A sealed run refuses what reaches the system: NULL for a pointer, -1 otherwise; the
// rest of the library works as ever.
TEST(ScriptBuiltinDispatch, ASealedRunRefusesWhatReachesTheSystem) {
    const std::string existing = (kSource / "CMakeLists.txt").string();
    const std::string script =
        "int main(void) {\n"
        "  if (fopen(\"" + existing + "\", \"r\") || tmpfile() || getenv(\"PATH\")) return 1;\n"
        "  if (access(\"" + existing + "\", 0) != -1 || system(\"true\") != -1) return 2;\n"
        "  return strlen(\"abc\");\n"
        "}\n";
    const ScriptRunResult sealed = runText(script, true);
    EXPECT_EQ(sealed.error, 0) << sealed.message;
    EXPECT_EQ(sealed.value, 3);
    EXPECT_EQ(runText(script).value, 1);
}

}  // namespace
}  // namespace zol
