#include "plugin/view_records.h"

#include <unordered_map>

#include "engine/document.h"

namespace zol {
namespace {

// By serial, which no later document at the same address shares.
std::unordered_map<uint64_t, ViewRecord>& records() {
    static std::unordered_map<uint64_t, ViewRecord> map;
    return map;
}

}  // namespace

ViewRecord& viewRecord(const Document& doc) { return records()[doc.serial]; }

void forgetViewRecord(const Document* doc) {
    if (doc) records().erase(doc->serial);
}

}  // namespace zol
