// A fake for tests: records every message box and input box, and answers from a queue of
// answers, or with a default once the queue is empty (Ok for an OK box, Yes for a Yes/No
// question, the default text for an input box).
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "host/user_prompts.h"

namespace corvid::host {

struct RecordedPrompt {
    std::string text;  // the message, or the input box's prompt
    std::string title;
    PromptButtons buttons = PromptButtons::kOk;
    PromptIcon icon = PromptIcon::kNone;
    bool input_box = false;
};

class RecordingUserPrompts : public UserPrompts {
  public:
    PromptAnswer MessageBox(const std::string& text, PromptButtons buttons, PromptIcon icon,
                            const std::string& title) override {
        prompts_.push_back({text, title, buttons, icon, false});
        if (answers_.empty()) {
            return buttons == PromptButtons::kOk ? PromptAnswer::kOk : PromptAnswer::kYes;
        }
        const PromptAnswer answer = answers_.front();
        answers_.pop_front();
        return answer;
    }
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& default_text) override {
        prompts_.push_back({prompt, title, PromptButtons::kOk, PromptIcon::kNone, true});
        if (inputs_.empty()) return default_text;
        std::string answer = inputs_.front();
        inputs_.pop_front();
        return answer;
    }

    void QueueAnswer(PromptAnswer answer) { answers_.push_back(answer); }
    void QueueInput(const std::string& text) { inputs_.push_back(text); }

    const std::vector<RecordedPrompt>& prompts() const { return prompts_; }
    // The texts of the message boxes and input boxes, in order.
    std::vector<std::string> texts() const {
        std::vector<std::string> texts;
        for (const RecordedPrompt& prompt : prompts_) texts.push_back(prompt.text);
        return texts;
    }

  private:
    std::vector<RecordedPrompt> prompts_;
    std::deque<PromptAnswer> answers_;
    std::deque<std::string> inputs_;
};

}  // namespace corvid::host
