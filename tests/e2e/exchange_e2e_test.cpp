#include <chrono>

#include "automation/vb_error.h"
#include "e2e/e2e_fixture.h"
#include "sim/builtin_commands.h"

namespace corvid::e2e {
namespace {

using session::ACK;
using session::ETX;
using session::NAK;

TEST_F(SessionOnSimulator, OpeningLearnsTheSerialAndTheModel) {
    simulator_->ChangeState([](sim::FiscalState& s) { s.serial = "Z6B0004321"; });
    session::PrinterFiscal& s = Open();
    EXPECT_EQ(s.SerialPrinter(), "Z6B0004321");
    EXPECT_EQ(s.tipoPrinter(), session::DT230);
    EXPECT_EQ(s.outcome().STS1, 0x60);
    EXPECT_EQ(s.outcome().STS2, 0x40);
}

TEST_F(SessionOnSimulator, OpeningReadsTheLongStatusLayoutToo) {
    simulator_->ChangeState([](sim::FiscalState& s) {
        s.serial = "Z1F0000777";
        s.s1Layout = sim::S1Layout::Long;
    });
    EXPECT_EQ(Open().SerialPrinter(), "Z1F0000777");
}

TEST_F(SessionOnSimulator, SevenNaksMeanSevenBlocksAndNoMore) {
    session::PrinterFiscal& s = Open();
    simulator_->NakNextBlocks(10);
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(s.outcome().resultFlag, NAK);
    EXPECT_EQ(FromHost(What::Block), 7u);
    EXPECT_EQ(FromHost(What::Enq), 1u);
}

TEST_F(SessionOnSimulator, AReplySplitAtEveryByteIsJoined) {
    session::PrinterFiscal& s = Open();
    simulator_->SetChunking(1);
    EXPECT_EQ(s.Execute("S1"), 0);
    EXPECT_EQ(s.outcome().resultFlag, ETX);
    ASSERT_GE(s.outcome().result.size(), 3u);
    EXPECT_EQ(s.outcome().result.front(), '\x02');
    EXPECT_EQ(s.outcome().result.back(), '\x03');
    EXPECT_NE(s.outcome().result.find('\n'), std::string::npos);  // the fields of the S1 record
    // The check bytes that came in reads of their own were not left for the next reply.
    EXPECT_EQ(s.GetResponse("S1").size(), 14u);
    EXPECT_EQ(s.outcome().STS1, 0x60);
}

TEST_F(SessionOnSimulator, GarbageBeforeAReplyEndsUpInTheResult) {
    session::PrinterFiscal& s = Open();
    simulator_->SendGarbageBeforeNextReplies(1, sim::kDataReply);
    EXPECT_EQ(s.Execute("S1"), 0);
    EXPECT_EQ(s.outcome().resultFlag, ETX);
    EXPECT_NE(s.outcome().result.find('\x02'), 0u);
}

TEST_F(SessionOnSimulator, ASilentPrinterTimesOut) {
    Set("TimeOut", "1");
    session::PrinterFiscal& s = Open();
    simulator_->IgnoreNextBlocks(7);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(s.Execute("w"), session::pfCommError);
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(s.outcome().DescripcionError, "pfError de comunicacion");
    EXPECT_EQ(FromHost(What::Block), 7u);
    // Seven waits of one second each, give or take the clock's granularity.
    EXPECT_GE(elapsed, std::chrono::milliseconds(6000));
    EXPECT_LT(elapsed, std::chrono::milliseconds(9000));
}

TEST_F(SessionOnSimulator, SeveralBlocksAreCollectedWithAnAckEach) {
    session::PrinterFiscal& s = Open();
    const auto blocks = s.GetMultipleResponses(std::string(sim::kMultiBlockTestCommand) + "3");
    ASSERT_EQ(blocks.size(), 3u);
    EXPECT_EQ(blocks[2].size(), 2u);
    EXPECT_EQ(FromHost(What::Ack), 2u);
    EXPECT_EQ(s.outcome().resultFlag, ETX);
}

TEST_F(SessionOnSimulator, AbrirOnADeviceThatIsMissingRaises40001) {
    serial::SetPortDevice(kPort + 1, "/nonexistent/corvid-tty");
    session::PrinterFiscal s;
    try {
        s.Abrir(kPort + 1);
        FAIL() << "Abrir must raise";
    } catch (const automation::VbError& e) {
        EXPECT_EQ(e.number(), 40001);
        EXPECT_EQ(e.source(), "PrinterFiscal.Abrir");
        EXPECT_NE(e.description().find("CommOpen (CreateFile)"), std::string::npos)
            << e.description();
    }
    serial::SetPortDevice(kPort + 1, "");
}

TEST_F(SessionOnSimulator, AReplyIsSeenPromptlyAfterItArrives) {
    session::PrinterFiscal& s = Open();
    simulator_->SetReplyDelay(std::chrono::milliseconds(200));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(s.Execute("S1"), 0);
    const auto elapsed = std::chrono::steady_clock::now() - start;
    // Two delayed replies (status and data); the waits must not add slices of their own.
    EXPECT_LT(elapsed, std::chrono::milliseconds(400 + 60));
}

}  // namespace
}  // namespace corvid::e2e
