// Sets a POSIX environment variable for the life of a test and puts the old value back.
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace corvid::test_support {

class ScopedEnv {
  public:
    ScopedEnv(const char* name, const std::string& value) : name_(name) {
        if (const char* old = getenv(name)) previous_ = old;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() {
        if (previous_) {
            setenv(name_, previous_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

  private:
    const char* name_;
    std::optional<std::string> previous_;
};

}  // namespace corvid::test_support
