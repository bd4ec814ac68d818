// Whole-process counterpart of "grep -c" and "sed s/../../g > out" for bench/run.sh:
//   zolder_search_run count PATTERN FILE        prints the number of matching lines, found
//                                               as find in files searches one file
//   zolder_search_run count-open PATTERN FILE   the same in FILE opened as a document
//   zolder_search_run replace PATTERN REPL FILE OUT   replaces every hit, writes OUT
// PATTERN is a regular expression, matched with regard to case.
#include <cstdio>
#include <string>

#include "engine/document.h"
#include "files/textfile.h"
#include "search/find.h"
#include "search/find_in_files.h"
#include "search/replace.h"

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    if (!((mode.starts_with("count") && argc == 4) || (mode == "replace" && argc == 6))) {
        std::fprintf(stderr, "usage: %s count|count-open PATTERN FILE | replace PATTERN REPL FILE OUT\n", argv[0]);
        return 2;
    }
    zol::Searcher s;
    if (zol::prepareSearch(s, argv[2], {false, true, true, true}) != zol::kSearchFound) {
        std::fprintf(stderr, "%s%s\n", zol::kRegexErrorPrefix, zol::regexErrorMessage(s.regexError));
        return 2;
    }
    long count = 0;
    if (mode == "count") {
        zol::StreamBuffer buf;
        zol::FsResult read;
        const zol::StreamOutcome o = zol::searchFile(s, buf, argv[3], [&](int64_t, std::string_view) {
            ++count;
            return true;
        }, read);
        if (read != zol::FsResult::Ok || o.binary) {
            std::fprintf(stderr, "%s: %s\n", argv[3], read != zol::FsResult::Ok ? "cannot be read" : "binary file");
            return 2;
        }
        std::printf("%ld\n", count);
        return 0;
    }
    zol::Document doc;
    if (!zol::readFile(doc, argv[mode == "replace" ? 4 : 3], true)) return 2;
    if (mode == "count-open") {
        for (zol::LineRef r = doc.lines.first; r != zol::kNoLine; r = doc.lines.next(r)) {
            const std::string_view text = doc.lines.text(r);
            zol::LineHit h;
            if (zol::lineCanHold(s, text) && zol::searchLine(s, text, 0, h) == zol::kSearchFound) ++count;
        }
        std::printf("%ld\n", count);
        return 0;
    }
    zol::ReplaceAllResult result;
    if (zol::replaceAll(doc, s, argv[3], result) == zol::kSearchError) return 2;
    if (!zol::writeFile(doc, argv[5], doc.textFormat, -1, false, false)) return 2;
    std::printf("%d\n", result.replaced);
    return 0;
}
