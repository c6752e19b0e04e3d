#include "preview/gdi_printer_win32.h"

#include <algorithm>
#include <cmath>

#include "preview/printer_error.h"
#include "text/windows_1252.h"

namespace corvid::preview {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kPointsPerInch = 72;
// The job's name in the print queue.
constexpr const wchar_t* kDocumentName = L"PrinterFiscalCorvid";

double Twips(int pixels, int dots_per_inch) { return pixels * kTwipsPerInch / dots_per_inch; }

}  // namespace

GdiPrinter::GdiPrinter(std::unique_ptr<PrintSurface> surface)
    : surface_(std::move(surface)), page_(surface_->Geometry()) {
    RealizeFont(font_size_);
}

GdiPrinter::~GdiPrinter() {
    KillDoc();
    if (original_font_ != nullptr) SelectObject(surface_->MeasureDc(), original_font_);
    if (font_ != nullptr) DeleteObject(font_);
}

double GdiPrinter::ScaleWidth() { return Twips(page_.width, page_.dots_per_inch_x); }
double GdiPrinter::ScaleHeight() { return Twips(page_.height, page_.dots_per_inch_y); }

double GdiPrinter::TextWidth(const std::string& text) {
    const std::wstring wide = text::WideFromWindows1252(text);
    SIZE size{};
    GetTextExtentPoint32W(surface_->MeasureDc(), wide.c_str(), static_cast<int>(wide.size()),
                          &size);
    return Twips(size.cx, page_.dots_per_inch_x);
}

double GdiPrinter::TextHeight(const std::string&) {
    return Twips(line_height_, page_.dots_per_inch_y);
}

void GdiPrinter::SetFontName(const std::string& name) {
    font_name_ = name;
    RealizeFont(font_size_);
}

void GdiPrinter::SetFontSize(double points) {
    if (points > 0) RealizeFont(points);
}

void GdiPrinter::SetFontBold(bool bold) {
    bold_ = bold;
    RealizeFont(font_size_);
}

void GdiPrinter::SetFontItalic(bool italic) {
    italic_ = italic;
    RealizeFont(font_size_);
}

// A scalable font reads back the size asked for; a font of fixed sizes reads back the size the
// device drew, so that a caller stepping the size down sees it stop.
void GdiPrinter::RealizeFont(double points) {
    const long pixels = std::max(1L, std::lround(points * page_.dots_per_inch_y / kPointsPerInch));
    HFONT font =
        CreateFontW(-pixels, 0, 0, 0, bold_ ? FW_BOLD : FW_NORMAL, italic_, FALSE, FALSE,
                    DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                    DEFAULT_PITCH | FF_DONTCARE, text::WideFromWindows1252(font_name_).c_str());
    if (font == nullptr) return;
    HDC measure = surface_->MeasureDc();
    HGDIOBJ previous = SelectObject(measure, font);
    if (original_font_ == nullptr) original_font_ = previous;
    if (page_dc_ != nullptr && page_dc_ != measure) SelectObject(page_dc_, font);
    if (font_ != nullptr) DeleteObject(font_);
    font_ = font;

    TEXTMETRICW metrics{};
    GetTextMetricsW(measure, &metrics);
    line_height_ = metrics.tmHeight + metrics.tmExternalLeading;
    const bool scalable = (metrics.tmPitchAndFamily & (TMPF_VECTOR | TMPF_TRUETYPE)) != 0;
    const long drawn = metrics.tmHeight - metrics.tmInternalLeading;
    font_size_ = scalable ? points : drawn * kPointsPerInch / page_.dots_per_inch_y;
}

std::string GdiPrinter::DeviceName() { return text::Windows1252FromWide(surface_->DeviceName()); }

void GdiPrinter::PrintLine(const std::string& text) {
    Draw(PageForLine(), text);
    y_ += line_height_;
    x_ = 0;
}

void GdiPrinter::PrintText(const std::string& text) {
    std::string_view rest = text;
    for (;;) {
        const std::size_t cr = rest.find('\r');
        const std::string_view part = rest.substr(0, cr);
        if (!part.empty()) Draw(PageForLine(), part);
        if (cr == std::string_view::npos) break;
        if (x_ > 0) y_ += line_height_;
        x_ = 0;
        rest.remove_prefix(cr + 1);
    }
}

void GdiPrinter::NewPage() {
    if (page_dc_ == nullptr) PageForLine();
    ClosePage();
}

void GdiPrinter::EndDoc() {
    if (!in_job_) return;
    if (page_dc_ != nullptr) ClosePage();
    in_job_ = false;
    if (!surface_->EndDoc()) RaisePrinterError();
}

void GdiPrinter::KillDoc() {
    if (!in_job_) return;
    page_dc_ = nullptr;
    in_job_ = false;
    surface_->AbortDoc();
}

// The page the next line goes on: the job and the page start here when none is open, and a
// line that would run off the bottom of a page that has lines goes on the next page.
HDC GdiPrinter::PageForLine() {
    if (!in_job_) {
        if (!surface_->StartDoc(kDocumentName)) RaisePrinterError();
        in_job_ = true;
    }
    if (page_dc_ == nullptr) {
        OpenPage();
    } else if (y_ > 0 && y_ + line_height_ > page_.height) {
        ClosePage();
        OpenPage();
    }
    return page_dc_;
}

void GdiPrinter::OpenPage() {
    HDC dc = surface_->StartPage();
    if (dc == nullptr) AbandonJob();
    page_dc_ = dc;
    // A printer may reset the DC at each page.
    SelectObject(dc, font_);
    SetBkMode(dc, TRANSPARENT);
    SetTextAlign(dc, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    x_ = 0;
    y_ = 0;
}

void GdiPrinter::ClosePage() {
    page_dc_ = nullptr;
    if (!surface_->EndPage()) AbandonJob();
}

void GdiPrinter::Draw(HDC dc, std::string_view text) {
    const std::wstring wide = text::WideFromWindows1252(text);
    if (wide.empty()) return;
    const int length = static_cast<int>(wide.size());
    if (!TextOutW(dc, x_, y_, wide.c_str(), length)) AbandonJob();
    SIZE size{};
    GetTextExtentPoint32W(surface_->MeasureDc(), wide.c_str(), length, &size);
    x_ += size.cx;
}

void GdiPrinter::AbandonJob() {
    KillDoc();
    RaisePrinterError();
}

}  // namespace corvid::preview
