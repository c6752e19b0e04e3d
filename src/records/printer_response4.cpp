#include "records/printer_response4.h"

#include "automation/vb_error.h"
#include "records/reply_fields.h"

namespace corvid::records {

void PrinterResponse4::loadFake() {
    isFake = true;
    nMedios_ = 0;
}

void PrinterResponse4::loadFromResponse(const std::vector<std::string>& r) {
    nMedios_ = 0;
    std::size_t i = 0;
    for (; i < r.size() && i < kMeans; ++i) {
        // Field 0 starts with the two characters of the command echo.
        const std::string_view text = i == 0 ? detail::Mid(r[0], 3) : std::string_view(r[i]);
        amounts_[i] = detail::Hundredths(text);
    }
    nMedios_ = static_cast<std::int16_t>(i);
}

automation::Currency PrinterResponse4::valor(std::int32_t n) const {
    if (n < 1 || n > nMedios_) return {};
    const auto index = static_cast<std::size_t>(n - 1);
    if (index >= kMeans) {
        throw automation::VbError::Standard(automation::vb_errors::kSubscriptOutOfRange);
    }
    return amounts_[index];
}

}  // namespace corvid::records
