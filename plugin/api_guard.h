// The edge of the exported interface: every exported function runs its body through
// guarded(), so nothing thrown ever reaches a plug-in, and turns handles and buffers
// into engine types here.
#pragma once
#include <cstring>
#include <string_view>

#include "engine/document.h"
#include "plugin/zolder_api.h"

namespace zol {

template <class R, class F>
R guarded(R failure, F&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

template <class F>
void guardedVoid(F&& body) noexcept {
    try {
        body();
    } catch (...) {
    }
}

// The document behind a handle; null for a null handle or one that names no open
// document (a stale handle must not reach the engine).
Document* docOf(HDOC h);
inline HDOC handleOf(Document* doc) { return doc; }

// A per-document flag as the Is functions answer it: 0 for no document.
inline BOOL docFlag(HDOC h, bool Document::*member) {
    const Document* doc = docOf(h);
    return doc && doc->*member;
}

// Copies text into a caller's buffer of size bytes, cut to size - 1 and terminated.
inline void copyOut(char* buffer, int size, std::string_view text) {
    if (!buffer || size < 1) return;
    const size_t n = std::min(text.size(), static_cast<size_t>(size - 1));
    std::memcpy(buffer, text.data(), n);
    buffer[n] = '\0';
}

// A copy the caller frees with Zol_MemFree; null when memory runs out.
char* allocCopy(std::string_view text);

}  // namespace zol
