// Documents sent by the session over the real serial layer, checked on the paper the
// simulated printer prints.
#include "e2e_fixture.h"

namespace corvid::e2e {
namespace {

using automation::Currency;
using automation::Variant;

using DocumentsOnSimulator = SessionOnSimulator;

TEST_F(DocumentsOnSimulator, ASaleIsPrintedAsSentAndAddsUp) {
    session::PrinterFiscal& s = Prepared();
    EXPECT_EQ(s.IniciarFactura("JUAN PEREZ", "V-12345678", "Calle 5, casa 3"), 0);
    EXPECT_EQ(s.PasarItem("PI\xD1"
                          "A",
                          Currency::FromDouble(12.5), 2, 16),
              0);
    EXPECT_EQ(s.PasarItem("LECHE", Currency::FromDouble(30), 1, 8), 0);
    EXPECT_EQ(s.PasarItem("ARROZ", Currency::FromDouble(5), 3, 0), 0);
    EXPECT_EQ(s.detalleGeneral("F+", "PAN", Currency::FromDouble(3.5), 2, 8, "C01"), 0);
    EXPECT_FALSE(s.SubTotal());
    EXPECT_FALSE(s.PasarDescuento(10));
    EXPECT_EQ(s.CerrarConMedio(2, Currency::FromDouble(50)), 0);
    EXPECT_EQ(s.CerrarComprobante(Currency::FromDouble(30)), 0);
    EXPECT_EQ(LastDocument("FACTURA"), R"(FACTURA                         00001521
FECHA: 17-05-2024            HORA: 10:30
CAJERO: 00007
RIF/C.I.: V-12345678
RAZON SOCIAL: JUAN PEREZ
Calle 5, casa 3
----------------------------------------
2 x 12,50
PIÑA                      (G)      25,00
LECHE                     (R)      30,00
3 x 5,00
ARROZ                     (E)      15,00
2 x 3,50
C01 PAN                   (R)       7,00
SUBTOTAL                           77,00
DESCUENTO 10,00%                   -7,70
----------------------------------------
EXENTO (E)                         13,50
BI G (16,00%)                      22,50
IVA G (16,00%)                      3,60
BI R (8,00%)                       33,30
IVA R (8,00%)                       2,66
----------------------------------------
TOTAL                              75,56
MEDIO 02                           50,00
EFECTIVO                           30,00
CAMBIO                              4,44
----------------------------------------
         GRACIAS POR SU COMPRA
MH                            Z1B3000815

)");
}

TEST_F(DocumentsOnSimulator, ACreditNoteAndANonFiscalDocument) {
    session::PrinterFiscal& s = Prepared();
    EXPECT_EQ(s.PasarDatosClienteNC("JUAN PEREZ", "V-12345678", "", "00001521", "Z1B3000815",
                                    Variant(automation::DateSerial(2024, 5, 17))),
              0);
    EXPECT_EQ(s.RefundItem("LECHE", Currency::FromDouble(30), 1, 8), 0);
    EXPECT_EQ(s.CerrarNotaCreditoConMedio(1, Currency::FromDouble(32.4)), 0);
    const std::string note = LastDocument("NOTA DE CREDITO");
    EXPECT_NE(note.find("FACTURA AFECTADA: 00001521"), std::string::npos) << note;
    EXPECT_NE(note.find("TOTAL                              32,40"), std::string::npos) << note;

    EXPECT_EQ(s.PrintNoFiscal("Hola", false), 0);
    EXPECT_EQ(s.PrintNoFiscal(std::string(45, 'x'), true), 0);
    EXPECT_EQ(LastDocument("NO FISCAL  "), R"(NO FISCAL                       00000311
FECHA: 17-05-2024            HORA: 10:30
CAJERO: 00007
----------------------------------------
Hola
xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
----------------------------------------
         GRACIAS POR SU COMPRA
               NO FISCAL

)");
}

TEST_F(DocumentsOnSimulator, ThePrinterRefusesAPaymentBeforeAnyItem) {
    session::PrinterFiscal& s = Prepared();
    EXPECT_EQ(s.CerrarComprobante(), 0);  // NAK seven times: no error class, only the flag
    EXPECT_EQ(s.outcome().resultFlag, session::NAK);
}

}  // namespace
}  // namespace corvid::e2e
