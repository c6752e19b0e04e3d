// The port dump: a raw record of every byte the serial ports read and write, in hex-dump
// lines, kept in the file named by setting "DumpFile" while setting "DEBUG" (section
// "Config\ModComm") is not "0". The serial module opens it when a port fails to open and
// closes it at every port close.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::serial {

// The hex-dump lines of `bytes`, 16 bytes a line: "XX " per byte (a full hex column is 48
// characters; a short last one is padded with blanks to 48), then the bytes themselves,
// with "." for those below the blank.
std::vector<std::string> HexDumpLines(std::string_view bytes);

class PortDump {
  public:
    PortDump() = default;
    ~PortDump();
    PortDump(const PortDump&) = delete;
    PortDump& operator=(const PortDump&) = delete;

    // Reads the settings; when dumping is on and a file is named, opens it for appending.
    // A file that cannot be opened is reported in a message box and leaves dumping off.
    void Open();
    // Closes the file (dumping stays as the settings left it).
    void Close();
    // Writes `label` ("Read " or "Send ") with the date and time, then the hex-dump lines.
    void Data(std::string_view label, std::string_view bytes);

    bool enabled() const { return enabled_; }

  private:
    bool enabled_ = false;
    std::FILE* file_ = nullptr;
};

}  // namespace corvid::serial
