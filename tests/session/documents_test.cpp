// The document senders: what reaches the line, and the rules the builders cannot know.
#include "automation/vb_error.h"
#include "session/session_fixture.h"
#include "support/recording_user_prompts.h"

namespace corvid::session::testing {
namespace {

using automation::Currency;

// "S3" fields: rates 16, 8 and 31 added to the price, IGTF 3, and flags 00..29 with flag 21
// set to `flag21`.
std::string S3Reply(int flag21) {
    std::string flags;
    for (int i = 0; i < 30; ++i)
        flags += i == 21 ? (flag21 < 10 ? "0" : "") + std::to_string(flag21) : "00";
    return DataReply("01600\n00800\n03100\n0300\n" + flags);
}

class DocumentsTest : public SessionTest {
  protected:
    // The next command is accepted after `accepted` others, then the printer stays silent
    // to every one of its seven attempts.
    void RefuseCommandAfter(int accepted) {
        line_->blockAnswers.clear();
        for (int i = 0; i < accepted; ++i)
            line_->blockAnswers.push_back(Reads{std::string(1, char(ACK))});
        for (int i = 0; i < 7; ++i) line_->blockAnswers.push_back(Reads{});
    }

    DocumentsTest() : prompts_(std::make_shared<host::RecordingUserPrompts>()) {
        previous_ = host::ReplaceUserPrompts(prompts_);
    }
    ~DocumentsTest() override { host::ReplaceUserPrompts(previous_); }

    std::shared_ptr<host::RecordingUserPrompts> prompts_;
    std::shared_ptr<host::UserPrompts> previous_;
};

TEST_F(DocumentsTest, NegativeQuantitySendsNothing) {
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.PasarItem("PAN", Currency::FromDouble(1), -0.001, 16), 3);
    EXPECT_EQ(s.outcome().pfError, pfClientError);
    EXPECT_EQ(s.outcome().DescripcionError,
              "Argumento inv\xE1lido (cantidad negativa) en PasarItem");
    EXPECT_TRUE(line_->writes.empty());
    EXPECT_EQ(s.AnularItem("PAN", Currency::FromDouble(1), -1, 16), 3);
    EXPECT_EQ(s.outcome().DescripcionError,
              "Argumento inv\xE1lido (cantidad negativa) en AnularItem");
}

TEST_F(DocumentsTest, ConfiguredRatesAnswerWithoutAskingThePrinter) {
    Set("0", "0", host::kRatesSection);
    Set("1", "8", host::kRatesSection);
    Set("2", "16", host::kRatesSection);
    Set("DigitosPrecio", "10");
    Set("DecimalesPrecio", "2");
    Set("DigitosCantidad", "8");
    Set("DecimalesCantidad", "3");
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.PasarItem("PAN", Currency::FromDouble(12.5), 2, 8.05), 0);
    EXPECT_EQ(line_->Command(0), "!000000125000002000PAN");
    EXPECT_EQ(line_->BlocksWritten(), 1);  // no "S3"
    EXPECT_EQ(s.IndiceTasa(-1), 4);        // the collected levy's index, from the settings
    EXPECT_EQ(line_->BlocksWritten(), 1);
}

TEST_F(DocumentsTest, UnmatchedRatesAskThePrinterEveryTime) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = {Reads{S3Reply(0)}, Reads{S3Reply(0)}};
    EXPECT_EQ(s.IndiceTasa(31), 3);
    EXPECT_EQ(s.IndiceTasa(12), 0);  // no rate within 0.1: exempt
    EXPECT_EQ(line_->Command(0), "S3");
    EXPECT_EQ(line_->Command(1), "S3");
    EXPECT_NEAR(s.s3()->ValorTasa2, 8, 1e-9);
}

TEST_F(DocumentsTest, AmountFormatsFollowThePrintersFlag21) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{S3Reply(12)});
    EXPECT_EQ(s.CerrarConMedio(3, Currency::FromDouble(100)), 0);
    EXPECT_EQ(s.f21(), 12);
    EXPECT_EQ(line_->Command(0), "S3");
    EXPECT_EQ(line_->Command(1), "203000000000100");  // 12 digits, no decimals
    EXPECT_EQ(s.CerrarComprobante(), 0);
    EXPECT_EQ(line_->Command(2), "101");  // S3 asked once per session
}

TEST_F(DocumentsTest, GeneralLineWrappersSendTheirKind) {
    Set("0", "8", host::kRatesSection);
    PrinterFiscal& s = OpenSession();
    const Currency price = Currency::FromDouble(1);
    s.pasarLineaFacturaG("A", price, 1, 8);
    s.anularLineaFacturaG("A", price, 1, 8);
    s.pasarLineaNCG("A", price, 1, 8, "X");
    s.anularLineaNCG("A", price, 1, 8);
    EXPECT_EQ(line_->Command(0), "F+01,00||1,000||A");
    EXPECT_EQ(line_->Command(1), "F-01,00||1,000||A");
    EXPECT_EQ(line_->Command(2), "C+01,00||1,000|||X|A");
    EXPECT_EQ(line_->Command(3), "C-01,00||1,000||A");
}

TEST_F(DocumentsTest, ReprintsAndRefundsReuseTheirSiblingsCommands) {
    Set("DigitosMedio", "12");
    Set("DecimalesMedio", "2");
    PrinterFiscal& s = OpenSession();
    s.reimprimirFactura(automation::Variant(std::int32_t{123}));
    EXPECT_EQ(s.CerrarDevolucion(2, Currency::FromDouble(5)), 0);
    EXPECT_EQ(s.CerrarNotaCredito(), 0);
    EXPECT_EQ(line_->Command(0), "RF00001230000123");
    EXPECT_EQ(line_->Command(1), "f02000000000500");
    EXPECT_EQ(line_->Command(2), "f01000000000000");
}

TEST_F(DocumentsTest, InvertedBooleansAreTrueOnFailure) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    EXPECT_FALSE(s.SubTotal());
    EXPECT_EQ(line_->Command(0), "3");
    RefuseCommandAfter(0);
    EXPECT_TRUE(s.PasarDescuento(10));
}

TEST_F(DocumentsTest, CustomerSeriesStopAtTheFirstFailureAndSayWhy) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    RefuseCommandAfter(1);
    EXPECT_EQ(s.PasarDatosCliente("ANA", "V1", "CALLE 1"), pfCommError);
    EXPECT_EQ(line_->BlocksWritten(), 1 + 7);  // the address line is never sent
    ASSERT_EQ(prompts_->prompts().size(), 1u);
    EXPECT_EQ(prompts_->prompts()[0].text, s.outcome().DescripcionError);

    RefuseCommandAfter(1);
    EXPECT_EQ(s.PasarDatosClientePA("ANA", "V1", "CALLE 1"), pfCommError);
    ASSERT_EQ(prompts_->prompts().size(), 2u);
    EXPECT_EQ(prompts_->prompts()[1].text,
              "PasarDatosClientePA (2): " + s.outcome().DescripcionError);
    EXPECT_EQ(prompts_->prompts()[1].title, "Error en Printer Fiscal");

    // The credit-note series sends everything and shows nothing.
    line_->writes.clear();
    RefuseCommandAfter(1);
    s.PasarDatosClienteNC("ANA", "V1", "CALLE 1", "12", "Z1F",
                          automation::Variant(automation::Empty{}));
    EXPECT_EQ(line_->BlocksWritten(), 1 + 7 + 4);
    EXPECT_EQ(prompts_->prompts().size(), 2u);
}

}  // namespace
}  // namespace corvid::session::testing
