// The editor family of script built-ins: the exported Zol_ functions, reached by
// scripts through the marshalling of plugin/script_marshal.h.
#pragma once

namespace zol {

// Gives every built-in that script/builtins.def marks kBuiltinEditor its exported
// function. Called once at start-up, before any plug-in or script runs.
void registerScriptBindings();

}  // namespace zol
