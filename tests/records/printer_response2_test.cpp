#include "records/printer_response2.h"

#include <gtest/gtest.h>

#include "automation/locale_format.h"
#include "records/printer_response4.h"
#include "support/vb_error_testing.h"

namespace corvid::records {
namespace {

using automation::Currency;
using test_support::ErrorNumberOf;

class DocumentStateTest : public ::testing::Test {
  protected:
    DocumentStateTest() : locale_(automation::ReplaceLocaleFormat({})) {}
    ~DocumentStateTest() override { automation::ReplaceLocaleFormat(locale_); }

    automation::LocaleFormat locale_;
    std::vector<std::string> reply_ = {"S2 0001500", " 240", "0", "2.5", "1740", " 2", "3"};
};

TEST_F(DocumentStateTest, BothRecordsReadTheSameReply) {
    PrinterResponse2 response;
    response.loadFromResponse(reply_);
    EXPECT_EQ(response.toString(),
              "subTotalVenta = 15\r\nsubTotalImpuestos = 2.4\r\ncantidadItems = 2.5\r\n"
              "total = 17.4\r\ncantidadPagos = 2\r\ntipoTrans = 3\r\n");
    EstadoDocumento estado;
    estado.loadFromResponse(reply_);
    EXPECT_EQ(estado.toString(),
              "subTotalBasesImponibles = $15.00\r\nsubTotalIVA = $2.40\r\nNotaS2 = 2.5\r\n"
              "MontoPorPagar = $17.40\r\nnumeroPagosRealizados = 2\r\nestado = 3\r\n");

    // The failure reply has no blank in field 0: nothing changes.
    estado.loadFromResponse({"pfError"});
    EXPECT_EQ(estado.subTotalBasesImponibles, Currency::FromScaled(150000));
}

TEST_F(DocumentStateTest, ABadFieldRaisesAfterTheEarlierOnes) {
    PrinterResponse2 response;
    reply_[4] = "17x";
    EXPECT_EQ(ErrorNumberOf([&] { response.loadFromResponse(reply_); }), 13);
    EXPECT_DOUBLE_EQ(response.cantidadItems, 2.5);
    EXPECT_EQ(response.total, Currency());

    reply_.resize(6);
    reply_[4] = "1";
    EXPECT_EQ(ErrorNumberOf([&] { response.loadFromResponse(reply_); }), 9);
    EXPECT_EQ(response.cantidadPagos, 2);
    EstadoDocumento estado;
    EXPECT_EQ(ErrorNumberOf([&] { estado.loadFromResponse(reply_); }), 9);

    PrinterResponse2 fake;
    fake.loadFake();
    EXPECT_EQ(fake.tipoTrans, -1);
    EXPECT_EQ(fake.subTotalVenta, Currency());
}

TEST(PrinterResponse4Test, ReadsAtMost24AmountsDroppingTheEcho) {
    std::vector<std::string> reply(30);
    for (std::size_t i = 0; i < reply.size(); ++i) reply[i] = std::to_string((i + 1) * 100);
    reply[0] = "S4123456";
    PrinterResponse4 record;
    record.loadFromResponse(reply);
    EXPECT_EQ(record.nMedios(), 24);
    EXPECT_EQ(record.valor(1), Currency::FromScaled(12345600));
    EXPECT_EQ(record.valor(24), Currency::FromScaled(240000));
    EXPECT_EQ(record.valor(25), Currency());
    EXPECT_EQ(record.valor(0), Currency());

    EXPECT_EQ(ErrorNumberOf([&] { record.loadFromResponse({"S4100", "x"}); }), 13);
    EXPECT_EQ(record.nMedios(), 0);
    record.loadFromResponse({"S4100", "200"});
    record.loadFake();
    EXPECT_TRUE(record.isFake);
    EXPECT_EQ(record.valor(1), Currency());
}

}  // namespace
}  // namespace corvid::records
