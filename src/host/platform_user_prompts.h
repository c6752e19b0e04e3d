// The user prompts of this platform (see CurrentUserPrompts).
#pragma once

#include <memory>

#include "host/user_prompts.h"

namespace corvid::host {

std::shared_ptr<UserPrompts> MakePlatformUserPrompts();

}  // namespace corvid::host
