#include <gtest/gtest.h>

#include "automation/dates.h"
#include "automation/variant.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

TEST(CStrTest, NumbersAsVbPrintsThem) {
    EXPECT_EQ(CStr(true), "True");
    EXPECT_EQ(CStr(false), "False");
    EXPECT_EQ(CStr(std::int16_t{-32768}), "-32768");
    EXPECT_EQ(CStr(std::int32_t{2147483647}), "2147483647");
    EXPECT_EQ(CStr(12.5), "12.5");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(0.1 + 0.2), "0.3");  // 15 significant digits
    EXPECT_EQ(CStr(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(-2.5e-7), "-2.5E-07");
    EXPECT_EQ(CStr(0.0001), "0.0001");
    EXPECT_EQ(CStr(43200.5f), "43200.5");
    EXPECT_EQ(CStr(86399.99f), "86399.99");
    EXPECT_EQ(CStr(0.1f), "0.1");  // not 0.100000001
}

TEST(CStrTest, CurrencyKeepsUpToFourDecimals) {
    EXPECT_EQ(CStr(Currency::FromScaled(125000)), "12.5");
    EXPECT_EQ(CStr(Currency::FromScaled(-1)), "-0.0001");
    EXPECT_EQ(CStr(Currency::FromScaled(-50000)), "-5");
    EXPECT_EQ(CStr(Currency::FromScaled(0)), "0");
    EXPECT_EQ(CStr(Currency::FromScaled(INT64_MIN)), "-922337203685477.5808");
}

TEST(CStrTest, DatesTextsAndNonValues) {
    EXPECT_EQ(CStr(DateSerial(2024, 3, 5)), "05/03/2024");
    EXPECT_EQ(CStr(CombineDateTime(DateSerial(2024, 3, 5), TimeSerial(14, 7, 9))),
              "05/03/2024 14:07:09");
    EXPECT_EQ(CStr(TimeSerial(8, 30, 0)), "08:30:00");
    EXPECT_EQ(CStr(Empty{}), "");
    EXPECT_EQ(CStr(std::string("\xE1rbol")), "\xE1rbol");
    EXPECT_THROW(CStr(Null{}), VbError);
    try {
        CStr(ErrorValue{static_cast<std::int32_t>(0x80020004)});
        FAIL();
    } catch (const VbError& error) {
        EXPECT_EQ(error.number(), 13);
        EXPECT_EQ(error.description(), "Type mismatch");
    }
}

}  // namespace
}  // namespace corvid::automation
