// VB Currency: a 64-bit integer scaled by 10,000 (four decimals).
#pragma once

#include <compare>
#include <cstdint>

namespace corvid::automation {

class Currency {
  public:
    static constexpr std::int64_t kScale = 10000;

    constexpr Currency() = default;
    static constexpr Currency FromScaled(std::int64_t scaled) { return Currency(scaled); }
    // Rounds half to even to four decimals; raises overflow (error 6) outside the range.
    static Currency FromDouble(double value);

    constexpr std::int64_t scaled() const { return scaled_; }
    double ToDouble() const { return static_cast<double>(scaled_) / kScale; }

    // Checked arithmetic: overflow raises error 6.
    Currency operator+(Currency other) const;
    Currency operator-(Currency other) const;
    Currency operator*(Currency other) const;
    Currency operator-() const;

    constexpr auto operator<=>(const Currency&) const = default;

  private:
    constexpr explicit Currency(std::int64_t scaled) : scaled_(scaled) {}
    std::int64_t scaled_ = 0;
};

}  // namespace corvid::automation
