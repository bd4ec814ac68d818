// Every save path walked over each of its file-system calls: whichever open, write,
// flush, rename or close fails, and with whichever error, the file on disk keeps its
// old bytes, nothing is left behind beside it, the document stays modified and the user
// hears of it. A call whose failure cannot hurt may be shrugged off, but then the save
// must be whole.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <set>

#include "config/keyfile.h"
#include "config/keymap.h"
#include "config/settings.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "files/autosave.h"
#include "files/textfile.h"
#include "platform/file_calls.h"
#include "platform/profile.h"
#include "syntax/edit_copy.h"
#include "syntax/table.h"
#include "tests/support/documents.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

namespace fs = std::filesystem;

// Calls counted beyond this mean the walk never ends: a save path lost its way.
constexpr int kMaxCallsPerSave = 64;

struct Outcome {
    bool saved = false;
    bool stillModified = false;  // for the paths that have a document
};

class SaveFaults;

struct SavePath {
    const char* name;
    const char* target;  // below the home
    // Puts the old state in place; returns the bytes the save should write.
    std::function<std::string(SaveFaults&)> prepare;
    std::function<Outcome(SaveFaults&)> save;
    bool tellsUser = true;
    bool keepsOldOnFailure = true;
};

class SaveFaults : public test::TempHome, public ::testing::WithParamInterface<std::tuple<int, int>> {
protected:
    void TearDown() override {
        failFileCall(0, 0);
        doc_.reset();
        test::TempHome::TearDown();
    }
    std::set<std::string> listing() const {
        std::set<std::string> names;
        for (const fs::directory_entry& e : fs::directory_iterator(dir)) names.insert(e.path().filename().string());
        return names;
    }
    std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> files;
        for (const std::string& n : listing())
            if (fs::is_regular_file(path(n))) files[n] = get(n);
        return files;
    }

public:
    using test::TempHome::get;
    using test::TempHome::path;
    using test::TempHome::put;
    std::string home() const { return dir; }
    std::unique_ptr<Document> doc_;
};

constexpr char kOld[] = "old line 1\nold line 2";
constexpr char kNew[] = "new text\nthat is longer than the old one\n";

std::string prepareDocument(SaveFaults& f) {
    f.put("a.txt", kOld);
    f.put("a.bak", "older backup");
    f.put("a.txt.bak", "older backup 1");
    f.doc_ = std::make_unique<Document>();
    test::fill(*f.doc_, kNew);
    setModified(*f.doc_, true);
    return std::string(kNew);
}

Outcome saveDocument(SaveFaults& f, int backupStyle) {
    const bool ok = writeFile(*f.doc_, f.path("a.txt"), TextFormat::Unix, backupStyle, false, false);
    return {ok, f.doc_->modified};
}

std::vector<SavePath> savePaths() {
    std::vector<SavePath> paths;
    for (int style : {-1, 0, 1}) {
        static const char* names[] = {"document", "document with NAME.BAK", "document with NAME.EXT.BAK"};
        paths.push_back({names[style + 1], "a.txt", [](SaveFaults& f) { return prepareDocument(f); },
                         [style](SaveFaults& f) { return saveDocument(f, style); }});
    }
    paths.push_back({"key file", "zol.key",
                     [](SaveFaults& f) {
                         f.put("zol.key", "old key file bytes");
                         keyMap() = KeyMap();
                         readDefaultKeyMap(keyMap());
                         return keyFileBytes(keyMap(), keyFileMacros().sectionBytes ? keyFileMacros().sectionBytes() : "");
                     },
                     [](test::TempHome&) { return Outcome{saveKeyFile(), true}; }});
    paths.push_back({"settings", "zol.ini",
                     [](SaveFaults& f) {
                         f.put("zol.ini", "[Settings]\nTabSize=3\n");
                         flushProfileCache();
                         settings().findHistory = {"needle"};
                         return std::string();
                     },
                     [](test::TempHome&) { return Outcome{saveProfile(true), true}; }});
    paths.push_back({"language definitions", "syntax.hgl",
                     [](SaveFaults& f) {
                         f.put("syntax.hgl", "[A]\nFilePattern=*.a\n[B]\nFilePattern=*.b\n");
                         flushProfileCache();
                         return std::string();
                     },
                     [](SaveFaults& f) {
                         std::vector<SyntaxEditLanguage> langs = readEditCopy(f.path("syntax.hgl"));
                         langs.erase(langs.begin());
                         SyntaxHighlightTable table;
                         return Outcome{saveDefinitions(table, f.path("syntax.hgl"), langs), true};
                     },
                     /*tellsUser=*/false});
    // An auto-save that fails forgets its side file and says nothing; the document
    // keeps the text, and the next interval starts afresh.
    paths.push_back({"auto-save", "",
                     [](SaveFaults& f) {
                         f.doc_ = std::make_unique<Document>();
                         test::fill(*f.doc_, kNew);
                         setModified(*f.doc_, true);
                         autoSaveDocument(*f.doc_, f.home());
                         insertText(*f.doc_, "more");
                         return std::string();
                     },
                     [](SaveFaults& f) { return Outcome{autoSaveDocument(*f.doc_, f.home()), f.doc_->modified}; },
                     /*tellsUser=*/false, /*keepsOldOnFailure=*/false});
    return paths;
}

TEST_P(SaveFaults, AFailedCallLeavesTheOldBytes) {
    const auto [which, err] = GetParam();
    SavePath p = savePaths()[static_cast<size_t>(which)];
    SCOPED_TRACE(p.name);
    bool reachedTheEnd = false;
    for (int n = 1; n <= kMaxCallsPerSave && !reachedTheEnd; ++n) {
        SCOPED_TRACE("failing call " + std::to_string(n));
        for (const std::string& name : listing()) fs::remove_all(path(name));
        const std::string expected = p.prepare(*this);
        const auto before = contents();
        shell_.messages.clear();
        failFileCall(n, err);
        const Outcome out = p.save(*this);
        reachedTheEnd = fileCallsCounted() < n;
        failFileCall(0, 0);
        if (out.saved) {
            if (!expected.empty()) {
                EXPECT_EQ(get(p.target), expected);
            }
            EXPECT_FALSE(doc_ && doc_->modified && p.keepsOldOnFailure);
            continue;
        }
        EXPECT_FALSE(reachedTheEnd) << "failed without a fault";
        EXPECT_TRUE(out.stillModified);
        if (p.tellsUser) {
            EXPECT_FALSE(shell_.messages.empty());
        }
        if (p.keepsOldOnFailure) {
            EXPECT_EQ(contents(), before);
        } else {
            EXPECT_TRUE(doc_->autoSaveFile.empty());
            EXPECT_EQ(contents().size(), before.size() - 1) << "the old side file is gone, nothing else";
        }
    }
    EXPECT_TRUE(reachedTheEnd);
}

std::string caseName(const ::testing::TestParamInfo<std::tuple<int, int>>& info) {
    static const char* paths[] = {"Document", "DocumentNameBak", "DocumentNameExtBak", "KeyFile",
                                  "Settings", "LanguageDefinitions", "AutoSave"};
    const int err = std::get<1>(info.param);
    return std::string(paths[std::get<0>(info.param)]) + (err == ENOSPC ? "_ENOSPC" : err == EIO ? "_EIO" : "_EACCES");
}

INSTANTIATE_TEST_SUITE_P(EverySavePath, SaveFaults,
                         ::testing::Combine(::testing::Range(0, 7), ::testing::Values(ENOSPC, EIO, EACCES)), caseName);

}  // namespace
}  // namespace zol
