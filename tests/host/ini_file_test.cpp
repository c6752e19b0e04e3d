#include "host/ini_file.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid::host {
namespace {

const char* const kIni =
    "; the printer's settings\r\n"
    "TopLevel=ignored\r\n"
    "[Config\\NimbusPF]\r\n"
    "TimeOut = 7,5 \r\n"
    "  IsDebug=True\r\n"
    "; Retries=9\r\n"
    "Retries=3\r\n"
    "Retries=4\r\n"
    "Empty=\r\n"
    "Quoted=\"  padded  \"\r\n"
    "Single='x'\r\n"
    "HalfQuoted=\"abc\r\n"
    "Inner=a \"b\" c ; not a comment\r\n"
    "Equals=a=b\r\n"
    "[Config\\NimbusPF\\Tasas]\r\n"
    "Tasa1=16\r\n"
    "[ Spaced ]\n"
    "Key=unix line end\n";

TEST(IniFile, NamesCompareWithoutCaseAndSectionsKeepTheirBackslashes) {
    EXPECT_EQ(FindIniValue(kIni, "config\\nimbuspf", "TIMEOUT"), "7,5");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF\\Tasas", "tasa1"), "16");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Tasa1"), std::nullopt);
    EXPECT_EQ(FindIniValue(kIni, "Spaced", "key"), "unix line end");
}

TEST(IniFile, ValuesAreTrimmedAndUnquotedOnlyWhenBothQuotesMatch) {
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "IsDebug"), "True");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Quoted"), "  padded  ");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Single"), "x");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "HalfQuoted"), "\"abc");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Inner"), "a \"b\" c ; not a comment");
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Equals"), "a=b");
}

TEST(IniFile, CommentsAndKeysOutsideSectionsAreIgnoredAndTheFirstEntryWins) {
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Retries"), "3");
    EXPECT_EQ(FindIniValue(kIni, "", "TopLevel"), std::nullopt);
    EXPECT_EQ(FindIniValue(kIni, "Config\\NimbusPF", "Empty"), "");
    EXPECT_EQ(FindIniValue(kIni, "Missing", "TimeOut"), std::nullopt);
}

TEST(IniFile, LongValuesAreCutTo1023Characters) {
    const std::string ini = "[S]\nK=" + std::string(2000, 'x') + "\n";
    EXPECT_EQ(FindIniValue(ini, "S", "K"), std::string(1023, 'x'));
}

TEST(IniFile, AMissingFileHasNoValues) {
    EXPECT_EQ(ReadIniFileValue("no-such-folder/no-such.ini", "S", "K"), std::nullopt);
}

}  // namespace
}  // namespace corvid::host
