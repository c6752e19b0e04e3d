// A fresh folder under the system's temporary folder, removed at the end of the test, and a
// guard that makes a folder the current directory for a while.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace corvid::test_support {

class TempFolder {
  public:
    TempFolder() {
        static std::atomic<int> counter{0};
        const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
        path_ = std::filesystem::temp_directory_path() /
                ("corvid-port-" + std::to_string(stamp) + "-" + std::to_string(counter++));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    // Writes bytes as they stand (no line-end translation).
    void Write(const std::filesystem::path& relative, const std::string& bytes) const {
        std::filesystem::create_directories((path_ / relative).parent_path());
        std::ofstream(path_ / relative, std::ios::binary) << bytes;
    }
    std::string Read(const std::filesystem::path& relative) const {
        std::ifstream in(path_ / relative, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

  private:
    std::filesystem::path path_;
};

class ScopedCurrentDir {
  public:
    explicit ScopedCurrentDir(const std::filesystem::path& dir)
        : previous_(std::filesystem::current_path()) {
        std::filesystem::current_path(dir);
    }
    ~ScopedCurrentDir() { std::filesystem::current_path(previous_); }
    ScopedCurrentDir(const ScopedCurrentDir&) = delete;
    ScopedCurrentDir& operator=(const ScopedCurrentDir&) = delete;

  private:
    std::filesystem::path previous_;
};

}  // namespace corvid::test_support
