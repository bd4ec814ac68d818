// The open documents as the layers below the application see them. The application
// owns the documents and implements this once for both front ends; scripts and
// plug-ins reach the list only through it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace zol {

struct Document;

class DocumentList {
public:
    virtual ~DocumentList() = default;
    virtual size_t count() const = 0;
    // Documents in window order; null past the end.
    virtual Document* at(size_t index) const = 0;
    virtual Document* active() const = 0;
    virtual void activate(Document* doc) = 0;
    // A new empty document, made active; null when it cannot be made.
    virtual Document* create() = 0;
    // Activates the document that has the file open, else reads it into a new one;
    // null (the reason already told) when it cannot be read.
    virtual Document* open(const std::string& path) = 0;
    // Closes with the save prompt; false when the user or a listener kept it open.
    virtual bool close(Document* doc) = 0;
    // Closes without asking anything.
    virtual void destroy(Document* doc) = 0;
    // The main window, 0 while there is none (headless).
    virtual intptr_t mainWindow() const { return 0; }
};

// Null until the application installs its list.
DocumentList* documentList();
void setDocumentList(DocumentList* list);

// Whether doc is one of the open documents (false for null).
bool isOpenDocument(const Document* doc);

}  // namespace zol
