// Modal questions and messages to the person at the host (message box, input box).
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvid::host {

enum class PromptButtons { kOk, kYesNo };

// What a box shown without a title of its own carries, as a VB component's boxes do.
inline constexpr const char* kLibraryTitle = "PrinterFiscalCorvid";
inline std::string TitleOrLibrary(const std::string& title) {
    return title.empty() ? kLibraryTitle : title;
}
enum class PromptIcon { kNone, kCritical, kExclamation, kInformation };
enum class PromptAnswer { kOk, kYes, kNo };

// Note for Windows code: <windows.h> defines MessageBox as a macro; #undef it before
// including this header.
class UserPrompts {
  public:
    virtual ~UserPrompts() = default;
    virtual PromptAnswer MessageBox(const std::string& text, PromptButtons buttons, PromptIcon icon,
                                    const std::string& title) = 0;
    // Asks for a line of text; the answer is empty when the person cancels. Prompts that
    // cannot ask answer `default_text`.
    virtual std::string InputBox(const std::string& prompt, const std::string& title,
                                 const std::string& default_text) {
        (void)prompt;
        (void)title;
        return default_text;
    }
};

// The process-wide prompts: a message box on Windows; elsewhere the title and text are
// written to the standard error stream and the answer is given at once without waiting for
// input (Ok for an OK box, Yes for a Yes/No question, the default text for an input box),
// so that a host without a desktop never hangs.
UserPrompts& CurrentUserPrompts();
// Where the default prompts of a host without a desktop also write each message (the
// session trace); the Windows message box does not use it.
void SetPromptEcho(std::function<void(const std::string& message)> echo);
// Replaces them; returns the previous. Used by tests and by hosts without a desktop.
std::shared_ptr<UserPrompts> ReplaceUserPrompts(std::shared_ptr<UserPrompts> prompts);

}  // namespace corvid::host
