#include "sim/pseudo_terminal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace corvid::sim {

namespace {

[[noreturn]] void Fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

PseudoTerminal::PseudoTerminal(const std::string& linkPath) {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (master_ < 0) Fail("posix_openpt");
    try {
        if (grantpt(master_) != 0) Fail("grantpt");
        if (unlockpt(master_) != 0) Fail("unlockpt");
        char name[128];
        if (ptsname_r(master_, name, sizeof name) != 0) Fail("ptsname");
        slavePath_ = name;
        termios raw{};
        if (tcgetattr(master_, &raw) != 0) Fail("tcgetattr");
        cfmakeraw(&raw);
        if (tcsetattr(master_, TCSANOW, &raw) != 0) Fail("tcsetattr");
        slaveKeeper_ = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (slaveKeeper_ < 0) Fail("open slave");
        if (!linkPath.empty()) {
            struct stat existing {};
            // Replace a stale link from an earlier run, never a real file.
            if (lstat(linkPath.c_str(), &existing) == 0 && S_ISLNK(existing.st_mode)) {
                unlink(linkPath.c_str());
            }
            if (symlink(name, linkPath.c_str()) != 0) Fail("symlink");
            linkPath_ = linkPath;
        }
    } catch (...) {
        Close();
        throw;
    }
}

PseudoTerminal::~PseudoTerminal() { Close(); }

void PseudoTerminal::Close() {
    if (!linkPath_.empty()) {
        char target[256];
        ssize_t n = readlink(linkPath_.c_str(), target, sizeof target - 1);
        // Remove the link only while it still points at this terminal.
        if (n > 0 && std::string(target, static_cast<std::size_t>(n)) == slavePath_) {
            unlink(linkPath_.c_str());
        }
        linkPath_.clear();
    }
    if (slaveKeeper_ >= 0) close(slaveKeeper_);
    if (master_ >= 0) close(master_);
    slaveKeeper_ = master_ = -1;
}

}  // namespace corvid::sim
