// The library shows a message box when some calls fail. On a command line those boxes
// would stop the run (or, on Windows, appear on a desktop nobody watches), so the tool
// writes their text into its output and answers at once.
#pragma once

#include <ostream>

#include "host/user_prompts.h"

namespace corvid::tool {

class ToolPrompts : public host::UserPrompts {
  public:
    explicit ToolPrompts(std::ostream& out) : out_(out) {}
    host::PromptAnswer MessageBox(const std::string& text, host::PromptButtons buttons,
                                  host::PromptIcon icon, const std::string& title) override;

  private:
    std::ostream& out_;
};

}  // namespace corvid::tool
