// The printer's date (yymmdd) and time (hhmm or hhmmss) fields as an automation date.
// Properties: nothing raises; the result is the current time (the stand-in for a bad
// field), a time on the zero date when there is no date, or a date in the years the
// two-digit year can reach; digit fields are checked against an independent reading.
#include <cstdint>
#include <optional>
#include <string>

#include "automation/dates.h"
#include "fuzz_support.h"
#include "records/fecha_hora.h"

namespace {

bool AllDigits(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
}

int Number(const std::string& text, std::size_t at) {
    return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

int DaysInMonth(int year, int month) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

// The date all-digit fields stand for, or nothing when they name no real date or time.
std::optional<corvid::automation::Date> Expected(const std::string& fecha,
                                                 const std::string& hora) {
    using namespace corvid::automation;
    const int year = 2000 + Number(fecha, 0), month = Number(fecha, 2), day = Number(fecha, 4);
    if (month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) return {};
    const Date date = DateSerial(year, month, day);
    if (hora.empty()) return date;
    const int hour = Number(hora, 0), minute = Number(hora, 2);
    const int second = hora.size() == 6 ? Number(hora, 4) : 0;
    if (hour > 23 || minute > 59 || second > 59) return {};
    return CombineDateTime(date, TimeSerial(hour, minute, second));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    FuzzedDataProvider in(data, size);
    const std::string fecha = in.ConsumeRandomLengthString(12);
    const std::string hora = in.ConsumeRandomLengthString(12);

    const automation::Date result = records::ParseFechaHora(fecha, hora);
    const automation::Date now = automation::Now();
    if (!(result == now)) {
        if (fecha.empty()) {
            FUZZ_CHECK(result.days >= 0 && result.days < 1);
        } else {
            const int year = automation::SplitDate(result).year;
            FUZZ_CHECK(year >= 1991 && year <= 2099);
        }
    }
    if (fecha.size() == 6 && AllDigits(fecha) && AllDigits(hora) &&
        (hora.empty() || hora.size() == 4 || hora.size() == 6)) {
        const auto expected = Expected(fecha, hora);
        FUZZ_CHECK(expected ? result == *expected : result == now);
    }
    return 0;
}
