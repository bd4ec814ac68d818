#include "engine/command_params.h"

#include "engine/commands/handlers.h"
#include "engine/document.h"

namespace zol {
namespace {

std::string params[2];

int append(Document& doc, int which, Cmd cmd, uint32_t param) {
    std::string& p = params[which - 1];
    if (doc.prevCmd != idOf(cmd)) p.clear();
    const char c = static_cast<char>(param & 0xFF);
    if (c != '\0') p += c;
    return 1;
}

}  // namespace

const std::string& commandParam(int which) { return params[which == 1 ? 0 : 1]; }
void setCommandParam(int which, std::string text) { params[which == 1 ? 0 : 1] = std::move(text); }

int cmdParam1(Document& doc, const CommandCall& call) { return append(doc, 1, Cmd::Param1, call.param); }
int cmdParam2(Document& doc, const CommandCall& call) { return append(doc, 2, Cmd::Param2, call.param); }

}  // namespace zol
