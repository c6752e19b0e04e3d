#include <iostream>

#include "host/platform_user_prompts.h"
#include "host/stream_user_prompts.h"

namespace corvid::host {

std::shared_ptr<UserPrompts> MakePlatformUserPrompts() {
    return std::make_shared<StreamUserPrompts>(std::cerr, EchoPrompt);
}

}  // namespace corvid::host
