#include <gtest/gtest.h>

#include <string>

#include "host/platform_settings_source.h"
#include "host/scoped_env.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

using test_support::ScopedCurrentDir;
using test_support::ScopedEnv;
using test_support::TempFolder;

class PosixSettingsSourceTest : public ::testing::Test {
  protected:
    TempFolder work_;
    TempFolder config_;
    ScopedCurrentDir cwd_{work_.path()};
    ScopedEnv config_home_{"XDG_CONFIG_HOME", config_.path().string()};
    std::shared_ptr<SettingsSource> source_ = MakePlatformSettingsSource();
};

TEST_F(PosixSettingsSourceTest, ReadsTheIniFileInTheCurrentDirectoryNamedTheWindowsWay) {
    work_.Write("ORV.ini", "[CONFIG\\NimbusPF]\r\ndebugfile = \"/tmp/x.log\"\r\n");
    EXPECT_EQ(source_->ReadIniFile(".\\ORV.ini", "Config\\NimbusPF", "DEBUGFILE"), "/tmp/x.log");
    EXPECT_EQ(source_->ReadIniFile(".\\ORV.ini", "Config\\NimbusPF", "Other"), "");
    EXPECT_EQ(source_->ReadIniFile(".\\Halewood.ini", "Config\\NimbusPF", "DEBUGFILE"), "");
}

TEST_F(PosixSettingsSourceTest, ReadsThePerUserFileWhoseSectionsAreTheFullSectionTexts) {
    config_.Write("corvid/ORV.ini", "[Config\\NimbusPF\\Tasas]\nTasa1=16\nVacia=\n");
    EXPECT_EQ(source_->ReadUserSetting("ORV", "Config\\NimbusPF\\Tasas", "Tasa1", "d"), "16");
    // Present but empty is a value, as an empty string in the registry is.
    EXPECT_EQ(source_->ReadUserSetting("ORV", "Config\\NimbusPF\\Tasas", "Vacia", "d"), "");
    EXPECT_EQ(source_->ReadUserSetting("ORV", "Config\\NimbusPF", "Tasa1", "d"), "d");
    EXPECT_EQ(source_->ReadUserSetting("Halewood", "General", "DataDir", "d"), "d");
}

TEST_F(PosixSettingsSourceTest, ThePerUserFileDefaultsToTheHomeConfigFolder) {
    TempFolder home;
    home.Write(".config/corvid/ORV.ini", "[General]\nK=home\n");
    ScopedEnv no_config_home("XDG_CONFIG_HOME", "");
    ScopedEnv home_env("HOME", home.path().string());
    EXPECT_EQ(source_->ReadUserSetting("ORV", "General", "K", "d"), "home");
}

}  // namespace
}  // namespace corvid::host
