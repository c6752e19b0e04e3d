// Reading one value out of initialisation-file text.
// Properties: a value is one line's text, at most 1023 characters; the first matching entry
// wins, so an entry appended after the text changes nothing when the text already has one
// and is found when it has not; section and key names compare without regard to case.
#include <cctype>
#include <cstdint>
#include <optional>
#include <string>

#include "fuzz_support.h"
#include "host/ini_file.h"

namespace {

// A name as a settings file can hold it: letters, digits and a few marks, no blanks
// around it; empty names are replaced.
std::string CleanName(const std::string& raw, const char* fallback) {
    std::string name;
    for (char c : raw) {
        if (std::isalnum(static_cast<unsigned char>(c)) || c == '\\' || c == '_' || c == '.') {
            name += c;
        }
    }
    return name.empty() ? fallback : name;
}

std::string Flipped(std::string name) {
    for (char& c : name) {
        if (std::islower(static_cast<unsigned char>(c))) {
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        } else if (std::isupper(static_cast<unsigned char>(c))) {
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return name;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using corvid::host::FindIniValue;
    FuzzedDataProvider in(data, size);
    const std::string section = CleanName(in.ConsumeRandomLengthString(24), "Config\\NimbusPF");
    const std::string key = CleanName(in.ConsumeRandomLengthString(16), "TimeOut");
    const std::string content = in.ConsumeRemainingBytesAsString();

    const std::optional<std::string> value = FindIniValue(content, section, key);
    if (value) {
        FUZZ_CHECK(value->size() <= corvid::host::kIniValueMaxLength);
        FUZZ_CHECK(value->find('\n') == std::string::npos);
    }
    const std::string appended = content + "\n[" + section + "]\n" + key + "=appended entry\n";
    FUZZ_CHECK(FindIniValue(appended, section, key) == value.value_or("appended entry"));
    FUZZ_CHECK(FindIniValue(content, Flipped(section), Flipped(key)) == value);
    return 0;
}
