#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>
#include <string>

#include "host/platform_settings_source.h"
#include "host/special_folder.h"
#include "host/trace_log.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

using test_support::TempFolder;

// Sets an environment variable for the life of a test and puts the old value back.
class ScopedEnv {
  public:
    ScopedEnv(const char* name, const std::string& value) : name_(name) {
        if (const char* old = getenv(name)) previous_ = old;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() { previous_ ? (void)setenv(name_, previous_->c_str(), 1) : (void)unsetenv(name_); }

  private:
    const char* name_;
    std::optional<std::string> previous_;
};

// The ini file is named the Windows way, in the current directory; the per-user file's
// sections are the full section texts, and an entry present but empty is a value.
TEST(PosixSettingsSourceTest, ReadsTheIniFileAndThePerUserFile) {
    TempFolder work, config, home;
    test_support::ScopedCurrentDir cwd(work.path());
    ScopedEnv config_home("XDG_CONFIG_HOME", config.path().string());
    const auto source = MakePlatformSettingsSource();
    work.Write("ORV.ini", "[CONFIG\\NimbusPF]\r\ndebugfile = \"/tmp/x.log\"\r\n");
    config.Write("corvid/ORV.ini", "[Config\\NimbusPF\\Tasas]\nTasa1=16\nVacia=\n");
    EXPECT_EQ(source->ReadIniFile(".\\ORV.ini", "Config\\NimbusPF", "DEBUGFILE"), "/tmp/x.log");
    EXPECT_EQ(source->ReadIniFile(".\\Halewood.ini", "Config\\NimbusPF", "DEBUGFILE"), "");
    EXPECT_EQ(source->ReadUserSetting("ORV", "Config\\NimbusPF\\Tasas", "Tasa1", "d"), "16");
    EXPECT_EQ(source->ReadUserSetting("ORV", "Config\\NimbusPF\\Tasas", "Vacia", "d"), "");
    EXPECT_EQ(source->ReadUserSetting("ORV", "Config\\NimbusPF", "Tasa1", "d"), "d");

    home.Write(".config/corvid/ORV.ini", "[General]\nK=home\n");
    ScopedEnv no_config_home("XDG_CONFIG_HOME", "");
    ScopedEnv home_env("HOME", home.path().string());
    EXPECT_EQ(source->ReadUserSetting("ORV", "General", "K", "d"), "home");
}

// The documents folder is XDG_DOCUMENTS_DIR, else the home folder; the trace file defaults
// to FPRINTER.LOG there.
TEST(SpecialFolderPosix, DocumentsFolderHoldsTheTraceFile) {
    TempFolder documents;
    ScopedEnv home("HOME", "/home/cajero");
    {
        ScopedEnv no_documents("XDG_DOCUMENTS_DIR", "");
        EXPECT_EQ(SHgetFolder(kCsidlPersonal), "/home/cajero");
    }
    ScopedEnv documents_env("XDG_DOCUMENTS_DIR", documents.path().string());
    ScopedSettingsSource settings;
    automation::ScopedClock clock(std::make_shared<automation::FakeClock>());
    TraceLog log;
    log.SetIsDebug(true);
    log.Trace("hola");
    EXPECT_EQ(documents.Read("FPRINTER.LOG"), "15/01 12:00:00      43200 hola\r\n");
}

}  // namespace
}  // namespace corvid::host
