#include <gtest/gtest.h>
#include <windows.h>

#include "host/message_pump.h"
#include "serial/serial_ports.h"

namespace corvid::serial {
namespace {

TEST(Win32SerialPorts, MissingComPortFailsAtCreateFileWithTheSystemMessage) {
    PortTable ports_;
    const std::int32_t number = ports_.CommOpen(97, "COM97", "baud=9600 parity=E data=8 stop=1");
    EXPECT_TRUE(number == ERROR_FILE_NOT_FOUND || number == ERROR_PATH_NOT_FOUND) << number;
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
    // The system's own text, without the line break it ends with.
    EXPECT_FALSE(ports_.LastCommError().description.empty());
    EXPECT_EQ(ports_.LastCommError().description.find("System error"), std::string::npos);
    EXPECT_EQ(ports_.LastCommError().description.find('\n'), std::string::npos);
}

TEST(Win32SerialPorts, CallsOnAClosedPortReportTheInvalidHandle) {
    PortTable ports_;
    std::string data;
    EXPECT_EQ(ports_.CommRead(96, data, 4096), -1);
    EXPECT_EQ(ports_.LastCommError().number, ERROR_INVALID_HANDLE);
    EXPECT_EQ(ports_.LastCommError().source, "CommRead (ClearCommError)");
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
