#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "service/journal.h"

namespace corvid::service {

namespace {

std::filesystem::path HomeFolder() {
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') return home;
    if (const passwd* user = getpwuid(getuid()); user != nullptr && user->pw_dir != nullptr) {
        return user->pw_dir;
    }
    throw JournalError("journal: no home folder to keep the data in; name one with --data");
}

}  // namespace

std::filesystem::path DefaultDataFolder() {
    // A relative XDG_STATE_HOME is to be ignored, as the XDG rules say.
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/') {
        return std::filesystem::path(state) / "corvid";
    }
    return HomeFolder() / ".local" / "state" / "corvid";
}

}  // namespace corvid::service
