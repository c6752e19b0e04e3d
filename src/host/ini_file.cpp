#include "host/ini_file.h"

#include <fstream>
#include <sstream>

#include "host/text_compare.h"

namespace corvid::host {
namespace {

std::string_view Trim(std::string_view text) {
    const auto is_blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

// One pair of matching quotes around the whole value is dropped, as the profile reader does.
std::string_view Unquote(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
        return value.substr(1, value.size() - 2);
    }
    return value;
}

}  // namespace

std::optional<std::string> FindIniValue(std::string_view content, std::string_view section,
                                        std::string_view key) {
    const std::string_view wanted_section = Trim(section);
    const std::string_view wanted_key = Trim(key);
    bool in_section = false;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        std::string_view line = Trim(content.substr(0, end));
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);

        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            const std::size_t close = line.find(']');
            const std::string_view name =
                Trim(line.substr(1, close == std::string_view::npos ? line.size() - 1 : close - 1));
            in_section = EqualsIgnoreCase(name, wanted_section);
            continue;
        }
        if (!in_section) continue;
        const std::size_t equals = line.find('=');
        const std::string_view name = Trim(line.substr(0, equals));
        if (!EqualsIgnoreCase(name, wanted_key)) continue;
        if (equals == std::string_view::npos) return std::string();
        std::string_view value = Unquote(Trim(line.substr(equals + 1)));
        return std::string(value.substr(0, kIniValueMaxLength));
    }
    return std::nullopt;
}

std::optional<std::string> ReadIniFileValue(const std::string& path, std::string_view section,
                                            std::string_view key) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::ostringstream content;
    content << file.rdbuf();
    return FindIniValue(content.str(), section, key);
}

}  // namespace corvid::host
