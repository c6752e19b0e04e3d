// Sessions with the simulated printer behind a serial device server: ser2net speaking the
// com-port protocol, socat passing bare TCP. The port's device names the server.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>

#include "e2e/e2e_fixture.h"
#include "serial/serial_servers_posix.h"
#include "sim/builtin_commands.h"

namespace corvid::e2e {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using test_support::SerialServer;

// The waiting thread's own CPU time: the simulator's thread, busy or not, does not count.
double WaitingThreadCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

std::string SixDigits(int number) {
    char text[8];
    std::snprintf(text, sizeof text, "%06d", number);
    return text;
}

class SessionThroughServer : public SessionOnSimulator {
  protected:
    void TearDown() override {
        session_.reset();
        server_.reset();
        SessionOnSimulator::TearDown();
    }
    // Puts the server in front of the simulator's terminal and the port on the server.
    void Serve(SerialServer::Kind kind) {
        server_ = std::make_unique<SerialServer>(kind, simulator_->SlavePath());
        ASSERT_EQ(server_->error(), "");
        serial::SetPortDevice(kPort, server_->Url());
    }

    std::unique_ptr<SerialServer> server_;
};

TEST_F(SessionThroughServer, ADayThroughSer2net) {
    simulator_->ChangeState([](sim::FiscalState& s) { s.serial = "Z6B0004321"; });
    Serve(SerialServer::Kind::kSer2net);
    session::PrinterFiscal& s = Prepared();
    EXPECT_EQ(s.SerialPrinter(), "Z6B0004321");
    EXPECT_EQ(s.PasarItem("CAFE", automation::Currency::FromDouble(95), 2, 16), 0);
    EXPECT_EQ(s.CerrarComprobante(automation::Currency::FromDouble(300)), 0);
    EXPECT_NE(LastDocument("FACTURA").find("CAFE"), std::string::npos);

    const auto s1 = s.GetResponse("S1");
    ASSERT_GT(s1.size(), 9u);
    EXPECT_EQ(s1[0].substr(0, 2), "S1");
    EXPECT_NE(std::find(s1.begin(), s1.end(), "Z6B0004321"), s1.end());

    EXPECT_EQ(s.Execute("I0Z"), 0);
    const int closing = s.ResumenZ()->numeroUltimoZ;
    const auto before = FromHost(What::Ack);
    const auto blocks = s.GetMultipleResponses("U3A" + SixDigits(closing - 1) + SixDigits(closing));
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_EQ(FromHost(What::Ack) - before, 1u);
    EXPECT_EQ(s.outcome().resultFlag, session::ETX);
}

TEST_F(SessionThroughServer, ASessionThroughSocat) {
    simulator_->ChangeState([](sim::FiscalState& s) { s.serial = "Z1F0000777"; });
    Serve(SerialServer::Kind::kSocat);
    session::PrinterFiscal& s = Open();
    EXPECT_EQ(s.SerialPrinter(), "Z1F0000777");
    EXPECT_EQ(s.GetResponse("S1").at(0).substr(0, 2), "S1");
    const auto blocks = s.GetMultipleResponses(std::string(sim::kMultiBlockTestCommand) + "3");
    EXPECT_EQ(blocks.size(), 3u);
    EXPECT_EQ(FromHost(What::Ack), 2u);
}

// The reply waits of a session whose server is gone end with its time-out, as a silent
// printer's do, and cost no CPU.
TEST_F(SessionThroughServer, AServerGoneMidSessionIsACommunicationErrorWithinTheTimeOut) {
    Set("TimeOut", "2");
    Serve(SerialServer::Kind::kSer2net);
    session::PrinterFiscal& s = Open();
    ASSERT_EQ(s.GetResponse("S1").at(0).substr(0, 2), "S1");
    server_->Kill();

    const double cpu_before = WaitingThreadCpuSeconds();
    const auto start = steady_clock::now();
    EXPECT_EQ(s.GetResponse("S1"), session::Fields{"pfError"});
    const auto elapsed = steady_clock::now() - start;
    EXPECT_EQ(s.outcome().pfError, session::pfCommError);
    EXPECT_GE(elapsed, milliseconds(1900));
    EXPECT_LT(elapsed, milliseconds(3000));
    EXPECT_LT(WaitingThreadCpuSeconds() - cpu_before, 0.05);
}

TEST_F(SessionThroughServer, WaitingOnASilentPrinterBehindTheServerCostsNoCpu) {
    Set("TimeOut", "3");
    Serve(SerialServer::Kind::kSer2net);
    session::PrinterFiscal& s = Open();
    simulator_->SetMuted(true);
    const double cpu_before = WaitingThreadCpuSeconds();
    const auto start = steady_clock::now();
    EXPECT_EQ(s.GetResponse("S1"), session::Fields{"pfError"});
    const auto elapsed = steady_clock::now() - start;
    const double cpu = WaitingThreadCpuSeconds() - cpu_before;
    EXPECT_GE(elapsed, milliseconds(2900));
    EXPECT_LT(cpu, 0.05);
    RecordProperty("cpu_ms_per_3s_wait", std::to_string(static_cast<int>(cpu * 1000)));
}

}  // namespace
}  // namespace corvid::e2e
