// quickview-driver: drives a preview window of another process for the window tests.
//   quickview-driver click LINE COLUMN     click on that character (1-based) of the report
//   quickview-driver key escape|f3
//   quickview-driver resize WIDTH HEIGHT   the window's outer size, in twips
//   quickview-driver margin TEXT           types into the margin entry, then leaves it
//   quickview-driver button CAPTION        a button, or a font image by its glyph (+ or -)
//   quickview-driver find TEXT             "Buscar Texto", answering its input box
//   quickview-driver dump                  one line per fact of the window
//   quickview-driver dismiss-all OUTFILE SECONDS
// Message boxes the window raises in reply are reported as "message: TITLE: TEXT" and
// dismissed. Exits 0 on success, 1 when the window (or a control) is not found.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

const wchar_t kCaption[] = L"Documento: Vista R\u00E1pida";
// How long a message box the window may raise is waited for: Wine's first box of a process
// can take over a second (it loads the sound for the icon).
constexpr int kMessageWait = 4000;

std::string Utf8(const std::wstring& text) {
    std::string out(text.size() * 3, '\0');
    out.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(),
                            static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1,
                      L'\0');
    SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(wcslen(text.c_str()));
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[128] = {};
    GetClassNameW(window, name, 128);
    return name;
}

void Pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

HWND WaitForWindow(const wchar_t* title, int milliseconds) {
    for (int waited = 0;; waited += 100) {
        HWND window = FindWindowW(nullptr, title);
        if (window != nullptr && IsWindowVisible(window)) return window;
        if (waited >= milliseconds) return nullptr;
        Pause(100);
    }
}

// A named CALLBACK, not a lambda: on 32-bit Windows the callback must be stdcall.
BOOL CALLBACK AddChild(HWND child, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
    return TRUE;
}

std::vector<HWND> Children(HWND parent) {
    std::vector<HWND> children;
    EnumChildWindows(parent, AddChild, reinterpret_cast<LPARAM>(&children));
    return children;
}

// The rich edit (its class name holds "richedit") or, with `entry`, the plain edit.
HWND Child(HWND window, bool entry) {
    for (HWND child : Children(window)) {
        std::wstring name = ClassOf(child);
        for (auto& c : name) c = static_cast<wchar_t>(towlower(c));
        if (entry ? name == L"edit" : name.find(L"richedit") != std::wstring::npos) return child;
    }
    return nullptr;
}

int Twips(int pixels, bool to_pixels = false) {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return to_pixels ? MulDiv(pixels, dpi, 1440) : MulDiv(pixels, 1440, dpi);
}

// Reports and closes a message box titled `title` that appears in time, or reports none.
void DismissMessageBox(const wchar_t* title) {
    HWND box = WaitForWindow(title, kMessageWait);
    if (box == nullptr) return (void)std::printf("message: none\n");
    std::wstring text;
    for (HWND child : Children(box)) {
        if (ClassOf(child) == L"Static" && !TextOf(child).empty()) text = TextOf(child);
    }
    std::printf("message: %s: %s\n", Utf8(title).c_str(), Utf8(text).c_str());
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    for (int i = 0; i < 30 && WaitForWindow(title, 0) == box; ++i) Pause(100);
}

void PressKey(HWND target, UINT key) {
    PostMessageW(target, WM_KEYDOWN, key, 1);
    PostMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u));
}

void Notify(HWND window, HWND control, int code) {
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

// Clicks the character's right half, so that the caret lands after it: the reported column
// is then the one clicked.
void Click(HWND window, int line, int column) {
    HWND text = Child(window, false);
    const LRESULT at =
        SendMessageW(text, EM_LINEINDEX, static_cast<WPARAM>(line - 1), 0) + column - 1;
    const LRESULT here = SendMessageW(text, EM_POSFROMCHAR, static_cast<WPARAM>(at), 0);
    const LRESULT next = SendMessageW(text, EM_POSFROMCHAR, static_cast<WPARAM>(at + 1), 0);
    const int width = static_cast<short>(LOWORD(next)) - static_cast<short>(LOWORD(here));
    const LPARAM point =
        MAKELPARAM(static_cast<short>(LOWORD(here)) + (width > 0 ? width * 3 / 4 : 2),
                   static_cast<short>(HIWORD(here)) + 4);
    PostMessageW(text, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(text, WM_LBUTTONUP, 0, point);
    Pause(300);
}

void Dump(HWND window) {
    const auto prop = [&](const wchar_t* name) {
        return static_cast<long long>(reinterpret_cast<INT_PTR>(GetPropW(window, name)));
    };
    HWND text = Child(window, false);
    std::printf("window_twips %lld %lld\n", prop(L"CorvidWidthTwips"), prop(L"CorvidHeightTwips"));
    for (HWND child : Children(window)) {
        RECT r;
        GetWindowRect(child, &r);
        POINT origin = {r.left, r.top};
        ScreenToClient(window, &origin);
        std::printf("control %s \"%s\" %d %d %d %d screen %ld %ld %ld %ld\n",
                    Utf8(ClassOf(child)).c_str(), child == text ? "" : Utf8(TextOf(child)).c_str(),
                    Twips(origin.x), Twips(origin.y), Twips(r.right - r.left),
                    Twips(r.bottom - r.top), r.left, r.top, r.right - r.left, r.bottom - r.top);
    }
    const LRESULT packed = SendMessageW(text, EM_GETSEL, 0, 0);
    std::printf("selection %d %d\n", LOWORD(packed), HIWORD(packed) - LOWORD(packed));
    std::printf("screen_font %lld\n", prop(L"CorvidScreenFont"));
    std::wstring all = TextOf(text);
    while (!all.empty() && (all.back() == L'\r' || all.back() == L'\n')) all.pop_back();
    std::printf("last_line %s\n", Utf8(all.substr(all.find_last_of(L"\r\n") + 1)).c_str());
    std::printf("margin %s\n", Utf8(TextOf(Child(window, true))).c_str());
}

// Copies each window that shows up (one LF per line, as the report's lines were written)
// and closes it with Escape, until SECONDS pass or OUTFILE.stop exists.
int DismissAll(const char* out_file, int seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (std::chrono::steady_clock::now() < end &&
           !std::filesystem::exists(std::string(out_file) + ".stop")) {
        HWND window = WaitForWindow(kCaption, 0);
        if (window == nullptr) {
            Pause(200);
            continue;
        }
        const std::string text = Utf8(TextOf(Child(window, false)));
        std::string lines;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
            lines += text[i] == '\r' ? '\n' : text[i];
        }
        std::ofstream(out_file, std::ios::app | std::ios::binary)
            << lines << (lines.empty() || lines.back() == '\n' ? "" : "\n")
            << "-- end of window --\n";
        PressKey(Child(window, false), VK_ESCAPE);
        for (int i = 0; i < 25 && WaitForWindow(kCaption, 0) == window; ++i) Pause(100);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "dismiss-all" && argc == 4) return DismissAll(argv[2], std::atoi(argv[3]));
    HWND window = WaitForWindow(kCaption, 10000);
    if (window == nullptr) {
        std::printf("no window\n");
        return 1;
    }
    if (command == "click" && argc == 4) {
        Click(window, std::atoi(argv[2]), std::atoi(argv[3]));
    } else if (command == "key" && argc == 3) {
        const bool f3 = std::string(argv[2]) == "f3";
        PressKey(Child(window, false), f3 ? VK_F3 : VK_ESCAPE);
        if (f3) DismissMessageBox(L"ADVERTENCIA");
    } else if (command == "resize" && argc == 4) {
        SetWindowPos(window, nullptr, 0, 0, Twips(std::atoi(argv[2]), true),
                     Twips(std::atoi(argv[3]), true), SWP_NOMOVE | SWP_NOZORDER);
        Pause(400);
    } else if (command == "margin" && argc == 3) {
        HWND entry = Child(window, true);
        SendMessageA(entry, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(argv[2]));
        Notify(window, entry, EN_KILLFOCUS);  // as when the focus moves on
        DismissMessageBox(L"PrinterFiscalCorvid (commAPI)");
        Pause(200);
    } else if ((command == "button" || command == "find") && argc == 3) {
        // Any control by its text: the font images ("+", "-") notify as buttons do.
        const bool find = command == "find";
        HWND button = FindWindowExA(window, nullptr, nullptr, find ? "Buscar Texto" : argv[2]);
        if (button == nullptr) return 1;
        Notify(window, button, BN_CLICKED);
        Pause(300);
        if (!find) return 0;
        HWND ask = WaitForWindow(L"Buscar", 5000);
        if (ask == nullptr) return 1;
        SendMessageA(FindWindowExW(ask, nullptr, L"Edit", nullptr), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(argv[2]));
        PostMessageW(ask, WM_COMMAND, IDOK, 0);
        DismissMessageBox(L"ADVERTENCIA");
    } else if (command == "dump") {
        Dump(window);
    } else {
        std::fprintf(stderr, "usage: quickview-driver COMMAND [ARGS]\n");
        return 2;
    }
    return 0;
}
