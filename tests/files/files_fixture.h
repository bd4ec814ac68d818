// A scratch folder, a shell that records what the user was told, and byte helpers.
#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "platform/tempfile.h"

namespace zol::test {

class RecordingShell final : public Shell {
public:
    std::vector<std::string> messages;
    std::vector<std::string> questions;
    std::deque<Answer> answers;  // given in order; No once they run out

    void message(std::string_view text) override { messages.emplace_back(text); }
    Answer ask(std::string_view text, bool) override {
        questions.emplace_back(text);
        if (answers.empty()) return Answer::No;
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    void statusMessage(std::string_view) override {}
    ClipboardData getClipboard() override { return {}; }
    void setClipboard(const ClipboardData&) override {}
};

class FilesTest : public ::testing::Test {
protected:
    void SetUp() override {
        saved_ = options();
        dir_ = createTempDir("zolfiles");
        ASSERT_FALSE(dir_.empty());
        setShell(&shell_);
    }
    void TearDown() override {
        setShell(nullptr);
        options() = saved_;
        std::error_code ec;
        std::filesystem::permissions(dir_, std::filesystem::perms::owner_all, ec);
        std::filesystem::remove_all(dir_, ec);
    }

    std::string path(std::string_view name) const { return dir_ + std::string(name); }

    std::string put(std::string_view name, std::string_view bytes) const {
        std::string p = path(name);
        std::ofstream(p, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return p;
    }

    static std::string bytesOf(const std::string& p) {
        std::ifstream in(p, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

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

    RecordingShell shell_;
    EditOptions saved_;
    std::string dir_;  // ends in "/"
};

}  // namespace zol::test
