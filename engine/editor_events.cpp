#include "engine/editor_events.h"

namespace zol {
namespace {
EventListener g_listener = nullptr;
}

void setEventListener(EventListener listener) { g_listener = listener; }

intptr_t sendEvent(int event, intptr_t p1, intptr_t p2, intptr_t p3, bool stopOnNonZero) {
    return g_listener ? g_listener(event, p1, p2, p3, stopOnNonZero) : 0;
}

intptr_t sendDocumentEvent(int event, Document& doc, intptr_t p3, bool stopOnNonZero) {
    return sendEvent(event, reinterpret_cast<intptr_t>(&doc), 0, p3, stopOnNonZero);
}

}  // namespace zol
