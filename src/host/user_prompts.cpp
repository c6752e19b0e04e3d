#include "host/user_prompts.h"

#include <utility>

#include "host/platform_user_prompts.h"

namespace corvid::host {
namespace {

std::shared_ptr<UserPrompts>& PromptsSlot() {
    static std::shared_ptr<UserPrompts> prompts = MakePlatformUserPrompts();
    return prompts;
}

}  // namespace

UserPrompts& CurrentUserPrompts() { return *PromptsSlot(); }

std::shared_ptr<UserPrompts> ReplaceUserPrompts(std::shared_ptr<UserPrompts> prompts) {
    return std::exchange(PromptsSlot(), std::move(prompts));
}

}  // namespace corvid::host
