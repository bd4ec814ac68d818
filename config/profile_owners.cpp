#include "config/profile_owners.h"

#include "config/recent_files.h"
#include "engine/text_util.h"

#include <algorithm>
#include <vector>

namespace zol {

namespace {

struct Owner {
    std::string section;
    ProfileListFn load;
    ProfileListFn save;
};

const char* const kLoadOrder[] = {"UserHelp",    "UserTools",     "MacroMenu", "FileFilters",
                                  "Spelling",    "SourceSafe",    "Bookmarks", "ScriptHistory",
                                  "LastOpened",  "FolderHistory", "LastOpenedProjects",
                                  "zol.acr",     "syntax.hgl"};
const char* const kSaveOrder[] = {"UserHelp",   "UserTools",     "MacroMenu",          "Spelling",
                                  "SourceSafe", "Bookmarks",     "ScriptHistory",      "FileFilters",
                                  "LastOpened", "FolderHistory", "LastOpenedProjects", "zol.acr"};

std::vector<Owner>& owners() {
    static std::vector<Owner> list;
    return list;
}

Owner* findOwner(std::string_view section) {
    for (Owner& o : owners())
        if (equalsNoCase(o.section, section)) return &o;
    return nullptr;
}

bool isDataFile(std::string_view name) { return name.find('.') != std::string_view::npos; }

// "LastOpened" belongs to the store itself until someone registers another owner.
void builtInLoad(std::string_view section, std::string_view file) {
    if (equalsNoCase(section, kRecentFilesSection)) recentFilesLoad(section, file);
}
void builtInSave(std::string_view section, std::string_view file) {
    if (equalsNoCase(section, kRecentFilesSection)) recentFilesSave(section, file);
}

template <size_t N>
void callInOrder(const char* const (&order)[N], std::string_view file, bool load) {
    for (const char* section : order) {
        std::string_view f = isDataFile(section) ? std::string_view(section) : file;
        if (Owner* o = findOwner(section)) {
            const ProfileListFn& fn = load ? o->load : o->save;
            if (fn) fn(section, f);
        } else if (load) {
            builtInLoad(section, f);
        } else {
            builtInSave(section, f);
        }
    }
    for (const Owner& o : owners()) {
        bool known = std::any_of(std::begin(order), std::end(order), [&](const char* s) { return equalsNoCase(s, o.section); });
        const char* const* other = load ? std::begin(kSaveOrder) : std::begin(kLoadOrder);
        const char* const* otherEnd = load ? std::end(kSaveOrder) : std::end(kLoadOrder);
        known = known || std::any_of(other, otherEnd, [&](const char* s) { return equalsNoCase(s, o.section); });
        const ProfileListFn& fn = load ? o.load : o.save;
        if (!known && fn) fn(o.section, isDataFile(o.section) ? std::string_view(o.section) : file);
    }
}

}  // namespace

void registerProfileOwner(std::string_view section, ProfileListFn load, ProfileListFn save) {
    if (Owner* o = findOwner(section)) {
        o->load = std::move(load);
        o->save = std::move(save);
        return;
    }
    owners().push_back({std::string(section), std::move(load), std::move(save)});
}

void unregisterProfileOwner(std::string_view section) {
    auto& list = owners();
    list.erase(std::remove_if(list.begin(), list.end(), [&](const Owner& o) { return equalsNoCase(o.section, section); }),
               list.end());
}

void loadProfileOwners(std::string_view file) { callInOrder(kLoadOrder, file, true); }

void saveProfileOwners(std::string_view file) { callInOrder(kSaveOrder, file, false); }

}  // namespace zol
