// The text conversions a host's strings go through (CDbl, CInt, CLng, CCur, CBool, Val)
// and CStr, under a few user locales.
// Properties: only run-time errors escape, and only the documented ones (type mismatch for
// a text that is not a number, overflow for one out of range); the integer and currency
// conversions agree with CDbl followed by the range check (CInt rounding half to even);
// CBool agrees with CDbl for numbers; Val reads the same number as CDbl when the text is
// one plain number; CStr of a value reads back to the same text.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <optional>
#include <string>

#include "automation/conversions.h"
#include "automation/variant.h"
#include "automation/vb_error.h"
#include "fuzz_support.h"

namespace {

using namespace corvid::automation;

// The value, or the error number the conversion raised.
template <typename T>
struct Outcome {
    std::optional<T> value;
    std::int32_t error = 0;
};

template <typename T>
Outcome<T> Try(const std::function<T()>& convert) {
    Outcome<T> out;
    try {
        out.value = convert();
    } catch (const VbError& e) {
        out.error = e.number();
        FUZZ_CHECK(e.number() == 13 || e.number() == 6);
    }
    return out;
}

bool IsPlainNumber(std::string_view text) {
    for (char c : text) {
        if (!(c >= '0' && c <= '9') && c != '.' && c != '-' && c != '+' && c != ' ') return false;
    }
    return true;
}

void CheckText(const std::string& text) {
    const auto dbl = Try<double>([&] { return CDbl(text); });
    const auto cint = Try<std::int16_t>([&] { return CInt(text); });
    const auto clng = Try<std::int32_t>([&] { return CLng(text); });
    const auto ccur = Try<Currency>([&] { return CCur(text); });
    const auto cbool = Try<bool>([&] { return CBoolText(text); });
    const auto val = Try<double>([&] { return Val(text); });

    FUZZ_CHECK(val.error == 0 || val.error == 6);
    if (val.value) FUZZ_CHECK(*val.value == TryLeadingNumber(text).value_or(0.0));
    if (!dbl.value) {
        // Nothing reads a text that CDbl refuses (except CBool's words).
        FUZZ_CHECK(!cint.value && !clng.value && !ccur.value);
        FUZZ_CHECK(cint.error == dbl.error && clng.error == dbl.error);
        return;
    }
    const double x = *dbl.value;
    FUZZ_CHECK(!std::isnan(x));
    const double even = std::nearbyint(x);  // the default rounding: half to even
    const bool fits16 = even >= -32768 && even <= 32767;
    const bool fits32 = even >= -2147483648.0 && even <= 2147483647.0;
    FUZZ_CHECK(cint.value.has_value() == fits16);
    FUZZ_CHECK(clng.value.has_value() == fits32);
    if (cint.value) FUZZ_CHECK(*cint.value == even);
    if (clng.value) FUZZ_CHECK(*clng.value == even);
    if (ccur.value)
        FUZZ_CHECK(std::fabs(ccur.value->ToDouble() - x) <= 0.00005 + std::fabs(x) * 1e-15);
    if (!ccur.value) FUZZ_CHECK(ccur.error == 6 && std::fabs(x) >= 9e14);
    FUZZ_CHECK(cbool.value.has_value());
    FUZZ_CHECK(*cbool.value == (x != 0));
    if (IsPlainNumber(text) && CurrentLocaleFormat().decimal_symbol == "." && val.value) {
        FUZZ_CHECK(*val.value == x);
    }
}

double FromBits(std::uint64_t bits) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// CStr's text, read back by the conversion of its own kind, gives the same text.
void CheckRoundTrips(FuzzedDataProvider& in) {
    const auto i16 = in.ConsumeIntegral<std::int16_t>();
    FUZZ_CHECK(CInt(CStr(i16)) == i16);
    const auto i32 = in.ConsumeIntegral<std::int32_t>();
    FUZZ_CHECK(CLng(CStr(i32)) == i32);
    // CCur reads a text through a double: exact up to 15 significant digits.
    constexpr std::int64_t kExact = 999'999'999'999'999;
    const auto money =
        Currency::FromScaled(in.ConsumeIntegralInRange<std::int64_t>(-kExact, kExact));
    if (!(CCur(CStr(money)) == money)) {
        std::fprintf(stderr, "CStr(%lld / 10000) = \"%s\" reads back as %lld\n",
                     static_cast<long long>(money.scaled()), CStr(money).c_str(),
                     static_cast<long long>(CCur(CStr(money)).scaled()));
    }
    FUZZ_CHECK(CCur(CStr(money)) == money);
    const double d = FromBits(in.ConsumeIntegral<std::uint64_t>());
    // The largest doubles round up past the double range in 15 digits: VB cannot read
    // those back either.
    if (std::isfinite(d) && std::fabs(d) < 1.79769313486231e308) {
        const std::string text = CStr(d);
        FUZZ_CHECK(CStr(CDbl(text)) == text);
    }
    const auto f = static_cast<float>(FromBits(in.ConsumeIntegral<std::uint64_t>()));
    if (std::isfinite(f)) {
        const std::string text = CStr(f);
        FUZZ_CHECK(CStr(static_cast<float>(CDbl(text))) == text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    corvid::fuzz::ScopedLocale locale(in.ConsumeIntegral<std::uint8_t>(), 0);
    CheckRoundTrips(in);
    CheckText(in.ConsumeRemainingBytesAsString());
    return 0;
}
