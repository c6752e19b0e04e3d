// quickview-driver: drives a preview window of another process for the window tests.
//   quickview-driver click LINE COLUMN     click on that character (1-based) of the report
//   quickview-driver key escape|f3
//   quickview-driver resize WIDTH HEIGHT   the window's outer size, in twips
//   quickview-driver margin TEXT           types into the margin entry, then leaves it
//   quickview-driver button CAPTION      a button, or a font image by its glyph (+ or -)
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
    if (text.empty()) return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                         nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size,
                        nullptr, nullptr);
    return out;
}

std::wstring Wide(const char* utf8) {
    const int size = MultiByteToWideChar(CP_UTF8, 0, utf8, -1, nullptr, 0);
    std::wstring out(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8, -1, out.data(), size);
    out.resize(static_cast<std::size_t>(size > 0 ? size - 1 : 0));
    return out;
}

std::wstring TextOf(HWND window) {
    const LRESULT length = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(length + 1),
                 reinterpret_cast<LPARAM>(text.data()));
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

HWND VisibleWindow(const wchar_t* title) {
    HWND window = FindWindowW(nullptr, title);
    return window != nullptr && IsWindowVisible(window) ? window : nullptr;
}

HWND WaitForWindow(const wchar_t* title, int milliseconds) {
    for (int waited = 0;; waited += 100) {
        if (HWND window = VisibleWindow(title)) return window;
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

// The first child whose class name, in lower case, holds `part` (or is it, when `whole`).
HWND ChildOfClass(HWND window, const std::wstring& part, bool whole) {
    for (HWND child : Children(window)) {
        std::wstring name = ClassOf(child);
        for (auto& c : name) c = static_cast<wchar_t>(towlower(c));
        if (whole ? name == part : name.find(part) != std::wstring::npos) return child;
    }
    return nullptr;
}
HWND RichEdit(HWND window) { return ChildOfClass(window, L"richedit", false); }
HWND MarginEntry(HWND window) { return ChildOfClass(window, L"edit", true); }

int Dpi() {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : 96;
}

int Twips(int pixels) { return MulDiv(pixels, 1440, Dpi()); }

// Reports and closes a message box titled `title` that appears in time, or reports none.
void DismissMessageBox(const wchar_t* title) {
    HWND box = WaitForWindow(title, kMessageWait);
    if (box == nullptr) {
        std::printf("message: none\n");
        return;
    }
    std::wstring text;
    for (HWND child : Children(box)) {
        if (ClassOf(child) == L"Static" && !TextOf(child).empty()) text = TextOf(child);
    }
    std::printf("message: %s: %s\n", Utf8(title).c_str(), Utf8(text).c_str());
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    for (int i = 0; i < 30 && VisibleWindow(title) == box; ++i) Pause(100);
}

void PressKey(HWND target, UINT key) {
    PostMessageW(target, WM_KEYDOWN, key, 1);
    PostMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u));
}

void ClickButton(HWND window, HWND button) {
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
}

int Click(HWND window, int line, int column) {
    HWND text = RichEdit(window);
    const LRESULT start = SendMessageW(text, EM_LINEINDEX, static_cast<WPARAM>(line - 1), 0);
    if (start < 0) return 1;
    const LRESULT at = start + column - 1;
    // The character's right half, so that the caret lands after it: the reported column
    // is then the one clicked.
    const LRESULT here = SendMessageW(text, EM_POSFROMCHAR, static_cast<WPARAM>(at), 0);
    const LRESULT next = SendMessageW(text, EM_POSFROMCHAR, static_cast<WPARAM>(at + 1), 0);
    int x = static_cast<short>(LOWORD(here));
    const int y = static_cast<short>(HIWORD(here)) + 4;
    const int width = static_cast<short>(LOWORD(next)) - x;
    x += width > 0 ? width * 3 / 4 : 2;
    PostMessageW(text, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(text, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    Pause(300);
    return 0;
}

void Dump(HWND window) {
    const auto prop = [&](const wchar_t* name) {
        return static_cast<long long>(reinterpret_cast<INT_PTR>(GetPropW(window, name)));
    };
    std::printf("window_twips %lld %lld\n", prop(L"CorvidWidthTwips"), prop(L"CorvidHeightTwips"));
    for (HWND child : Children(window)) {
        RECT r;
        GetWindowRect(child, &r);
        POINT origin = {r.left, r.top};
        ScreenToClient(window, &origin);
        const bool is_text = child == RichEdit(window);
        std::printf("control %s \"%s\" %d %d %d %d screen %ld %ld %ld %ld\n",
                    Utf8(ClassOf(child)).c_str(), is_text ? "" : Utf8(TextOf(child)).c_str(),
                    Twips(origin.x), Twips(origin.y), Twips(r.right - r.left),
                    Twips(r.bottom - r.top), r.left, r.top, r.right - r.left, r.bottom - r.top);
    }
    HWND text = RichEdit(window);
    const LRESULT packed = SendMessageW(text, EM_GETSEL, 0, 0);
    std::printf("selection %d %d\n", LOWORD(packed), HIWORD(packed) - LOWORD(packed));
    std::printf("screen_font %lld\n", prop(L"CorvidScreenFont"));
    std::wstring all = TextOf(text);
    while (!all.empty() && (all.back() == L'\r' || all.back() == L'\n')) all.pop_back();
    const auto last_break = all.find_last_of(L"\r\n");
    std::printf("last_line %s\n",
                Utf8(last_break == std::wstring::npos ? all : all.substr(last_break + 1)).c_str());
    std::printf("margin %s\n", Utf8(TextOf(MarginEntry(window))).c_str());
}

int DismissAll(const char* out_file, int seconds) {
    const std::string stop = std::string(out_file) + ".stop";
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (std::chrono::steady_clock::now() < end && !std::filesystem::exists(stop)) {
        if (HWND window = VisibleWindow(kCaption)) {
            std::ofstream out(out_file, std::ios::app | std::ios::binary);
            // One LF per line, as the report's lines were written.
            const std::string text = Utf8(TextOf(RichEdit(window)));
            std::string lines;
            for (std::size_t i = 0; i < text.size(); ++i) {
                if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
                lines += text[i] == '\r' ? '\n' : text[i];
            }
            out << lines << (lines.empty() || lines.back() == '\n' ? "" : "\n")
                << "-- end of window --\n";
            out.close();
            PressKey(RichEdit(window), VK_ESCAPE);
            for (int i = 0; i < 25 && VisibleWindow(kCaption) == window; ++i) Pause(100);
            continue;
        }
        Pause(200);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: quickview-driver COMMAND [ARGS]\n");
        return 2;
    }
    const std::string command = argv[1];
    if (command == "dismiss-all" && argc == 4) return DismissAll(argv[2], std::atoi(argv[3]));

    HWND window = WaitForWindow(kCaption, 10000);
    if (window == nullptr) {
        std::printf("no window\n");
        return 1;
    }
    int status = 0;
    if (command == "click" && argc == 4) {
        status = Click(window, std::atoi(argv[2]), std::atoi(argv[3]));
    } else if (command == "key" && argc == 3) {
        const std::string key = argv[2];
        PressKey(RichEdit(window), key == "f3" ? VK_F3 : VK_ESCAPE);
        if (key == "f3") DismissMessageBox(L"ADVERTENCIA");
    } else if (command == "resize" && argc == 4) {
        const int dpi = Dpi();
        SetWindowPos(window, nullptr, 0, 0, MulDiv(std::atoi(argv[2]), dpi, 1440),
                     MulDiv(std::atoi(argv[3]), dpi, 1440), SWP_NOMOVE | SWP_NOZORDER);
        Pause(400);
    } else if (command == "margin" && argc == 3) {
        HWND entry = MarginEntry(window);
        SendMessageW(entry, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(argv[2]).c_str()));
        // Leaving the entry: the notification the window gets when the focus moves on.
        PostMessageW(window, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(entry), EN_KILLFOCUS),
                     reinterpret_cast<LPARAM>(entry));
        DismissMessageBox(L"PrinterFiscalCorvid (commAPI)");
        Pause(200);
    } else if (command == "button" && argc == 3) {
        // Any control by its text: the font images ("+", "-") notify as buttons do.
        HWND button = FindWindowExW(window, nullptr, nullptr, Wide(argv[2]).c_str());
        if (button == nullptr) return 1;
        ClickButton(window, button);
        Pause(300);
    } else if (command == "find" && argc == 3) {
        HWND button = FindWindowExW(window, nullptr, L"Button", L"Buscar Texto");
        if (button == nullptr) return 1;
        ClickButton(window, button);
        HWND ask = WaitForWindow(L"Buscar", 5000);
        if (ask == nullptr) return 1;
        HWND entry = FindWindowExW(ask, nullptr, L"Edit", nullptr);
        SendMessageW(entry, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(argv[2]).c_str()));
        PostMessageW(ask, WM_COMMAND, IDOK, 0);
        DismissMessageBox(L"ADVERTENCIA");
    } else if (command == "dump") {
        Dump(window);
    } else {
        std::fprintf(stderr, "unknown command or arguments: %s\n", command.c_str());
        return 2;
    }
    return status;
}
