// Lists kept in "zol.ini" by other subsystems (user tools, macro menu, bookmarks, ...).
// Each owner registers a load and a save routine under its section name; the settings
// store calls them, with the section and file name, in its fixed order. Sections that
// have no owner yet are left as they are in the file.
#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace zol {

using ProfileListFn = std::function<void(std::string_view section, std::string_view file)>;

// Registers (or replaces) the owner of section. The data files loaded after the lists,
// "zol.acr" and "syntax.hgl", register under their file names and get them as both
// arguments.
void registerProfileOwner(std::string_view section, ProfileListFn load, ProfileListFn save);
void unregisterProfileOwner(std::string_view section);

// Calls the owners in load order, then owners of other sections in registration order.
void loadProfileOwners(std::string_view file);
// Likewise in save order.
void saveProfileOwners(std::string_view file);

}  // namespace zol
