// The Print command and the printing behind the preview's Print button: the system's
// Print dialog, then the pages on the printer, or into a PDF file through the printing
// layer's own writer, with a progress dialog that can cancel.
#pragma once

class QWidget;

namespace zol {

struct Document;

// Returns false when nothing was printed (cancelled, refused, or failed with a message).
bool printDocument(QWidget* parent, Document& doc);

}  // namespace zol
