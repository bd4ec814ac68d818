// Profile files from anywhere: parsing must give back the bytes it was given, and
// reads, enumeration and writes must keep their promises on any input.
#include "platform/profile.h"
#include "platform/profile_doc.h"
#include "platform/tempfile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

const std::string& scratchFile() {
    static const std::string path = zol::createTempDir("zolfuzz") + "fuzz.ini";
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    check(zol::serializeProfile(zol::parseProfile(input)) == input);

    const std::string& file = scratchFile();
    {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out << input;
    }
    zol::flushProfileCache();

    char buf[16];
    // The lookups run inside a batch: a file written a moment ago is otherwise parsed
    // again on every lookup (its time stamp cannot yet be trusted), which makes each
    // input cost hundreds of parses and starves the fuzzer.
    zol::beginProfileBatch(file);
    std::vector<std::string> sections = zol::getProfileSectionNames(file);
    zol::getProfileSectionNames(buf, sizeof buf, file);
    size_t visited = 0;
    for (const std::string& section : sections) {
        if (++visited > 8) break;
        size_t keys = 0;
        for (const std::string& key : zol::getProfileKeys(section, file)) {
            // Each lookup walks the file's lines; a few keys per section cover the
            // paths, all of them would make an input cost its lines squared.
            if (++keys > 16) break;
            check(zol::findProfileString(section, key, file).has_value());
            zol::getProfileInt(section, key, 7, file);
            size_t n = zol::getProfileString(section, key, "", buf, 1 + key.size() % sizeof buf, file);
            check(n < sizeof buf);
        }
        zol::getProfileString(section, nullptr, "", buf, sizeof buf, file);
    }
    check(zol::endProfileBatch(file));

    const std::string section = sections.empty() ? std::string("fuzz") : sections.front();
    check(zol::writeProfileString(section, "zfuzz", "some value", file));
    check(zol::getProfileString(section, "zfuzz", "", file) == "some value");
    check(zol::writeProfileString(section, "zfuzz", nullptr, file));
    check(!zol::findProfileString(section, "zfuzz", file).has_value());
    check(zol::writeProfileString(section, nullptr, nullptr, file));
    check(!zol::profileSectionExists(section, file));
    return 0;
}
