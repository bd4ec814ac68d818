// After the whole start-up every command has someone to carry it out, except those
// that the command list leaves to the executor, to the desktop frame or to nothing in
// this build.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/application.h"
#include "engine/command_table.h"
#include "platform/tempfile.h"

namespace zol {
namespace {

TEST(CommandHandlers, StartUpInstallsEveryHandlerTheListPromises) {
    const std::string home = createTempDir("zolcmds");
    Application app;
    startUp(app, StartupOptions{home, {}});
    std::vector<std::string> missing;
    for (const CommandRecord* r : commandsWithoutHandler()) missing.push_back(r->name);
    EXPECT_EQ(missing, std::vector<std::string>{});
    // A handler for a command the list calls unhandled means the list is out of date.
    for (const CommandRecord& r : commandTable()) {
        const bool unhandled = r.owner == CommandOwner::Executor || r.owner == CommandOwner::Frame ||
                               r.owner == CommandOwner::Inert;
        if (unhandled) {
            EXPECT_EQ(commandHandler(r.id), nullptr) << r.name;
        }
    }
    shutDown(app);
    std::filesystem::remove_all(home);
}

}  // namespace
}  // namespace zol
