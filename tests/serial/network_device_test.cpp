// The network device over a scripted far end: Telnet framing, the com-port messages, and
// what a refusing, stuck or vanished server does to opens, reads and writes.
#include "serial/network_device.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <vector>

#include "serial/fake_socket.h"

namespace corvid::serial {
namespace {

using Protocol = NetworkAddress::Protocol;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

std::string Bytes(std::initializer_list<int> values) {
    std::string out;
    for (int v : values) out += static_cast<char>(v);
    return out;
}

constexpr int IAC = 255, WILL = 251, DO = 253, DONT = 254, SB = 250, SE = 240;
constexpr int kComPort = 44;

std::string ComPortMessage(const std::vector<int>& payload) {
    std::string out = Bytes({IAC, SB, kComPort});
    for (int v : payload) out += static_cast<char>(v);
    return out + Bytes({IAC, SE});
}

class NetworkDeviceTest : public ::testing::Test {
  protected:
    std::unique_ptr<SerialDevice> Start(Protocol protocol) {
        failure_ = {};
        return StartNetworkDevice(std::make_unique<FakeSocket>(far_), protocol, failure_, timings_);
    }
    // A com-port device the server has agreed to, with the opening traffic forgotten.
    std::unique_ptr<SerialDevice> StartComPort() {
        far_->incoming.push_back(Bytes({IAC, DO, kComPort}));
        auto device = Start(Protocol::kTelnetComPort);
        far_->sent.clear();
        return device;
    }

    std::shared_ptr<FakeFarEnd> far_ = std::make_shared<FakeFarEnd>();
    NetworkTimings timings_{milliseconds(150), milliseconds(20), milliseconds(50)};
    SystemFailure failure_;
};

TEST_F(NetworkDeviceTest, AServerThatRefusesIsSilentOrHangsUpFailsTheOpen) {
    struct Case {
        std::string answer;
        bool hangsUp;
        NetworkProblem problem;
    };
    for (const Case& c :
         {Case{Bytes({IAC, DONT, kComPort}), false, NetworkProblem::kProtocolRefused},
          Case{"", false, NetworkProblem::kTimedOut},
          Case{"", true, NetworkProblem::kConnectionLost}}) {
        far_ = std::make_shared<FakeFarEnd>();
        if (!c.answer.empty()) far_->incoming.push_back(c.answer);
        far_->closed_by_peer = c.hangsUp;
        EXPECT_EQ(Start(Protocol::kTelnetComPort), nullptr);
        EXPECT_EQ(failure_.call, "CreateFile");
        EXPECT_EQ(failure_.number, NetworkFailure("", c.problem).number);
    }
}

// Settings and line functions become com-port messages; a value byte of 0xFF travels
// doubled, and flow control is one SET-CONTROL.
TEST_F(NetworkDeviceTest, SettingsAndLineFunctionsBecomeComPortMessages) {
    auto device = StartComPort();
    ASSERT_NE(device, nullptr);
    struct Case {
        std::string settings;
        std::vector<std::vector<int>> messages;
    };
    const Case cases[] = {
        {"baud=9600 parity=E data=8 stop=1",
         {{12, 3}, {1, 0, 0, 0x25, 0x80}, {2, 8}, {3, 3}, {4, 1}}},
        {"baud=511 parity=m stop=1.5 xon=on", {{1, 0, 0, 1, IAC, IAC}, {3, 4}, {4, 3}, {5, 2}}},
        {"xon=on octs=on", {{5, 3}}},
    };
    for (const Case& c : cases) {
        far_->sent.clear();
        ASSERT_FALSE(c.settings.starts_with("baud=9600") ? device->Prepare(c.settings)
                                                         : device->ApplySettings(c.settings));
        std::string expected;
        for (const auto& message : c.messages) expected += ComPortMessage(message);
        EXPECT_EQ(far_->sent, expected) << c.settings;
    }
    const std::pair<LineFunction, int> functions[] = {
        {LineFunction::kSetDtr, 8},   {LineFunction::kClearDtr, 9},
        {LineFunction::kSetRts, 11},  {LineFunction::kClearRts, 12},
        {LineFunction::kSetBreak, 5}, {LineFunction::kClearBreak, 6}};
    for (const auto& [function, code] : functions) {
        far_->sent.clear();
        EXPECT_FALSE(device->Escape(function));
        EXPECT_EQ(far_->sent, ComPortMessage({5, code})) << code;
    }
}

// Data bytes of 0xFF travel doubled, and reads take the server's reports out wherever the
// stream is cut. A write cut inside a doubled 0xFF counts the byte as written and sends
// its second half first next time, so the server never sees a lone IAC.
TEST_F(NetworkDeviceTest, DataIsEscapedOverTheComPortProtocol) {
    auto device = StartComPort();
    ASSERT_NE(device, nullptr);
    far_->incoming = {"x" + Bytes({IAC}), Bytes({IAC}) + "y" + Bytes({IAC, SB, kComPort}),
                      Bytes({107, 0x30, IAC}), Bytes({SE}) + "z"};
    std::string data;
    while (!far_->incoming.empty()) {
        std::string chunk;
        ASSERT_FALSE(device->Read(16, chunk));
        data += chunk;
    }
    EXPECT_EQ(data, "x\xFFyz");
    std::uint32_t status = 0;
    ASSERT_FALSE(device->ModemStatus(status));
    EXPECT_EQ(status, kModemCts | kModemDsr);

    std::size_t written = 0;
    far_->room = 2;
    ASSERT_FALSE(device->Write(Bytes({'a', IAC, 'b'}), written));
    EXPECT_EQ(written, 2u);
    far_->room = 100;
    ASSERT_FALSE(device->Write(Bytes({'c', IAC}), written));
    EXPECT_EQ(written, 2u);
    EXPECT_EQ(far_->sent, Bytes({'a', IAC, IAC, 'c', IAC, IAC}));

    // A server that takes nothing costs a write its time and no more.
    far_->room = 0;
    const auto start = steady_clock::now();
    EXPECT_FALSE(device->Write("abc", written));
    EXPECT_EQ(written, 0u);
    EXPECT_LT(steady_clock::now() - start, 3 * timings_.write_per_byte + milliseconds(200));
}

// A bare stream carries every byte as it is, and fails reads and writes once it is gone,
// after what came before.
TEST_F(NetworkDeviceTest, ABareStreamIsNotEscapedAndFailsOnceLost) {
    auto device = Start(Protocol::kRawTcp);
    ASSERT_NE(device, nullptr);
    const std::string bytes = Bytes({'A', IAC, IAC, WILL, kComPort});
    std::size_t written = 0;
    ASSERT_FALSE(device->Write(bytes, written));
    EXPECT_EQ(far_->sent, bytes);
    far_->incoming = {bytes};
    far_->closed_by_peer = true;
    std::string data;
    ASSERT_FALSE(device->Read(16, data));
    EXPECT_EQ(data, bytes);
    auto failed = device->Read(4, data);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "ReadFile");
    EXPECT_EQ(failed->number, NetworkFailure("", NetworkProblem::kConnectionLost).number);
    written = 9;
    failed = device->Write("x", written);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "WriteFile");
    EXPECT_EQ(written, 0u);
}

}  // namespace
}  // namespace corvid::serial
