// A temporary home with the shipped language definitions loaded, and documents named
// so that they take one (a ".c" file) or none (a ".txt" file).
#pragma once
#include <string>
#include <string_view>

#include "syntax/doc_syntax.h"
#include "syntax/table.h"
#include "tests/support/documents.h"
#include "tests/support/temp_home.h"

namespace zol::test {

class ProofingTest : public TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        installCommentStateTracking();
        loadDefinitions(syntaxTable(), std::string(ZOLDER_SOURCE_DIR) + "/data/syntax.hgl");
    }
    void TearDown() override {
        loadDefinitions(syntaxTable(), "");
        TempHome::TearDown();
    }
    // Fills doc with text under a file name; the name's extension chooses the language.
    void open(Document& d, std::string_view name, std::string_view text) {
        d.fileName = dir + std::string(name);
        followFileName(d, true);
        fill(d, text);
    }
};

}  // namespace zol::test
