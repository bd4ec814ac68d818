// Questions about documents and their files: a file changed by another program, and
// unsaved changes of a document being left.
#pragma once
#include <functional>
#include <vector>

#include "engine/document.h"
#include "engine/shell.h"

namespace zol {

// Reloads a document from its file; true on success.
using ReloadFn = std::function<bool(Document&)>;

// With "CheckFileTime" on, asks for every document whose file changed on disk since it
// was last read or written whether to reload it (a modified document with the warning
// that its changes are lost). Yes reloads through reload, or with readFile when none is
// given. Either answer takes the file's new time, so each change is asked about once.
// Documents without a file, whose file is gone, or whose time was never known are not
// asked about. Returns the number of documents reloaded.
int checkFileTime(const std::vector<Document*>& docs, const ReloadFn& reload = {});

// Asks whether to save a modified document that is being left; an unmodified one
// needs no answer and gets No without a question.
Answer askSaveChanges(const Document& doc);

}  // namespace zol
