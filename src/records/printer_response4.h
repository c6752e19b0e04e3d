// The printer's answer to "S4": the day's amount of each of 24 means of payment.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "automation/currency.h"

namespace corvid::records {

class PrinterResponse4 {
  public:
    static constexpr std::size_t kMeans = 24;

    bool isFake = false;
    std::int16_t nMedios() const { return nMedios_; }

    // isFake True, nMedios 0; the amounts stay as they are.
    void loadFake();
    // At most 24 amounts; raises on a bad amount with the earlier ones stored and nMedios 0.
    void loadFromResponse(const std::vector<std::string>& r);
    // Means n (from 1); 0 outside 1..nMedios.
    automation::Currency valor(std::int32_t n) const;

  private:
    std::array<automation::Currency, kMeans> amounts_{};
    std::int16_t nMedios_ = 0;
};

}  // namespace corvid::records
