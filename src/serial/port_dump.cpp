#include "serial/port_dump.h"

#include <cerrno>
#include <cstring>

#include "automation/clock.h"
#include "automation/format.h"
#include "host/settings_store.h"
#include "host/user_prompts.h"

namespace corvid::serial {
namespace {

constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kHexColumnWidth = 3 * kBytesPerLine;
// Lines end as the dump file has always had them, whatever the platform.
constexpr const char* kLineEnd = "\r\n";
constexpr const char* kSection = "Config\\ModComm";

char HexDigit(unsigned value) {
    return static_cast<char>(value < 10 ? '0' + value : 'A' + value - 10);
}

}  // namespace

std::vector<std::string> HexDumpLines(std::string_view bytes) {
    std::vector<std::string> lines;
    std::string hex;
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        hex += HexDigit(byte >> 4);
        hex += HexDigit(byte & 0xF);
        hex += ' ';
        text += byte < ' ' ? '.' : static_cast<char>(byte);
        if ((i + 1) % kBytesPerLine == 0) {
            lines.push_back(hex + text);
            hex.clear();
            text.clear();
        }
    }
    if (!hex.empty()) {
        hex.resize(kHexColumnWidth, ' ');
        lines.push_back(hex + text);
    }
    return lines;
}

PortDump::~PortDump() { Close(); }

void PortDump::Open() {
    Close();
    enabled_ = host::GetSettingString("ORV", kSection, "DEBUG", "0") != "0";
    if (!enabled_) return;
    const std::string name = host::GetSettingString("ORV", kSection, "DumpFile", "");
    if (name.empty()) return;
    file_ = std::fopen(name.c_str(), "ab");
    if (file_ == nullptr) {
        const std::string reason = std::strerror(errno);
        enabled_ = false;
        host::CurrentUserPrompts().MessageBox(
            "Imposible abrir el archivo " + name + ". Traza inhabilitada\r\nERR: " + reason,
            host::PromptButtons::kOk, host::PromptIcon::kCritical, "modComm");
    }
}

void PortDump::Close() {
    if (file_ != nullptr) {
        std::fclose(file_);
        file_ = nullptr;
    }
}

void PortDump::Data(std::string_view label, std::string_view bytes) {
    if (!enabled_ || file_ == nullptr) return;
    const std::string stamp =
        automation::Format(automation::CurrentClock().Now(), "dd-mm-yyyy hh:mm:ss");
    std::string out;
    out.append(label).append(stamp).append(kLineEnd);
    for (const std::string& line : HexDumpLines(bytes)) out.append(line).append(kLineEnd);
    std::fwrite(out.data(), 1, out.size(), file_);
    std::fflush(file_);
}

}  // namespace corvid::serial
