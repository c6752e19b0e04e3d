#include "service/iso_time.h"

#include <chrono>
#include <cstdio>

namespace corvid::service {
namespace {

// Reads the text left to right; any mismatch makes it fail for good.
class Cursor {
  public:
    explicit Cursor(std::string_view text) : text_(text) {}
    int Digits(int count) {
        int value = 0;
        for (int i = 0; i < count; ++i) {
            if (pos_ >= text_.size() || text_[pos_] < '0' || text_[pos_] > '9') failed_ = true;
            if (failed_) return 0;
            value = value * 10 + (text_[pos_++] - '0');
        }
        return value;
    }
    bool Take(char c) {
        if (failed_ || pos_ >= text_.size() || text_[pos_] != c) return false;
        ++pos_;
        return true;
    }
    bool AtDigit() const {
        return !failed_ && pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9';
    }
    void Expect(char c) { failed_ = failed_ || !Take(c); }
    bool Done() const { return !failed_ && pos_ == text_.size(); }
    bool failed() const { return failed_; }

  private:
    std::string_view text_;
    std::size_t pos_ = 0;
    bool failed_ = false;
};

// Fractions of a second: at least one digit; past the third they are read and dropped.
int Milliseconds(Cursor& in) {
    if (!in.Take('.')) return 0;
    int ms = in.Digits(1) * 100;
    for (int scale = 10; in.AtDigit(); scale /= 10) ms += in.Digits(1) * scale;
    return ms;
}

}  // namespace

std::optional<std::string> JournalTime(std::string_view iso) {
    using namespace std::chrono;
    Cursor in(iso);
    int y = in.Digits(4);
    in.Expect('-');
    int mo = in.Digits(2);
    in.Expect('-');
    int d = in.Digits(2);
    int h = 0, mi = 0, s = 0, ms = 0, offset = 0;
    if (in.Take('T')) {
        h = in.Digits(2);
        in.Expect(':');
        mi = in.Digits(2);
        if (in.Take(':')) {
            s = in.Digits(2);
            ms = Milliseconds(in);
        }
        if (!in.Take('Z')) {
            int sign = in.Take('+') ? 1 : in.Take('-') ? -1 : 0;
            if (sign != 0) {
                int oh = in.Digits(2);
                in.Expect(':');
                offset = sign * (oh * 60 + in.Digits(2));
            }
        }
    }
    year_month_day day{year(y), month(static_cast<unsigned>(mo)), std::chrono::day(d)};
    if (!in.Done() || !day.ok() || h > 23 || mi > 59 || s > 59 || offset > 14 * 60 ||
        offset < -14 * 60)
        return std::nullopt;
    auto when = sys_days(day) + hours(h) + minutes(mi - offset) + seconds(s) + milliseconds(ms);
    auto utcDay = floor<days>(when);
    year_month_day ymd(utcDay);
    hh_mm_ss clock(floor<milliseconds>(when - utcDay));
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int(ymd.year()),
                  unsigned(ymd.month()), unsigned(ymd.day()), int(clock.hours().count()),
                  int(clock.minutes().count()), int(clock.seconds().count()),
                  int(clock.subseconds().count()));
    return text;
}

}  // namespace corvid::service
