// Handlers of the engine's own commands, one file per family under engine/commands/,
// declared from the command list's handler column.
#pragma once

#include "engine/command_table.h"

namespace zol {

#define ZOL_COMMAND(name, id, kind, group, text, owner, handler, description) ZOL_HANDLER_OF_##owner(handler)
#define ZOL_HANDLER_OF_Engine(handler) int handler(Document& doc, const CommandCall& call);
#define ZOL_HANDLER_OF_Executor(handler)
#define ZOL_HANDLER_OF_Search(handler)
#define ZOL_HANDLER_OF_Syntax(handler)
#define ZOL_HANDLER_OF_Files(handler)
#define ZOL_HANDLER_OF_Tools(handler)
#define ZOL_HANDLER_OF_Proofing(handler)
#define ZOL_HANDLER_OF_Proofing(handler)
#define ZOL_HANDLER_OF_PlugIn(handler)
#define ZOL_HANDLER_OF_Frame(handler)
#define ZOL_HANDLER_OF_Inert(handler)
#include "engine/commands.def"
#undef ZOL_HANDLER_OF_Engine
#undef ZOL_HANDLER_OF_Executor
#undef ZOL_HANDLER_OF_Search
#undef ZOL_HANDLER_OF_Syntax
#undef ZOL_HANDLER_OF_Files
#undef ZOL_HANDLER_OF_Tools
#undef ZOL_HANDLER_OF_Proofing
#undef ZOL_HANDLER_OF_PlugIn
#undef ZOL_HANDLER_OF_Frame
#undef ZOL_HANDLER_OF_Inert

}  // namespace zol
