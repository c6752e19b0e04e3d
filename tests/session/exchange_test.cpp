#include "automation/vb_error.h"
#include "session/framing.h"
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

const std::string kEnq(1, char(ENQ));
const std::string kAck(1, char(ACK));
const std::string kNak(1, char(NAK));

TEST_F(SessionTest, StatusBytesAreDecodedAndExplained) {
    PrinterFiscal& s = OpenSession();
    line_->statusAnswers.push_back(Reads{StatusReply(96, 64)});
    s.GetStatus();
    EXPECT_EQ(s.outcome().pfError, pfOk);
    EXPECT_EQ(s.outcome().STS1, 96);
    EXPECT_EQ(s.outcome().STS2, 64);
    EXPECT_EQ(s.outcome().result, "");
    EXPECT_EQ(s.explainSTS1(), "Modo fiscal: IDLE (0x60)");
    EXPECT_EQ(s.explainSTS2(), "STS2 = Ok (0x40)");
    s.outcome().STS1 = 7;
    s.outcome().STS2 = 66;
    EXPECT_EQ(s.explainSTS1(), "STS1 = 7 (0x7)");
    EXPECT_EQ(s.explainSTS2(), "Sin papel/error mec\xE1nico (0x42)");
}

TEST_F(SessionTest, AcceptedCommandSendsStatusRequestThenOneBlock) {
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.Execute("w"), 0);
    ASSERT_EQ(line_->writes.size(), 2u);
    EXPECT_EQ(line_->writes[0], kEnq);
    EXPECT_EQ(line_->writes[1], std::string("\x02w\x03t"));
    EXPECT_EQ(s.outcome().resultFlag, ACK);
    EXPECT_FALSE(s.AbrirGaveta());  // success reads False
}

TEST_F(SessionTest, ReplySplitAtEveryByteIsJoined) {
    PrinterFiscal& s = OpenSession();
    Reads bytes;
    for (char c : DataReply("A\nB")) bytes.emplace_back(1, c);
    line_->blockAnswers.push_back(bytes);
    EXPECT_EQ(s.Execute("S1"), 0);
    EXPECT_EQ(s.outcome().result, std::string("\x02"
                                              "A\nB\x03"));
    EXPECT_EQ(s.outcome().resultFlag, ETX);
    EXPECT_EQ(s.outcome().DescripcionError, "Ok");
}

TEST_F(SessionTest, EnqBeforeAReplyIsAnsweredWithAckAndDropped) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{char(ENQ) + DataReply("X")});
    EXPECT_EQ(s.Execute("S1"), 0);
    EXPECT_EQ(line_->writes.back(), kAck);
    EXPECT_EQ(s.outcome().result, std::string("\x02X\x03"));
}

TEST_F(SessionTest, ReplyEndedByEotCountsAsEtx) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{std::string("\x02X\x04")});
    EXPECT_EQ(s.Execute("S1"), 0);
    EXPECT_EQ(s.outcome().resultFlag, ETX);
    EXPECT_EQ(s.outcome().result, std::string("\x02X\x04"));
}

TEST_F(SessionTest, SevenNaksSendSevenBlocksAndStillReturnZero) {
    PrinterFiscal& s = OpenSession();
    for (int i = 0; i < 8; ++i) line_->blockAnswers.push_back(Reads{kNak});
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(line_->BlocksWritten(), 7);
    EXPECT_EQ(line_->Count(kEnq), 1);  // NAK is answered by re-sending, not by a new status
    EXPECT_EQ(s.outcome().resultFlag, NAK);
}

TEST_F(SessionTest, NakThenAckResendsOnce) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{kNak});
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(line_->BlocksWritten(), 2);
    EXPECT_EQ(s.outcome().resultFlag, ACK);
}

TEST_F(SessionTest, SilentReplyTimesOutAndCostsAStatusRequestAndAResend) {
    Set("TimeOut", "2");
    PrinterFiscal& s = OpenSession();
    for (int i = 0; i < 7; ++i) line_->blockAnswers.push_back(Reads{});
    EXPECT_EQ(s.Execute("w"), pfCommError);
    EXPECT_EQ(s.outcome().DescripcionError, "pfError de comunicacion");
    EXPECT_EQ(line_->BlocksWritten(), 7);
    EXPECT_EQ(line_->Count(kEnq), 7);
    // The wait blocked on the port in slices instead of reading in a loop.
    EXPECT_LE(line_->waits, 7 * (2000 / 50 + 1));
}

TEST_F(SessionTest, SilentStatusRequestsSpendNoAttempt) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    for (int i = 0; i < 9; ++i) line_->statusAnswers.push_back(Reads{});
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(line_->Count(kEnq), 10);
    EXPECT_EQ(line_->BlocksWritten(), 1);
}

TEST_F(SessionTest, SkipChecksSendsOneBlockAndReadsNothing) {
    Set("SkipChecks", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{kNak});  // never read
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(line_->writes, std::vector<std::string>{"\x02w\x03t"});
    EXPECT_EQ(s.outcome().DescripcionError, "NO_STATUS_CHECK");
    EXPECT_EQ(s.outcome().resultFlag, ACK);
}

TEST_F(SessionTest, WithoutAPortCommandsReportPortClosed) {
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.Execute("w"), 1);
    EXPECT_EQ(s.outcome().pfError, pfCommError);
    EXPECT_EQ(s.outcome().DescripcionError, "PUERTO CERRADO");
    s.outcome().pfError = pfOk;
    s.ExecuteNoCheck("w");
    EXPECT_EQ(s.outcome().DescripcionError, "PUERTO CERRADO");
    EXPECT_TRUE(s.AbrirGaveta());  // failure reads True
    EXPECT_TRUE(line_->writes.empty());
}

TEST_F(SessionTest, ANakInAStatusReplyFailsTheStatusButLeavesTheDescription) {
    PrinterFiscal& s = OpenSession();
    s.outcome().DescripcionError = "before";
    line_->statusAnswers.push_back(Reads{kNak});
    s.GetStatus();
    EXPECT_EQ(s.outcome().pfError, pfCommError);
    EXPECT_EQ(s.outcome().resultFlag, NAK);
    EXPECT_EQ(s.outcome().DescripcionError, "before");
}

TEST_F(SessionTest, WaitAcrossMidnightOutlastsTheTimeOut) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    fakeClock_->SetSecondsSinceMidnight(86399.5);
    // Silent for 30 s of slices, then the reply: the negative elapsed time keeps waiting.
    Reads late(600, "");
    late.push_back(DataReply("late"));
    line_->blockAnswers.push_back(late);
    EXPECT_EQ(s.Execute("S1"), 0);
    EXPECT_EQ(s.outcome().result, std::string("\x02late\x03"));
}

TEST_F(SessionTest, AbrirOpensComNRaisesLinesAndLearnsTheSerial) {
    PrinterFiscal& s = Session();
    line_->blockAnswers.push_back(
        Reads{DataReply("S101\n0\n12\n3\n4\n5\n6\n7\nJ-123\nZ7A0001234\n240115\n1200")});
    s.Abrir(5);
    EXPECT_EQ(line_->openedPort, 5);
    EXPECT_EQ(s.port(), 5);
    const std::vector<std::pair<std::int16_t, std::int16_t>> lines{{3, 0}, {2, 1}};
    EXPECT_EQ(line_->lineChanges, lines);
    EXPECT_EQ(s.SerialPrinter(), "Z7A0001234");
    EXPECT_EQ(s.tipoPrinter(), HKA112);
}

TEST_F(SessionTest, AbrirOnAPortThatCannotOpenRaises40001AndKeepsTheNumber) {
    line_->openResult = 2;
    PrinterFiscal& s = Session();
    try {
        s.Abrir(42);
        FAIL() << "Abrir must raise";
    } catch (const automation::VbError& e) {
        EXPECT_EQ(e.number(), 40001);
        EXPECT_EQ(e.source(), "PrinterFiscal.Abrir");
        EXPECT_EQ(e.description(), line_->errorText);
    }
    EXPECT_EQ(s.port(), 42);
}

TEST_F(SessionTest, ANewAbrirClosesThePortFirstAndCerrarClosesIt) {
    PrinterFiscal& s = OpenSession(4);
    s.Abrir(6);
    EXPECT_EQ(line_->closedPorts, std::vector<std::int16_t>{4});
    EXPECT_EQ(s.port(), 6);
    s.Cerrar();
    EXPECT_EQ(line_->closedPorts, (std::vector<std::int16_t>{4, 6}));
    EXPECT_EQ(s.port(), 0);
    EXPECT_EQ(s.Execute("w"), 1);  // closed again
}

TEST_F(SessionTest, AbrirClosesTheOpenPortBeforeConvertingItsArgument) {
    PrinterFiscal& s = OpenSession(4);
    EXPECT_THROW(s.Abrir([]() -> std::int16_t { throw automation::VbError::Standard(13); }),
                 automation::VbError);
    EXPECT_EQ(line_->closedPorts, std::vector<std::int16_t>{4});
    EXPECT_EQ(s.port(), 0);
}

TEST_F(SessionTest, DirectSendsFrameTheCommandWithoutStatusOrWait) {
    PrinterFiscal& s = OpenSession();
    s.outcome().pfError = pfPrinterError;
    line_->blockAnswers = {Reads{}, Reads{}};  // the printer says nothing to them
    s.SendDirect("a b");
    s.ExecuteNoCheck("c");
    EXPECT_EQ(line_->writes,
              (std::vector<std::string>{BuildCommandBlock("a b"), BuildCommandBlock("c")}));
    EXPECT_EQ(s.outcome().pfError, pfPrinterError);  // outcome untouched
    EXPECT_EQ(line_->waits, 0);

    line_->ackAnswers.push_back(Reads{DataReply("next")});
    s.SendAck();
    EXPECT_EQ(line_->writes.back(), kAck);
    EXPECT_EQ(s.outcome().result, std::string("\x02next\x03"));
    EXPECT_EQ(s.outcome().pfError, pfOk);
}

TEST_F(SessionTest, ResetSendsE) {
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.Reset(), 0);
    EXPECT_EQ(line_->writes.back(), std::string("\x02"
                                                "e\x03") +
                                        char('e' ^ ETX));
    EXPECT_TRUE(s.NextStatusBlock().empty());
    EXPECT_EQ(line_->writes.back(), kAck);
}

}  // namespace
}  // namespace corvid::session::testing
