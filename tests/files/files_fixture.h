// A scratch folder, a shell that records what the user was told, and byte helpers.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"
#include "engine/options.h"
#include "tests/support/fake_shell.h"
#include "tests/support/files.h"
#include "tests/support/temp_dir.h"

namespace zol::test {

using RecordingShell = FakeShell;

class FilesTest : public ::testing::Test {
protected:
    void SetUp() override {
        saved_ = options();
        ASSERT_FALSE(dir_.empty());
        setShell(&shell_);
    }
    void TearDown() override {
        setShell(nullptr);
        options() = saved_;
    }

    std::string path(std::string_view name) const { return tmp_.path(name); }
    std::string put(std::string_view name, std::string_view bytes) const { return tmp_.put(name, bytes); }
    static std::string bytesOf(const std::string& p) { return readBytes(p); }

    static std::vector<std::string> linesOf(const Document& doc) {
        std::vector<std::string> out;
        for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) out.emplace_back(doc.lines.text(r));
        return out;
    }

    static void setLines(Document& doc, const std::vector<std::string>& lines) {
        doc.lines.reset();
        LineRef tail = doc.lines.setText(doc.lines.first, lines.empty() ? "" : lines[0]);
        for (size_t i = 1; i < lines.size(); ++i) tail = doc.lines.insertAfter(tail, static_cast<int32_t>(i), lines[i]);
    }

    TempDir tmp_{"zolfiles"};
    RecordingShell shell_;
    EditOptions saved_;
    std::string dir_ = tmp_.dir();  // ends in "/"
};

}  // namespace zol::test
