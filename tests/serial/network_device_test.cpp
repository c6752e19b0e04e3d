// The network device over a scripted far end: Telnet framing, the com-port messages, and
// what a stuck or vanished server does to reads, writes and waits.
#include "serial/network_device.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <vector>

#include "serial/fake_socket.h"
#include "serial/telnet_codec.h"

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

constexpr int IAC = 255, WILL = 251, WONT = 252, DO = 253, DONT = 254, SB = 250, SE = 240;
constexpr int kComPort = 44;
const std::string kAFFB = Bytes({'A', IAC, 'B'});
const std::string kAFFFFB = Bytes({'A', IAC, IAC, 'B'});

std::string ComPortMessage(const std::vector<int>& payload) {
    std::string out = Bytes({IAC, SB, kComPort});
    for (int v : payload) out += static_cast<char>(v);
    return out + Bytes({IAC, SE});
}

TEST(TelnetDecoder, CommandsComeOutTheSameWhereverTheStreamIsCut) {
    const std::string stream = "a" + Bytes({IAC, IAC}) + "b" + Bytes({IAC, WILL, 1}) + "c" +
                               Bytes({IAC, SB, kComPort, 107, IAC, IAC, 1, IAC, SE}) + "d" +
                               Bytes({IAC, 241}) + "e" + Bytes({IAC, DO, 3});
    for (std::size_t i = 0; i <= stream.size(); ++i) {
        for (std::size_t j = i; j <= stream.size(); ++j) {
            telnet::Decoder decoder;
            std::string data;
            std::vector<telnet::Command> commands;
            decoder.Feed(stream.substr(0, i), data, commands);
            decoder.Feed(stream.substr(i, j - i), data, commands);
            decoder.Feed(stream.substr(j), data, commands);
            ASSERT_EQ(data, Bytes({'a', IAC, 'b', 'c', 'd', 'e'})) << i << " " << j;
            ASSERT_EQ(commands.size(), 3u) << i << " " << j;
            EXPECT_EQ(commands[0].verb, WILL);
            EXPECT_EQ(commands[0].option, 1);
            EXPECT_EQ(commands[1].verb, SB);
            EXPECT_EQ(commands[1].option, kComPort);
            EXPECT_EQ(commands[1].payload, Bytes({107, 255, 1}));
            EXPECT_EQ(commands[2].verb, DO);
            EXPECT_EQ(commands[2].option, 3);
        }
    }
}

TEST(TelnetDecoder, AMessageWithoutItsEndGivesWayToTheNextCommand) {
    telnet::Decoder decoder;
    std::string data;
    std::vector<telnet::Command> commands;
    decoder.Feed(Bytes({IAC, SB, kComPort, 107, 0x30, IAC, WILL, 3}) + "x", data, commands);
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].verb, WILL);
    EXPECT_EQ(data, "x");
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

TEST_F(NetworkDeviceTest, OpeningOffersTheComPortAndAnswersOnlyWhatChanges) {
    far_->incoming.push_back(Bytes({IAC, WILL, 1, IAC, DO, 1, IAC, DO, 3, IAC, WILL, 0}));
    far_->incoming.push_back(Bytes({IAC, DO, 24, IAC, DO, kComPort}));
    auto device = Start(Protocol::kTelnetComPort);
    ASSERT_NE(device, nullptr) << failure_.message;
    const std::string greeting =
        Bytes({IAC, WILL, kComPort, IAC, WILL, 0, IAC, WILL, 3, IAC, DO, 0, IAC, DO, 3});
    // Echo is refused both ways, terminal type is refused, the rest was already asked for.
    EXPECT_EQ(far_->sent, greeting + Bytes({IAC, DONT, 1, IAC, WONT, 1, IAC, WONT, 24}));

    far_->sent.clear();
    far_->incoming.push_back(Bytes({IAC, DONT, 3, IAC, DONT, 3, IAC, WONT, 0, IAC, DO, 3}));
    std::uint32_t waiting = 0, flags = 0;
    EXPECT_FALSE(device->QueryInput(waiting, flags));
    while (!far_->incoming.empty()) device->QueryInput(waiting, flags);
    EXPECT_EQ(far_->sent, Bytes({IAC, WONT, 3, IAC, DONT, 0, IAC, WILL, 3}));
    EXPECT_EQ(waiting, 0u);
}

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
        const auto start = steady_clock::now();
        EXPECT_EQ(Start(Protocol::kTelnetComPort), nullptr);
        EXPECT_EQ(failure_.call, "CreateFile");
        EXPECT_EQ(failure_.number, NetworkFailure("", c.problem).number);
        if (c.problem == NetworkProblem::kTimedOut) {
            EXPECT_GE(steady_clock::now() - start, timings_.open);
        }
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
    far_->sent.clear();
    auto failed = device->ApplySettings("baud=fast");
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "BuildCommDCB");

    const std::pair<LineFunction, int> functions[] = {
        {LineFunction::kSetDtr, 8},   {LineFunction::kClearDtr, 9},
        {LineFunction::kSetRts, 11},  {LineFunction::kClearRts, 12},
        {LineFunction::kSetBreak, 5}, {LineFunction::kClearBreak, 6}};
    for (const auto& [function, code] : functions) {
        EXPECT_FALSE(device->Escape(function));
        EXPECT_EQ(far_->sent, ComPortMessage({5, code})) << code;
        far_->sent.clear();
    }
    failed = device->Escape(LineFunction::kNone);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "EscapeCommFunction");

    // A bare stream has no lines: they are set as a pseudo-terminal's are, by doing nothing.
    auto raw = Start(Protocol::kRawTcp);
    far_->sent.clear();
    EXPECT_FALSE(raw->Escape(LineFunction::kSetDtr));
    EXPECT_FALSE(raw->ApplySettings("baud=19200"));
    EXPECT_TRUE(raw->ApplySettings("parity=Q"));
    EXPECT_EQ(far_->sent, "");
}

TEST_F(NetworkDeviceTest, DataIsEscapedOnlyOverTheComPortProtocol) {
    auto device = StartComPort();
    ASSERT_NE(device, nullptr);
    std::size_t written = 0;
    ASSERT_FALSE(device->Write(kAFFB, written));
    EXPECT_EQ(written, 3u);
    EXPECT_EQ(far_->sent, kAFFFFB);
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

    auto raw = Start(Protocol::kRawTcp);
    far_->sent.clear();
    ASSERT_FALSE(raw->Write(kAFFB, written));
    EXPECT_EQ(far_->sent, kAFFB);
    far_->incoming = {Bytes({IAC, WILL, kComPort})};
    ASSERT_FALSE(raw->Read(16, data));
    EXPECT_EQ(data, Bytes({IAC, WILL, kComPort}));
    // Nothing tells a bare stream's lines: while it is up, they are.
    ASSERT_FALSE(raw->ModemStatus(status));
    EXPECT_EQ(status, kModemCts | kModemDsr | kModemRlsd);
}

// Line errors the server reports are cleared by the query; a purge drops what arrived but
// keeps what the server reported of the lines.
TEST_F(NetworkDeviceTest, ReportsOfTheServerOutliveQueriesAndPurges) {
    auto device = StartComPort();
    ASSERT_NE(device, nullptr);
    far_->incoming = {ComPortMessage({106, 0x63}) + "a" + ComPortMessage({106, 0x0C})};
    std::uint32_t waiting = 0, flags = 0, status = 0;
    ASSERT_FALSE(device->QueryInput(waiting, flags));
    EXPECT_EQ(waiting, 1u);
    EXPECT_EQ(flags, 0x0Eu);  // overrun, parity and framing; the status bits are not errors
    ASSERT_FALSE(device->QueryInput(waiting, flags));
    EXPECT_EQ(flags, 0u);

    far_->incoming = {"stale" + ComPortMessage({107, 0x80})};
    ASSERT_FALSE(device->Purge());
    ASSERT_FALSE(device->QueryInput(waiting, flags));
    EXPECT_EQ(waiting, 0u);
    ASSERT_FALSE(device->ModemStatus(status));
    EXPECT_EQ(status, kModemRlsd);
    EXPECT_EQ(far_->sent, ComPortMessage({12, 3}));
}

TEST_F(NetworkDeviceTest, ALostConnectionFailsReadsAndWritesAfterWhatCameBefore) {
    auto device = Start(Protocol::kRawTcp);
    ASSERT_NE(device, nullptr);
    far_->incoming = {"tail"};
    far_->closed_by_peer = true;
    const std::int32_t lost = NetworkFailure("", NetworkProblem::kConnectionLost).number;

    EXPECT_TRUE(device->WaitReadable(milliseconds(1000)));
    std::uint32_t waiting = 0, flags = 0;
    ASSERT_FALSE(device->QueryInput(waiting, flags));
    EXPECT_EQ(waiting, 4u);
    std::string data;
    ASSERT_FALSE(device->Read(4, data));
    EXPECT_EQ(data, "tail");

    auto failed = device->QueryInput(waiting, flags);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "ReadFile");
    EXPECT_EQ(failed->number, lost);
    failed = device->Read(4, data);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "ReadFile");
    std::size_t written = 9;
    failed = device->Write("x", written);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->call, "WriteFile");
    EXPECT_EQ(written, 0u);

    // The gone socket is not polled again: the wait sits out its time in one sleep.
    const int polls = far_->read_waits;
    const auto start = steady_clock::now();
    EXPECT_FALSE(device->WaitReadable(milliseconds(100)));
    EXPECT_GE(steady_clock::now() - start, milliseconds(100));
    EXPECT_EQ(far_->read_waits, polls);
    std::uint32_t status = 1;
    ASSERT_FALSE(device->ModemStatus(status));
    EXPECT_EQ(status, 0u);
    EXPECT_FALSE(device->Close());
}

TEST_F(NetworkDeviceTest, AServerThatTakesNothingCostsAWriteItsTimeAndNoMore) {
    auto device = StartComPort();
    ASSERT_NE(device, nullptr);
    far_->room = 0;
    std::size_t written = 9;
    const auto start = steady_clock::now();
    EXPECT_FALSE(device->Write("abc", written));
    const auto elapsed = steady_clock::now() - start;
    EXPECT_EQ(written, 0u);
    EXPECT_GE(elapsed, 3 * timings_.write_per_byte);
    EXPECT_LT(elapsed, 3 * timings_.write_per_byte + milliseconds(200));

    // Cut inside a doubled 0xFF: the byte counts as written and its second half goes first
    // next time, so the server never sees a lone IAC.
    far_->room = 2;
    ASSERT_FALSE(device->Write(Bytes({'a', IAC, 'b'}), written));
    EXPECT_EQ(written, 2u);
    far_->room = 100;
    ASSERT_FALSE(device->Write("c", written));
    EXPECT_EQ(written, 1u);
    EXPECT_EQ(far_->sent, Bytes({'a', IAC, IAC, 'c'}));
}

}  // namespace
}  // namespace corvid::serial
