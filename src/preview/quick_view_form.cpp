#include "preview/quick_view_form.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "automation/conversions.h"
#include "automation/vb_error.h"
#include "host/settings_store.h"
#include "host/user_prompts.h"
#include "preview/quick_view_dialogs.h"
#include "preview/vb_strings.h"

namespace corvid::preview {
namespace {

// Windows-1252 letters folded to lower case, as the text box's search compares them.
unsigned char Fold(unsigned char c) {
    if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 32);
    if (c == 0x8A || c == 0x8C || c == 0x8E) return static_cast<unsigned char>(c + 16);
    if (c == 0x9F) return 0xFF;
    return c;
}

// 0-based offset of `find` in `text` at or after `from`, ignoring case; -1 if none.
std::int32_t FindIgnoringCase(const std::string& text, const std::string& find, std::int32_t from) {
    const auto n = static_cast<std::int32_t>(text.size());
    const auto m = static_cast<std::int32_t>(find.size());
    for (std::int32_t at = from; at + m <= n; ++at) {
        std::int32_t i = 0;
        while (i < m && Fold(static_cast<unsigned char>(text[at + i])) ==
                            Fold(static_cast<unsigned char>(find[i]))) {
            ++i;
        }
        if (i == m) return at;
    }
    return -1;
}

std::string Trim(const std::string& value) {
    const auto first = value.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return value.substr(first, value.find_last_not_of(' ') - first + 1);
}

// A whole number as the entry shows it.
std::string WholeNumberText(double value) {
    char text[64];
    if (std::fabs(value) < 1e15) {
        std::snprintf(text, sizeof text, "%.0f", value);
    } else {
        std::snprintf(text, sizeof text, "%.15G", value);
    }
    return text;
}

bool IsControl(const std::string& text, std::int32_t position) {
    return static_cast<unsigned char>(text[static_cast<std::size_t>(position - 1)]) < 32;
}

}  // namespace

QuickViewLayout LayoutQuickView(std::int32_t width, std::int32_t height) {
    QuickViewLayout layout;
    layout.width = std::max(width, kMinFormWidth);
    layout.height = std::max(height, kMinFormHeight);
    layout.button_top = layout.height - 1080;
    layout.save_left = layout.width - 7020;
    layout.search_left = layout.width - 5310;
    layout.print_left = layout.width - 3600;
    layout.close_left = layout.width - 1890;
    layout.text_height = layout.height - 1275;
    layout.text_width = layout.width - 465;
    layout.label_top = layout.height - 840;
    layout.margin_top = layout.height - 870;
    return layout;
}

bool IsValidNumber(std::string& value) {
    if (value.empty()) return true;
    value = Trim(value);
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        const bool allowed = (c >= '0' && c <= '9') || c == ',' || c == '.' || (c == '-' && i == 0);
        if (!allowed) return false;
    }
    return true;
}

ClickedLine LineAtCaret(const std::string& text, std::int32_t caret) {
    const std::int32_t length = Len(text);
    std::int32_t a = caret;
    while (a > 0 && !IsControl(text, a)) --a;
    std::int32_t b = caret == 0 ? 1 : caret;
    while (b < length && !IsControl(text, b)) ++b;
    if (b == a) return {};
    return {true, Mid(text, a + 1, b - a - 1), caret - a};
}

QuickViewForm::QuickViewForm(lfQuickView& view, std::function<void()> hide)
    : view_(view), hide_(std::move(hide)) {
    editable_ = host::GetSettingBool("ORV", "FVIEW", "EditQView", false);
}

void QuickViewForm::Activate() {
    if (!view_.loaded()) view_.LoadText();
}

QuickViewLayout QuickViewForm::Resize(std::int32_t width, std::int32_t height) {
    const QuickViewLayout layout = LayoutQuickView(width, height);
    if (layout.text_width > rightMargin_) rightMargin_ = layout.text_width;
    return layout;
}

void QuickViewForm::PrintClicked() {
    try {
        view_.SetLeftMargin(automation::CInt(automation::Val(marginText_)));
    } catch (const automation::VbError&) {
        view_.SetLeftMargin(0);
    }
    // The button is the person's: a printer error is told to them, not raised.
    try {
        view_.PrintListBox();
    } catch (const automation::VbError& error) {
        host::CurrentUserPrompts().MessageBox(error.description(), host::PromptButtons::kOk,
                                              host::PromptIcon::kCritical, "Imprimir");
    }
}

void QuickViewForm::CloseClicked() {
    if (view_.printing()) {
        const auto answer = host::CurrentUserPrompts().MessageBox(
            "Detener la impresi\xF3n en progreso", host::PromptButtons::kYesNo,
            host::PromptIcon::kNone, "Halewood");
        // Yes keeps the job and the window: the answer's sense is the product's own.
        if (answer == host::PromptAnswer::kYes) return;
        view_.StopPrinting();
    }
    hide_();
}

void QuickViewForm::PrinterFontClicked() {
    PrinterDevice& printer = view_.printer();
    try {
        const FontChoice preset{printer.FontName(), printer.FontSize(), printer.FontBold(),
                                printer.FontItalic()};
        const auto choice = CurrentQuickViewDialogs().ChooseFont(
            preset, font_dialog_flags::kPrinterFonts | font_dialog_flags::kFixedPitchOnly);
        if (!choice) return;
        printer.SetFontName(choice->name);
        printer.SetFontSize(choice->size);
        printer.SetFontBold(choice->bold);
        printer.SetFontItalic(choice->italic);
        screenFontName_ = choice->name;
        view_.FixPrintFont();
    } catch (const automation::VbError& error) {
        host::CurrentUserPrompts().MessageBox(error.description(), host::PromptButtons::kOk,
                                              host::PromptIcon::kCritical, "Fuente Impresora");
    }
}

void QuickViewForm::SearchClicked() {
    const std::string answer = host::CurrentUserPrompts().InputBox(
        "Introduzca el texto a localizar:", "Buscar", lastSearch_);
    if (!answer.empty()) FindText(answer);
}

void QuickViewForm::F3Pressed() { FindText(lastSearch_); }

void QuickViewForm::FindText(const std::string& text) {
    TextBox& box = view_.textBox();
    std::int32_t start = box.sel_start() + box.sel_length() + 1;
    if (start >= Len(box.text())) start = 0;
    const std::int32_t found = text.empty() ? -1 : FindIgnoringCase(box.text(), text, start);
    if (found >= 0) {
        box.SetSelStart(found);
        box.SetSelLength(Len(text));
    } else {
        host::CurrentUserPrompts().MessageBox("No se localiz\xF3 el texto deseado",
                                              host::PromptButtons::kOk,
                                              host::PromptIcon::kExclamation, "ADVERTENCIA");
    }
    lastSearch_ = text;
}

void QuickViewForm::SaveClicked() {
    SaveDialogRequest request;
    request.title = "Nombre del archivo";
    request.default_extension = ".txt";
    request.flags = 0x20080A;
    request.initial_folder = host::GetSettingString("Halewood", "General", "DataDir", "");
    request.filter = "Archivos de Texto|*.txt";
    const auto file = CurrentQuickViewDialogs().SaveFileName(request);
    if (!file) return;
    std::ofstream out(*file, std::ios::binary | std::ios::trunc);
    out << view_.textBox().text();
    if (!out) {
        host::CurrentUserPrompts().MessageBox("No se pudo guardar " + *file,
                                              host::PromptButtons::kOk, host::PromptIcon::kCritical,
                                              "Guardar como");
    }
}

void QuickViewForm::GrowFontClicked() {
    if (screenFontSize_ < kLargestScreenFont) ++screenFontSize_;
}

void QuickViewForm::ShrinkFontClicked() {
    if (screenFontSize_ > kSmallestScreenFont) --screenFontSize_;
}

bool QuickViewForm::MarginEntryLeft() {
    const bool valid = IsValidNumber(marginText_) && !marginText_.empty();
    if (!valid) {
        host::CurrentUserPrompts().MessageBox(
            "Por favor, introduzca un n\xFAmeto valido", host::PromptButtons::kOk,
            host::PromptIcon::kExclamation, "PrinterFiscalCorvid (commAPI)");
    }
    marginText_ = WholeNumberText(automation::Int(automation::Val(marginText_)));
    return !valid;
}

void QuickViewForm::TextClicked() {
    TextBox& box = view_.textBox();
    const ClickedLine clicked = LineAtCaret(box.text(), box.sel_start());
    if (!clicked.found) return;
    view_.RaiseReportClicked(clicked.line, clicked.column);
    box.SetSelLength(0);
}

void QuickViewForm::EscapePressed() { hide_(); }

}  // namespace corvid::preview
