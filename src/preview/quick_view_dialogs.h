// The common dialogs the preview window opens (font and save-as), behind an interface so
// that tests and hosts without a desktop can answer them. The platform's dialogs are used
// unless replaced; without a desktop every dialog answers as if cancelled.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace corvid::preview {

struct FontChoice {
    std::string name;
    double size = 0;  // points
    bool bold = false;
    bool italic = false;
};

namespace font_dialog_flags {
inline constexpr std::uint32_t kScreenFonts = 0x1;
inline constexpr std::uint32_t kPrinterFonts = 0x2;
inline constexpr std::uint32_t kFixedPitchOnly = 0x4000;
}  // namespace font_dialog_flags

struct SaveDialogRequest {
    std::string title;
    std::string default_extension;  // with its dot, ".txt"
    std::uint32_t flags = 0;        // the save dialog's OFN_* flags
    std::string initial_folder;
    std::string filter;  // "Description|*.ext" pairs
};

class QuickViewDialogs {
  public:
    virtual ~QuickViewDialogs() = default;
    // The font dialog preset to `preset`; empty when the person cancels.
    virtual std::optional<FontChoice> ChooseFont(const FontChoice& preset, std::uint32_t flags) {
        (void)preset;
        (void)flags;
        return std::nullopt;
    }
    // The file chosen in the save dialog; empty when the person cancels.
    virtual std::optional<std::string> SaveFileName(const SaveDialogRequest& request) {
        (void)request;
        return std::nullopt;
    }
};

QuickViewDialogs& CurrentQuickViewDialogs();
// Replaces them; returns the previous. Used by tests and by hosts without a desktop.
std::shared_ptr<QuickViewDialogs> ReplaceQuickViewDialogs(
    std::shared_ptr<QuickViewDialogs> dialogs);
// The dialogs of this platform (the common dialogs on Windows, none elsewhere).
std::shared_ptr<QuickViewDialogs> MakePlatformQuickViewDialogs();

}  // namespace corvid::preview
