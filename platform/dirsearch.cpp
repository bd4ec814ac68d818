#include "platform/dirsearch.h"

#include "platform/paths.h"

#include <algorithm>
#include <dirent.h>
#include <sys/stat.h>

namespace zol {

namespace {

char fold(char c, bool ignoreCase) {
    return ignoreCase && c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool matchPlain(std::string_view p, std::string_view s, bool ignoreCase) {
    size_t pi = 0, si = 0;
    size_t starP = std::string_view::npos, starS = 0;
    while (si < s.size()) {
        if (pi < p.size() && p[pi] == '*') {
            starP = pi++;
            starS = si;
        } else if (pi < p.size() && (p[pi] == '?' || fold(p[pi], ignoreCase) == fold(s[si], ignoreCase))) {
            ++pi;
            ++si;
        } else if (starP != std::string_view::npos) {
            pi = starP + 1;
            si = ++starS;
        } else {
            return false;
        }
    }
    while (pi < p.size() && p[pi] == '*') ++pi;
    return pi == p.size();
}

std::string lowered(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = fold(c, true);
    return out;
}

}  // namespace

bool wildcardMatch(std::string_view pattern, std::string_view name, bool ignoreCase) {
    if (matchPlain(pattern, name, ignoreCase)) return true;
    if (pattern.size() >= 2 && pattern.substr(pattern.size() - 2) == ".*")
        return matchPlain(pattern.substr(0, pattern.size() - 2), name, ignoreCase);
    return false;
}

std::vector<FoundFile> findFiles(std::string_view pattern, bool ignoreCase) {
    std::vector<FoundFile> found;
    std::string folder(folderPart(pattern));
    std::string_view filePattern = fileNamePart(pattern);
    if (folder.empty()) folder = "./";
    for (char& c : folder)
        if (c == '\\') c = '/';
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return found;
    while (const dirent* e = ::readdir(dir)) {
        std::string_view name = e->d_name;
        if (name == "." || name == ".." || !wildcardMatch(filePattern, name, ignoreCase)) continue;
        FoundFile f;
        f.name = std::string(name);
        if (e->d_type == DT_DIR) {
            f.isDirectory = true;
        } else if (e->d_type == DT_UNKNOWN || e->d_type == DT_LNK) {
            struct stat st {};
            f.isDirectory = ::stat((folder + f.name).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
        }
        found.push_back(std::move(f));
    }
    ::closedir(dir);
    std::sort(found.begin(), found.end(), [](const FoundFile& a, const FoundFile& b) {
        std::string la = lowered(a.name), lb = lowered(b.name);
        return la != lb ? la < lb : a.name < b.name;
    });
    return found;
}

}  // namespace zol
