#include "serial/serial_settings.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>

namespace corvid::serial {
namespace {

std::string Lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::optional<std::uint32_t> Number(std::string_view text) {
    std::uint32_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
        return std::nullopt;
    }
    return value;
}

std::optional<bool> OnOff(const std::string& value) {
    if (value == "on") return true;
    if (value == "off") return false;
    return std::nullopt;
}

// Applies one key=value pair; false when the key or the value is not understood.
bool Apply(const std::string& key, const std::string& value, LineSettings& settings) {
    if (key == "baud") {
        settings.baud = Number(value);
        return settings.baud.has_value() && *settings.baud > 0;
    }
    if (key == "parity") {
        static const std::string kLetters = "noems";
        static const Parity kValues[] = {Parity::kNone, Parity::kOdd, Parity::kEven, Parity::kMark,
                                         Parity::kSpace};
        if (value.size() != 1 || kLetters.find(value[0]) == std::string::npos) return false;
        settings.parity = kValues[kLetters.find(value[0])];
        return true;
    }
    if (key == "data") {
        auto bits = Number(value);
        if (!bits || *bits < 5 || *bits > 8) return false;
        settings.data_bits = static_cast<int>(*bits);
        return true;
    }
    if (key == "stop") {
        if (value == "1") settings.stop_bits = StopBits::kOne;
        if (value == "1.5") settings.stop_bits = StopBits::kOneAndHalf;
        if (value == "2") settings.stop_bits = StopBits::kTwo;
        return value == "1" || value == "1.5" || value == "2";
    }
    if (key == "xon") {
        settings.xon_xoff = OnOff(value);
        return settings.xon_xoff.has_value();
    }
    if (key == "octs") {
        settings.cts_flow = OnOff(value);
        return settings.cts_flow.has_value();
    }
    if (key == "to" || key == "odsr" || key == "idsr") return OnOff(value).has_value();
    if (key == "dtr" || key == "rts") {
        return value == "on" || value == "off" || value == "hs" || value == "tg";
    }
    return false;
}

}  // namespace

std::optional<LineSettings> ParseLineSettings(std::string_view text) {
    LineSettings settings;
    bool any = false;
    std::size_t pos = 0;
    while (pos < text.size()) {
        if (text[pos] == ' ' || text[pos] == '\t') {
            ++pos;
            continue;
        }
        std::size_t end = text.find_first_of(" \t", pos);
        if (end == std::string_view::npos) end = text.size();
        std::string_view pair = text.substr(pos, end - pos);
        pos = end;
        std::size_t equals = pair.find('=');
        if (equals == std::string_view::npos) return std::nullopt;
        if (!Apply(Lower(pair.substr(0, equals)), Lower(pair.substr(equals + 1)), settings)) {
            return std::nullopt;
        }
        any = true;
    }
    if (!any) return std::nullopt;
    return settings;
}

}  // namespace corvid::serial
