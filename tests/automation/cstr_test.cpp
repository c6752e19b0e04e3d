#include <gtest/gtest.h>

#include "automation/dates.h"
#include "automation/variant.h"
#include "support/outcome_table.h"

namespace corvid::automation {
namespace {

const Date kSample = CombineDateTime(DateSerial(2024, 3, 5), TimeSerial(14, 7, 9));

// Doubles keep 15 significant digits, Singles 7 (0.1f is not "0.100000001").
TEST(CStrTest, ValuesAsVbPrintsThem) {
    test_support::ExpectTexts(
        {TEXT_IS(CStr(true), "True"), TEXT_IS(CStr(0.1 + 0.2), "0.3"), TEXT_IS(CStr(1e15), "1E+15"),
         TEXT_IS(CStr(-2.5e-7), "-2.5E-07"), TEXT_IS(CStr(0.1f), "0.1"),
         TEXT_IS(CStr(Currency::FromScaled(-1)), "-0.0001"),
         TEXT_IS(CStr(Currency::FromScaled(INT64_MIN)), "-922337203685477.5808"),
         TEXT_IS(CStr(DateOnly(kSample)), "05/03/2024"),
         TEXT_IS(CStr(kSample), "05/03/2024 14:07:09"), TEXT_RAISES(CStr(Null{}), 13)});
}

}  // namespace
}  // namespace corvid::automation
