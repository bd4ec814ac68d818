// The texts that the built-in list writes into files of the source tree: the prototype
// block of each shipped script header (data/script/include) and the built-in reference
// in docs/scripts.md. A test keeps those files equal to these texts; the build target
// script_reference rewrites them.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// The marker lines around a generated block; what lies between them is replaced whole.
struct GeneratedBlock {
    std::string_view begin, end;
};
inline constexpr GeneratedBlock kHeaderBlock{"/* Built-in functions: generated from script/builtins.def */",
                                             "/* End of built-in functions */"};
inline constexpr GeneratedBlock kReferenceBlock{"<!-- Built-in reference: generated from script/builtins.def -->",
                                                "<!-- End of built-in reference -->"};

// The shipped headers that declare built-ins, sorted by name ("editor/doc.h", "stdio.h").
std::vector<std::string> builtinHeaders();
// The lines between a header's markers: one prototype per built-in it declares.
std::string builtinPrototypes(std::string_view header);
// The reference: every built-in by header, with its number and prototype.
std::string builtinReference();
// What lies between block's markers in text; false when text lacks them.
bool generatedBlockOf(const std::string& text, const GeneratedBlock& block, std::string* body);
// Puts body between block's markers in text; false when text lacks them.
bool replaceGeneratedBlock(std::string& text, const GeneratedBlock& block, const std::string& body);

}  // namespace zol
