// Prompts for a host without a desktop: each message is written to a stream (the title on
// its own line when there is one, then the text) and answered at once: Ok for an OK box,
// Yes for a Yes/No question, the default text for an input box. Never waits for input.
#pragma once

#include <ostream>

#include "host/user_prompts.h"

namespace corvid::host {

class StreamUserPrompts : public UserPrompts {
  public:
    explicit StreamUserPrompts(std::ostream& out) : out_(out) {}

    PromptAnswer MessageBox(const std::string& text, PromptButtons buttons, PromptIcon icon,
                            const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& default_text) override;

  private:
    std::ostream& out_;
};

}  // namespace corvid::host
