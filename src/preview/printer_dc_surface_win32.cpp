#include "preview/printer_dc_surface_win32.h"

#include <winspool.h>

#include <vector>

namespace corvid::preview {
namespace {

class PrinterDcSurface : public PrintSurface {
  public:
    PrinterDcSurface(std::wstring device, HDC dc) : device_(std::move(device)), dc_(dc) {}
    ~PrinterDcSurface() override { DeleteDC(dc_); }
    PrinterDcSurface(const PrinterDcSurface&) = delete;
    PrinterDcSurface& operator=(const PrinterDcSurface&) = delete;

    std::wstring DeviceName() const override { return device_; }
    PageGeometry Geometry() const override {
        return {GetDeviceCaps(dc_, HORZRES), GetDeviceCaps(dc_, VERTRES),
                GetDeviceCaps(dc_, LOGPIXELSX), GetDeviceCaps(dc_, LOGPIXELSY)};
    }
    HDC MeasureDc() override { return dc_; }

    bool StartDoc(const std::wstring& title) override {
        DOCINFOW info{};
        info.cbSize = sizeof info;
        info.lpszDocName = title.c_str();
        return ::StartDocW(dc_, &info) > 0;
    }
    HDC StartPage() override { return ::StartPage(dc_) > 0 ? dc_ : nullptr; }
    bool EndPage() override { return ::EndPage(dc_) > 0; }
    bool EndDoc() override { return ::EndDoc(dc_) > 0; }
    void AbortDoc() override { ::AbortDoc(dc_); }

  private:
    std::wstring device_;
    HDC dc_;
};

}  // namespace

std::unique_ptr<PrintSurface> OpenPrinterSurface(const std::wstring& device) {
    // GDI ignores the driver name for printers.
    HDC dc = CreateDCW(nullptr, device.c_str(), nullptr, nullptr);
    if (dc == nullptr) return nullptr;
    auto surface = std::make_unique<PrinterDcSurface>(device, dc);
    // A driver that reports no page or resolution cannot lay out a report.
    const PageGeometry page = surface->Geometry();
    if (page.width <= 0 || page.height <= 0 || page.dots_per_inch_x <= 0 ||
        page.dots_per_inch_y <= 0) {
        return nullptr;
    }
    return surface;
}

std::unique_ptr<PrintSurface> OpenDefaultPrinterSurface() {
    DWORD size = 0;
    GetDefaultPrinterW(nullptr, &size);
    if (size == 0) return nullptr;
    std::vector<wchar_t> name(size);
    if (!GetDefaultPrinterW(name.data(), &size)) return nullptr;
    return OpenPrinterSurface(name.data());
}

}  // namespace corvid::preview
