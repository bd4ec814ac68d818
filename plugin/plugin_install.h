// The modules of the home's "PlugIns" folder as the Add/Remove dialog handles them:
// installing one from elsewhere (copied in whole or not at all, then loaded), loading,
// unloading and removing. Each answers with the message to show, empty when it went
// through; on failure everything is as it was unless the message says otherwise.
// What was installed and removed is logged in "PlugIns/install.log".
#pragma once
#include <string>
#include <vector>

#include "platform/dynlib.h"

namespace zol {

struct InstalledPlugIn {
    std::string file;                // name inside the folder
    std::string path;                // full path
    LibraryHandle module = nullptr;  // null when not loaded
};

std::string plugInFolder();
// The "*.zop" files of the folder, by name, with their modules where loaded.
std::vector<InstalledPlugIn> installedPlugIns();
// Whether bytes begin like a shared library of the ELF format.
bool looksLikeSharedLibrary(std::string_view bytes);

std::string installPlugIn(const std::string& source);
std::string loadInstalledPlugIn(const std::string& file);
// Asks the module (XPP_CanUnload) first.
std::string unloadInstalledPlugIn(const std::string& file);
// Unloads the module when loaded (asking it), then deletes its file.
std::string removeInstalledPlugIn(const std::string& file);

}  // namespace zol
