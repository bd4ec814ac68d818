#include "search/history.h"

#include <algorithm>

namespace zol {
namespace {

std::vector<std::string> ownFind, ownReplace;
std::vector<std::string>* findList = &ownFind;
std::vector<std::string>* replaceList = &ownReplace;

}  // namespace

void setSearchHistoryLists(std::vector<std::string>* find, std::vector<std::string>* replace) {
    findList = find ? find : &ownFind;
    replaceList = replace ? replace : &ownReplace;
}

const std::vector<std::string>& findHistory() { return *findList; }
const std::vector<std::string>& replaceHistory() { return *replaceList; }

void pushHistory(std::vector<std::string>& list, std::string_view text) {
    if (text.empty() || text.size() >= kSearchHistoryMaxLen) return;
    list.erase(std::remove(list.begin(), list.end(), text), list.end());
    list.insert(list.begin(), std::string(text));
    if (list.size() > kSearchHistorySize) list.resize(kSearchHistorySize);
}

void rememberFind(std::string_view text) { pushHistory(*findList, text); }
void rememberReplace(std::string_view text) { pushHistory(*replaceList, text); }

}  // namespace zol
