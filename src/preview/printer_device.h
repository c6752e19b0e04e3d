// The Windows printer as the report sees it: page size and text metrics in the printer's
// scale units, the current font, and the calls that print. Any call may raise a VbError
// (a printer that is missing or fails).
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace corvid::preview {

// Scale modes a printer can report its sizes in.
namespace scale_modes {
inline constexpr std::int16_t kUser = 0;
inline constexpr std::int16_t kTwips = 1;
inline constexpr std::int16_t kPoints = 2;
inline constexpr std::int16_t kPixels = 3;
inline constexpr std::int16_t kCharacters = 4;
inline constexpr std::int16_t kInches = 5;
inline constexpr std::int16_t kMillimetres = 6;
inline constexpr std::int16_t kCentimetres = 7;
}  // namespace scale_modes

class PrinterDevice {
  public:
    virtual ~PrinterDevice() = default;

    virtual std::int16_t ScaleMode() = 0;
    // The printable area, in scale units.
    virtual double ScaleWidth() = 0;
    virtual double ScaleHeight() = 0;
    // Size of a text in the current font, in scale units.
    virtual double TextWidth(const std::string& text) = 0;
    virtual double TextHeight(const std::string& text) = 0;

    virtual std::string FontName() = 0;
    virtual void SetFontName(const std::string& name) = 0;
    // Points. A device may keep its size when asked for one it cannot offer; read it back.
    virtual double FontSize() = 0;
    virtual void SetFontSize(double points) = 0;
    virtual bool FontBold() = 0;
    virtual void SetFontBold(bool bold) = 0;
    virtual bool FontItalic() = 0;
    virtual void SetFontItalic(bool italic) = 0;

    virtual std::string DeviceName() = 0;

    // Prints text followed by a line end; starts the print job if none is running.
    virtual void PrintLine(const std::string& text) = 0;
    // Prints text without a line end of its own.
    virtual void PrintText(const std::string& text) = 0;
    virtual void NewPage() = 0;
    // Ends the job: the printer receives the document.
    virtual void EndDoc() = 0;
    // Abandons the job.
    virtual void KillDoc() = 0;
};

// The printer a new report prints on: the platform's default printer, looked up anew for each
// report, unless a process-wide replacement is set.
std::shared_ptr<PrinterDevice> DefaultPrinter();
// Sets the replacement (null goes back to the platform's printer); returns the previous one.
// Used by tests and by hosts that print elsewhere.
std::shared_ptr<PrinterDevice> ReplaceDefaultPrinter(std::shared_ptr<PrinterDevice> printer);

}  // namespace corvid::preview
