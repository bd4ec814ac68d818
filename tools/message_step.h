// Stepping through the compiler and tool messages of an output document (the commands
// NextCompilerError and PrevCompilerError), and the message action: going to the place
// in a file that a message names.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/message_parse.h"

namespace zol {

struct Document;

// The next (previous) line of doc from its message index on that is a message: the
// cursor goes to that line and the message action runs. Nothing in a document that is
// not an output document. False when no message was found.
bool nextMessage(Document& doc);
bool prevMessage(Document& doc);
// The message on one line of an output document (a double click, Enter): it becomes
// the message index. False when the line is no message.
bool messageAt(Document& doc, int32_t line);

// The message action: opens (or activates) the file the message names and puts the
// cursor on its line and column (column 0: the line's start). A relative name is
// looked for in the folder the tool ran in, the folder of the document that ran it
// and the "IncludeDirs" folders, in that order. A missing file is told in the status
// bar; false then. Once there, the message itself shows in the status bar.
bool openMessageTarget(const Document& output, const MessageLocation& where, std::string_view message);
// Where the message action finds name; empty when nowhere.
std::string findMessageFile(const Document& output, std::string_view name);

// Installs the handlers of NextCompilerError and PrevCompilerError. Given from a
// document that is no output document, they walk the latest output document, so that
// the key that stepped to one message steps on from the source it opened.
void installMessageCommands();

}  // namespace zol
