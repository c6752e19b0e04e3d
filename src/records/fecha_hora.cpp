#include "records/fecha_hora.h"

#include <optional>
#include <string>

#include "automation/conversions.h"
#include "automation/dates.h"
#include "automation/format.h"
#include "automation/vb_error.h"
#include "records/reply_fields.h"

namespace corvid::records {
namespace {

// Reads a number of min_digits..max_digits digits at `at`, moving past it.
std::optional<int> ReadNumber(std::string_view text, std::size_t& at, std::size_t min_digits,
                              std::size_t max_digits) {
    std::size_t used = 0;
    int value = 0;
    while (at + used < text.size() && used < max_digits && text[at + used] >= '0' &&
           text[at + used] <= '9') {
        value = value * 10 + (text[at + used] - '0');
        ++used;
    }
    if (used < min_digits) return std::nullopt;
    at += used;
    return value;
}

bool Expect(std::string_view text, std::size_t& at, char c) {
    if (at >= text.size() || text[at] != c) return false;
    ++at;
    return true;
}

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

// "hh:nn" or "hh:nn:ss" at `at`, as a fraction of a day.
std::optional<automation::Date> ReadTime(std::string_view text, std::size_t& at) {
    const auto hour = ReadNumber(text, at, 1, 2);
    if (!hour || !Expect(text, at, ':')) return std::nullopt;
    const auto minute = ReadNumber(text, at, 1, 2);
    if (!minute) return std::nullopt;
    std::optional<int> second = 0;
    if (at < text.size() && text[at] == ':') {
        ++at;
        second = ReadNumber(text, at, 1, 2);
    }
    if (!second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
    return automation::TimeSerial(*hour, *minute, *second);
}

// The text forms this parser builds: "yyyy-mm-dd", "yyyy-mm-dd hh:nn[:ss]" and
// "hh:nn[:ss]" (a time on the zero date). Anything else, or a day that does not exist,
// is empty: unlike DateSerial nothing rolls over.
std::optional<automation::Date> TextToDate(std::string_view text) {
    std::size_t at = 0;
    if (text.find('-') == std::string_view::npos) {
        const auto time = ReadTime(text, at);
        if (!time || at != text.size()) return std::nullopt;
        return time;
    }
    const auto year = ReadNumber(text, at, 4, 4);
    if (!year || !Expect(text, at, '-')) return std::nullopt;
    const auto month = ReadNumber(text, at, 1, 2);
    if (!month || !Expect(text, at, '-')) return std::nullopt;
    const auto day = ReadNumber(text, at, 1, 2);
    if (!day || *month < 1 || *month > 12 || *day < 1 || *day > DaysInMonth(*year, *month)) {
        return std::nullopt;
    }
    const automation::Date date = automation::DateSerial(*year, *month, *day);
    if (at == text.size()) return date;
    if (!Expect(text, at, ' ')) return std::nullopt;
    const auto time = ReadTime(text, at);
    if (!time || at != text.size()) return std::nullopt;
    return automation::CombineDateTime(date, *time);
}

}  // namespace

automation::Date ParseFechaHora(std::string_view fecha, std::string_view hora) {
    std::string text;
    try {
        if (!fecha.empty()) {
            // Always this century: 2000 plus the two digits.
            const auto year = automation::CInt(automation::CInt(detail::Left(fecha, 2)) + 2000.0);
            text = automation::Format(automation::Variant(year), "0000");
            text += "-";
            text += detail::Mid(fecha, 3, 2);
            text += "-";
            text += detail::Right(fecha, 2);
        }
    } catch (const automation::VbError&) {
        // A year that is not a number is a bad date like any other.
        return automation::Now();
    }
    if (!hora.empty()) {
        text += " ";
        text += detail::Left(hora, 2);
        text += ":";
        text += detail::Mid(hora, 3, 2);
        if (hora.size() == 6) {
            text += ":";
            text += detail::Mid(hora, 5, 2);
        }
    }
    const auto date = TextToDate(detail::Trim(text));
    return date ? *date : automation::Now();
}

}  // namespace corvid::records
