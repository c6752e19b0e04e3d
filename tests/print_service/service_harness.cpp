#include "print_service/service_harness.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <thread>

#include "corvid/embedded_samples.h"
#include "service/journal.h"
#include "service/tokens.h"

extern char** environ;

namespace corvid::e2e {

ServiceProcess::ServiceProcess(std::string device, std::filesystem::path folder,
                               std::vector<std::string> options)
    : device_(std::move(device)), folder_(std::move(folder)), options_(std::move(options)) {
    std::filesystem::create_directories(folder_);
    std::ofstream(folder_ / "ORV.ini") << "[Config\\NimbusPF]\nTimeOut=1\nMaxWait=3\n";
    const std::string token = service::NewToken();
    service::Journal(folder_ / "data").AddToken("chaos", service::TokenHash(token));
    target_.host = "127.0.0.1";
    target_.token = token;
}

ServiceProcess::~ServiceProcess() {
    if (pid_ > 0) {
        ::kill(pid_, SIGTERM);
        ::waitpid(pid_, nullptr, 0);
    }
    if (output_ >= 0) ::close(output_);
}

void ServiceProcess::Start() {
    int pipe[2];
    if (::pipe(pipe) != 0) throw std::runtime_error("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipe[0]);
    posix_spawn_file_actions_addchdir_np(&actions, folder_.c_str());
    const std::string printer = "default=" + device_, data = (folder_ / "data").string();
    std::vector<std::string> words = {CORVID_TOOL, "serve", "--printer", printer,
                                      "--data",    data,    "--listen",  "127.0.0.1:0"};
    words.insert(words.end(), options_.begin(), options_.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    const int failed = posix_spawn(&pid_, CORVID_TOOL, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    if (failed != 0) throw std::runtime_error("corvid serve did not start");
    if (output_ >= 0) ::close(output_);
    output_ = pipe[0];
    // The first line names the port the system gave.
    std::string line;
    char c;
    while (::read(output_, &c, 1) == 1 && c != '\n') line += c;
    const std::size_t colon = line.rfind(':');
    if (line.find("listening on") == std::string::npos || colon == std::string::npos) {
        throw std::runtime_error("corvid serve said: " + line);
    }
    target_.port = static_cast<std::uint16_t>(std::stoi(line.substr(colon + 1)));
}

void ServiceProcess::Kill() {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
    pid_ = -1;
}

Reply Post(const tool::ServiceTarget& target, const std::string& key, const nlohmann::json& body) {
    const tool::HttpReply reply = tool::SendRequest(target, "POST", "/v1/jobs", body.dump(), key);
    return {reply.status, nlohmann::json::parse(reply.body, nullptr, false)};
}

Reply Get(const tool::ServiceTarget& target, const std::string& path) {
    const tool::HttpReply reply = tool::SendRequest(target, "GET", path);
    return {reply.status, nlohmann::json::parse(reply.body, nullptr, false)};
}

nlohmann::json AwaitEnd(const tool::ServiceTarget& target, std::int64_t id,
                        std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    nlohmann::json job;
    while (std::chrono::steady_clock::now() < end) {
        try {
            job = Get(target, "/v1/jobs/" + std::to_string(id)).body;
        } catch (const tool::NetworkError&) {
            job = nullptr;  // the service is starting again
        }
        const std::string state = job.is_object() ? job.value("state", "") : "";
        if (state != "" && state != "queued" && state != "printing") return job;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return job;
}

int RunClient(const tool::ServiceTarget& target, const std::vector<std::string>& args) {
    std::vector<std::string> words = {CORVID_TOOL, "--service",
                                      "http://127.0.0.1:" + std::to_string(target.port), "--token",
                                      target.token};
    words.insert(words.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = -1;
    const int failed = posix_spawn(&pid, CORVID_TOOL, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    if (failed != 0 || ::waitpid(pid, &status, 0) != pid) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

nlohmann::json SampleSaleJob() {
    return {{"type", "sale"}, {"document", nlohmann::json::parse(tool::kSampleSale)}};
}

}  // namespace corvid::e2e
