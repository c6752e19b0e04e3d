// The rates and flags of S3.

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

TEST_F(PrinterTest, S3ReportsRatesAndFlagsAndFlag21SetsNumberWidths) {
    std::vector<std::string> fields = FieldsOf(SendCommand("S3"));
    ASSERT_EQ(fields.size(), 5u);
    EXPECT_EQ(fields[0], "01600");
    EXPECT_EQ(fields[1], "00800");
    EXPECT_EQ(fields[2], "03100");
    EXPECT_EQ(fields[3], "0300");
    EXPECT_EQ(fields[4], std::string(128, '0'));

    Accept("PJ2102");
    EXPECT_EQ(FieldsOf(SendCommand("S3"))[4].substr(42, 2), "02");
    // Prices now carry three decimals: 0000012500 is 12,500.
    Accept(Cmd("!", "0000012500", "00001000", "PAN"));
    Accept("101");
    EXPECT_EQ(std::stol(S1()[1]), 1450);
}

}  // namespace
}  // namespace corvid::sim::testing
