#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <tuple>

#include "host/ini_file.h"
#include "host/platform_settings_source.h"
#include "host/special_folder.h"
#include "host/trace_log.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

constexpr const char* kAppKey = "Software\\VB and VBA Program Settings\\ORVTEST";
constexpr const char* kSection = "Config\\NimbusPF\\Tasas";

// Only string values count; another type, key or section gives the fallback.
TEST(Win32SettingsSourceTest, ReadsTheApplicationSettingsKeyOfTheCurrentUser) {
    HKEY key = nullptr;
    RegDeleteTreeA(HKEY_CURRENT_USER, kAppKey);
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, (std::string(kAppKey) + "\\" + kSection).c_str(),
                              0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    const DWORD number = 7;
    RegSetValueExA(key, "Tasa1", 0, REG_SZ, reinterpret_cast<const BYTE*>("16,00"), 6);
    RegSetValueExA(key, "Vacia", 0, REG_SZ, reinterpret_cast<const BYTE*>(""), 1);
    RegSetValueExA(key, "Numero", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4);
    RegCloseKey(key);
    const auto source = MakePlatformSettingsSource();
    for (const auto& [section, name, value] : {std::tuple{kSection, "tasa1", "16,00"},
                                               {kSection, "Vacia", ""},
                                               {kSection, "Numero", "d"},
                                               {"Config\\NimbusPF", "Tasa1", "d"}}) {
        EXPECT_EQ(source->ReadUserSetting("ORVTEST", section, name, "d"), value) << name;
    }
    RegDeleteTreeA(HKEY_CURRENT_USER, kAppKey);
}

// The platform's own ini reading must agree with the portable parser.
TEST(Win32SettingsSourceTest, ReadsTheIniFileInTheCurrentDirectoryAsThePortableParserDoes) {
    const std::string ini =
        "; c\r\n[Config\\NimbusPF]\r\nTimeOut = 7,5 \r\nRetries=3\r\nRetries=4\r\n"
        "Quoted=\"  padded  \"\r\nHalfQuoted=\"abc\r\nLong=" +
        std::string(1500, 'y') + "\r\n[config\\nimbuspf\\tasas]\r\nTasa1=16\r\n";
    test_support::TempFolder folder;
    folder.Write("ORVTEST.ini", ini);
    test_support::ScopedCurrentDir cwd(folder.path());
    const auto source = MakePlatformSettingsSource();
    EXPECT_EQ(source->ReadIniFile(".\\ORVTEST.ini", "CONFIG\\NIMBUSPF\\TASAS", "tasa1"), "16");
    for (const char* key : {"TimeOut", "Retries", "Quoted", "HalfQuoted", "Long", "Absent"}) {
        EXPECT_EQ(source->ReadIniFile(".\\ORVTEST.ini", "Config\\NimbusPF", key),
                  FindIniValue(ini, "Config\\NimbusPF", key).value_or(""))
            << key;
    }
}

TEST(SpecialFolderWin32, TheDocumentsFolderExistsAndTheTraceFileDefaultsThere) {
    const std::string documents = SHgetFolder(kCsidlPersonal);
    ASSERT_TRUE(std::filesystem::is_directory(documents)) << documents;
    ScopedSettingsSource settings;
    automation::ScopedClock clock(std::make_shared<automation::FakeClock>());
    TraceLog log;
    log.SetIsDebug(true);
    log.Trace("hola");
    EXPECT_EQ(log.file_name(), documents + "\\FPRINTER.LOG");
    EXPECT_TRUE(std::filesystem::remove(log.file_name()));
}

}  // namespace
}  // namespace corvid::host
