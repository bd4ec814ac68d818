// Saving a document as the user and the outside interfaces ask for it: under its own
// name with the backup settings, or under a new name. Listeners hear about the save
// before (and may stop it) and after.
#pragma once
#include <string>

#include "engine/document.h"

namespace zol {

// Both ways clear the document's undo and redo once it is written, unless
// "UndoAfterSave" keeps them.
//
// Saves under the document's own file name with the "BackupFiles" settings. A document
// without a file is not saved (false): the caller asks for a name first. False also
// when a listener stops the save or writing fails (the user is told why).
bool saveDocument(Document& doc);

// Saves under path in the format numbered formatNumber (any other number: the
// document's own), which become the document's file name and format once the write
// succeeded.
bool saveDocumentAs(Document& doc, const std::string& path, int formatNumber);

// Gives the document a new file name (made absolute) without touching the disk.
void renameDocument(Document& doc, const std::string& path);

}  // namespace zol
