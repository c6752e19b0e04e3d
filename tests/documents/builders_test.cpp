// The document commands byte for byte.
#include <gtest/gtest.h>

#include "automation/dates.h"
#include "documents/configuration.h"
#include "documents/customer_data.h"
#include "documents/item_lines.h"
#include "documents/text_helpers.h"
#include "documents/totals.h"
#include "support/vb_error_testing.h"

namespace corvid::documents {
namespace {

using automation::Currency;
using automation::DateSerial;
using automation::Variant;
using test_support::ErrorNumberOf;

TEST(ItemLines, ClassicCommandsPutTheRateCharacterBeforeFixedFields) {
    EXPECT_EQ(ClassicItemCommand(ItemKind::kSale, 1, "0000001250", "00002000", "PAN", 28),
              "!000000125000002000PAN");
    EXPECT_EQ(ClassicItemCommand(ItemKind::kSale, 0, "1", "2", "X", 28), " 12X");
    EXPECT_EQ(ClassicItemCommand(ItemKind::kSale, 2, "1", "2", "X", 28), "\"12X");
    EXPECT_EQ(ClassicItemCommand(ItemKind::kRefund, 3, "1", "2", "X", 28), "d312X");
    EXPECT_EQ(ClassicItemCommand(ItemKind::kVoid, 1, "1", "2", "X", 28),
              "\xA1"
              "12X");
    // The index of the collected levy (4 by default) goes on with the same arithmetic.
    EXPECT_EQ(ClassicItemCommand(ItemKind::kSale, 4, "", "", "", 28), "$");
    EXPECT_EQ(ClassicItemCommand(ItemKind::kVoid, 4, "", "", "", 28), "\xA4");
    // The description is cut at the column limit, never padded.
    EXPECT_EQ(ClassicItemCommand(ItemKind::kSale, 1, "", "", "ABCDEFGHIJ", 4), "!ABCD");
    EXPECT_EQ(ErrorNumberOf([] { ClassicItemCommand(ItemKind::kSale, 300, "", "", "", 28); }), 5);
}

TEST(ItemLines, GeneralCommandsUseBarsAndADecimalComma) {
    EXPECT_EQ(GeneralItemCommand("F+", 1, Currency::FromDouble(12.5), 2, "ABC", "PAN"),
              "F+112,50||2,000|||ABC|PAN");
    EXPECT_EQ(GeneralItemCommand("F+", 1, Currency::FromDouble(12.5), 2, "", "PAN"),
              "F+112,50||2,000||PAN");
    // No grouping, no padding, the whole description.
    EXPECT_EQ(GeneralItemCommand("C-", 0, Currency::FromDouble(1000), 0.5, "",
                                 "A DESCRIPTION LONGER THAN TWENTY-EIGHT COLUMNS"),
              "C-01000,00||0,500||A DESCRIPTION LONGER THAN TWENTY-EIGHT COLUMNS");
    EXPECT_EQ(NegativeQuantityMessage(ItemKind::kRefund),
              "Argumento inv\xE1lido (cantidad negativa) en RefundItem");
}

TEST(ItemLines, RatesMatchWithinATenthOfAPoint) {
    const double rates[] = {0, 8, 16};
    EXPECT_EQ(MatchRate(rates, 3, 8.05), 1);
    EXPECT_EQ(MatchRate(rates, 3, 8.2), std::nullopt);
    EXPECT_EQ(MatchRate(rates, 3, 0), 0);
    EXPECT_EQ(MatchRate(rates, 2, 16), std::nullopt);  // only the configured count
}

TEST(TextHelpers, PadCenterAndCut) {
    EXPECT_EQ(PadRightCut("ab", 4), "ab  ");
    EXPECT_EQ(PadRightCut("abcdef", 4), "abcd");
    EXPECT_EQ(CenterCut("abc", 8), "  abc");  // (8 - 3) \ 2 in front, nothing behind
    EXPECT_EQ(CenterCut("abcdef", 4), "abcd");
}

TEST(TextHelpers, WordWrapBreaksWhereAPersonWould) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(lmStr2Lines("Calle 5, casa 3", 10), (Lines{"Calle 5,", "casa 3"}));
    EXPECT_EQ(lmStr2Lines("uno dos tres", 8), (Lines{"uno dos", "tres"}));
    EXPECT_EQ(lmStr2Lines("ABCDEFGHIJKL", 5), (Lines{"ABCDE", "FGHIJ", "KL"}));
    EXPECT_EQ(lmStr2Lines("A\r\n\r\n  B", 10), (Lines{"A", "B"}));
    EXPECT_EQ(lmStr2Lines("Hola \xBFque tal?", 8), (Lines{"Hola ", "\xBFque", "tal?"}));
    // An opening mark at the start of a chunk cannot begin the next line for ever.
    const std::string mark = "\xBF";
    EXPECT_EQ(lmStr2Lines(mark + "ABCDEFGH", 4), (Lines{mark + "ABC", "DEFG", "H"}));
    EXPECT_TRUE(lmStr2Lines("", 5).empty());
    EXPECT_EQ(ErrorNumberOf([] { lmStr2Lines("x", 0); }), 5);
}

TEST(CustomerData, AddressLinesAreNumberedPerFamilyAndEmptyOnesSkipped) {
    const char* address = "A\r\n\r\nB";
    EXPECT_EQ(
        PasarDatosClienteCommands("N", "J1", address, std::nullopt, std::nullopt, std::nullopt),
        (Commands{"i01N", "i02RIF:J1", "i03A", "i04B"}));
    EXPECT_EQ(PasarDatosClienteNCCommands("N", "J1", address, "123", "Z1F",
                                          Variant(DateSerial(2024, 3, 5))),
              (Commands{"iS*N", "iR*J1", "iF*123", "iI*Z1F", "iD*05-03-2024", "i00A", "i01B"}));
    const StepCommands pa = PasarDatosClientePACommands("N", "J1", address, "");
    ASSERT_EQ(pa.size(), 4u);
    EXPECT_EQ(pa[2].command, "j1A");
    EXPECT_EQ(pa[3].command, "j2B");
    EXPECT_EQ(pa[3].step, 3);
}

TEST(CustomerData, ReferenceLinesFollowTheAddressAndLongFieldsAreCut) {
    const std::string name45(45, 'N');
    const Commands commands =
        PasarDatosClienteCommands(name45, "J1", "", std::string("1234567890123456"),
                                  std::string("Z1F0000001"), Variant(DateSerial(2024, 10, 31)));
    EXPECT_EQ(
        commands,
        (Commands{"i01" + std::string(40, 'N'), "i02RIF:J1", "i03#Factura afectada: 123456789012",
                  "i04Serial impresora: Z1F0000001", "i05Fecha factura: 31-10-2024"}));
    const StepCommands pa = PasarDatosClientePACommands("Ana", std::string(25, 'R'), "", "F9");
    EXPECT_EQ(pa[0].command, "jR" + std::string(20, 'R'));
    EXPECT_EQ(pa[1].command, "jSAna" + std::string(37, ' '));
    EXPECT_EQ(pa[2].command, "jFF9");
    const StepCommands nc = PasarDatosClienteNCPACommands(name45, "J1", "X", "77");
    EXPECT_EQ(nc[1].command, "jS*" + std::string(40, 'N'));
    EXPECT_EQ(nc[2].command, "jF*77" + std::string(20, ' '));
    EXPECT_EQ(nc[3].command, "j1X");
    EXPECT_EQ(nc[3].step, 4);
}

TEST(CustomerData, InvoiceOpeningWrapsTheAddress) {
    EXPECT_EQ(IniciarFacturaCommands("Ana", "V1", "Calle 5, casa 3", 10),
              (Commands{"iR*V1", "iS*Ana", "i01Calle 5,", "i02casa 3"}));
}

TEST(Totals, SubtotalDiscountsAndClosings) {
    EXPECT_EQ(SubTotalCommand(true), "3");
    EXPECT_EQ(SubTotalCommand(false), "4");
    EXPECT_EQ(PercentDiscountCommand(10), "p-01000");
    EXPECT_EQ(PercentDiscountCommand(12.345), "p-01234");
    EXPECT_EQ(PercentDiscountCommand(0.009), "p-00000");
    EXPECT_EQ(AmountDiscountCommand("000000000550"), "q-000000000550");
    EXPECT_EQ(GeneralDiscountCommand(true, true, 10), "GP-*10,00");
    EXPECT_EQ(GeneralDiscountCommand(false, false, 2.5), "GM+*2,50");
    EXPECT_EQ(CloseCommand(false, ""), "101");
    EXPECT_EQ(CloseCommand(true, "000000000100"), "201000000000100");
    EXPECT_EQ(CloseWithMeansCommand(3, "000000010000"), "203000000010000");
    EXPECT_EQ(CreditNoteCloseCommand(1, "000000000000"), "f01000000000000");
    EXPECT_EQ(CloseWithMeansCommand(123, "1"), "21231");  // three digits, left to the printer
}

TEST(Configuration, NonFiscalLinesReportsHeaderAndFooter) {
    EXPECT_EQ(PrintNoFiscalCommand(std::string(50, 'x'), false), "800" + std::string(40, 'x'));
    EXPECT_EQ(PrintNoFiscalCommand("fin", true), "810fin");
    EXPECT_EQ(ReporteDiarioCommand("0", "Z"), "I0Z");
    EXPECT_EQ(SetHeaderCommand(Variant(std::int16_t{1}), ""), "PH1" + std::string(40, ' '));
    EXPECT_EQ(SetHeaderCommand(Variant(std::int16_t{12}), "0123456789"),
              "PH12" + std::string(15, ' ') + "0123456789" + std::string(15, ' '));
    EXPECT_EQ(SetHeaderCommand(Variant(std::int16_t{2}), std::string(39, 'h')),
              "PH2" + std::string(39, 'h') + " ");
    EXPECT_EQ(SetFooterCommand(1, ""), "PHA" + std::string(40, ' '));
    EXPECT_EQ(SetFooterCommand(2, std::string(41, 'f')), "PHB" + std::string(40, 'f'));
}

TEST(Configuration, DateTimeCashierFlagsAndReprints) {
    const Variant moment(
        automation::CombineDateTime(DateSerial(2024, 10, 31), automation::TimeSerial(9, 5, 7)));
    EXPECT_EQ(SetDateCommand(moment), "PG311024");
    EXPECT_EQ(SetTimeCommand(moment), "PF090507");
    EXPECT_EQ(LoginCommand(Variant(std::int16_t{1})), "500001");
    EXPECT_EQ(SetFlagCommand(Variant(std::int16_t{21}), Variant(std::int16_t{1})), "PJ2101");
    EXPECT_EQ(ReprintCommand("F", Variant(std::int32_t{123}), Variant(std::int32_t{125})),
              "RF00001230000125");
    EXPECT_EQ(
        ReprintCommand("z", Variant(DateSerial(2024, 10, 31)), Variant(DateSerial(2024, 11, 2))),
        "Rz02410310241102");
    EXPECT_EQ(ReprintCommand("A", Variant(std::int32_t{1}), Variant(std::int32_t{2})),
              "RA00000010000002");
}

}  // namespace
}  // namespace corvid::documents
