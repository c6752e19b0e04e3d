// Where the service keeps its data when not told.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "service/journal.h"

namespace corvid::service {
namespace {

TEST(DefaultDataFolder, FollowsXdgStateHomeOnlyWhenAbsolute) {
    const char* savedHome = getenv("HOME");
    const char* savedState = getenv("XDG_STATE_HOME");
    const std::string home = savedHome ? savedHome : "", state = savedState ? savedState : "";
    setenv("HOME", "/home/cajera", 1);
    const std::pair<const char*, const char*> cases[] = {
        {"/var/lib/pos", "/var/lib/pos/corvid"},
        {"relative/state", "/home/cajera/.local/state/corvid"},
        {"", "/home/cajera/.local/state/corvid"},
    };
    for (const auto& [xdg, expected] : cases) {
        setenv("XDG_STATE_HOME", xdg, 1);
        EXPECT_EQ(DefaultDataFolder(), std::filesystem::path(expected)) << xdg;
    }
    savedHome ? setenv("HOME", home.c_str(), 1) : unsetenv("HOME");
    savedState ? setenv("XDG_STATE_HOME", state.c_str(), 1) : unsetenv("XDG_STATE_HOME");
}

}  // namespace
}  // namespace corvid::service
