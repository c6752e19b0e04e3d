#include "sim/money.h"

#include <algorithm>
#include <cstdio>
#include <numeric>

namespace corvid::sim {

namespace {

__int128 PowerOfTen(int n) {
    __int128 p = 1;
    while (n-- > 0) p *= 10;
    return p;
}

}  // namespace

std::int64_t Rescale(__int128 value, int from, int to) {
    if (to >= from) return static_cast<std::int64_t>(value * PowerOfTen(to - from));
    __int128 divisor = PowerOfTen(from - to);
    __int128 half = divisor / 2;
    __int128 rounded = value >= 0 ? (value + half) / divisor : -((-value + half) / divisor);
    return static_cast<std::int64_t>(rounded);
}

Cents LineAmount(Decimal price, Decimal quantity) {
    return Rescale(static_cast<__int128>(price.units) * quantity.units,
                   price.decimals + quantity.decimals, 2);
}

Cents TaxOn(Cents base, int rate) { return Rescale(static_cast<__int128>(base) * rate, 4, 0); }

SlotAmounts Spread(Cents amount, const SlotAmounts& over) {
    SlotAmounts parts{};
    const Cents whole = over[0] + over[1] + over[2] + over[3];
    if (whole <= 0) return parts;
    std::array<__int128, 4> remainders{};
    Cents given = 0;
    for (int slot = 0; slot < 4; ++slot) {
        __int128 share = static_cast<__int128>(amount) * over[slot];
        parts[slot] = static_cast<Cents>(share / whole);
        remainders[slot] = share % whole;
        given += parts[slot];
    }
    std::array<int, 4> order{0, 1, 2, 3};
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return remainders[a] > remainders[b]; });
    for (int i = 0; given < amount; ++i, ++given) ++parts[order[i % 4]];
    return parts;
}

Cents Sum(const SlotAmounts& amounts) {
    return std::accumulate(amounts.begin(), amounts.end(), Cents{0});
}

std::string FormatDecimal(Decimal d, bool trimZeros) {
    std::uint64_t magnitude =
        d.units < 0 ? 0 - static_cast<std::uint64_t>(d.units) : static_cast<std::uint64_t>(d.units);
    const auto decimals = static_cast<std::size_t>(d.decimals);
    std::string digits = std::to_string(magnitude);
    if (digits.size() <= decimals) digits = std::string(decimals + 1 - digits.size(), '0') + digits;
    std::string fraction = digits.substr(digits.size() - decimals);
    if (trimZeros) fraction.erase(fraction.find_last_not_of('0') + 1);
    std::string text = (d.units < 0 ? "-" : "") + digits.substr(0, digits.size() - decimals);
    return fraction.empty() ? text : text + "," + fraction;
}

std::string ZeroPadded(long long value, int width) {
    char text[32];
    std::snprintf(text, sizeof text, "%0*lld", width, value);
    return text;
}

std::string HundredthsField(Cents cents) {
    return cents < 0 ? "-" + ZeroPadded(-cents, 9) : ZeroPadded(cents, 10);
}

std::string FormatAmount(Cents cents) {
    const std::string plain = FormatDecimal({cents < 0 ? -cents : cents, 2});
    const std::size_t whole = plain.size() - 3;
    std::string grouped = cents < 0 ? "-" : "";
    for (std::size_t i = 0; i < whole; ++i) {
        if (i > 0 && (whole - i) % 3 == 0) grouped += '.';
        grouped += plain[i];
    }
    return grouped + plain.substr(whole);
}

}  // namespace corvid::sim
