#include "printing/page_codes.h"

#include "engine/commands/text_tools.h"
#include "platform/paths.h"

namespace zol {

PageLine expandPageCodes(std::string_view pattern, const PageFacts& facts) {
    PageLine line;
    auto part = static_cast<size_t>(Align::Centre);
    for (size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        const char code = i + 1 < pattern.size() ? pattern[i + 1] : '\0';
        std::string& out = line[part];
        if (c != '&' || code == '\0') {
            out += c;
            continue;
        }
        ++i;
        switch (code) {
        case 'f': out += fileNamePart(facts.path); break;
        case 'F': out += facts.path; break;
        case 'p': out += std::to_string(facts.page); break;
        case 'P': out += std::to_string(facts.pages); break;
        case 'd': out += dateText(facts.when, facts.conventions); break;
        case 't': out += timeText(facts.when, facts.conventions); break;
        case '&': out += '&'; break;
        case 'l': part = static_cast<size_t>(Align::Left); break;
        case 'c': part = static_cast<size_t>(Align::Centre); break;
        case 'r': part = static_cast<size_t>(Align::Right); break;
        default:
            out += c;
            out += code;
        }
    }
    return line;
}

}  // namespace zol
