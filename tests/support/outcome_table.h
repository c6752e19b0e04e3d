// Tables of expressions, each giving a number or a text or raising a run-time error, walked
// in one test that names the failing row by its expression.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "support/vb_error_testing.h"

namespace corvid::test_support {

template <typename T>
struct OutcomeCase {
    const char* expression;
    T (*evaluate)();
    T expected;  // when no error is expected
    int error;   // the run-time error expected; 0 for none
};

// clang-format off
#define NUMBER_IS(expr, value) {#expr, [] { return static_cast<double>(expr); }, value, 0}
#define RAISES(expr, number) {#expr, [] { return static_cast<double>(expr); }, 0, number}
#define TEXT_IS(expr, text) {#expr, [] { return std::string(expr); }, text, 0}
#define TEXT_RAISES(expr, number) {#expr, [] { return std::string(expr); }, "", number}
// clang-format on

template <typename T>
void ExpectOutcomes(std::initializer_list<OutcomeCase<T>> cases) {
    for (const OutcomeCase<T>& c : cases) {
        SCOPED_TRACE(c.expression);
        T got{};
        EXPECT_EQ(ErrorNumberOf([&] { got = c.evaluate(); }), c.error);
        if (c.error == 0) {
            EXPECT_EQ(got, c.expected);
        }
    }
}

inline void ExpectNumbers(std::initializer_list<OutcomeCase<double>> cases) {
    ExpectOutcomes(cases);
}
inline void ExpectTexts(std::initializer_list<OutcomeCase<std::string>> cases) {
    ExpectOutcomes(cases);
}

}  // namespace corvid::test_support
