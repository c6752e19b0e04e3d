// Invoices, credit notes and non-fiscal documents: what the printer prints and what the
// day's totals take in.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

const std::string kSaleReceipt = R"(                 SENIAT
            MI TIENDA, C.A.
RIF: J-30123456-7
----------------------------------------
FACTURA                         00001521
FECHA: 17-05-2024            HORA: 10:30
CAJERO: 00007
RIF/C.I.: V-12345678
RAZON SOCIAL: JUAN PEREZ
Calle 5, casa 3
----------------------------------------
2 x 12,50
PIÑA                      (G)      25,00
LECHE                     (R)      30,00
LICOR                     (A)      45,00
3 x 5,00
ARROZ                     (E)      15,00
ANULACION
PIÑA                      (G)     -12,50
2 x 3,50
C01 PAN                   (R)       7,00
SUBTOTAL                          109,50
DESCUENTO 10,00%                  -10,95
----------------------------------------
EXENTO (E)                         13,50
BI G (16,00%)                      11,25
IVA G (16,00%)                      1,80
BI R (8,00%)                       33,30
IVA R (8,00%)                       2,66
BI A (31,00%)                      40,50
IVA A (31,00%)                     12,56
----------------------------------------
TOTAL                             115,57
MEDIO 02                          100,00
EFECTIVO                           20,00
CAMBIO                              4,43
----------------------------------------
         GRACIAS POR SU COMPRA
MH                            Z1B3000815

)";

TEST_F(PrinterTest, SalePrintsTheReceiptAndAddsUp) {
    Accept("PH1" + Line40("MI TIENDA, C.A."));
    Accept("PHA" + Line40("GRACIAS POR SU COMPRA"));
    Accept("500007");
    Accept("iR*V-12345678");
    Accept("iS*JUAN PEREZ");
    Accept("i03Calle 5, casa 3");
    Accept(Cmd("!", "0000001250", "00002000", kPina));
    EXPECT_EQ(Status(), std::make_pair(0x61, 0x40));
    Accept(Cmd("\"", "0000003000", "00001000", "LECHE"));
    Accept(Cmd("#", "0000004500", "00001000", "LICOR"));
    Accept(Cmd(" ", "0000000500", "00003000", "ARROZ"));
    Accept(Cmd("\xA1", "0000001250", "00001000", kPina));
    Accept("F+23,50||2,000|||C01|PAN");
    Accept("3");
    Accept("p-01000");
    Accept(Cmd("202", "000000010000"));
    EXPECT_EQ(Status().first, 0x61);  // paid in part: still open
    Accept(Cmd("201", "000000002000"));

    EXPECT_EQ(sim_->PaperText(), kSaleReceipt);
    EXPECT_EQ(Status().first, 0x60);
    std::vector<std::string> s1 = S1();
    ASSERT_EQ(s1.size(), 14u);
    EXPECT_EQ(std::stol(s1[1]), 11557);
    EXPECT_EQ(s1[2], "00001521");
    EXPECT_EQ(std::stol(s1[3]), 1);
    const KindTotals sales = State().day.sales;
    EXPECT_EQ(sales.bases, (SlotAmounts{1350, 1125, 3330, 4050, 0}));
    EXPECT_EQ(sales.taxes, (SlotAmounts{0, 180, 266, 1256, 0}));
    EXPECT_EQ(sales.byMeans[1], 1557);  // 20,00 less the change
    EXPECT_EQ(sales.byMeans[2], 10000);
    EXPECT_EQ(sales.byMeans[1] + sales.byMeans[2], sales.Total());
}

TEST_F(PrinterTest, CreditNoteRefundsInPartsUpToItsTotal) {
    Accept("iS*JUAN PEREZ");
    Accept("iF*00001521");
    Accept("iI*Z1B3000815");
    Accept("iD*17-05-2024");
    Accept(Cmd("d1", "0000001250", "00001000", kPina));
    Refuse("101");  // an invoice's payment
    Accept(Cmd("f01", "000000001000"));
    Refuse(Cmd("f01", "000000000500"));  // 4,50 is left
    Accept(Cmd("f02", "000000000450"));

    const std::string paper = sim_->PaperText();
    EXPECT_EQ(paper.substr(paper.find("NOTA")), R"(NOTA DE CREDITO                 00000049
FECHA: 17-05-2024            HORA: 10:30
RAZON SOCIAL: JUAN PEREZ
FACTURA AFECTADA: 00001521
IMPRESORA: Z1B3000815
FECHA FACTURA: 17-05-2024
----------------------------------------
PIÑA                      (G)      12,50
----------------------------------------
BI G (16,00%)                      12,50
IVA G (16,00%)                      2,00
----------------------------------------
TOTAL                              14,50
EFECTIVO                           10,00
MEDIO 02                            4,50
----------------------------------------
MH                            Z1B3000815

)");
    std::vector<std::string> s1 = S1();
    EXPECT_EQ(std::stol(s1[1]), 0);  // not a sale
    EXPECT_EQ(s1[12], "00000049");
    EXPECT_EQ(std::stol(s1[13]), 1);
    EXPECT_EQ(State().day.creditNotes.Total(), 1450);
}

TEST_F(PrinterTest, NonFiscalDocumentReachesThePaperFileWhenClosed) {
    const std::string path = ::testing::TempDir() + "corvid-sim-paper.txt";
    SimulatorConfig config = StoppedClock();
    config.paperPath = path;
    Start(std::move(config));
    auto file = [&] {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    };

    Accept(Cmd("800", "Hola"));
    EXPECT_EQ(Status().first, 0x62);
    Refuse(Cmd("!", "0000001000", "00001000", "PAN"));
    Accept("800" + std::string(45, 'x'));
    EXPECT_EQ(file(), "");
    Accept(Cmd("810", "Fin"));

    const std::string expected = R"(RIF: J-30123456-7
----------------------------------------
NO FISCAL                       00000311
FECHA: 17-05-2024            HORA: 10:30
----------------------------------------
Hola
)" + std::string(40, 'x') + R"(
Fin
----------------------------------------
               NO FISCAL

)";
    EXPECT_EQ(sim_->PaperText(), expected);
    EXPECT_EQ(file(), expected);
    std::vector<std::string> s1 = S1();
    EXPECT_EQ(s1[4], "00000311");
    EXPECT_EQ(std::stol(s1[5]), 1);
}

}  // namespace
}  // namespace corvid::sim::testing
