#include "host/settings_store.h"

#include <gtest/gtest.h>

#include "support/memory_settings_source.h"

namespace corvid::host {
namespace {

using automation::Currency;

constexpr const char* kSection = "Config\\NimbusPF";

// The file wins over the user store, where an empty file entry counts as absent; another
// application reads its own file and store. Text that is no Boolean or number gives the
// fallback; numbers take a comma as the point and the leading number.
TEST(SettingsStoreTest, ReadersTakeTheFileThenTheStoreThenTheFallback) {
    ScopedSettingsSource settings;
    settings->SetIniValue("ORV", kSection, "Modelo", "SRP350");
    settings->SetUserValue("ORV", kSection, "Modelo", "DT230");
    settings->SetIniValue("ORV", kSection, "Puerto", "");
    settings->SetUserValue("ORV", kSection, "Puerto", "3");
    for (const auto& [key, value] : {std::pair{"A", "abc"},
                                     {"B", "true"},
                                     {"C", "0"},
                                     {"TimeOut", "7,5"},
                                     {"Retries", "12abc"},
                                     {"Huge", "1e300"},
                                     {"D", "-1"},
                                     {"Negative", " -0.25"}}) {
        settings->SetIniValue("ORV", kSection, key, value);
    }
    EXPECT_EQ(GetSettingString("ORV", kSection, "Modelo", "x"), "SRP350");
    EXPECT_EQ(GetSettingString("ORV", kSection, "Puerto", "x"), "3");
    EXPECT_EQ(GetSettingString("Halewood", kSection, "Modelo", "x"), "x");
    for (const auto& [key, fallback, value] : {std::tuple{"A", true, true},
                                               {"A", false, false},
                                               {"B", false, true},
                                               {"C", true, false},
                                               {"D", false, true},
                                               {"Absent", true, true}}) {
        EXPECT_EQ(GetSettingBool("ORV", kSection, key, fallback), value) << key << fallback;
    }
    for (const auto& [key, value] : {std::pair{"TimeOut", 7.5},
                                     {"Retries", 12.0},
                                     {"A", 42.5},
                                     {"Negative", -0.25},
                                     {"Huge", 42.5},
                                     {"Absent", 42.5}}) {
        EXPECT_EQ(GetSettingNumber("ORV", kSection, key, Currency::FromDouble(42.5)),
                  Currency::FromDouble(value))
            << key;
    }
}

}  // namespace
}  // namespace corvid::host
