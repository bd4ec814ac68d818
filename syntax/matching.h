// Finding the partner of a bracket, a C comment delimiter, a conditional-compilation
// directive or an HTML tag. These work on the raw text: strings and comments are not
// skipped. Each returns where the caret goes, or nothing when there is no partner.
#pragma once
#include <cstdint>
#include <optional>

#include "engine/document.h"

namespace zol {

// ( ) [ ] { } < > pair by depth; "/*" and "*/" find the nearest partner (no nesting).
std::optional<Pos> matchPair(const Document& doc, Pos at);
// From an #if.., #else or #elif line: the next #else, #elif or #endif of the same level.
std::optional<int32_t> matchPreprocNext(const Document& doc, int32_t line);
// From an #endif, #else or #elif line: the previous #else, #elif or #if.. of the same level.
std::optional<int32_t> matchPreprocPrev(const Document& doc, int32_t line);
// From inside a tag: the "<" of its closing (or, from a closing tag, opening) partner.
std::optional<Pos> matchHtmlTag(const Document& doc, Pos at);

}  // namespace zol
