#include <windows.h>
#undef MessageBox

#include "host/input_box_win32.h"
#include "host/platform_user_prompts.h"

namespace corvid::host {
namespace {

UINT IconFlags(PromptIcon icon) {
    switch (icon) {
        case PromptIcon::kCritical:
            return MB_ICONHAND;
        case PromptIcon::kExclamation:
            return MB_ICONEXCLAMATION;
        case PromptIcon::kInformation:
            return MB_ICONASTERISK;
        case PromptIcon::kNone:
            break;
    }
    return 0;
}

class Win32UserPrompts : public UserPrompts {
  public:
    PromptAnswer MessageBox(const std::string& text, PromptButtons buttons, PromptIcon icon,
                            const std::string& title) override {
        const UINT flags = (buttons == PromptButtons::kYesNo ? MB_YESNO : MB_OK) | IconFlags(icon);
        const int answer =
            ::MessageBoxA(GetActiveWindow(), text.c_str(), TitleOrLibrary(title).c_str(), flags);
        if (buttons == PromptButtons::kOk) return PromptAnswer::kOk;
        return answer == IDYES ? PromptAnswer::kYes : PromptAnswer::kNo;
    }

    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& default_text) override {
        return ShowInputBox(prompt, title, default_text);
    }
};

}  // namespace

std::shared_ptr<UserPrompts> MakePlatformUserPrompts() {
    return std::make_shared<Win32UserPrompts>();
}

}  // namespace corvid::host
