#include <gtest/gtest.h>

#include "serial/serial_settings.h"

namespace corvid::serial {
namespace {

// Keys and values ignore case and extra blanks; what is not named stays unset.
TEST(ParseLineSettings, ReadsThePrinterSettings) {
    struct Case {
        const char* text;
        std::optional<std::uint32_t> baud;
        std::optional<Parity> parity;
        std::optional<int> data_bits;
        std::optional<StopBits> stop_bits;
        std::optional<bool> xon_xoff;
    };
    for (const Case& c :
         {Case{"baud=9600 parity=E data=8 stop=1", 9600, Parity::kEven, 8, StopBits::kOne, {}},
          Case{"  BAUD=19200   Parity=o  DATA=7 Stop=1.5 xon=ON dtr=hs ", 19200, Parity::kOdd, 7,
               StopBits::kOneAndHalf, true},
          Case{"parity=m stop=2 xon=off", {}, Parity::kMark, {}, StopBits::kTwo, false},
          Case{"parity=n", {}, Parity::kNone, {}, {}, {}}}) {
        SCOPED_TRACE(c.text);
        auto settings = ParseLineSettings(c.text);
        ASSERT_TRUE(settings.has_value());
        EXPECT_EQ(settings->baud, c.baud);
        EXPECT_EQ(settings->parity, c.parity);
        EXPECT_EQ(settings->data_bits, c.data_bits);
        EXPECT_EQ(settings->stop_bits, c.stop_bits);
        EXPECT_EQ(settings->xon_xoff, c.xon_xoff);
    }
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
