#include "records/fecha_hora.h"

#include <gtest/gtest.h>

#include <memory>

#include "automation/dates.h"
#include "support/fake_clock.h"

namespace corvid::records {
namespace {

using automation::CombineDateTime;
using automation::Date;
using automation::DateSerial;
using automation::TimeSerial;

TEST(ParseFechaHoraTest, ReadsDateTimeAndTheirCombinations) {
    EXPECT_EQ(ParseFechaHora("991231", "2359"),
              CombineDateTime(DateSerial(2099, 12, 31), TimeSerial(23, 59, 0)));
    EXPECT_EQ(ParseFechaHora("240517", "103015"),
              CombineDateTime(DateSerial(2024, 5, 17), TimeSerial(10, 30, 15)));
    EXPECT_EQ(ParseFechaHora("240517", ""), DateSerial(2024, 5, 17));
    EXPECT_EQ(ParseFechaHora("240229", "0000"), DateSerial(2024, 2, 29));
    // No date: a time on the zero date.
    EXPECT_EQ(ParseFechaHora("", "1030"), TimeSerial(10, 30, 0));
}

TEST(ParseFechaHoraTest, ADateOrTimeThatDoesNotExistGivesTheCurrentOne) {
    auto clock = std::make_shared<automation::FakeClock>();
    automation::ScopedClock scoped(clock);
    const Date now = clock->Now();
    EXPECT_EQ(ParseFechaHora("241317", "1030"), now);  // month 13
    EXPECT_EQ(ParseFechaHora("230229", ""), now);      // not a leap year
    EXPECT_EQ(ParseFechaHora("240517", "2400"), now);
    EXPECT_EQ(ParseFechaHora("2405x7", ""), now);
    EXPECT_EQ(ParseFechaHora("ab0517", "1030"), now);  // the year is not a number
    EXPECT_EQ(ParseFechaHora("", "10"), now);
    EXPECT_EQ(ParseFechaHora("", ""), now);
}

}  // namespace
}  // namespace corvid::records
