// A Windows printer as a print surface: one printer DC for measuring and drawing.
#pragma once

#include <memory>
#include <string>

#include "preview/print_surface_win32.h"

namespace corvid::preview {

// The printer named `device`, or null when it cannot be opened.
std::unique_ptr<PrintSurface> OpenPrinterSurface(const std::wstring& device);
// The user's default printer, or null when there is none (no printer installed).
std::unique_ptr<PrintSurface> OpenDefaultPrinterSurface();

}  // namespace corvid::preview
