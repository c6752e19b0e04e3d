#include "corvid/tool_prompts.h"

#include "corvid/text_codec.h"

namespace corvid::tool {

host::PromptAnswer ToolPrompts::MessageBox(const std::string& text, host::PromptButtons buttons,
                                           host::PromptIcon, const std::string& title) {
    out_ << "  message box";
    if (!title.empty()) out_ << " \"" << Cp1252ToUtf8(title) << "\"";
    out_ << ": " << Cp1252ToUtf8(text) << "\n";
    return buttons == host::PromptButtons::kYesNo ? host::PromptAnswer::kYes
                                                  : host::PromptAnswer::kOk;
}

}  // namespace corvid::tool
