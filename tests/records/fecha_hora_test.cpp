#include "records/fecha_hora.h"

#include <gtest/gtest.h>

#include <memory>

#include "automation/dates.h"
#include "support/fake_clock.h"

namespace corvid::records {
namespace {

using namespace automation;

TEST(ParseFechaHoraTest, ReadsDateAndTimeOrFallsBackToNow) {
    auto clock = std::make_shared<FakeClock>();
    ScopedClock scoped(clock);
    const Date now = clock->Now();
    const struct {
        const char *fecha, *hora;
        Date expected;
    } cases[] = {
        {"991231", "2359", CombineDateTime(DateSerial(2099, 12, 31), TimeSerial(23, 59, 0))},
        {"240517", "103015", CombineDateTime(DateSerial(2024, 5, 17), TimeSerial(10, 30, 15))},
        {"240517", "", DateSerial(2024, 5, 17)},
        {"240229", "0000", DateSerial(2024, 2, 29)},
        {"", "1030", TimeSerial(10, 30, 0)},  // no date: a time on the zero date
        {"241317", "1030", now},              // month 13
        {"230229", "", now},                  // not a leap year
        {"240517", "2400", now},
        {"2405x7", "", now},
        {"ab0517", "1030", now},
        {"", "10", now},
        {"", "", now},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.fecha) + " " + c.hora);
        EXPECT_EQ(ParseFechaHora(c.fecha, c.hora), c.expected);
    }
}

}  // namespace
}  // namespace corvid::records
