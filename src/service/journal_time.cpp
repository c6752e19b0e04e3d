#include "service/journal_time.h"

#include <charconv>
#include <cstdio>

namespace corvid::service {

namespace {

using namespace std::chrono;

// Reads exactly `digits` decimal digits at `at`, moving past them.
std::optional<int> Digits(std::string_view text, std::size_t& at, std::size_t digits) {
    if (text.size() < at + digits) return std::nullopt;
    int value = 0;
    const char* begin = text.data() + at;
    auto [end, error] = std::from_chars(begin, begin + digits, value);
    if (error != std::errc() || end != begin + digits) return std::nullopt;
    at += digits;
    return value;
}

bool Skip(std::string_view text, std::size_t& at, char expected) {
    if (at >= text.size() || text[at] != expected) return false;
    ++at;
    return true;
}

// "T06:15[:02[.5]]" after a date: the time of day. False when malformed.
bool ReadTimeOfDay(std::string_view text, std::size_t& at, milliseconds& of_day) {
    auto hour = Digits(text, at, 2);
    if (!hour || *hour > 23 || !Skip(text, at, ':')) return false;
    auto minute = Digits(text, at, 2);
    if (!minute || *minute > 59) return false;
    of_day = hours(*hour) + minutes(*minute);
    if (!Skip(text, at, ':')) return true;
    auto second = Digits(text, at, 2);
    if (!second || *second > 60) return false;
    of_day += seconds(*second);
    if (!Skip(text, at, '.')) return true;
    int scale = 100;
    const std::size_t first = at;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') {
        of_day += milliseconds((text[at++] - '0') * scale);
        scale /= 10;
    }
    return at > first;
}

// "Z", "+04:00", "-0400" or nothing: how far ahead of UTC the time was written.
std::optional<minutes> ReadOffset(std::string_view text, std::size_t& at) {
    if (at == text.size()) return minutes(0);
    if (Skip(text, at, 'Z')) return at == text.size() ? std::optional(minutes(0)) : std::nullopt;
    const int sign = text[at] == '-' ? -1 : 1;
    if (!Skip(text, at, '+') && !Skip(text, at, '-')) return std::nullopt;
    auto hour = Digits(text, at, 2);
    Skip(text, at, ':');
    auto minute = Digits(text, at, 2);
    if (!hour || !minute || at != text.size()) return std::nullopt;
    return sign * (hours(*hour) + minutes(*minute));
}

}  // namespace

std::string UtcTimestamp(sys_time<milliseconds> when) {
    const auto day = floor<days>(when);
    const year_month_day date{day};
    const hh_mm_ss time{when - day};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), int(time.hours().count()),
                  int(time.minutes().count()), int(time.seconds().count()),
                  int(time.subseconds().count()));
    return text;
}

std::optional<std::string> NormalizedUtcTime(std::string_view text) {
    std::size_t at = 0;
    auto y = Digits(text, at, 4);
    if (!y || !Skip(text, at, '-')) return std::nullopt;
    auto m = Digits(text, at, 2);
    if (!m || !Skip(text, at, '-')) return std::nullopt;
    auto d = Digits(text, at, 2);
    if (!d) return std::nullopt;
    const year_month_day date{year(*y), month(unsigned(*m)), day(unsigned(*d))};
    if (!date.ok()) return std::nullopt;
    milliseconds of_day{0};
    if (at < text.size() && (text[at] == 'T' || text[at] == 't' || text[at] == ' ')) {
        ++at;
        if (!ReadTimeOfDay(text, at, of_day)) return std::nullopt;
    }
    const auto offset = ReadOffset(text, at);
    if (!offset) return std::nullopt;
    // In milliseconds, so that years past 2262 do not overflow.
    return UtcTimestamp(sys_time<milliseconds>(sys_days(date)) + of_day - *offset);
}

}  // namespace corvid::service
