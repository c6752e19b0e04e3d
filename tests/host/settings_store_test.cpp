#include "host/settings_store.h"

#include <gtest/gtest.h>

#include "support/memory_settings_source.h"

namespace corvid::host {
namespace {

using automation::Currency;

constexpr const char* kSection = "Config\\NimbusPF";

class SettingsStoreTest : public ::testing::Test {
  protected:
    ScopedSettingsSource settings_;
};

TEST_F(SettingsStoreTest, TheFileWinsOverTheUserStoreAndAnEmptyEntryCountsAsAbsent) {
    settings_->SetIniValue("ORV", kSection, "Modelo", "SRP350");
    settings_->SetUserValue("ORV", kSection, "Modelo", "DT230");
    settings_->SetIniValue("ORV", kSection, "Puerto", "");
    settings_->SetUserValue("ORV", kSection, "Puerto", "3");

    EXPECT_EQ(GetSettingString("ORV", kSection, "Modelo", "x"), "SRP350");
    EXPECT_EQ(GetSettingString("ORV", kSection, "Puerto", "x"), "3");
    EXPECT_EQ(GetSettingString("ORV", kSection, "Nada", "por defecto"), "por defecto");
    // Another application reads its own file and store.
    EXPECT_EQ(GetSettingString("Halewood", kSection, "Modelo", "x"), "x");
}

TEST_F(SettingsStoreTest, TheFileIsNamedAfterTheApplicationInTheCurrentDirectory) {
    MemorySettingsSource& source = settings_.source();
    source.SetIniValue("ORV", "General", "K", "v");
    EXPECT_EQ(source.ReadIniFile(".\\ORV.ini", "general", "k"), "v");
    EXPECT_EQ(source.ReadIniFile("ORV.ini", "General", "K"), "");
}

TEST_F(SettingsStoreTest, BooleanReaderFallsBackOnTextThatIsNoBoolean) {
    settings_->SetIniValue("ORV", kSection, "A", "abc");
    settings_->SetIniValue("ORV", kSection, "B", "true");
    settings_->SetIniValue("ORV", kSection, "C", "0");
    settings_->SetUserValue("ORV", kSection, "D", "-1");

    EXPECT_TRUE(GetSettingBool("ORV", kSection, "A", true));
    EXPECT_FALSE(GetSettingBool("ORV", kSection, "A", false));
    EXPECT_TRUE(GetSettingBool("ORV", kSection, "B", false));
    EXPECT_FALSE(GetSettingBool("ORV", kSection, "C", true));
    EXPECT_TRUE(GetSettingBool("ORV", kSection, "D", false));
    EXPECT_TRUE(GetSettingBool("ORV", kSection, "Absent", true));
    EXPECT_FALSE(GetSettingBool("ORV", kSection, "Absent", false));
}

TEST_F(SettingsStoreTest, NumericReaderTakesCommaAsPointAndTheLeadingNumber) {
    settings_->SetIniValue("ORV", kSection, "TimeOut", "7,5");
    settings_->SetIniValue("ORV", kSection, "Retries", "12abc");
    settings_->SetIniValue("ORV", kSection, "Bad", "abc");
    settings_->SetUserValue("ORV", kSection, "Negative", " -0.25");
    settings_->SetIniValue("ORV", kSection, "Huge", "1e300");
    const Currency fallback = Currency::FromDouble(42.5);

    EXPECT_EQ(GetSettingNumber("ORV", kSection, "TimeOut", fallback), Currency::FromDouble(7.5));
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Retries", fallback), Currency::FromDouble(12));
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Bad", fallback), fallback);
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Negative", fallback), Currency::FromDouble(-0.25));
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Huge", fallback), fallback);
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Absent", fallback), fallback);
    EXPECT_EQ(GetSettingNumber("ORV", kSection, "Absent", Currency::FromDouble(0.0001)),
              Currency::FromScaled(1));
}

}  // namespace
}  // namespace corvid::host
