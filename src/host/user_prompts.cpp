#include "host/user_prompts.h"

#include <utility>

#include "automation/replaceable.h"
#include "host/platform_user_prompts.h"

namespace corvid::host {
namespace {

using Echo = std::function<void(const std::string&)>;

automation::Replaceable<std::shared_ptr<UserPrompts>>& PromptsSlot() {
    static automation::Replaceable<std::shared_ptr<UserPrompts>> prompts(MakePlatformUserPrompts);
    return prompts;
}

automation::Replaceable<Echo>& EchoSlot() {
    static automation::Replaceable<Echo> echo;
    return echo;
}

}  // namespace

void SetPromptEcho(std::function<void(const std::string& message)> echo) {
    EchoSlot().Replace(std::move(echo));
}

void EchoPrompt(const std::string& message) {
    if (const Echo echo = EchoSlot().Get()) echo(message);
}

UserPrompts& CurrentUserPrompts() { return *PromptsSlot().Get(); }

std::shared_ptr<UserPrompts> ReplaceUserPrompts(std::shared_ptr<UserPrompts> prompts) {
    return PromptsSlot().Replace(std::move(prompts));
}

}  // namespace corvid::host
