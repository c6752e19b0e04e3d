#include "host/user_prompts.h"

#include <utility>

#include "host/platform_user_prompts.h"

namespace corvid::host {
namespace {

std::shared_ptr<UserPrompts>& PromptsSlot() {
    static std::shared_ptr<UserPrompts> prompts = MakePlatformUserPrompts();
    return prompts;
}

std::function<void(const std::string&)>& EchoSlot() {
    static std::function<void(const std::string&)> echo;
    return echo;
}

}  // namespace

void SetPromptEcho(std::function<void(const std::string& message)> echo) {
    EchoSlot() = std::move(echo);
}

void EchoPrompt(const std::string& message) {
    if (EchoSlot()) EchoSlot()(message);
}

UserPrompts& CurrentUserPrompts() { return *PromptsSlot(); }

std::shared_ptr<UserPrompts> ReplaceUserPrompts(std::shared_ptr<UserPrompts> prompts) {
    return std::exchange(PromptsSlot(), std::move(prompts));
}

}  // namespace corvid::host
