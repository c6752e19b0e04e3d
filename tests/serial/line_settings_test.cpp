#include <gtest/gtest.h>

#include "serial/serial_settings.h"

namespace corvid::serial {
namespace {

TEST(ParseLineSettings, ReadsThePrinterSettings) {
    auto settings = ParseLineSettings("baud=9600 parity=E data=8 stop=1");
    ASSERT_TRUE(settings.has_value());
    EXPECT_EQ(settings->baud, 9600u);
    EXPECT_EQ(settings->parity, Parity::kEven);
    EXPECT_EQ(settings->data_bits, 8);
    EXPECT_EQ(settings->stop_bits, StopBits::kOne);
    EXPECT_FALSE(settings->xon_xoff.has_value());
}

TEST(ParseLineSettings, KeysAndValuesIgnoreCaseAndExtraBlanks) {
    auto settings = ParseLineSettings("  BAUD=19200   Parity=o  DATA=7 Stop=1.5 xon=ON dtr=hs ");
    ASSERT_TRUE(settings.has_value());
    EXPECT_EQ(settings->baud, 19200u);
    EXPECT_EQ(settings->parity, Parity::kOdd);
    EXPECT_EQ(settings->data_bits, 7);
    EXPECT_EQ(settings->stop_bits, StopBits::kOneAndHalf);
    EXPECT_EQ(settings->xon_xoff, true);
}

TEST(ParseLineSettings, RefusesWhatTheDeviceCannotTake) {
    for (const char* text :
         {"", "baud=", "baud=fast", "baud=0", "parity=X", "parity=EE", "data=9", "data=4", "stop=3",
          "speed=9600", "baud 9600", "baud=9600 xon=maybe"}) {
        EXPECT_FALSE(ParseLineSettings(text).has_value()) << text;
    }
}

}  // namespace
}  // namespace corvid::serial
