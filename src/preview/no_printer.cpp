#include "preview/no_printer.h"

#include <cmath>

#include "preview/printer_error.h"

namespace corvid::preview {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kTwipsPerPoint = 20;
// Advance and line height of a fixed-pitch font, as fractions of its size.
constexpr double kAdvancePerPoint = 0.6;
constexpr double kLineHeightPerPoint = 1.1328125;
constexpr double kSmallestSize = 1;

}  // namespace

std::int16_t NoPrinter::ScaleMode() { return scale_modes::kTwips; }
double NoPrinter::ScaleWidth() { return 8 * kTwipsPerInch; }
double NoPrinter::ScaleHeight() { return 10.5 * kTwipsPerInch; }

double NoPrinter::TextWidth(const std::string& text) {
    return static_cast<double>(text.size()) * font_size_ * kAdvancePerPoint * kTwipsPerPoint;
}

double NoPrinter::TextHeight(const std::string&) {
    return font_size_ * kLineHeightPerPoint * kTwipsPerPoint;
}

void NoPrinter::SetFontSize(double points) {
    if (points >= kSmallestSize) font_size_ = points;
}

void NoPrinter::PrintLine(const std::string&) { RaiseNoPrinterInstalled(); }
void NoPrinter::PrintText(const std::string&) { RaiseNoPrinterInstalled(); }
void NoPrinter::NewPage() { RaiseNoPrinterInstalled(); }
void NoPrinter::EndDoc() { RaiseNoPrinterInstalled(); }
void NoPrinter::KillDoc() {}

}  // namespace corvid::preview
