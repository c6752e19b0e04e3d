// Modal questions and messages to the person at the host (message box, input box).
#pragma once

#include <memory>
#include <string>

namespace corvid::port {

enum class PromptButtons { kOk, kYesNo };
enum class PromptIcon { kNone, kCritical, kExclamation, kInformation };
enum class PromptAnswer { kOk, kYes, kNo };

class UserPrompts {
public:
    virtual ~UserPrompts() = default;
    virtual PromptAnswer MessageBox(const std::string& text, PromptButtons buttons,
                                    PromptIcon icon, const std::string& title) = 0;
};

// The process-wide prompts (a message box on Windows, the standard error stream elsewhere).
UserPrompts& CurrentUserPrompts();
// Replaces them; returns the previous. Used by tests and by hosts without a desktop.
std::shared_ptr<UserPrompts> ReplaceUserPrompts(std::shared_ptr<UserPrompts> prompts);

}  // namespace corvid::port
