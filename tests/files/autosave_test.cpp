// Side files: when they are written, what they hold, and bringing them back.
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "files/autosave.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "platform/dirsearch.h"
#include "platform/paths.h"
#include "tests/files/files_fixture.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;

class AutoSave : public FilesTest {
protected:
    std::vector<std::string> sideFiles() const {
        std::vector<std::string> names;
        for (const FoundFile& f : findFiles(dir_ + kAutoSavePattern, false)) names.push_back(f.name);
        return names;
    }
    Document* make() {
        docs.push_back(std::make_unique<Document>());
        return docs.back().get();
    }
    int recover() {
        return recoverAutoSaved(dir_, [this] { return make(); }, [this](Document* d) {
            std::erase_if(docs, [d](const auto& p) { return p.get() == d; });
        });
    }
    std::vector<std::unique_ptr<Document>> docs;
};

TEST_F(AutoSave, OnlyModifiedDocumentsAreWrittenAndStayModified) {
    Document doc;
    setLines(doc, {"one", "two", ""});
    doc.textFormat = 1;
    EXPECT_FALSE(autoSaveDocument(doc, dir_));
    EXPECT_TRUE(sideFiles().empty());

    doc.modified = true;
    ASSERT_TRUE(autoSaveDocument(doc, dir_));
    ASSERT_EQ(sideFiles().size(), 1u);
    EXPECT_EQ(doc.autoSaveFile, dir_ + sideFiles()[0]);
    EXPECT_EQ(bytesOf(doc.autoSaveFile), "one\ntwo\n");
    EXPECT_TRUE(doc.modified);

    // Later rounds rewrite the same file in the document's current format.
    doc.textFormat = 0;
    setLines(doc, {"a", "b"});
    const std::string first = doc.autoSaveFile;
    ASSERT_TRUE(autoSaveDocument(doc, dir_));
    EXPECT_EQ(doc.autoSaveFile, first);
    EXPECT_EQ(bytesOf(first), "a\r\nb");
    EXPECT_EQ(sideFiles().size(), 1u);

    removeAutoSaveFile(doc);
    EXPECT_TRUE(doc.autoSaveFile.empty());
    EXPECT_TRUE(sideFiles().empty());
}

TEST_F(AutoSave, EachDocumentGetsItsOwnFreshName) {
    const std::string someoneElse = put("~zol0000.asd", "not ours");
    std::vector<std::unique_ptr<Document>> many;
    std::set<std::string> names;
    for (int i = 0; i < 200; ++i) {
        many.push_back(std::make_unique<Document>());
        setLines(*many.back(), {std::to_string(i)});
        many.back()->modified = true;
        ASSERT_TRUE(autoSaveDocument(*many.back(), dir_));
        names.insert(many.back()->autoSaveFile);
    }
    EXPECT_EQ(names.size(), 200u);
    EXPECT_EQ(bytesOf(someoneElse), "not ours");
    EXPECT_EQ(bytesOf(many[17]->autoSaveFile), "17");
}

TEST_F(AutoSave, UnwritableFolderKeepsTheDocumentModifiedAndSilent) {
    Document doc;
    setLines(doc, {"precious"});
    doc.modified = true;
    const std::string notAFolder = put("plainfile", "x") + "/";
    EXPECT_FALSE(autoSaveDocument(doc, notAFolder));
    EXPECT_TRUE(doc.modified);
    EXPECT_TRUE(doc.autoSaveFile.empty());
    EXPECT_TRUE(shell_.messages.empty());

    // A side file that can no longer be written is dropped; the next round starts over.
    ASSERT_TRUE(autoSaveDocument(doc, dir_));
    const std::string side = doc.autoSaveFile;
    doc.autoSaveFile = notAFolder + "~zol0001.asd";
    EXPECT_FALSE(autoSaveDocument(doc, dir_));
    EXPECT_TRUE(doc.autoSaveFile.empty());
    EXPECT_TRUE(doc.modified);
    fs::remove(side);
}

TEST_F(AutoSave, SavingTheDocumentRemovesItsSideFile) {
    Document doc;
    setLines(doc, {"text"});
    doc.fileName = path("real.txt");
    doc.hasFile = true;
    doc.modified = true;
    ASSERT_TRUE(autoSaveDocument(doc, dir_));
    // Writing a copy that keeps the document modified keeps the side file too.
    ASSERT_TRUE(writeFile(doc, path("copy.txt"), 0, -1, false, true));
    EXPECT_EQ(sideFiles().size(), 1u);
    ASSERT_TRUE(writeFile(doc, doc.fileName, 0, -1, false, false));
    EXPECT_TRUE(sideFiles().empty());
    EXPECT_TRUE(doc.autoSaveFile.empty());
}

TEST_F(AutoSave, RecoveryNamesDocumentsInOrderAndRemovesSideFiles) {
    for (int i = 1; i <= 11; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "~zol%04x.asd", i * 100);
        put(name, "doc " + std::to_string(i) + "\r\nend");
    }
    put("~zolnote.txt", "not a side file");
    fs::create_directory(path("~zol0001.asd"));
    EXPECT_EQ(recover(), 11);
    ASSERT_EQ(docs.size(), 11u);
    EXPECT_EQ(docs[0]->fileName, "Recover1");
    EXPECT_EQ(docs[8]->fileName, "Recover9");
    EXPECT_EQ(docs[9]->fileName, "Recov10");
    EXPECT_EQ(docs[10]->fileName, "Recov11");
    EXPECT_EQ(linesOf(*docs[9]), (std::vector<std::string>{"doc 10", "end"}));
    for (const auto& d : docs) {
        EXPECT_TRUE(d->modified);
        EXPECT_FALSE(d->hasFile);
        EXPECT_EQ(d->textFormat, 0);
    }
    EXPECT_TRUE(sideFiles().size() == 1 && sideFiles()[0] == "~zol0001.asd");
    ASSERT_EQ(shell_.messages.size(), 1u);
    EXPECT_EQ(shell_.messages[0], filemsg::kRecovered);

    docs.clear();
    shell_.messages.clear();
    EXPECT_EQ(recover(), 0);
    EXPECT_TRUE(shell_.messages.empty());
}

}  // namespace
}  // namespace zol::test
