// What only the Windows port and message pump show.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "host/message_pump.h"
#include "serial/printer_end.h"
#include "serial/serial_ports.h"

namespace corvid::serial {
namespace {

TEST(Win32SerialPorts, MissingComPortFailsAtCreateFileWithTheSystemMessage) {
    PortTable ports;
    const std::int32_t number = ports.CommOpen(97, "COM97", kLineSettings);
    EXPECT_TRUE(number == ERROR_FILE_NOT_FOUND || number == ERROR_PATH_NOT_FOUND) << number;
    EXPECT_EQ(ports.LastCommError().source, "CommOpen (CreateFile)");
    // The system's own text, without the line break it ends with.
    EXPECT_FALSE(ports.LastCommError().description.empty());
    EXPECT_EQ(ports.LastCommError().description.find("System error"), std::string::npos);
    EXPECT_EQ(ports.LastCommError().description.find('\n'), std::string::npos);
    std::string data;
    EXPECT_EQ(ports.CommRead(96, data, 4096), -1);
    EXPECT_EQ(ports.LastCommError().number, ERROR_INVALID_HANDLE);
}

TEST(Win32MessagePump, YieldDispatchesEveryQueuedMessage) {
    ASSERT_TRUE(PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0));
    ASSERT_TRUE(PostThreadMessageA(GetCurrentThreadId(), WM_APP + 1, 0, 0));
    host::YieldToHost();
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
}

}  // namespace
}  // namespace corvid::serial
