// Auto-save side files and their recovery after an abnormal end. A modified document
// is written now and then to "~zolNNNN.asd" in the home folder, never to its own file;
// the side file goes away when the document is saved or closed normally, so side files
// found at start-up are what a crashed or killed session left behind.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "engine/document.h"

namespace zol {

constexpr const char* kAutoSavePattern = "~zol????.asd";
// Random names drawn before one auto-save of a document gives up until next time.
constexpr int kAutoSaveNameDraws = 1000;

// Writes a modified document to its side file in folder, choosing a fresh name the
// first time. Never changes the modified flag or the text. Fails silently: the name is
// then forgotten (and a half-written file removed), so the next try starts afresh.
bool autoSaveDocument(Document& doc, const std::string& folder);
// The same for several documents at once, written together so that the disk flushes
// them in one go; returns how many side files were written.
int autoSaveDocuments(const std::vector<Document*>& docs, const std::string& folder);
// Deletes the document's side file, if it has one, and forgets its name.
void removeAutoSaveFile(Document& doc);

// "Recover1" .. "Recover9", then "Recov10" onwards.
std::string recoveredName(int n);

// Brings back every side file of folder as a new, modified document named by
// recoveredName, then deletes the side file. create makes an empty document in the
// application; discard drops one whose side file could not be read (that side file
// stays). Tells the user when anything came back. Returns the number recovered.
int recoverAutoSaved(const std::string& folder, const std::function<Document*()>& create,
                     const std::function<void(Document*)>& discard);

}  // namespace zol
