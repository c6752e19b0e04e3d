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
#include <utility>

extern char** environ;

namespace corvid::test_support {

class SerialServer {
  public:
    // Starts ser2net for terminal `tty` on a free port; error() says why when it did not
    // come up.
    explicit SerialServer(const std::string& tty) {
        const int probe = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(probe, reinterpret_cast<sockaddr*>(&address), size);
        getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
        close(probe);
        port_ = ntohs(address.sin_port);
        dir_ = std::filesystem::temp_directory_path() /
               ("corvid-server-" + std::to_string(getpid()) + "-" + std::to_string(port_));
        std::filesystem::create_directories(dir_);
        const std::string config = (dir_ / "ser2net.yaml").string(), log = (dir_ / "log").string(),
                          pid = (dir_ / "pid").string();
        std::ofstream(config) << "%YAML 1.1\n---\nconnection: &printer\n"
                              << "  accepter: telnet(rfc2217),tcp,127.0.0.1," << port_ << "\n"
                              << "  connector: serialdev," << tty << ",19200n82,local\n";
        const char* args[] = {"/usr/sbin/ser2net", "-d", "-u",        "-c",
                              config.c_str(),      "-P", pid.c_str(), nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, log.c_str(), O_WRONLY | O_CREAT, 0644);
        posix_spawn_file_actions_adddup2(&actions, 1, 2);
        const int failed =
            posix_spawn(&pid_, args[0], &actions, nullptr, const_cast<char* const*>(args), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (failed != 0) {
            pid_ = -1;
            error_ = std::string("ser2net did not start: ") + std::strerror(failed);
            return;
        }
        // Listening, as the kernel's table shows: a trial connection would open the terminal.
        char wanted[32];
        std::snprintf(wanted, sizeof wanted, ":%04X 00000000:0000 0A", port_);
        for (int tries = 0; error_.empty(); ++tries) {
            std::stringstream table;
            table << std::ifstream("/proc/net/tcp").rdbuf();
            if (table.str().find(wanted) != std::string::npos) break;
            int status = 0;
            if (tries == 500 || waitpid(pid_, &status, WNOHANG) == pid_) {
                std::stringstream text;
                text << std::ifstream(log).rdbuf();
                error_ =
                    "ser2net is not listening on port " + std::to_string(port_) + ": " + text.str();
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }
    ~SerialServer() {
        Kill();
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }

    const std::string& error() const { return error_; }
    std::string Url() const { return "rfc2217://127.0.0.1:" + std::to_string(port_); }
    // Ends the server at once, as a crash or a pulled plug would.
    void Kill() {
        if (pid_ <= 0) return;
        kill(pid_, SIGKILL);
        waitpid(std::exchange(pid_, -1), nullptr, 0);
    }

  private:
    std::uint16_t port_;
    std::filesystem::path dir_;
    pid_t pid_ = -1;
    std::string error_;
};

}  // namespace corvid::test_support
