// The user prompts of this platform (see CurrentUserPrompts).
#pragma once

#include <memory>

#include "host/user_prompts.h"

namespace corvid::host {

std::shared_ptr<UserPrompts> MakePlatformUserPrompts();
// Hands a message to the echo set with SetPromptEcho, if any.
void EchoPrompt(const std::string& message);

}  // namespace corvid::host
