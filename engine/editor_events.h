// Editor events: the moments at which outside code (plug-ins) hears about documents and
// the application. The numbers are the ones plug-ins receive; senders call sendEvent and
// whoever listens (at most one listener, the plug-in manager) decides who hears them.
#pragma once
#include <cstdint>

namespace zol {

struct Document;

enum EditorEvent : int {
    kEventFrameGroupOpen = 1,     // first of a group of main-window events
    kEventFrameGroupNext = 2,
    kEventFrameGroupEnd = 3,      // last of every group
    kEventFrameClosing = 4,       // always followed by 3
    kEventToolBar = 10,
    kEventStarted = 50,           // once after start-up, or to a module loaded later
    kEventDocumentCreated = 100,  // new, recovered or output document
    kEventDocumentOpened = 101,   // opened from a file
    kEventBeforeSave = 105,       // non-zero answer stops the save
    kEventSaved = 106,
    kEventFileNamed = 107,        // file name changed or a file was read in; p3 is the name
    kEventBeforeClose = 108,      // non-zero answer keeps the document open
    kEventDestroying = 109,
    kEventActivated = 120,
    kEventDeactivated = 121,
    kEventViewNotify = 125,       // (document, ViewNotification, 0); non-zero answer vetoes
};

// What a document window is about to do when it sends kEventViewNotify.
enum ViewNotification : int {
    kViewContextMenu = 1,  // open its context menu
    kViewDoubleClick = 2,  // select the word double-clicked
};

// With stopOnNonZero the first non-zero answer ends the round and is returned;
// otherwise the last listener's answer is.
using EventListener = intptr_t (*)(int event, intptr_t p1, intptr_t p2, intptr_t p3, bool stopOnNonZero);

// Installs the listener (null removes it). Without one every event answers 0.
void setEventListener(EventListener listener);
intptr_t sendEvent(int event, intptr_t p1 = 0, intptr_t p2 = 0, intptr_t p3 = 0, bool stopOnNonZero = false);

// A document event: p1 is the document's handle.
intptr_t sendDocumentEvent(int event, Document& doc, intptr_t p3 = 0, bool stopOnNonZero = false);
// The events that may be refused; true when a listener vetoed.
inline bool vetoed(int event, Document& doc) { return sendDocumentEvent(event, doc, 0, true) != 0; }

}  // namespace zol
