#include <windows.h>
// windows.h first: the common dialog header needs its types.
#include <commdlg.h>
#undef ChooseFont  // the dialogs interface has a member of that name

#include <string>
#include <vector>

#include "preview/quick_view_dialogs.h"

namespace corvid::preview {
namespace {

// The default printer's device context, or null when there is none.
HDC DefaultPrinterDc() {
    char device[512] = {};
    GetProfileStringA("windows", "device", "", device, sizeof device);
    std::string name(device);
    name = name.substr(0, name.find(','));
    if (name.empty()) return nullptr;
    return CreateDCA("WINSPOOL", name.c_str(), nullptr, nullptr);
}

class Win32QuickViewDialogs : public QuickViewDialogs {
  public:
    std::optional<FontChoice> ChooseFont(const FontChoice& preset, std::uint32_t flags) override {
        HDC printer = (flags & font_dialog_flags::kPrinterFonts) ? DefaultPrinterDc() : nullptr;
        if (printer == nullptr && (flags & font_dialog_flags::kPrinterFonts)) {
            // Without a printer the dialog would list nothing: offer the screen's fonts.
            flags = (flags & ~font_dialog_flags::kPrinterFonts) | font_dialog_flags::kScreenFonts;
        }
        HDC screen = GetDC(nullptr);
        LOGFONTA font = {};
        font.lfHeight =
            -MulDiv(static_cast<int>(preset.size * 10), GetDeviceCaps(screen, LOGPIXELSY), 720);
        ReleaseDC(nullptr, screen);
        font.lfWeight = preset.bold ? FW_BOLD : FW_NORMAL;
        font.lfItalic = preset.italic ? TRUE : FALSE;
        lstrcpynA(font.lfFaceName, preset.name.c_str(), LF_FACESIZE);

        CHOOSEFONTA dialog = {};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = GetActiveWindow();
        dialog.hDC = printer;
        dialog.lpLogFont = &font;
        dialog.Flags = flags | CF_INITTOLOGFONTSTRUCT;
        const BOOL chosen = ::ChooseFontA(&dialog);
        if (printer != nullptr) DeleteDC(printer);
        if (!chosen) return std::nullopt;
        return FontChoice{font.lfFaceName, dialog.iPointSize / 10.0, font.lfWeight >= FW_BOLD,
                          font.lfItalic != 0};
    }

    std::optional<std::string> SaveFileName(const SaveDialogRequest& request) override {
        std::string filter = request.filter;
        for (char& c : filter) {
            if (c == '|') c = '\0';
        }
        filter.append(2, '\0');
        std::vector<char> file(MAX_PATH * 4, '\0');
        const std::string extension = request.default_extension.substr(
            !request.default_extension.empty() && request.default_extension[0] == '.' ? 1 : 0);

        OPENFILENAMEA dialog = {};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = GetActiveWindow();
        dialog.lpstrFilter = filter.c_str();
        dialog.lpstrFile = file.data();
        dialog.nMaxFile = static_cast<DWORD>(file.size());
        dialog.lpstrInitialDir =
            request.initial_folder.empty() ? nullptr : request.initial_folder.c_str();
        dialog.lpstrTitle = request.title.c_str();
        dialog.lpstrDefExt = extension.c_str();
        dialog.Flags = request.flags;
        if (!GetSaveFileNameA(&dialog)) return std::nullopt;
        return std::string(file.data());
    }
};

}  // namespace

std::shared_ptr<QuickViewDialogs> MakePlatformQuickViewDialogs() {
    return std::make_shared<Win32QuickViewDialogs>();
}

}  // namespace corvid::preview
