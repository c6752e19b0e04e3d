#include "host/settings_store.h"

#include <gtest/gtest.h>

#include "support/memory_settings_source.h"

namespace corvid::host {
namespace {

using automation::Currency;

constexpr const char* kSection = "Config\\NimbusPF";

// The file wins over the user store, where an empty file entry counts as absent; another
// application reads its own file and store.
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
                                     {"Huge", "1e300"}}) {
        settings->SetIniValue("ORV", kSection, key, value);
    }
    settings->SetUserValue("ORV", kSection, "D", "-1");
    settings->SetUserValue("ORV", kSection, "Negative", " -0.25");

    EXPECT_EQ(GetSettingString("ORV", kSection, "Modelo", "x"), "SRP350");
    EXPECT_EQ(GetSettingString("ORV", kSection, "Puerto", "x"), "3");
    EXPECT_EQ(GetSettingString("ORV", kSection, "Nada", "por defecto"), "por defecto");
    EXPECT_EQ(GetSettingString("Halewood", kSection, "Modelo", "x"), "x");

    // Text that is no Boolean gives the fallback.
    for (const auto& [key, fallback, value] : {std::tuple{"A", true, true},
                                               {"A", false, false},
                                               {"B", false, true},
                                               {"C", true, false},
                                               {"D", false, true},
                                               {"Absent", true, true},
                                               {"Absent", false, false}}) {
        EXPECT_EQ(GetSettingBool("ORV", kSection, key, fallback), value) << key << fallback;
    }
    // Numbers take a comma as the point and the leading number; anything else the fallback.
    const Currency fallback = Currency::FromDouble(42.5);
    for (const auto& [key, value] : {std::pair{"TimeOut", 7.5},
                                     {"Retries", 12.0},
                                     {"A", 42.5},
                                     {"Negative", -0.25},
                                     {"Huge", 42.5},
                                     {"Absent", 42.5}}) {
        EXPECT_EQ(GetSettingNumber("ORV", kSection, key, fallback), Currency::FromDouble(value))
            << key;
    }
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Absent", Currency::FromDouble(0.0001)),
              Currency::FromScaled(1));
}

}  // namespace
}  // namespace corvid::host
