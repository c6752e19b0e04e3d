// The typed setting readers over a settings store filled from initialisation-file text:
// section "Config\NimbusPF" of the input gives the file's values, section "User" the
// per-user ones.
// Properties: no reader raises; a number is a currency amount; the 16- and 32-bit readers
// give the number rounded half to even when it fits and nothing when it does not; an
// absent setting gives the fallback; a value in the file hides the per-user one; the
// Boolean reader's words are read whatever the fallback.
#include <cctype>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>

#include "automation/currency.h"
#include "fuzz_support.h"
#include "host/ini_file.h"
#include "host/library_settings.h"

namespace {

using namespace corvid::host;

constexpr const char* kKeys[] = {"TimeOut", "SkipChecks", "TipoPrinter", "FactorDelay",
                                 "IsDebug", "Reintentos", "NumTasas",    "TestMode"};
constexpr double kFallbacks[] = {0, 1, -1, 10, 0.3, 32767.5, -2147483648.5, 1e10};

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool EqualsWord(const std::string& text, const char* word) {
    const std::string t = Trimmed(text);
    if (t.size() != std::char_traits<char>::length(word)) return false;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(t[i])) != word[i]) return false;
    }
    return true;
}

struct Read {
    double number;
    std::optional<std::int16_t> int16;
    std::optional<std::int32_t> int32;
};

Read ReadAll(const std::string& key, double fallback) {
    return {ReadNumberSetting(key, fallback), ReadInt16Setting(key, fallback),
            ReadInt32Setting(key, fallback)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvid::fuzz::ProcessSetup setup;
    FuzzedDataProvider in(data, size);
    const double fallback = kFallbacks[in.ConsumeIntegralInRange<std::size_t>(0, 7)];
    const std::string content = in.ConsumeRemainingBytesAsString();

    for (const char* key : kKeys) {
        const auto file = FindIniValue(content, kSessionSection, key);
        const auto user = FindIniValue(content, "User", key);
        if (file) setup.settings().SetIniValue(kApplication, kSessionSection, key, *file);
        if (user) setup.settings().SetUserValue(kApplication, kSessionSection, key, *user);
    }
    std::optional<double> fromFile[std::size(kKeys)];
    for (std::size_t k = 0; k < std::size(kKeys); ++k) {
        const char* key = kKeys[k];
        const auto file = FindIniValue(content, kSessionSection, key);
        const auto user = FindIniValue(content, "User", key);
        const Read read = ReadAll(key, fallback);

        FUZZ_CHECK(corvid::automation::Currency::FromDouble(read.number).ToDouble() == read.number);
        const double even = std::nearbyint(read.number);
        FUZZ_CHECK(read.int16.has_value() == (even >= -32768 && even <= 32767));
        FUZZ_CHECK(read.int32.has_value() == (even >= -2147483648.0 && even <= 2147483647.0));
        if (read.int16) FUZZ_CHECK(*read.int16 == even);
        if (read.int32) FUZZ_CHECK(*read.int32 == even);

        const bool inFile = file && !file->empty();
        if (inFile) fromFile[k] = read.number;
        if (!inFile && !user) {
            FUZZ_CHECK(read.number == fallback);
            FUZZ_CHECK(ReadBoolSetting(key, true) && !ReadBoolSetting(key, false));
        }
        const std::string text = inFile ? *file : user.value_or("");
        if (EqualsWord(text, "true")) FUZZ_CHECK(ReadBoolSetting(key, false));
        if (EqualsWord(text, "false")) FUZZ_CHECK(!ReadBoolSetting(key, true));
    }
    // The file's values alone read the same.
    setup.settings().Clear();
    for (const char* key : kKeys) {
        const auto file = FindIniValue(content, kSessionSection, key);
        if (file) setup.settings().SetIniValue(kApplication, kSessionSection, key, *file);
    }
    for (std::size_t k = 0; k < std::size(kKeys); ++k) {
        if (fromFile[k]) FUZZ_CHECK(ReadNumberSetting(kKeys[k], fallback) == *fromFile[k]);
    }
    return 0;
}
