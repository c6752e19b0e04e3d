#include "jobs/date_text.h"

#include <array>
#include <cctype>

#include "automation/dates.h"

namespace corvid::jobs {

namespace {

// The numbers between `separator`s, each of the width given; empty on any mismatch.
template <std::size_t N>
std::optional<std::array<int, N>> SplitNumbers(std::string_view text, char separator,
                                               const std::array<std::size_t, N>& widths) {
    std::array<int, N> numbers{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < N; ++i) {
        if (i > 0) {
            if (at >= text.size() || text[at] != separator) return std::nullopt;
            ++at;
        }
        int value = 0;
        for (std::size_t k = 0; k < widths[i]; ++k, ++at) {
            if (at >= text.size() || !std::isdigit(static_cast<unsigned char>(text[at])))
                return std::nullopt;
            value = value * 10 + (text[at] - '0');
        }
        numbers[i] = value;
    }
    if (at != text.size()) return std::nullopt;
    return numbers;
}

}  // namespace

std::optional<automation::Date> ParseDayMonthYear(std::string_view text) {
    const auto parts = SplitNumbers<3>(text, '-', {2, 2, 4});
    if (!parts) return std::nullopt;
    const auto [day, month, year] = *parts;
    if (month < 1 || month > 12 || day < 1) return std::nullopt;
    // DateSerial rolls 31-04 over to 01-05; a day that moved is not in the calendar.
    const automation::Date date = automation::DateSerial(year, month, day);
    const automation::DateParts back = automation::SplitDate(date);
    if (back.day != day || back.month != month) return std::nullopt;
    return date;
}

std::optional<automation::Date> ParseTimeOfDay(std::string_view text) {
    const auto parts = SplitNumbers<3>(text, ':', {2, 2, 2});
    if (!parts) return std::nullopt;
    const auto [hour, minute, second] = *parts;
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return automation::TimeSerial(hour, minute, second);
}

}  // namespace corvid::jobs
