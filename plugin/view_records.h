// Where a document without a window is scrolled to, as the interface reports and sets
// it: the headless runner has no views, yet scripts and plug-ins that set a scroll
// position read the same one back there as in the desktop editor.
#pragma once
#include <cstdint>

namespace zol {

struct Document;

// 0-based first visible column and line.
struct ViewRecord {
    int32_t column = 0;
    int32_t line = 0;
};

// The document's record, made on first use.
ViewRecord& viewRecord(const Document& doc);
// Drops the record of a document that is going away; nothing of it stays behind.
void forgetViewRecord(const Document* doc);

}  // namespace zol
