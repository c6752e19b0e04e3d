// The report's printer on Windows: a PrinterDevice drawing through GDI on a print surface, with
// the manners of a VB Printer object. Sizes are in twips over the printable area; the font is
// chosen by name and points, and a size the device cannot offer reads back as the size it
// gives; the first print starts the job; lines stack down from the top of the page and a line
// that would not fit goes on a new page. Text is Windows-1252 bytes.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "preview/print_surface_win32.h"
#include "preview/printer_device.h"

namespace corvid::preview {

class GdiPrinter : public PrinterDevice {
  public:
    explicit GdiPrinter(std::unique_ptr<PrintSurface> surface);
    // A job still running is abandoned.
    ~GdiPrinter() override;
    GdiPrinter(const GdiPrinter&) = delete;
    GdiPrinter& operator=(const GdiPrinter&) = delete;

    std::int16_t ScaleMode() override { return scale_modes::kTwips; }
    double ScaleWidth() override;
    double ScaleHeight() override;
    double TextWidth(const std::string& text) override;
    // The height of one line of the current font.
    double TextHeight(const std::string& text) override;

    std::string FontName() override { return font_name_; }
    void SetFontName(const std::string& name) override;
    double FontSize() override { return font_size_; }
    void SetFontSize(double points) override;
    bool FontBold() override { return bold_; }
    void SetFontBold(bool bold) override;
    bool FontItalic() override { return italic_; }
    void SetFontItalic(bool italic) override;

    std::string DeviceName() override;

    void PrintLine(const std::string& text) override;
    // A carriage return goes back to the left edge, on the next line if this one has text.
    void PrintText(const std::string& text) override;
    // Ends the page; the next print starts the following one.
    void NewPage() override;
    void EndDoc() override;
    void KillDoc() override;

  private:
    void RealizeFont(double points);
    HDC PageForLine();
    void OpenPage();
    void ClosePage();
    void Draw(HDC dc, std::string_view text);
    [[noreturn]] void AbandonJob();

    std::unique_ptr<PrintSurface> surface_;
    PageGeometry page_;
    std::string font_name_ = "Courier New";
    double font_size_ = 10;
    bool bold_ = false;
    bool italic_ = false;
    HFONT font_ = nullptr;
    HGDIOBJ original_font_ = nullptr;
    int line_height_ = 0;
    bool in_job_ = false;
    // The page being drawn; null before the job's first print and after NewPage.
    HDC page_dc_ = nullptr;
    int x_ = 0;
    int y_ = 0;
};

}  // namespace corvid::preview
