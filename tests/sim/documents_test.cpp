// Invoices, credit notes and non-fiscal documents: what the printer prints and what the
// day's totals take in. Host scripts check the rest of the paper.

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

// Lines of a document's paper, each expected whole.
void ExpectPrinted(const std::string& paper, std::initializer_list<std::string> lines) {
    for (const std::string& line : lines) {
        EXPECT_NE(paper.find("\n" + line + "\n"), std::string::npos) << line << "\n" << paper;
    }
}

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

    ExpectPrinted(
        sim_->PaperText(),
        {"            MI TIENDA, C.A.", "RAZON SOCIAL: JUAN PEREZ", "2 x 12,50",
         "ANULACION\nPI\u00D1A                      (G)     -12,50",
         "C01 PAN                   (R)       7,00", "DESCUENTO 10,00%                  -10,95",
         "BI G (16,00%)                      11,25\nIVA G (16,00%)                      1,80",
         "IVA A (31,00%)                     12,56", "TOTAL                             115,57",
         "MEDIO 02                          100,00\nEFECTIVO                           20,00\n"
         "CAMBIO                              4,43",
         "         GRACIAS POR SU COMPRA\nMH                            Z1B3000815"});
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
    // The day's payments by means: cash in the first field after "S4", means 2 next.
    const std::vector<std::string> s4 = FieldsOf(SendCommand("S4"));
    ASSERT_EQ(s4.size(), 24u);
    EXPECT_EQ(s4[0].substr(0, 2), "S4");
    EXPECT_EQ(std::stol(s4[0].substr(2)), 1557);
    EXPECT_EQ(std::stol(s4[1]), 10000);
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

    ExpectPrinted(
        sim_->PaperText(),
        {"NOTA DE CREDITO                 00000049", "FACTURA AFECTADA: 00001521",
         "IMPRESORA: Z1B3000815\nFECHA FACTURA: 17-05-2024",
         "TOTAL                              14,50\nEFECTIVO                           10,00\n"
         "MEDIO 02                            4,50"});
    std::vector<std::string> s1 = S1();
    EXPECT_EQ(std::stol(s1[1]), 0);  // not a sale
    EXPECT_EQ(s1[12], "00000049");
    EXPECT_EQ(std::stol(s1[13]), 1);
    EXPECT_EQ(State().day.creditNotes.Total(), 1450);
}

TEST_F(PrinterTest, NonFiscalDocumentCutsLinesAtFortyColumns) {
    Accept(Cmd("800", "Hola"));
    EXPECT_EQ(Status().first, 0x62);
    Refuse(Cmd("!", "0000001000", "00001000", "PAN"));
    Accept("800" + std::string(45, 'x'));
    Accept(Cmd("810", "Fin"));
    ExpectPrinted(sim_->PaperText(),
                  {"NO FISCAL                       00000311",
                   "Hola\n" + std::string(40, 'x') + "\nFin", "               NO FISCAL"});
    std::vector<std::string> s1 = S1();
    EXPECT_EQ(s1[4], "00000311");
    EXPECT_EQ(std::stol(s1[5]), 1);
}

}  // namespace
}  // namespace corvid::sim::testing
