// The preview window on Windows: a top-level window with a rich edit control holding the
// report, the buttons, the margin entry with its up-down control and the two screen-font
// images. What each control does is QuickViewForm's; this file creates the controls, lays
// them out and carries events and state between them and the form.
//
// Text: the report model's TextBox is the text of record. The window copies it into the
// control when it is shown or activated and appends each line the model adds while it is
// on screen (the model's text-added listener). Selection and, when the text is editable,
// the text itself are read back from the control before each action of the form.
#include <windows.h>
// windows.h first: the control headers need its types.
#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <memory>
#include <string>

#include "preview/line_break_offsets.h"
#include "preview/platform_quick_view_window.h"
#include "preview/quick_view.h"
#include "preview/quick_view_form.h"
#include "preview/report_sink.h"
#include "text/windows_1252.h"

namespace corvid::preview {
namespace {

constexpr wchar_t kWindowClass[] = L"CorvidQuickView";
constexpr wchar_t kCaption[] = L"Documento: Vista R\u00E1pida";
constexpr UINT kTextClickedMessage = WM_APP + 1;

enum ControlId : int {
    kTextId = 100,
    kPrintId,
    kPrinterFontId,
    kSearchId,
    kSaveId,
    kCloseId,
    kLabelId,
    kMarginId,
    kUpDownId,
    kGrowId,
    kShrinkId,
};

// Fixed places of the controls that stay where they are (twips); the others follow the
// window's size (LayoutQuickView).
constexpr int kMargin = 120;
constexpr int kTextTop = 60;
constexpr int kButtonWidth = 1575;
constexpr int kPrinterFontWidth = 1700;
constexpr int kButtonHeight = 375;
constexpr int kImageSize = 300;
constexpr int kGrowLeft = 120;
constexpr int kShrinkLeft = 480;
constexpr int kPrinterFontLeft = 900;
constexpr int kLabelLeft = 2640;
constexpr int kLabelWidth = 1080;
constexpr int kEntryLeft = 3780;
constexpr int kEntryWidth = 600;
constexpr int kEntryHeight = 315;

// The report's text is Windows-1252 bytes; the window's controls take UTF-16.
std::wstring Wide(const std::string& bytes) { return text::WideFromWindows1252(bytes); }
std::string Narrow(const std::wstring& wide) { return text::Windows1252FromWide(wide); }

std::wstring WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    GetWindowTextW(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(std::max(0, length)));
    return text;
}

int ScreenDpi() {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : 96;
}

class Win32QuickViewWindow : public QuickViewWindow,
                             public std::enable_shared_from_this<Win32QuickViewWindow> {
  public:
    ~Win32QuickViewWindow() override {
        if (window_ != nullptr) DestroyWindow(window_);
    }

    void Show(lfQuickView& view, bool modal) override;
    void Hide() override;

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT CALLBACK ControlProc(HWND control, UINT message, WPARAM wparam, LPARAM lparam);

    bool Create(lfQuickView& view);
    bool AddTextBox();
    void AddButtonsAndMargin();
    void AddFontImages();
    HWND AddControl(const wchar_t* window_class, const wchar_t* text, DWORD style, int id);
    LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
    void OnCommand(int id, int code);
    bool OnKey(WPARAM key);
    void OnSize();
    void DrawImage(const DRAWITEMSTRUCT& item);
    void RunModalLoop();

    int Pixels(int twips) const { return MulDiv(twips, dpi_, 1440); }
    // Whole pixels holding at least `twips`.
    int PixelsAtLeast(int twips) const { return (twips * dpi_ + 1439) / 1440; }
    // The form's size for a window side of `pixels`: at the minimum's pixel size the form
    // is exactly at its minimum, whatever the rounding of that size says.
    int SideTwips(int pixels, int minimum) const {
        return pixels <= PixelsAtLeast(minimum) ? minimum : MulDiv(pixels, 1440, dpi_);
    }
    void Place(int id, int left, int top, int width, int height);

    // Control <-> model.
    void PushText();
    void AppendAddedText();
    void PushSelection();
    void PullFromControl();
    void PushFont();
    void PushMargin();
    void PullMargin();

    lfQuickView* view_ = nullptr;
    std::unique_ptr<QuickViewForm> form_;
    HWND window_ = nullptr;
    HWND text_ = nullptr;
    HWND margin_ = nullptr;
    HWND owner_ = nullptr;
    int dpi_ = 96;
    bool visible_ = false;
    bool validating_ = false;
    std::string shown_text_;  // the model's text as last copied into the control
};

Win32QuickViewWindow* FromWindow(HWND window) {
    return reinterpret_cast<Win32QuickViewWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// The module holding this code (the DLL when the COM server shows the window).
HINSTANCE ThisModule() {
    static const HINSTANCE module = [] {
        HMODULE handle = nullptr;
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(&ThisModule), &handle);
        return handle != nullptr ? handle : GetModuleHandleW(nullptr);
    }();
    return module;
}

bool RegisterWindowClass() {
    static const bool registered = [] {
        INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_UPDOWN_CLASS | ICC_BAR_CLASSES};
        InitCommonControlsEx(&controls);
        // Msftedit's RICHEDIT50W where present, else riched20's class.
        if (LoadLibraryW(L"Msftedit.dll") == nullptr) LoadLibraryW(L"riched20.dll");
        WNDCLASSEXW window_class = {};
        window_class.cbSize = sizeof window_class;
        window_class.lpfnWndProc = DefWindowProcW;
        window_class.hInstance = ThisModule();
        window_class.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
        window_class.hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));      // IDI_APPLICATION
        window_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        window_class.lpszClassName = kWindowClass;
        // A DLL loaded again in the same process finds its class still registered.
        return RegisterClassExW(&window_class) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
    }();
    return registered;
}

const wchar_t* RichEditClass() {
    WNDCLASSEXW probe = {};
    probe.cbSize = sizeof probe;
    return GetClassInfoExW(nullptr, L"RICHEDIT50W", &probe) ? L"RICHEDIT50W" : RICHEDIT_CLASSW;
}

void Win32QuickViewWindow::Show(lfQuickView& view, bool modal) {
    if (window_ == nullptr && !Create(view)) {
        // No desktop (a service, Wine without a display): the report goes to the sink.
        view.LoadText();
        HandToReportSink(view.textBox().text());
        return;
    }
    owner_ = nullptr;
    if (modal) {
        HWND active = GetActiveWindow();
        if (active != nullptr && active != window_ && IsWindowEnabled(active)) {
            owner_ = active;
            EnableWindow(owner_, FALSE);
        }
    }
    visible_ = true;
    form_->Activate();
    PushText();
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    SetFocus(text_);
    if (modal) RunModalLoop();
}

void Win32QuickViewWindow::Hide() {
    if (window_ == nullptr || !visible_) return;
    visible_ = false;
    // The owner comes back before the window goes, so that it gets the activation.
    if (owner_ != nullptr) EnableWindow(owner_, TRUE);
    ShowWindow(window_, SW_HIDE);
    owner_ = nullptr;
    PostMessageW(window_, WM_NULL, 0, 0);  // wakes a modal loop waiting in GetMessage
}

void Win32QuickViewWindow::RunModalLoop() {
    auto keep_alive = shared_from_this();
    MSG message;
    while (visible_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // the host's loop ends too
            Hide();
            break;
        }
        if (got < 0) break;
        const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd);
        if (ours && message.message == WM_KEYDOWN && OnKey(message.wParam)) continue;
        if (ours && IsDialogMessageW(window_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool Win32QuickViewWindow::Create(lfQuickView& view) {
    if (!RegisterWindowClass()) return false;
    view_ = &view;
    form_ = std::make_unique<QuickViewForm>(view, [this] { Hide(); });
    dpi_ = ScreenDpi();
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kWindowClass, kCaption,
                              WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                              Pixels(12600), Pixels(8400), GetActiveWindow(), nullptr, ThisModule(),
                              nullptr);
    if (window_ == nullptr) return false;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProc));
    if (!AddTextBox()) {
        DestroyWindow(window_);
        window_ = nullptr;
        return false;
    }
    AddButtonsAndMargin();
    AddFontImages();
    PushFont();
    view.SetTextAddedListener([weak = weak_from_this()] {
        if (auto self = weak.lock()) self->AppendAddedText();
    });
    OnSize();
    return true;
}

// The report's rich edit box, whose text never wraps (a line as wide as the right margin).
bool Win32QuickViewWindow::AddTextBox() {
    DWORD text_style = WS_BORDER | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP | ES_MULTILINE |
                       ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL | ES_SAVESEL;
    if (!form_->editable()) text_style |= ES_READONLY;
    text_ = AddControl(RichEditClass(), L"", text_style, kTextId);
    if (text_ == nullptr) return false;
    SendMessageW(text_, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
    HDC screen = GetDC(nullptr);
    SendMessageW(text_, EM_SETTARGETDEVICE, reinterpret_cast<WPARAM>(screen), form_->rightMargin());
    ReleaseDC(nullptr, screen);
    return true;
}

void Win32QuickViewWindow::AddButtonsAndMargin() {
    AddControl(L"BUTTON", L"Imprimir", BS_PUSHBUTTON | WS_TABSTOP, kPrintId);
    AddControl(L"BUTTON", L"Fuente Impresora", BS_PUSHBUTTON | WS_TABSTOP, kPrinterFontId);
    AddControl(L"BUTTON", L"Buscar Texto", BS_PUSHBUTTON | WS_TABSTOP, kSearchId);
    AddControl(L"BUTTON", L"Guardar como", BS_PUSHBUTTON | WS_TABSTOP, kSaveId);
    AddControl(L"BUTTON", L"Cerrar", BS_PUSHBUTTON | WS_TABSTOP, kCloseId);
    AddControl(L"STATIC", L"Margen Izq.:", SS_RIGHT, kLabelId);
    margin_ = AddControl(L"EDIT", Wide(form_->marginText()).c_str(),
                         WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, kMarginId);
    HWND up_down =
        AddControl(UPDOWN_CLASSW, L"",
                   UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_NOTHOUSANDS, kUpDownId);
    SendMessageW(up_down, UDM_SETBUDDY, reinterpret_cast<WPARAM>(margin_), 0);
    SendMessageW(up_down, UDM_SETRANGE32, 0, 100);
}

// The two screen-font images, each with its tooltip.
void Win32QuickViewWindow::AddFontImages() {
    HWND grow = AddControl(L"STATIC", L"+", SS_OWNERDRAW | SS_NOTIFY, kGrowId);
    HWND shrink = AddControl(L"STATIC", L"-", SS_OWNERDRAW | SS_NOTIFY, kShrinkId);
    HWND tips = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP,
                                CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_,
                                nullptr, ThisModule(), nullptr);
    const std::pair<HWND, std::wstring> tip_texts[] = {{grow, L"Ampliar Fuente de Pantalla"},
                                                       {shrink, L"Reducir Fuente de Pantalla"}};
    for (const auto& [image, tip] : tip_texts) {
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = window_;
        tool.uId = reinterpret_cast<UINT_PTR>(image);
        tool.lpszText = const_cast<wchar_t*>(tip.c_str());
        SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

HWND Win32QuickViewWindow::AddControl(const wchar_t* window_class, const wchar_t* text, DWORD style,
                                      int id) {
    HWND control =
        CreateWindowExW(0, window_class, text, style | WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ThisModule(), nullptr);
    if (control == nullptr) return nullptr;
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                 FALSE);
    if (id == kTextId || id == kMarginId) {
        // The keys and the click reach the form even when the host's loop runs the window.
        SetPropW(control, L"CorvidProc",
                 reinterpret_cast<HANDLE>(GetWindowLongPtrW(control, GWLP_WNDPROC)));
        SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlProc));
    }
    return control;
}

LRESULT CALLBACK Win32QuickViewWindow::WindowProc(HWND window, UINT message, WPARAM wparam,
                                                  LPARAM lparam) {
    if (Win32QuickViewWindow* self = FromWindow(window))
        return self->Handle(message, wparam, lparam);
    return DefWindowProcW(window, message, wparam, lparam);
}

LRESULT CALLBACK Win32QuickViewWindow::ControlProc(HWND control, UINT message, WPARAM wparam,
                                                   LPARAM lparam) {
    const auto original = reinterpret_cast<WNDPROC>(GetPropW(control, L"CorvidProc"));
    Win32QuickViewWindow* self = FromWindow(GetParent(control));
    if (self != nullptr && message == WM_KEYDOWN && self->OnKey(wparam)) return 0;
    const LRESULT result = CallWindowProcW(original, control, message, wparam, lparam);
    // The click: the button's release, once the control has moved the caret to it.
    if (self != nullptr && message == WM_LBUTTONUP && control == self->text_) {
        PostMessageW(self->window_, kTextClickedMessage, 0, 0);
    }
    if (message == WM_NCDESTROY) RemovePropW(control, L"CorvidProc");
    return result;
}

LRESULT Win32QuickViewWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ACTIVATE:
            if (LOWORD(wparam) != WA_INACTIVE && form_ != nullptr) {
                if (!view_->loaded()) {
                    form_->Activate();
                    PushText();
                }
            }
            break;
        case WM_GETMINMAXINFO: {
            auto* info = reinterpret_cast<MINMAXINFO*>(lparam);
            info->ptMinTrackSize.x = PixelsAtLeast(kMinFormWidth);
            info->ptMinTrackSize.y = PixelsAtLeast(kMinFormHeight);
            return 0;
        }
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) OnSize();
            return 0;
        case WM_COMMAND:
            OnCommand(LOWORD(wparam), HIWORD(wparam));
            return 0;
        case WM_DRAWITEM:
            DrawImage(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
            return TRUE;
        case kTextClickedMessage:
            PullFromControl();
            form_->TextClicked();
            PushSelection();
            return 0;
        case WM_CLOSE:
            Hide();
            return 0;
        default:
            break;
    }
    return DefWindowProcW(window_, message, wparam, lparam);
}

bool Win32QuickViewWindow::OnKey(WPARAM key) {
    if (key == VK_ESCAPE) {
        form_->EscapePressed();
        return true;
    }
    if (key == VK_F3) {
        PullFromControl();
        form_->F3Pressed();
        PushSelection();
        return true;
    }
    return false;
}

void Win32QuickViewWindow::OnCommand(int id, int code) {
    switch (id) {
        case kPrintId:
            PullFromControl();
            PullMargin();
            form_->PrintClicked();
            break;
        case kCloseId:
        case IDCANCEL:  // Escape through the dialog navigation
            form_->CloseClicked();
            break;
        case kPrinterFontId:
            form_->PrinterFontClicked();
            PushFont();
            break;
        case kSearchId:
            PullFromControl();
            form_->SearchClicked();
            PushSelection();
            SetFocus(text_);
            break;
        case kSaveId:
            PullFromControl();
            form_->SaveClicked();
            break;
        case kGrowId:
        case kShrinkId:
            if (code == STN_CLICKED || code == STN_DBLCLK) {
                id == kGrowId ? form_->GrowFontClicked() : form_->ShrinkFontClicked();
                PushFont();
            }
            break;
        case kMarginId:
            if (code == EN_KILLFOCUS && !validating_) {
                validating_ = true;
                PullMargin();
                const bool rejected = form_->MarginEntryLeft();
                PushMargin();
                if (rejected) SetFocus(margin_);
                validating_ = false;
            }
            break;
        default:
            break;
    }
}

void Win32QuickViewWindow::Place(int id, int left, int top, int width, int height) {
    MoveWindow(GetDlgItem(window_, id), Pixels(left), Pixels(top), Pixels(width), Pixels(height),
               TRUE);
}

void Win32QuickViewWindow::OnSize() {
    RECT bounds;
    GetWindowRect(window_, &bounds);
    const int pixel_width = bounds.right - bounds.left;
    const int pixel_height = bounds.bottom - bounds.top;
    const QuickViewLayout layout = form_->Resize(SideTwips(pixel_width, kMinFormWidth),
                                                 SideTwips(pixel_height, kMinFormHeight));
    if (pixel_width < PixelsAtLeast(layout.width) || pixel_height < PixelsAtLeast(layout.height)) {
        // Below the minimum: the window snaps back, and this runs again at the new size.
        SetWindowPos(window_, nullptr, 0, 0, std::max(pixel_width, PixelsAtLeast(layout.width)),
                     std::max(pixel_height, PixelsAtLeast(layout.height)),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    // The size the form has, for those who inspect the window (the test driver).
    SetPropW(window_, L"CorvidWidthTwips",
             reinterpret_cast<HANDLE>(static_cast<INT_PTR>(layout.width)));
    SetPropW(window_, L"CorvidHeightTwips",
             reinterpret_cast<HANDLE>(static_cast<INT_PTR>(layout.height)));

    Place(kTextId, kMargin, kTextTop, layout.text_width, layout.text_height);
    Place(kGrowId, kGrowLeft, layout.button_top, kImageSize, kImageSize);
    Place(kShrinkId, kShrinkLeft, layout.button_top, kImageSize, kImageSize);
    Place(kPrinterFontId, kPrinterFontLeft, layout.button_top, kPrinterFontWidth, kButtonHeight);
    Place(kSaveId, layout.save_left, layout.button_top, kButtonWidth, kButtonHeight);
    Place(kSearchId, layout.search_left, layout.button_top, kButtonWidth, kButtonHeight);
    Place(kPrintId, layout.print_left, layout.button_top, kButtonWidth, kButtonHeight);
    Place(kCloseId, layout.close_left, layout.button_top, kButtonWidth, kButtonHeight);
    Place(kLabelId, kLabelLeft, layout.label_top, kLabelWidth, kEntryHeight);
    Place(kMarginId, kEntryLeft, layout.margin_top, kEntryWidth, kEntryHeight);
    HWND up_down = GetDlgItem(window_, kUpDownId);
    SendMessageW(up_down, UDM_SETBUDDY, reinterpret_cast<WPARAM>(margin_), 0);  // re-aligns it

    HDC screen = GetDC(nullptr);
    SendMessageW(text_, EM_SETTARGETDEVICE, reinterpret_cast<WPARAM>(screen), form_->rightMargin());
    ReleaseDC(nullptr, screen);
}

void Win32QuickViewWindow::DrawImage(const DRAWITEMSTRUCT& item) {
    HDC dc = item.hDC;
    RECT box = item.rcItem;
    FillRect(dc, &box, GetSysColorBrush(COLOR_WINDOW));
    FrameRect(dc, &box, GetSysColorBrush(COLOR_BTNSHADOW));
    HPEN pen = CreatePen(PS_SOLID, std::max<int>(2, (box.right - box.left) / 8), RGB(0, 0, 128));
    HGDIOBJ old = SelectObject(dc, pen);
    const int cx = (box.left + box.right) / 2;
    const int cy = (box.top + box.bottom) / 2;
    const int arm = (box.right - box.left) / 3;
    MoveToEx(dc, cx - arm, cy, nullptr);
    LineTo(dc, cx + arm + 1, cy);
    if (item.CtlID == kGrowId) {
        MoveToEx(dc, cx, cy - arm, nullptr);
        LineTo(dc, cx, cy + arm + 1);
    }
    SelectObject(dc, old);
    DeleteObject(pen);
}

void Win32QuickViewWindow::PushText() {
    shown_text_ = view_->textBox().text();
    SetWindowTextW(text_, Wide(shown_text_).c_str());
    PushSelection();
}

void Win32QuickViewWindow::AppendAddedText() {
    if (window_ == nullptr) return;
    const std::string& text = view_->textBox().text();
    if (text.compare(0, shown_text_.size(), shown_text_) != 0) {
        PushText();
        return;
    }
    const std::wstring added = Wide(text.substr(shown_text_.size()));
    shown_text_ = text;
    // Appending is the program's own edit: allowed even when the person may not edit.
    SendMessageW(text_, EM_SETREADONLY, FALSE, 0);
    SendMessageW(text_, EM_SETSEL, -1, -1);
    SendMessageW(text_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(added.c_str()));
    if (!form_->editable()) SendMessageW(text_, EM_SETREADONLY, TRUE, 0);
    PushSelection();
}

void Win32QuickViewWindow::PushSelection() {
    const TextBox& box = view_->textBox();
    CHARRANGE range;
    range.cpMin = ControlOffset(box.text(), box.sel_start());
    range.cpMax = ControlOffset(box.text(), box.sel_start() + box.sel_length());
    SendMessageW(text_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    SendMessageW(text_, EM_SCROLLCARET, 0, 0);
}

void Win32QuickViewWindow::PullFromControl() {
    TextBox& box = view_->textBox();
    if (form_->editable()) {
        std::string text = Narrow(WindowText(text_));
        // The control may hand back single CRs; the report keeps CR LF.
        std::string normalised;
        for (std::size_t i = 0; i < text.size(); ++i) {
            normalised += text[i];
            if (text[i] == '\r' && (i + 1 >= text.size() || text[i + 1] != '\n')) {
                normalised += '\n';
            }
        }
        if (normalised != box.text()) {
            box.SetText(normalised);
            shown_text_ = normalised;
        }
    }
    CHARRANGE range = {};
    SendMessageW(text_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    const std::int32_t start = TextOffset(box.text(), range.cpMin);
    const std::int32_t end = TextOffset(box.text(), range.cpMax);
    box.SetSelStart(start);
    box.SetSelLength(end - start);
}

void Win32QuickViewWindow::PushFont() {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    format.dwMask = CFM_FACE | CFM_SIZE;
    format.yHeight = form_->screenFontSize() * 20;
    // Where the face is missing, another fixed-pitch one keeps the columns.
    format.bPitchAndFamily = FIXED_PITCH | FF_MODERN;
    lstrcpynW(format.szFaceName, Wide(form_->screenFontName()).c_str(), LF_FACESIZE);
    SendMessageW(text_, EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
    SendMessageW(text_, EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
    SetPropW(window_, L"CorvidScreenFont",
             reinterpret_cast<HANDLE>(static_cast<INT_PTR>(form_->screenFontSize())));
    InvalidateRect(text_, nullptr, TRUE);
}

void Win32QuickViewWindow::PushMargin() {
    SetWindowTextW(margin_, Wide(form_->marginText()).c_str());
}

void Win32QuickViewWindow::PullMargin() { form_->SetMarginText(Narrow(WindowText(margin_))); }

}  // namespace

void InstallPlatformQuickViewWindow() {
    ReplaceQuickViewWindowFactory(
        [] { return std::shared_ptr<QuickViewWindow>(std::make_shared<Win32QuickViewWindow>()); });
}

}  // namespace corvid::preview
