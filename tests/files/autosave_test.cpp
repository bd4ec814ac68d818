// Side files: when they are written, what they hold, and bringing them back.
#include <filesystem>
#include <memory>
#include <set>

#include "files/autosave.h"
#include "files/messages.h"
#include "platform/dirsearch.h"
#include "tests/support/documents.h"
#include "tests/support/files.h"
#include "tests/support/temp_home.h"

namespace zol::test {
namespace {

using AutoSave = TempHome;

TEST_F(AutoSave, ModifiedDocumentsGoToTheirOwnFreshSideFiles) {
    Document doc;
    fill(doc, "one\ntwo\n");
    EXPECT_FALSE(autoSaveDocument(doc, dir));
    doc.modified = true;
    doc.textFormat = TextFormat::Unix;
    ASSERT_TRUE(autoSaveDocument(doc, dir));
    EXPECT_EQ(readBytes(doc.autoSaveFile), "one\ntwo\n");
    EXPECT_TRUE(doc.modified);
    const std::string first = doc.autoSaveFile;
    doc.textFormat = TextFormat::Dos;
    ASSERT_TRUE(autoSaveDocument(doc, dir));
    EXPECT_EQ(doc.autoSaveFile, first);
    EXPECT_EQ(readBytes(first), "one\r\ntwo\r\n");

    put("~zol0000.asd", "not ours");
    std::set<std::string> names = {first};
    for (int i = 0; i < 50; ++i) {
        Document other;
        other.modified = true;
        ASSERT_TRUE(autoSaveDocument(other, dir));
        names.insert(other.autoSaveFile);
    }
    EXPECT_EQ(names.size(), 51u);
    EXPECT_EQ(get("~zol0000.asd"), "not ours");
}

TEST_F(AutoSave, FailuresAreSilentAndKeepTheDocumentModified) {
    Document doc;
    doc.modified = true;
    const std::string notAFolder = put("plainfile", "x") + "/";
    EXPECT_FALSE(autoSaveDocument(doc, notAFolder));
    EXPECT_TRUE(doc.autoSaveFile.empty());
    // A side file that can no longer be written is dropped; the next round starts over.
    doc.autoSaveFile = notAFolder + "~zol0001.asd";
    EXPECT_FALSE(autoSaveDocument(doc, dir));
    EXPECT_TRUE(doc.autoSaveFile.empty());
    EXPECT_TRUE(doc.modified);
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
        return recoverAutoSaved(dir, [&] { return docs.emplace_back(std::make_unique<Document>()).get(); },
                                [&](Document*) { docs.pop_back(); });
    };
    EXPECT_EQ(recover(), 11);
    ASSERT_EQ(docs.size(), 11u);
    EXPECT_EQ(docs[8]->fileName, "Recover9");
    EXPECT_EQ(docs[9]->fileName, "Recov10");
    EXPECT_EQ(docs[10]->fileName, "Recov11");
    EXPECT_EQ(linesOf(*docs[9]), (Lines{"doc 10", "end"}));
    EXPECT_TRUE(docs[9]->modified && !docs[9]->hasFile);
    Lines left;
    for (const FoundFile& f : findFiles(dir + kAutoSavePattern, false)) left.push_back(f.name);
    EXPECT_EQ(left, Lines{"~zol0001.asd"});
    EXPECT_EQ(shell_.messages, Lines{filemsg::kRecovered});
    EXPECT_EQ(recover(), 0);
    EXPECT_EQ(shell_.messages.size(), 1u);
}

}  // namespace
}  // namespace zol::test
