// What every harness shares: a property check that ends the run as a crash (so libFuzzer
// saves the input), and a process set up the same way for every input: a fake clock that
// only moves when waited on, and an empty in-memory settings store.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "automation/clock.h"
#include "automation/locale_format.h"
#include "host/settings_store.h"
#include "session/responses.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"

#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "property failed: %s (%s:%d)\n", #condition, __FILE__, __LINE__); \
            std::abort();                                                                          \
        }                                                                                          \
    } while (0)

namespace corvid::fuzz {

// Installs a fresh fake clock (12:00 on a fixed day) and an empty settings store for one
// input, and puts the previous ones back afterwards.
class ProcessSetup {
  public:
    ProcessSetup()
        : clock_(std::make_shared<automation::FakeClock>()),
          scoped_clock_(clock_),
          settings_(std::make_shared<host::MemorySettingsSource>()) {}

    automation::FakeClock& clock() { return *clock_; }
    host::MemorySettingsSource& settings() { return settings_.source(); }

  private:
    std::shared_ptr<automation::FakeClock> clock_;
    automation::ScopedClock scoped_clock_;
    host::ScopedSettingsSource settings_;
};

// Installs one of a few user locales for one input: the default, a comma-decimal one with
// Indian grouping and a multi-character currency symbol, and one without grouping; the
// currency placement orders come from `orders`.
class ScopedLocale {
  public:
    ScopedLocale(std::uint8_t choice, std::uint8_t orders)
        : previous_(automation::ReplaceLocaleFormat(Make(choice, orders))) {}
    ~ScopedLocale() { automation::ReplaceLocaleFormat(previous_); }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;

  private:
    static automation::LocaleFormat Make(std::uint8_t choice, std::uint8_t orders) {
        automation::LocaleFormat locale;
        if (choice % 3 == 1) {
            locale.decimal_symbol = locale.currency_decimal_symbol = ",";
            locale.thousands_separator = locale.currency_thousands_separator = ".";
            locale.grouping = locale.currency_grouping = "3;2;0";
            locale.currency_symbol = "Bs.S";
        } else if (choice % 3 == 2) {
            locale.thousands_separator = locale.currency_thousands_separator = " ";
            locale.grouping = "3";
            locale.currency_grouping = "0";
            locale.currency_digits = 0;
        }
        locale.currency_positive_order = orders & 3;
        locale.currency_negative_order = (orders >> 2) & 15;
        return locale;
    }

    automation::LocaleFormat previous_;
};

// The input as a printer's reply, split into its fields.
inline session::Fields ReplyFields(const std::uint8_t* data, std::size_t size) {
    return session::SplitFields(std::string(reinterpret_cast<const char*>(data), size));
}

}  // namespace corvid::fuzz
