#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

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

class Win32SettingsSourceTest : public ::testing::Test {
  protected:
    void SetUp() override { RegDeleteTreeA(HKEY_CURRENT_USER, kAppKey); }
    void TearDown() override { RegDeleteTreeA(HKEY_CURRENT_USER, kAppKey); }

    static void SetRegistryValue(const std::string& section, const std::string& name, DWORD type,
                                 const void* data, DWORD size) {
        HKEY key = nullptr;
        const std::string path = std::string(kAppKey) + "\\" + section;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                  nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExA(key, name.c_str(), 0, type, static_cast<const BYTE*>(data), size);
        RegCloseKey(key);
    }
    static void SetRegistryString(const std::string& section, const std::string& name,
                                  const std::string& value) {
        SetRegistryValue(section, name, REG_SZ, value.c_str(),
                         static_cast<DWORD>(value.size() + 1));
    }

    std::shared_ptr<SettingsSource> source_ = MakePlatformSettingsSource();
};

TEST_F(Win32SettingsSourceTest, ReadsTheApplicationSettingsKeyOfTheCurrentUser) {
    SetRegistryString("Config\\NimbusPF\\Tasas", "Tasa1", "16,00");
    SetRegistryString("Config\\NimbusPF\\Tasas", "Vacia", "");
    const DWORD number = 7;
    SetRegistryValue("Config\\NimbusPF\\Tasas", "Numero", REG_DWORD, &number, sizeof number);

    EXPECT_EQ(source_->ReadUserSetting("ORVTEST", "Config\\NimbusPF\\Tasas", "tasa1", "d"),
              "16,00");
    EXPECT_EQ(source_->ReadUserSetting("ORVTEST", "Config\\NimbusPF\\Tasas", "Vacia", "d"), "");
    EXPECT_EQ(source_->ReadUserSetting("ORVTEST", "Config\\NimbusPF\\Tasas", "Numero", "d"), "d");
    EXPECT_EQ(source_->ReadUserSetting("ORVTEST", "Config\\NimbusPF\\Tasas", "Otra", "d"), "d");
    EXPECT_EQ(source_->ReadUserSetting("ORVTEST", "Config\\NimbusPF", "Tasa1", "d"), "d");
}

TEST_F(Win32SettingsSourceTest, ReadsTheIniFileInTheCurrentDirectoryAsThePortableParserDoes) {
    const std::string ini =
        "; comentario\r\n"
        "[Config\\NimbusPF]\r\n"
        "TimeOut = 7,5 \r\n"
        "Retries=3\r\n"
        "Retries=4\r\n"
        "Empty=\r\n"
        "Quoted=\"  padded  \"\r\n"
        "Single='x'\r\n"
        "HalfQuoted=\"abc\r\n"
        "Inner=a \"b\" c ; no comment\r\n"
        "Equals=a=b\r\n"
        "Long=" +
        std::string(1500, 'y') +
        "\r\n"
        "[config\\nimbuspf\\tasas]\r\n"
        "Tasa1=16\r\n";
    test_support::TempFolder folder;
    folder.Write("ORVTEST.ini", ini);
    test_support::ScopedCurrentDir cwd(folder.path());

    EXPECT_EQ(source_->ReadIniFile(".\\ORVTEST.ini", "CONFIG\\NIMBUSPF", "timeout"), "7,5");
    EXPECT_EQ(source_->ReadIniFile(".\\ORVTEST.ini", "Config\\NimbusPF\\Tasas", "Tasa1"), "16");
    EXPECT_EQ(source_->ReadIniFile(".\\Missing.ini", "Config\\NimbusPF", "TimeOut"), "");
    for (const char* key : {"TimeOut", "Retries", "Empty", "Quoted", "Single", "HalfQuoted",
                            "Inner", "Equals", "Long", "Absent"}) {
        SCOPED_TRACE(key);
        EXPECT_EQ(source_->ReadIniFile(".\\ORVTEST.ini", "Config\\NimbusPF", key),
                  FindIniValue(ini, "Config\\NimbusPF", key).value_or(""));
    }
}

TEST_F(Win32SettingsSourceTest, AnEmptyFileEntryFallsThroughToTheRegistry) {
    test_support::TempFolder folder;
    folder.Write("ORVTEST.ini", "[General]\r\nPuerto=\r\nModelo=SRP350\r\n");
    test_support::ScopedCurrentDir cwd(folder.path());
    SetRegistryString("General", "Puerto", "3");
    SetRegistryString("General", "Modelo", "DT230");

    EXPECT_EQ(GetSettingString("ORVTEST", "General", "Puerto", "1"), "3");
    EXPECT_EQ(GetSettingString("ORVTEST", "General", "Modelo", "x"), "SRP350");
    EXPECT_EQ(GetSettingNumber("ORVTEST", "General", "Puerto", automation::Currency()),
              automation::Currency::FromDouble(3));
}

TEST(SpecialFolderWin32, TheDocumentsFolderExistsAndTheTraceFileDefaultsThere) {
    const std::string documents = SHgetFolder(kCsidlPersonal);
    ASSERT_FALSE(documents.empty());
    EXPECT_TRUE(std::filesystem::is_directory(documents));

    ScopedSettingsSource settings;
    automation::ScopedClock clock(std::make_shared<automation::FakeClock>());
    TraceLog log;
    log.SetIsDebug(true);
    log.Trace("hola");
    const std::string expected = documents + "\\FPRINTER.LOG";
    EXPECT_EQ(log.file_name(), expected);
    std::ifstream in(expected, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    in.close();
    std::filesystem::remove(expected);
    EXPECT_EQ(text.substr(text.size() - 6), "hola\r\n");
}

}  // namespace
}  // namespace corvid::host
