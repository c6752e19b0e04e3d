#include "host/input_box_win32.h"

#include <windows.h>

#include <cstdint>
#include <vector>

namespace corvid::host {
namespace {

constexpr WORD kPromptId = 100;
constexpr WORD kEditId = 101;
constexpr WORD kButtonClass = 0x0080;
constexpr WORD kEditClass = 0x0081;
constexpr WORD kStaticClass = 0x0082;

struct InputBoxState {
    const std::string* prompt;
    const std::string* title;
    const std::string* default_text;
    std::string answer;
};

// Builds an in-memory dialog template; the texts are set when the dialog starts so that
// they stay in the system code page.
class TemplateWriter {
  public:
    void Word(WORD value) { words_.push_back(value); }
    void Dword(DWORD value) {
        Word(LOWORD(value));
        Word(HIWORD(value));
    }
    void Text(const wchar_t* text) {
        for (; *text != L'\0'; ++text) Word(static_cast<WORD>(*text));
        Word(0);
    }
    void AlignToDword() {
        if (words_.size() % 2 != 0) Word(0);
    }
    void Item(DWORD style, short x, short y, short cx, short cy, WORD id, WORD window_class,
              const wchar_t* text) {
        AlignToDword();
        Dword(style | WS_CHILD | WS_VISIBLE);
        Dword(0);  // extended style
        Word(static_cast<WORD>(x));
        Word(static_cast<WORD>(y));
        Word(static_cast<WORD>(cx));
        Word(static_cast<WORD>(cy));
        Word(id);
        Word(0xFFFF);
        Word(window_class);
        Text(text);
        Word(0);  // no creation data
    }
    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    std::vector<WORD> words_;
};

INT_PTR CALLBACK InputBoxProc(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_INITDIALOG: {
            auto* state = reinterpret_cast<InputBoxState*>(lparam);
            SetWindowLongPtrA(dialog, DWLP_USER, lparam);
            SetWindowTextA(dialog, state->title->c_str());
            SetDlgItemTextA(dialog, kPromptId, state->prompt->c_str());
            SetDlgItemTextA(dialog, kEditId, state->default_text->c_str());
            SendDlgItemMessageA(dialog, kEditId, EM_SETSEL, 0, -1);
            SetFocus(GetDlgItem(dialog, kEditId));
            return FALSE;  // focus was set here
        }
        case WM_COMMAND: {
            auto* state = reinterpret_cast<InputBoxState*>(GetWindowLongPtrA(dialog, DWLP_USER));
            if (LOWORD(wparam) == IDOK) {
                HWND edit = GetDlgItem(dialog, kEditId);
                std::vector<char> text(static_cast<std::size_t>(GetWindowTextLengthA(edit)) + 1);
                GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
                state->answer = text.data();
                EndDialog(dialog, IDOK);
                return TRUE;
            }
            if (LOWORD(wparam) == IDCANCEL) {
                state->answer.clear();
                EndDialog(dialog, IDCANCEL);
                return TRUE;
            }
            break;
        }
        default:
            break;
    }
    return FALSE;
}

}  // namespace

std::string ShowInputBox(const std::string& prompt, const std::string& title,
                         const std::string& default_text) {
    TemplateWriter writer;
    writer.Dword(DS_MODALFRAME | DS_SETFONT | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    writer.Dword(0);  // extended style
    writer.Word(4);   // items
    writer.Word(0);   // x, y, cx, cy
    writer.Word(0);
    writer.Word(240);
    writer.Word(90);
    writer.Word(0);  // no menu
    writer.Word(0);  // standard dialog class
    writer.Text(L"");
    writer.Word(8);
    writer.Text(L"MS Shell Dlg");
    writer.Item(SS_LEFT, 6, 6, 170, 54, kPromptId, kStaticClass, L"");
    writer.Item(BS_DEFPUSHBUTTON | WS_TABSTOP, 184, 6, 50, 14, IDOK, kButtonClass, L"Aceptar");
    writer.Item(BS_PUSHBUTTON | WS_TABSTOP, 184, 24, 50, 14, IDCANCEL, kButtonClass, L"Cancelar");
    writer.Item(ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, 6, 68, 228, 12, kEditId, kEditClass, L"");

    InputBoxState state{&prompt, &title, &default_text, {}};
    DialogBoxIndirectParamA(GetModuleHandleA(nullptr), writer.Get(), GetActiveWindow(),
                            InputBoxProc, reinterpret_cast<LPARAM>(&state));
    return state.answer;
}

}  // namespace corvid::host
