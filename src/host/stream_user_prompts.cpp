#include "host/stream_user_prompts.h"

namespace corvid::host {

PromptAnswer StreamUserPrompts::MessageBox(const std::string& text, PromptButtons buttons,
                                           PromptIcon /*icon*/, const std::string& title) {
    out_ << TitleOrLibrary(title) << '\n';
    if (echo_) echo_(TitleOrLibrary(title) + ": " + text);
    out_ << text << '\n';
    const PromptAnswer answer =
        buttons == PromptButtons::kYesNo ? PromptAnswer::kYes : PromptAnswer::kOk;
    if (buttons == PromptButtons::kYesNo) out_ << "(answered Yes)\n";
    out_.flush();
    return answer;
}

std::string StreamUserPrompts::InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& default_text) {
    if (!title.empty()) out_ << title << '\n';
    out_ << prompt << '\n' << "(answered \"" << default_text << "\")\n";
    out_.flush();
    return default_text;
}

}  // namespace corvid::host
