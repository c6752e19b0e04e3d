// A stand-in for a machine without a usable printer. It answers the metrics of a Letter page
// (8 x 10.5 printable inches, in twips) in a fixed-pitch font, so that a report still gets a
// sensible width fitting and page length; every attempt to print raises "Printer error"
// (error 482) saying that no printer is installed, and nothing is printed.
#pragma once

#include "preview/printer_device.h"

namespace corvid::preview {

class NoPrinter : public PrinterDevice {
  public:
    std::int16_t ScaleMode() override;
    double ScaleWidth() override;
    double ScaleHeight() override;
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;

    std::string FontName() override { return font_name_; }
    void SetFontName(const std::string& name) override { font_name_ = name; }
    double FontSize() override { return font_size_; }
    void SetFontSize(double points) override;
    bool FontBold() override { return bold_; }
    void SetFontBold(bool bold) override { bold_ = bold; }
    bool FontItalic() override { return italic_; }
    void SetFontItalic(bool italic) override { italic_ = italic; }

    std::string DeviceName() override { return {}; }

    void PrintLine(const std::string& text) override;
    void PrintText(const std::string& text) override;
    void NewPage() override;
    void EndDoc() override;
    void KillDoc() override;

  private:
    std::string font_name_ = "Courier New";
    double font_size_ = 10;
    bool bold_ = false;
    bool italic_ = false;
};

}  // namespace corvid::preview
