#include <iostream>

#include "port/platform_user_prompts.h"
#include "port/stream_user_prompts.h"

namespace corvid::port {

std::shared_ptr<UserPrompts> MakePlatformUserPrompts() {
    return std::make_shared<StreamUserPrompts>(std::cerr);
}

}  // namespace corvid::port
