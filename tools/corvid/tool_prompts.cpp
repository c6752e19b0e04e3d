#include "corvid/tool_prompts.h"

#include "text/windows_1252.h"

namespace corvid::tool {

host::PromptAnswer ToolPrompts::MessageBox(const std::string& text, host::PromptButtons buttons,
                                           host::PromptIcon, const std::string& title) {
    out_ << "  message box";
    if (!title.empty()) out_ << " \"" << text::Utf8FromWindows1252(title) << "\"";
    out_ << ": " << text::Utf8FromWindows1252(text) << "\n";
    return buttons == host::PromptButtons::kYesNo ? host::PromptAnswer::kYes
                                                  : host::PromptAnswer::kOk;
}

}  // namespace corvid::tool
