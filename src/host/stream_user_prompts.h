// Prompts for a host without a desktop: each message is written to a stream (the title on
// its own line when there is one, then the text) and answered at once: Ok for an OK box,
// Yes for a Yes/No question, the default text for an input box. Never waits for input.
// An echo, when given, also receives every message (the session trace takes them).
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "host/user_prompts.h"

namespace corvid::host {

class StreamUserPrompts : public UserPrompts {
  public:
    using Echo = std::function<void(const std::string& message)>;
    explicit StreamUserPrompts(std::ostream& out, Echo echo = {})
        : out_(out), echo_(std::move(echo)) {}

    PromptAnswer MessageBox(const std::string& text, PromptButtons buttons, PromptIcon icon,
                            const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& default_text) override;

  private:
    std::ostream& out_;
    Echo echo_;
};

}  // namespace corvid::host
