// How an editing command ends, shared by the typing and clipboard families.
#pragma once

#include "engine/commands/messages.h"
#include "engine/document.h"
#include "engine/selection.h"
#include "engine/shell.h"

namespace zol {

// Edits fail only when a line would outgrow its capacity; then the selection stays.
inline int finishEdit(Document& doc, bool ok) {
    if (!ok) {
        shell().statusMessage(kMsgLineTooLong);
        return 0;
    }
    clearSelection(doc);
    doc.desiredCol = -1;
    return 1;
}

}  // namespace zol
