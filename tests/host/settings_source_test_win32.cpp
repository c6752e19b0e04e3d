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

void SetRegistryValue(const std::string& name, DWORD type, const void* data, DWORD size) {
    HKEY key = nullptr;
    const std::string path = std::string(kAppKey) + "\\" + kSection;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                              nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExA(key, name.c_str(), 0, type, static_cast<const BYTE*>(data), size);
    RegCloseKey(key);
}

// Only string values count; another type, key or section gives the fallback.
TEST(Win32SettingsSourceTest, ReadsTheApplicationSettingsKeyOfTheCurrentUser) {
    RegDeleteTreeA(HKEY_CURRENT_USER, kAppKey);
    SetRegistryValue("Tasa1", REG_SZ, "16,00", 6);
    SetRegistryValue("Vacia", REG_SZ, "", 1);
    const DWORD number = 7;
    SetRegistryValue("Numero", REG_DWORD, &number, sizeof number);
    const auto source = MakePlatformSettingsSource();
    for (const auto& [section, key, value] : {std::tuple{kSection, "tasa1", "16,00"},
                                              {kSection, "Vacia", ""},
                                              {kSection, "Numero", "d"},
                                              {kSection, "Otra", "d"},
                                              {"Config\\NimbusPF", "Tasa1", "d"}}) {
        EXPECT_EQ(source->ReadUserSetting("ORVTEST", section, key, "d"), value) << key;
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
