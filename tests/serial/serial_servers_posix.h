// Serial device servers in front of a terminal, for tests: ser2net speaking the com-port
// protocol and socat passing bare TCP, each a child process listening on 127.0.0.1.
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
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace corvid::test_support {

// Where `name` is installed (the PATH, then the system folders), or "" when it is not.
inline std::string FindProgram(const std::string& name) {
    std::string folders = std::getenv("PATH") ? std::getenv("PATH") : "";
    folders += ":/usr/sbin:/sbin:/usr/bin:/bin";
    std::stringstream list(folders);
    for (std::string folder; std::getline(list, folder, ':');) {
        const std::string path = folder + "/" + name;
        if (!folder.empty() && access(path.c_str(), X_OK) == 0) return path;
    }
    return "";
}

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
    for (const char* table : {"/proc/net/tcp", "/proc/net/tcp6"}) {
        std::ifstream file(table);
        for (std::string line; std::getline(file, line);) {
            std::istringstream fields(line);
            std::string slot, local, remote, state;
            fields >> slot >> local >> remote >> state;
            if (state == "0A" && local.size() > 5 && local.substr(local.size() - 5) == wanted) {
                return true;
            }
        }
    }
    return false;
}

class SerialServer {
  public:
    enum class Kind { kSer2net, kSocat };

    // Starts the server for terminal `tty`; error() says why when it did not come up.
    SerialServer(Kind kind, const std::string& tty) : kind_(kind), port_(FreeLoopbackPort()) {
        dir_ = std::filesystem::temp_directory_path() /
               ("corvid-server-" + std::to_string(getpid()) + "-" + std::to_string(port_));
        std::filesystem::create_directories(dir_);
        const char* program = kind == Kind::kSer2net ? "ser2net" : "socat";
        const std::string path = FindProgram(program);
        if (path.empty()) {
            error_ =
                std::string(program) + " is not installed; scripts/install-deps.sh installs it";
            return;
        }
        std::vector<std::string> args{path};
        const std::string port = std::to_string(port_);
        if (kind == Kind::kSer2net) {
            const auto config = dir_ / "ser2net.yaml";
            std::ofstream(config) << "%YAML 1.1\n---\nconnection: &printer\n"
                                  << "  accepter: telnet(rfc2217),tcp,127.0.0.1," << port << "\n"
                                  << "  connector: serialdev," << tty << ",9600e81,local\n";
            args.insert(args.end(),
                        {"-d", "-u", "-c", config.string(), "-P", (dir_ / "ser2net.pid").string()});
        } else {
            args.insert(args.end(), {"TCP-LISTEN:" + port + ",bind=127.0.0.1,reuseaddr",
                                     "FILE:" + tty + ",raw,echo=0"});
        }
        Spawn(args);
    }
    ~SerialServer() {
        Stop(SIGTERM);
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }
    SerialServer(const SerialServer&) = delete;
    SerialServer& operator=(const SerialServer&) = delete;

    const std::string& error() const { return error_; }
    std::string Url() const {
        return std::string(kind_ == Kind::kSer2net ? "rfc2217" : "tcp") +
               "://127.0.0.1:" + std::to_string(port_);
    }
    // Ends the server at once, as a crash or a pulled plug would.
    void Kill() { Stop(SIGKILL); }
    std::string Log() const {
        std::ifstream file(dir_ / "server.log");
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }

  private:
    void Spawn(const std::vector<std::string>& args) {
        std::vector<char*> argv;
        for (const auto& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
        argv.push_back(nullptr);
        const std::string log = (dir_ / "server.log").string();
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, 1, log.c_str(), O_WRONLY | O_CREAT, 0644);
        posix_spawn_file_actions_adddup2(&actions, 1, 2);
        const int failed = posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (failed != 0) {
            pid_ = -1;
            error_ = args[0] + " did not start: " + std::strerror(failed);
            return;
        }
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!Listening(port_)) {
            int status = 0;
            if (waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                error_ = args[0] + " ended at start: " + Log();
                return;
            }
            if (std::chrono::steady_clock::now() > deadline) {
                error_ =
                    args[0] + " is not listening on port " + std::to_string(port_) + ": " + Log();
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    void Stop(int signal) {
        if (pid_ <= 0) return;
        kill(pid_, signal);
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        int status = 0;
        while (waitpid(pid_, &status, WNOHANG) == 0) {
            if (std::chrono::steady_clock::now() > deadline) {
                kill(pid_, SIGKILL);
                waitpid(pid_, &status, 0);
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        pid_ = -1;
    }

    Kind kind_;
    std::uint16_t port_;
    std::filesystem::path dir_;
    pid_t pid_ = -1;
    std::string error_;
};

}  // namespace corvid::test_support
