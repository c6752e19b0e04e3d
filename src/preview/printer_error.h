// The errors a printer raises: VB's "Printer error" (482), also when there is no printer.
#pragma once

#include <cstdint>

namespace corvid::preview {

inline constexpr std::int32_t kPrinterError = 482;

// The printer refused or failed an operation.
[[noreturn]] void RaisePrinterError();
// There is no printer to print on; the description tells the host so.
[[noreturn]] void RaiseNoPrinterInstalled();

}  // namespace corvid::preview
