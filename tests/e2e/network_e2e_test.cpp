// A session with the simulated printer behind a serial device server (ser2net, speaking
// the com-port protocol): the port's device names the server.
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>

#include "e2e/e2e_fixture.h"
#include "e2e/serial_server_posix.h"

namespace corvid::e2e {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// A sale, with the session's line settings applied by the server; then the server goes, and
// the reply waits end with the session's time-out, as a silent printer's do.
TEST_F(SessionOnSimulator, ASaleThroughADeviceServerThatThenGoes) {
    simulator_->ChangeState([](sim::FiscalState& s) { s.serial = "Z6B0004321"; });
    test_support::SerialServer server(simulator_->SlavePath());
    ASSERT_EQ(server.error(), "");
    serial::SetPortDevice(kPort, server.Url());
    settings_->SetIniValue(host::kApplication, host::kSessionSection, "TimeOut", "2");
    session::PrinterFiscal& s = Prepared();
    EXPECT_EQ(s.SerialPrinter(), "Z6B0004321");
    EXPECT_EQ(s.PasarItem("CAFE", automation::Currency::FromDouble(95), 2, 16), 0);
    EXPECT_EQ(s.CerrarComprobante(automation::Currency::FromDouble(300)), 0);
    EXPECT_NE(simulator_->PaperText().find("CAFE"), std::string::npos);
    // The session's line settings reached the server's terminal.
    termios tio{};
    const int tty = open(simulator_->SlavePath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_EQ(tcgetattr(tty, &tio), 0);
    close(tty);
    EXPECT_EQ(cfgetospeed(&tio), static_cast<speed_t>(B9600));
    EXPECT_EQ(tio.c_cflag & CSTOPB, 0u);

    server.Kill();
    const auto start = steady_clock::now();
    EXPECT_EQ(s.GetResponse("S1"), session::Fields{"pfError"});
    const auto elapsed = steady_clock::now() - start;
    EXPECT_EQ(s.outcome().pfError, session::pfCommError);
    EXPECT_GE(elapsed, milliseconds(1900));
    EXPECT_LT(elapsed, milliseconds(3000));
    session_.reset();
}

}  // namespace
}  // namespace corvid::e2e
