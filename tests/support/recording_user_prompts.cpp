#include "support/recording_user_prompts.h"

namespace corvid::host {

PromptAnswer RecordingUserPrompts::MessageBox(const std::string& text, PromptButtons buttons,
                                              PromptIcon icon, const std::string& title) {
    prompts_.push_back({text, title, buttons, icon, false});
    if (!answers_.empty()) {
        const PromptAnswer answer = answers_.front();
        answers_.pop_front();
        return answer;
    }
    return buttons == PromptButtons::kOk ? PromptAnswer::kOk : PromptAnswer::kYes;
}

std::string RecordingUserPrompts::InputBox(const std::string& prompt, const std::string& title,
                                           const std::string& default_text) {
    prompts_.push_back({prompt, title, PromptButtons::kOk, PromptIcon::kNone, true});
    if (inputs_.empty()) return default_text;
    std::string answer = inputs_.front();
    inputs_.pop_front();
    return answer;
}

std::vector<std::string> RecordingUserPrompts::texts() const {
    std::vector<std::string> texts;
    for (const RecordedPrompt& prompt : prompts_) texts.push_back(prompt.text);
    return texts;
}

}  // namespace corvid::host
