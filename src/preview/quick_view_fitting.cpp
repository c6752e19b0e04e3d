// Fitting the printer font and the page length to the report width.
#include "automation/conversions.h"
#include "automation/currency.h"
#include "automation/vb_error.h"
#include "host/user_prompts.h"
#include "preview/checked_arithmetic.h"
#include "preview/printer_metrics.h"
#include "preview/quick_view.h"

namespace corvid::preview {
namespace {

// The report must fit in this share of the printable width.
constexpr double kUsableShare = 0.98;
// Columns allowed beyond the report width.
constexpr std::int16_t kColumnAllowance = 6;
constexpr double kSmallestSize = 4;
// Lines of the page height kept free.
constexpr double kReservedLines = 3;

}  // namespace

void lfQuickView::SetPrintFontSize(std::int16_t size) {
    printFontFixed_ = true;
    printer_->SetFontSize(size);
}

bool lfQuickView::SetReportWidth(std::int16_t width) {
    reportWidth_ = width;
    if (printFontFixed_) return false;
    const std::int16_t columns = Add16(width, kColumnAllowance);
    double size = 0;
    double pageHeight = 0;
    double lineHeight = 0;
    try {
        size = FitFontSize(columns);
        if (size <= kSmallestSize && !AcceptsSmallFont()) return false;
        pageHeight = printer_->ScaleHeight();
        lineHeight = printer_->TextHeight("N");
    } catch (const automation::VbError&) {
        return false;  // a printer that fails leaves the fitting where it got to
    }
    linesPerPage_ = automation::CInt(pageHeight / lineHeight - kReservedLines);
    return true;
}

// Steps the font down in half points until the report fits or the device offers nothing
// smaller, then applies the configured offset and factor. Returns the size read back.
double lfQuickView::FitFontSize(std::int16_t columns) {
    PrinterDevice& printer = *printer_;
    const double printable = printer.ScaleWidth() * ScaleToInches(printer.ScaleMode());
    printer.SetFontName(fontName_);
    printer.SetFontSize(settings_.max_font_size);
    printer.SetFontBold(false);
    const auto halfPoint = automation::Currency::FromScaled(automation::Currency::kScale / 2);
    for (;;) {
        const double need = TextWidthInches(printer, columns);
        const double current = printer.FontSize();
        // A page without a width in inches (pixel or user scale) never fits.
        const bool fits = printable > 0 && printable * kUsableShare >= need;
        if (fits || !(current > kSmallestSize)) break;
        printer.SetFontSize((automation::Currency::FromDouble(current) - halfPoint).ToDouble());
        if (printer.FontSize() == current) break;
    }
    if (settings_.font_offset != 0) {
        printer.SetFontSize(static_cast<float>(printer.FontSize()) + settings_.font_offset);
    }
    if (settings_.font_factor != 1.0f) {
        printer.SetFontSize(static_cast<float>(printer.FontSize()) * settings_.font_factor);
    }
    return printer.FontSize();
}

// The person is warned, then asked; only an explicit No goes on to fit the page length.
bool lfQuickView::AcceptsSmallFont() {
    host::UserPrompts& prompts = host::CurrentUserPrompts();
    prompts.MessageBox(
        "ADVERTENCIA: El reporte podr\xED"
        "a no imprimirse completo con su actual configuraci\xF3n de impresi\xF3n",
        host::PromptButtons::kOk, host::PromptIcon::kNone, "");
    const host::PromptAnswer answer =
        prompts.MessageBox("Desea emitirlo, a pesar de ello", host::PromptButtons::kYesNo,
                           host::PromptIcon::kNone, "");
    return answer == host::PromptAnswer::kNo;
}

}  // namespace corvid::preview
