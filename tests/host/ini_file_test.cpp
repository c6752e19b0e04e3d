#include "host/ini_file.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace corvid::host {
namespace {

const char* const kIni =
    "TopLevel=ignored\r\n"
    "[Config\\NimbusPF]\r\n"
    "TimeOut = 7,5 \r\n"
    "; Retries=9\r\n"
    "Retries=3\r\n"
    "Retries=4\r\n"
    "Empty=\r\n"
    "Quoted=\"  padded  \"\r\n"
    "HalfQuoted=\"abc\r\n"
    "Inner=a \"b\" c ; not a comment\r\n"
    "[Config\\NimbusPF\\Tasas]\r\n"
    "Tasa1=16\r\n"
    "[ Spaced ]\n"
    "Key=unix line end\n";

// Names compare without case; values are trimmed, and unquoted only when both quotes match;
// comments and keys outside sections are ignored; the first entry wins.
TEST(IniFile, FindsTheValueOfAKeyInItsSection) {
    const std::tuple<const char*, const char*, std::optional<std::string>> cases[] = {
        {"config\\nimbuspf", "TIMEOUT", "7,5"},
        {"Config\\NimbusPF", "Tasa1", std::nullopt},
        {"Spaced", "key", "unix line end"},
        {"Config\\NimbusPF", "Quoted", "  padded  "},
        {"Config\\NimbusPF", "HalfQuoted", "\"abc"},
        {"Config\\NimbusPF", "Inner", "a \"b\" c ; not a comment"},
        {"Config\\NimbusPF", "Retries", "3"},
        {"Config\\NimbusPF", "; Retries", std::nullopt},
        {"", "TopLevel", std::nullopt},
        {"Config\\NimbusPF", "Empty", ""}};
    for (const auto& [section, key, value] : cases) {
        EXPECT_EQ(FindIniValue(kIni, section, key), value) << section << " " << key;
    }
    const std::string long_value = "[S]\nK=" + std::string(2000, 'x') + "\n";
    EXPECT_EQ(FindIniValue(long_value, "S", "K"), std::string(1023, 'x'));
}

}  // namespace
}  // namespace corvid::host
