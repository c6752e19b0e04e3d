// Where a GdiPrinter draws: a device context to measure text on, the printable page in device
// pixels, and the job and page calls. A printer DC is one; a test device that records each
// page is another.
#pragma once

#include <windows.h>

#include <string>

namespace corvid::preview {

// The printable area in device pixels and the device's resolution.
struct PageGeometry {
    int width = 0;
    int height = 0;
    int dots_per_inch_x = 0;
    int dots_per_inch_y = 0;
};

class PrintSurface {
  public:
    virtual ~PrintSurface() = default;

    virtual std::wstring DeviceName() const = 0;
    virtual PageGeometry Geometry() const = 0;
    // Fonts are selected into this DC to measure text; it lives as long as the surface.
    virtual HDC MeasureDc() = 0;

    // Each returns false when the device refuses.
    virtual bool StartDoc(const std::wstring& title) = 0;
    // The DC to draw the page on, or null when the device refuses.
    virtual HDC StartPage() = 0;
    virtual bool EndPage() = 0;
    virtual bool EndDoc() = 0;
    virtual void AbortDoc() = 0;
};

}  // namespace corvid::preview
