// Side files: when they are written, what they hold, and bringing them back.
#include <filesystem>
#include <memory>
#include <set>
#include <utility>

#include "files/autosave.h"
#include "files/messages.h"
#include "platform/dirsearch.h"
#include "tests/files/files_fixture.h"

namespace zol::test {
namespace {

class AutoSave : public FilesTest {
protected:
    std::vector<std::string> sideFiles() const {
        std::vector<std::string> names;
        for (const FoundFile& f : findFiles(dir_ + kAutoSavePattern, false)) names.push_back(f.name);
        return names;
    }
    std::unique_ptr<Document> modifiedDoc(const std::vector<std::string>& lines) {
        auto d = std::make_unique<Document>();
        setLines(*d, lines);
        d->modified = true;
        return d;
    }
};

TEST_F(AutoSave, ModifiedDocumentsGoToTheirOwnFreshSideFiles) {
    auto doc = modifiedDoc({"one", "two", ""});
    doc->modified = false;
    EXPECT_FALSE(autoSaveDocument(*doc, dir_));
    doc->modified = true;
    doc->textFormat = TextFormat::Unix;
    ASSERT_TRUE(autoSaveDocument(*doc, dir_));
    EXPECT_EQ(bytesOf(doc->autoSaveFile), "one\ntwo\n");
    EXPECT_TRUE(doc->modified);
    const std::string first = doc->autoSaveFile;
    doc->textFormat = TextFormat::Dos;
    ASSERT_TRUE(autoSaveDocument(*doc, dir_));
    EXPECT_EQ(doc->autoSaveFile, first);
    EXPECT_EQ(bytesOf(first), "one\r\ntwo\r\n");

    const std::string someoneElse = put("~zol0000.asd", "not ours");
    std::set<std::string> names = {first};
    for (int i = 0; i < 50; ++i) {
        auto other = modifiedDoc({"other"});
        ASSERT_TRUE(autoSaveDocument(*other, dir_));
        names.insert(std::exchange(other->autoSaveFile, ""));  // the file stays
    }
    EXPECT_EQ(names.size(), 51u);
    EXPECT_EQ(bytesOf(someoneElse), "not ours");
}

TEST_F(AutoSave, FailuresAreSilentAndKeepTheDocumentModified) {
    auto doc = modifiedDoc({"precious"});
    const std::string notAFolder = put("plainfile", "x") + "/";
    EXPECT_FALSE(autoSaveDocument(*doc, notAFolder));
    EXPECT_TRUE(doc->autoSaveFile.empty());
    // A side file that can no longer be written is dropped; the next round starts over.
    doc->autoSaveFile = notAFolder + "~zol0001.asd";
    EXPECT_FALSE(autoSaveDocument(*doc, dir_));
    EXPECT_TRUE(doc->autoSaveFile.empty());
    EXPECT_TRUE(doc->modified);
    EXPECT_TRUE(shell_.messages.empty());
}

TEST_F(AutoSave, RecoveryNamesDocumentsInOrderAndRemovesSideFiles) {
    for (int i = 1; i <= 11; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "~zol%04x.asd", i * 100);
        put(name, "doc " + std::to_string(i) + "\r\nend");
    }
    put("~zolnote.txt", "not a side file");
    std::filesystem::create_directory(path("~zol0001.asd"));
    std::vector<std::unique_ptr<Document>> docs;
    auto recover = [&] {
        return recoverAutoSaved(dir_, [&] { return docs.emplace_back(std::make_unique<Document>()).get(); },
                                [&](Document*) { docs.pop_back(); });
    };
    EXPECT_EQ(recover(), 11);
    ASSERT_EQ(docs.size(), 11u);
    EXPECT_EQ(docs[8]->fileName, "Recover9");
    EXPECT_EQ(docs[10]->fileName, "Recov11");
    EXPECT_EQ(linesOf(*docs[9]), (std::vector<std::string>{"doc 10", "end"}));
    EXPECT_TRUE(docs[9]->modified && !docs[9]->hasFile);
    EXPECT_EQ(sideFiles(), (std::vector<std::string>{"~zol0001.asd"}));
    EXPECT_EQ(shell_.messages, (std::vector<std::string>{filemsg::kRecovered}));
    EXPECT_EQ(recover(), 0);
    EXPECT_EQ(shell_.messages.size(), 1u);
}

}  // namespace
}  // namespace zol::test
