// A serial device server in front of a terminal, for tests: ser2net speaking the com-port
// protocol, a child process listening on 127.0.0.1. It starts the terminal at 19200 baud,
// no parity, two stop bits, so a test can tell the settings a client gave it.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

extern char** environ;

namespace corvid::test_support {

// A TCP port on 127.0.0.1 that nobody uses right now.
inline std::uint16_t FreeLoopbackPort() {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    bind(fd, reinterpret_cast<sockaddr*>(&address), size);
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size);
    close(fd);
    return ntohs(address.sin_port);
}

// Whether something listens on `port`, read from the kernel's table: a trial connection
// would have ser2net open the terminal.
inline bool Listening(std::uint16_t port) {
    char wanted[8];
    std::snprintf(wanted, sizeof wanted, ":%04X", port);
    std::ifstream file("/proc/net/tcp");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string slot, local, remote, state;
        fields >> slot >> local >> remote >> state;
        if (state == "0A" && local.ends_with(wanted)) return true;
    }
    return false;
}

class SerialServer {
  public:
    // Starts ser2net for terminal `tty`; error() says why when it did not come up.
    explicit SerialServer(const std::string& tty) : port_(FreeLoopbackPort()) {
        dir_ = std::filesystem::temp_directory_path() /
               ("corvid-server-" + std::to_string(getpid()) + "-" + std::to_string(port_));
        std::filesystem::create_directories(dir_);
        const auto config = dir_ / "ser2net.yaml";
        std::ofstream(config) << "%YAML 1.1\n---\nconnection: &printer\n"
                              << "  accepter: telnet(rfc2217),tcp,127.0.0.1," << port_ << "\n"
                              << "  connector: serialdev," << tty << ",19200n82,local\n";
        const std::string log = (dir_ / "server.log").string();
        const std::string pid = (dir_ / "ser2net.pid").string();
        const char* args[] = {"/usr/sbin/ser2net", "-d", "-u",        "-c",
                              config.c_str(),      "-P", pid.c_str(), nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, 1, log.c_str(), O_WRONLY | O_CREAT, 0644);
        posix_spawn_file_actions_adddup2(&actions, 1, 2);
        const int failed =
            posix_spawn(&pid_, args[0], &actions, nullptr, const_cast<char* const*>(args), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (failed != 0) {
            pid_ = -1;
            error_ = std::string("ser2net did not start (scripts/install-deps.sh installs it): ") +
                     std::strerror(failed);
            return;
        }
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!Listening(port_) && error_.empty()) {
            int status = 0;
            if (waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                error_ = "ser2net ended at start: " + Log();
            } else if (std::chrono::steady_clock::now() > deadline) {
                error_ = "ser2net is not listening on port " + std::to_string(port_) + ": " + Log();
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }
    ~SerialServer() {
        Kill();
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }
    SerialServer(const SerialServer&) = delete;
    SerialServer& operator=(const SerialServer&) = delete;

    const std::string& error() const { return error_; }
    std::string Url() const { return "rfc2217://127.0.0.1:" + std::to_string(port_); }
    // Ends the server at once, as a crash or a pulled plug would.
    void Kill() {
        if (pid_ <= 0) return;
        kill(pid_, SIGKILL);
        int status = 0;
        waitpid(pid_, &status, 0);
        pid_ = -1;
    }
    std::string Log() const {
        std::stringstream text;
        text << std::ifstream(dir_ / "server.log").rdbuf();
        return text.str();
    }

  private:
    std::uint16_t port_;
    std::filesystem::path dir_;
    pid_t pid_ = -1;
    std::string error_;
};

}  // namespace corvid::test_support
