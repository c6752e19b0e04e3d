// The user prompts of this platform (see CurrentUserPrompts).
#pragma once

#include <memory>

#include "port/user_prompts.h"

namespace corvid::port {

std::shared_ptr<UserPrompts> MakePlatformUserPrompts();

}  // namespace corvid::port
