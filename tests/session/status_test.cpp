// The status queries: which command each sends, where its fields go, and what a host gets
// when the printer fails or checks are skipped.
#include "automation/vb_error.h"
#include "session/session_fixture.h"
#include "support/vb_error_testing.h"

namespace corvid::session::testing {
namespace {

const std::string kShortS1 =
    "S107\n0012345\n00001520\n00003\n00000310\n00002\n0204\n0019\nJ-30123456-7\nZ1F0000001\n"
    "241105\n1030\n00000048\n00001";
const std::string kLongS1 =
    "S107\n0012345\n00001520\n00003\n00000012\n00000\n00000048\n00001\n00000310\n00002\n0019\n"
    "0204\nJ-30123456-7\nZ1F0000001\n103015\n241105";

class StatusTest : public SessionTest {
  protected:
    // The session's next exchange fails: the printer never answers the status request.
    void PrinterSilent() {
        Set("TimeOut", "1");
        line_->statusAnswers.push_back(Reads{});
    }
    void Reply(const std::string& text, int end = ETX) {
        line_->blockAnswers.push_back(Reads{DataReply(text, end)});
    }
};

TEST_F(StatusTest, Response1ReadsTheRealReplyInBothLayouts) {
    PrinterFiscal& s = OpenSession();
    Reply(kShortS1);
    auto shortRecord = s.Response1();
    EXPECT_EQ(line_->Command(0), "S1");
    EXPECT_EQ(shortRecord->numeroCajero, 7);
    EXPECT_EQ(shortRecord->totalVentasDiarias, automation::Currency::FromDouble(123.45));
    EXPECT_EQ(shortRecord->nCierres, 204);
    EXPECT_EQ(shortRecord->Serial, "Z1F0000001");

    Reply(kLongS1);
    auto longRecord = s.StatusS1();
    EXPECT_EQ(longRecord->numeroUltimaNC, 48);
    EXPECT_EQ(longRecord->nCierres, 204);
    EXPECT_EQ(longRecord->RIF, "J-30123456-7");
}

TEST_F(StatusTest, CountersComeFromFixedFieldsWhateverTheLayout) {
    PrinterFiscal& s = OpenSession();
    Reply(kShortS1);
    EXPECT_EQ(s.numeroUltimaFactura(), 1520);
    Reply(kShortS1);
    EXPECT_EQ(s.NumeroUltimoCierre(), 204);  // closures in the short layout
    Reply(kLongS1);
    EXPECT_EQ(s.NumeroUltimoCierre(), 48);  // the last credit note in the long one

    Reply("S107\n0\nabc");
    EXPECT_EQ(test_support::ErrorNumberOf([&] { s.numeroUltimaFactura(); }), 13);
    Reply("S107\n0\n1");
    EXPECT_EQ(test_support::ErrorNumberOf([&] { s.NumeroUltimoCierre(); }), 9);
}

TEST_F(StatusTest, AFailedQueryGivesSubstitutesAndNeverRaises) {
    Set("RIF", "J-99999999-9", "Config\\NimbusPF\\Response1");
    PrinterFiscal& s = OpenSession();
    PrinterSilent();
    EXPECT_EQ(s.Response1()->RIF, "J-99999999-9");
    EXPECT_NE(s.outcome().pfError, 0);
    PrinterSilent();
    EXPECT_EQ(s.Response2()->tipoTrans, -1);
    PrinterSilent();
    EXPECT_TRUE(s.Response3()->isFake);
    PrinterSilent();
    EXPECT_TRUE(s.Response4()->isFake);
    PrinterSilent();
    EXPECT_EQ(s.numeroUltimaFactura(), -1);
    PrinterSilent();
    EXPECT_EQ(s.tasa(1), -1);
    PrinterSilent();
    EXPECT_EQ(s.getEstadoDocumento()->NotaS2, "");
    PrinterSilent();
    EXPECT_TRUE(s.reportesZMF(int16_t{5}, int16_t{12}).empty());
    PrinterSilent();
    EXPECT_EQ(s.loadReporteZMF(int16_t{7}), nullptr);
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

TEST_F(StatusTest, TasaReadsTheRateFieldAndSendsNothingOutOfRange) {
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.tasa(0), 0);
    EXPECT_EQ(s.tasa(4), 0);
    EXPECT_EQ(line_->BlocksWritten(), 0);
    Reply("01600\n00800\n03100\n0300\n0000");
    EXPECT_DOUBLE_EQ(s.tasa(2), 8);
    Reply("01600\n00800\n03100\n0300\n0000");
    EXPECT_DOUBLE_EQ(s.tasa(3), 31);
}

TEST_F(StatusTest, DocumentStateReadsS2BothWays) {
    PrinterFiscal& s = OpenSession();
    Reply("S2 0001500\n0000240\n0\n2.5\n0001740\n1\n2");
    EXPECT_EQ(s.Response2()->subTotalVenta, automation::Currency::FromDouble(15));
    Reply("S2 0001500\n0000240\n0\n2.5\n0001740\n1\n2");
    auto state = s.getEstadoDocumento();
    EXPECT_EQ(state->subTotalBasesImponibles, automation::Currency::FromDouble(15));
    EXPECT_EQ(state->NotaS2, "2.5");
    EXPECT_EQ(state->estado, 2);
}

TEST_F(StatusTest, CerrarZReadsTheSummaryOnlyAfterTheClosingWasAccepted) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.clear();
    for (int i = 0; i < 7; ++i) line_->blockAnswers.push_back(Reads{});
    EXPECT_EQ(s.CerrarZ(), nullptr);
    EXPECT_EQ(line_->BlocksWritten(), 7);

    line_->writes.clear();
    line_->blockAnswers.clear();
    line_->blockAnswers.push_back(Reads{std::string(1, char(ACK))});
    std::string summary =
        "0205\n241105\n2310\n00001520\n241105\n2305\n00000012\n00000048\n00000310";
    for (int i = 9; i < 30; ++i) summary += "\n" + std::string(i == 10 ? "0010000" : "0000000");
    Reply(summary);
    auto z = s.CerrarZ();
    ASSERT_NE(z, nullptr);
    EXPECT_EQ(line_->Command(0), "I0Z");
    EXPECT_EQ(line_->Command(1), "U0Z");
    EXPECT_EQ(z->numeroUltimoZ, 205);
    EXPECT_EQ(z->ultimaNC, 48);
    EXPECT_EQ(z->baseVG, automation::Currency::FromDouble(100));
}

TEST_F(StatusTest, ClosuresOfARangeComeOnePerBlock) {
    PrinterFiscal& s = OpenSession();
    std::string row = "0204\n241104\n2300\n00001500\n241104\n2250";
    for (int i = 6; i < 28; ++i) row += "\n" + std::string(i == 9 ? "150000" : "0");
    Reply(row, ETB);
    line_->ackAnswers.push_back(Reads{DataReply("0205" + row.substr(4))});
    const auto closures = s.reportesZMF(std::string("5"), int16_t{12});
    EXPECT_EQ(line_->Command(0), "U3A000005000012");
    ASSERT_EQ(closures.size(), 2u);
    EXPECT_EQ(closures[0]->numeroCierre, 204);
    EXPECT_EQ(closures[1]->numeroCierre, 205);
    EXPECT_EQ(closures[1]->ventasExentas, automation::Currency::FromDouble(1500));
}

TEST_F(StatusTest, TheS3RecordIsAskedOnceAndFeedsFlag21) {
    PrinterFiscal& s = OpenSession();
    std::string flags(60, '0');
    flags.replace(42, 2, "12");
    Reply("01600\n00800\n03100\n0300\n" + flags);
    EXPECT_EQ(s.FormatMedio(1), "000000000001");
    EXPECT_EQ(s.f21(), 12);
    EXPECT_EQ(s.s3()->Flag(21), 12);
    s.FormatPrecio(1);
    EXPECT_EQ(line_->BlocksWritten(), 1);
}

}  // namespace
}  // namespace corvid::session::testing
