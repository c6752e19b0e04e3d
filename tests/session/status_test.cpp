// Replies split into fields, one block or several, and the status queries: which command
// each sends, that the reply reaches its record, and what a host gets when the printer
// fails or checks are skipped.
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

using automation::Currency;

class StatusTest : public SessionTest {
  protected:
    void Reply(const std::string& text, int end = ETX) {
        line_->blockAnswers.push_back(Reads{DataReply(text, end)});
    }
};

TEST_F(StatusTest, EachQuerySendsItsCommandAndReadsTheReply) {
    const std::string shortS1 =
        "S107\n0012345\n00001520\n3\n310\n2\n0204\n19\nJ-3\nZ1F0000001\n241105\n1030";
    const std::string longS1 =
        "S107\n0\n1520\n3\n12\n0\n48\n1\n310\n2\n19\n204\nJ-3\nZ1F0000002\n1030\n241105";
    const std::string s2 = "S2 0001500\n0000240\n0\n2.5\n0001740\n1\n2";
    const std::string s3 = "01600\n00800\n03100\n0300\n0000";
    PrinterFiscal& s = OpenSession();
    Reply(shortS1);
    EXPECT_EQ(s.Response1()->Serial, "Z1F0000001");
    Reply(shortS1);
    EXPECT_EQ(s.numeroUltimaFactura(), 1520);
    Reply(longS1);
    EXPECT_EQ(s.NumeroUltimoCierre(), 48);
    Reply(s2);
    EXPECT_EQ(s.Response2()->subTotalVenta, Currency::FromDouble(15));
    Reply(s2);
    EXPECT_EQ(s.getEstadoDocumento()->estado, 2);
    Reply(s3);
    EXPECT_DOUBLE_EQ(s.Response3()->ValorTasa2, 8);
    Reply("S4100\n200");
    EXPECT_EQ(s.Response4()->valor(2), Currency::FromDouble(2));
    EXPECT_EQ(s.tasa(0) + s.tasa(4), 0);  // nothing sent out of range
    Reply(s3);
    EXPECT_DOUBLE_EQ(s.tasa(3), 31);
    EXPECT_EQ(line_->Commands(),
              (std::vector<std::string>{"S1", "S1", "S1", "S2", "S2", "S3", "S4", "S3"}));
}

// The substitutes the other queries give are checked with every fault of the line.
TEST_F(StatusTest, AFailedQueryGivesSubstitutesAndNeverRaises) {
    Set("RIF", "J-99999999-9", "Config\\NimbusPF\\Response1");
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->statusAnswers = {Reads{}, Reads{}, Reads{}};  // the printer never answers
    EXPECT_EQ(s.Response1()->RIF, "J-99999999-9");
    EXPECT_EQ(s.NumeroUltimoCierre(), -1);
    EXPECT_EQ(s.loadReporteZMF(int16_t{7}), nullptr);
    EXPECT_EQ(s.outcome().pfError, pfCommError);
    Reply("");  // an empty S1 reply is one that does not read
    EXPECT_EQ(s.Response1()->RIF, "J-99999999-9");
}

TEST_F(StatusTest, SkippedChecksGiveSubstitutesWithoutTouchingThePort) {
    Set("SkipChecks", "True");
    Set("Serial", "Z7A0000042", "Config\\NimbusPF\\Response1");
    PrinterFiscal& s = Session();
    s.Abrir(1);
    EXPECT_EQ(s.SerialPrinter(), "Z7A0000042");
    EXPECT_TRUE(s.Response3()->isFake);
    EXPECT_TRUE(s.Response4()->isFake);
    EXPECT_EQ(s.StatusS2()->tipoTrans, -1);
    EXPECT_EQ(line_->BlocksWritten(), 0);
}

TEST_F(StatusTest, ARefusedClosingIsNotFollowedByTheSummary) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = std::deque<Reads>(7, Reads{});
    EXPECT_EQ(s.CerrarZ(), nullptr);
    EXPECT_EQ(line_->Commands(), std::vector<std::string>(7, "I0Z"));
}

TEST_F(SessionTest, ReplyFieldsAreSplitAtLineFeed) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = {
        {DataReply("A\nB")}, {DataReply("A\nB\n")}, {DataReply("A")}, {"xy\x03"}};
    EXPECT_EQ(s.GetResponse("S1"), (Fields{"A", "B"}));
    EXPECT_EQ(s.GetResponseString("S1", "|"), "|A|B|");
    EXPECT_EQ(s.GetResponseString("S1"), "\nA");
    EXPECT_EQ(s.GetResponse("S1"), Fields{"xy"});  // no STX: all of it but the end
    line_->statusAnswers.push_back(Reads{});
    EXPECT_EQ(s.GetResponse("S1"), Fields{"pfError"});
    EXPECT_EQ(line_->BlocksWritten(), 4);

    Set("SkipChecks", "True");
    PrinterFiscal skipped(line_);
    line_->writes.clear();
    EXPECT_EQ(skipped.GetResponse("S1"), Fields{"VOID"});
    EXPECT_TRUE(line_->writes.empty());
}

TEST_F(SessionTest, FurtherBlocksAreAcknowledgedOneByOne) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = {{DataReply("a1\na2", ETB)},
                           {DataReply("a\nb", ETB)},
                           {DataReply("a\nb", ETB)},
                           {DataReply("a", ETB)}};
    line_->ackAnswers = {
        {DataReply("b1", ETB)}, {DataReply("c1\nc2")}, {DataReply("c")}, {DataReply("c")}};
    EXPECT_EQ(s.GetMultipleResponses("X"),
              (std::vector<Fields>{{"a1", "a2"}, {"b1"}, {"c1", "c2"}}));
    EXPECT_EQ(line_->Count(Byte(ACK)), 2);
    EXPECT_EQ(s.GetMultipleResponsesStr("X", ",", ";"), "a,b;c");
    EXPECT_EQ(s.GetMultipleResponsesStr("X"),
              "a\x1F"
              "b\x1E"
              "c");
    // A block that never completes ends the reply.
    EXPECT_EQ(s.GetMultipleResponsesStr("X"), "a");
    EXPECT_EQ(s.outcome().pfError, pfCommError);
}

}  // namespace
}  // namespace corvid::session::testing
