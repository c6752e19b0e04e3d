// The document senders: what reaches the line, and the rules the builders cannot know.
#include <functional>

#include "session/session_fixture.h"
#include "support/recording_user_prompts.h"

namespace corvid::session::testing {
namespace {

using automation::Currency;

class DocumentsTest : public SessionTest {
  protected:
    DocumentsTest() { previous_ = host::ReplaceUserPrompts(prompts_); }
    ~DocumentsTest() override { host::ReplaceUserPrompts(previous_); }

    // "S3": rates 16, 8 and 31 added to the price, IGTF 3, and flag 21 set to 12.
    void ReplyS3() {
        std::string flags(60, '0');
        line_->blockAnswers.push_back(
            {DataReply("01600\n00800\n03100\n0300\n" + flags.replace(42, 2, "12"))});
    }
    // The next command is accepted after `accepted` others, then the printer stays silent
    // to every one of its seven attempts.
    void RefuseCommandAfter(int accepted) {
        line_->blockAnswers = std::deque<Reads>(static_cast<std::size_t>(accepted), {Byte(ACK)});
        for (int i = 0; i < 7; ++i) line_->blockAnswers.push_back(Reads{});
    }

    std::shared_ptr<host::RecordingUserPrompts> prompts_ =
        std::make_shared<host::RecordingUserPrompts>();
    std::shared_ptr<host::UserPrompts> previous_;
};

TEST_F(DocumentsTest, EachSenderWritesItsCommand) {
    Set("0", "8", host::kRatesSection);
    Set("DigitosMedio", "12");
    Set("DecimalesMedio", "2");
    PrinterFiscal& s = OpenSession();
    const Currency one = Currency::FromDouble(1);
    const std::vector<std::pair<std::function<void()>, std::string>> cases = {
        {[&] { s.pasarLineaFacturaG("A", one, 1, 8); }, "F+01,00||1,000||A"},
        {[&] { s.anularLineaFacturaG("A", one, 1, 8); }, "F-01,00||1,000||A"},
        {[&] { s.pasarLineaNCG("A", one, 1, 8, "X"); }, "C+01,00||1,000|||X|A"},
        {[&] { s.anularLineaNCG("A", one, 1, 8); }, "C-01,00||1,000||A"},
        {[&] { s.CerrarDevolucion(2, Currency::FromDouble(5)); }, "f02000000000500"},
    };
    for (const auto& [send, command] : cases) {
        line_->writes.clear();
        send();
        EXPECT_EQ(line_->Commands(), std::vector<std::string>{command});
    }
}

TEST_F(DocumentsTest, NegativeQuantitySendsNothing) {
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.PasarItem("PAN", Currency::FromDouble(1), -0.001, 16), pfClientError);
    EXPECT_TRUE(line_->writes.empty());
}

TEST_F(DocumentsTest, RatesComeFromTheSettingsElseFromThePrinterEveryTime) {
    Set("0", "0", host::kRatesSection);
    Set("1", "8", host::kRatesSection);
    Set("DigitosPrecio", "10");
    Set("DecimalesPrecio", "2");
    Set("DigitosCantidad", "8");
    Set("DecimalesCantidad", "3");
    PrinterFiscal& s = OpenSession();
    EXPECT_EQ(s.PasarItem("PAN", Currency::FromDouble(12.5), 2, 8.05), 0);
    EXPECT_EQ(s.IndiceTasa(-1), 4);  // the collected levy's index, from the settings
    ReplyS3();
    ReplyS3();
    EXPECT_EQ(s.IndiceTasa(31), 3);
    EXPECT_EQ(s.IndiceTasa(12), 0);  // no rate within 0.1: exempt
    EXPECT_EQ(line_->Commands(), (std::vector<std::string>{"!000000125000002000PAN", "S3", "S3"}));
}

TEST_F(DocumentsTest, CustomerSeriesStopAtTheFirstFailureAndSayWhy) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    RefuseCommandAfter(1);
    EXPECT_EQ(s.PasarDatosCliente("ANA", "V1", "CALLE 1"), pfCommError);
    EXPECT_EQ(line_->BlocksWritten(), 1 + 7);  // the address line is never sent
    RefuseCommandAfter(1);
    EXPECT_EQ(s.PasarDatosClientePA("ANA", "V1", "CALLE 1"), pfCommError);
    ASSERT_EQ(prompts_->prompts().size(), 2u);
    EXPECT_EQ(prompts_->prompts()[1].text,
              "PasarDatosClientePA (2): " + s.outcome().DescripcionError);

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
