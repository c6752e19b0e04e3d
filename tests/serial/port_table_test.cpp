#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

#include <chrono>

#include "host/message_pump.h"
#include "serial/port_devices.h"
#include "serial/serial_test_support.h"
#include "support/vb_error_testing.h"

namespace corvid::serial {
namespace {

using ::testing::HasSubstr;

constexpr int kMissingPort = 98;
// What the system says of a device that is not there, and of a port that is not open.
#ifdef _WIN32
constexpr std::int32_t kNoDevice[] = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND};
constexpr std::int32_t kBadHandle = ERROR_INVALID_HANDLE;
#else
constexpr std::int32_t kNoDevice[] = {ENOENT, ENOENT};
constexpr std::int32_t kBadHandle = EBADF;
#endif

class PortTableTest : public test_support::SerialTest {
  protected:
    PortTableTest() { SetPortDevice(kMissingPort, "/nonexistent/corvid-missing-tty"); }
    ~PortTableTest() override {
        SetPortDevice(kMissingPort, "");
        ports_.CommClose(kMissingPort);
    }
};

using corvid::test_support::ErrorNumberOf;

TEST_F(PortTableTest, PortNumbersOutside1To99AreSubscriptErrors) {
    std::string data;
    for (int port : {0, 100}) {
        EXPECT_EQ(ErrorNumberOf([&] { ports_.CommOpen(port, "COM1", "baud=9600"); }), 9) << port;
        EXPECT_EQ(ErrorNumberOf([&] { ports_.CommRead(port, data, 4096); }), 9) << port;
    }
    EXPECT_EQ(ErrorNumberOf([&] { ports_.CommClose(99); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { ports_.CommClose(1); }), 0);
}

TEST_F(PortTableTest, CallsOnAPortThatIsNotOpenFailAsOnABadHandle) {
    std::string data = "stale";
    EXPECT_EQ(ports_.CommRead(42, data, 4096), -1);
    EXPECT_EQ(data, "");
    EXPECT_EQ(ports_.LastCommError().source, "CommRead (ClearCommError)");
    EXPECT_EQ(ports_.LastCommError().number, kBadHandle);
    EXPECT_THAT(ports_.LastCommError().description, HasSubstr("  COMM Error Flags = 0"));
    EXPECT_EQ(ports_.CommWrite(42, "ABC"), -1);
    EXPECT_EQ(ports_.LastCommError().source, "CommWrite (WriteFile)");
    EXPECT_EQ(ports_.CommClose(42), 0);

    // Waiting on a port that is not open lets the time pass, so a caller that waits in a
    // loop for a reply does not spin.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(ports_.CommWaitReadable(42, 60));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(55));
}

TEST_F(PortTableTest, ReadsAndWritesEachYieldOnceToTheHost) {
    int yields = 0;
    auto previous = host::SetHostYieldHook([&] { ++yields; });
    std::string data;
    ports_.CommRead(42, data, 4096);
    EXPECT_EQ(yields, 1);
    ports_.CommWrite(42, "ABC");
    EXPECT_EQ(yields, 2);
    host::SetHostYieldHook(previous);
}

TEST_F(PortTableTest, OpeningAMissingDeviceReportsTheCreateFileStep) {
    const std::int32_t number = ports_.CommOpen(kMissingPort, "COM98", "baud=9600");
    EXPECT_TRUE(number == kNoDevice[0] || number == kNoDevice[1]) << number;
    const CommErrorRecord& error = ports_.LastCommError();
    EXPECT_EQ(error.number, number);
    EXPECT_EQ(error.source, "CommOpen (CreateFile)");
    // The system's own text, without the line break Windows ends it with.
    EXPECT_EQ(error.description.find('\n'), std::string::npos);

    std::string text;
    EXPECT_EQ(ports_.CommGetError(text), number);
    EXPECT_EQ(text, "Error (" + std::to_string(number) + "): CommOpen (CreateFile) - " +
                        error.description);
    // Nothing stays open: the next attempt fails the same way, not with "Port in use.".
    EXPECT_EQ(ports_.CommOpen(kMissingPort, "COM98", "baud=9600"), number);
}

#ifdef _WIN32
TEST(Win32MessagePump, YieldDispatchesEveryQueuedMessage) {
    ASSERT_TRUE(PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0));
    ASSERT_TRUE(PostThreadMessageA(GetCurrentThreadId(), WM_APP + 1, 0, 0));
    host::YieldToHost();
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
}
#endif

}  // namespace
}  // namespace corvid::serial
