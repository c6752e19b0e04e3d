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

// Lines joined with "|"; a numbered command is followed by "@" and its step.
std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "|") + line;
    return text;
}
std::string Joined(const StepCommands& commands) {
    std::vector<std::string> lines;
    for (const auto& c : commands) lines.push_back(c.command + "@" + std::to_string(c.step));
    return Joined(lines);
}

struct Row {
    std::string built, expected;
};

Variant I16(int value) { return Variant(static_cast<std::int16_t>(value)); }
Variant I32(int value) { return Variant(static_cast<std::int32_t>(value)); }

TEST(Builders, ItemAndCustomerCommandsByteForByte) {
    const std::string n40(40, 'N'), n45(45, 'N');
    const double rates[] = {0, 8, 16};
    const Row rows[] = {
        // Item lines: the rate character, then fixed fields; the description cut, not padded.
        {ClassicItemCommand(ItemKind::kSale, 1, "0000001250", "00002000", "PAN", 28),
         "!000000125000002000PAN"},
        {ClassicItemCommand(ItemKind::kSale, 0, "1", "2", "X", 28), " 12X"},
        {ClassicItemCommand(ItemKind::kRefund, 3, "1", "2", "X", 28), "d312X"},
        {ClassicItemCommand(ItemKind::kVoid, 1, "1", "2", "X", 28),
         "\xA1"
         "12X"},
        {ClassicItemCommand(ItemKind::kSale, 1, "", "", "ABCDEFGHIJ", 4), "!ABCD"},
        {GeneralItemCommand("F+", 1, Currency::FromDouble(12.5), 2, "ABC", "PAN"),
         "F+112,50||2,000|||ABC|PAN"},
        {GeneralItemCommand("C-", 0, Currency::FromDouble(1000), 0.5, "", n45),
         "C-01000,00||0,500||" + n45},
        {NegativeQuantityMessage(ItemKind::kRefund),
         "Argumento inv\xE1lido (cantidad negativa) en RefundItem"},
        // Rates match within a tenth of a point, among the configured count only.
        {std::to_string(MatchRate(rates, 3, 8.05).value_or(-1)), "1"},
        {std::to_string(MatchRate(rates, 3, 8.2).value_or(-1)), "-1"},
        {std::to_string(MatchRate(rates, 2, 16).value_or(-1)), "-1"},
        // Text: padding, centring ((8 - 3) \ 2 in front, nothing behind), word wrap.
        {CenterCut("abc", 8) + "|" + CenterCut("abcdef", 4), "  abc|abcd"},
        {Joined(lmStr2Lines("Calle 5, casa 3", 10)), "Calle 5,|casa 3"},
        {Joined(lmStr2Lines("ABCDEFGHIJKL", 5)), "ABCDE|FGHIJ|KL"},
        {Joined(lmStr2Lines("A\r\n\r\n  B", 10)), "A|B"},
        {Joined(lmStr2Lines("Hola \xBFque tal?", 8)), "Hola |\xBFque|tal?"},
        // An opening mark at the start of a chunk cannot begin the next line for ever.
        {Joined(lmStr2Lines("\xBF"
                            "ABCDEFGH",
                            4)),
         "\xBF"
         "ABC|DEFG|H"},
        // Customer data: address lines numbered per family, empty ones skipped; long fields cut.
        {Joined(PasarDatosClienteCommands("N", "J1", "A\r\n\r\nB", std::nullopt, std::nullopt,
                                          std::nullopt)),
         "i01N|i02RIF:J1|i03A|i04B"},
        {Joined(PasarDatosClienteNCCommands("N", "J1", "A\r\nB", "123", "Z1F",
                                            Variant(DateSerial(2024, 3, 5)))),
         "iS*N|iR*J1|iF*123|iI*Z1F|iD*05-03-2024|i00A|i01B"},
        {Joined(PasarDatosClienteCommands(n45, "J1", "", std::string("1234567890123456"),
                                          std::string("Z1F0000001"),
                                          Variant(DateSerial(2024, 10, 31)))),
         "i01" + n40 +
             "|i02RIF:J1|i03#Factura afectada: 123456789012|"
             "i04Serial impresora: Z1F0000001|i05Fecha factura: 31-10-2024"},
        {Joined(PasarDatosClientePACommands("Ana", std::string(25, 'R'), "A\r\n\r\nB", "F9")),
         "jR" + std::string(20, 'R') + "@1|jSAna" + std::string(37, ' ') + "@2|jFF9@3|j1A@3|j2B@3"},
        {Joined(PasarDatosClienteNCPACommands(n45, "J1", "X", "77")),
         "jR*J1@1|jS*" + n40 + "@2|jF*77" + std::string(20, ' ') + "@3|j1X@4"},
        {Joined(IniciarFacturaCommands("Ana", "V1", "Calle 5, casa 3", 10)),
         "iR*V1|iS*Ana|i01Calle 5,|i02casa 3"},
    };
    for (const auto& row : rows) EXPECT_EQ(row.built, row.expected);
}

TEST(Builders, TotalsAndSettingCommandsByteForByte) {
    const Variant moment(
        automation::CombineDateTime(DateSerial(2024, 10, 31), automation::TimeSerial(9, 5, 7)));
    const Row rows[] = {
        // Totals.
        {SubTotalCommand(true) + SubTotalCommand(false), "34"},
        {PercentDiscountCommand(12.345), "p-01234"},
        {AmountDiscountCommand("000000000550"), "q-000000000550"},
        {GeneralDiscountCommand(true, true, 10), "GP-*10,00"},
        {GeneralDiscountCommand(false, false, 2.5), "GM+*2,50"},
        {CloseCommand(false, ""), "101"},
        {CloseCommand(true, "000000000100"), "201000000000100"},
        {CloseWithMeansCommand(3, "000000010000"), "203000000010000"},
        {CreditNoteCloseCommand(1, "000000000000"), "f01000000000000"},
        // Non-fiscal lines, reports, header and footer, date, time, cashier, flags, reprints.
        {PrintNoFiscalCommand(std::string(50, 'x'), false), "800" + std::string(40, 'x')},
        {PrintNoFiscalCommand("fin", true), "810fin"},
        {ReporteDiarioCommand("0", "Z"), "I0Z"},
        {SetHeaderCommand(I16(1), ""), "PH1" + std::string(40, ' ')},
        {SetHeaderCommand(I16(12), "0123456789"),
         "PH12" + std::string(15, ' ') + "0123456789" + std::string(15, ' ')},
        {SetFooterCommand(2, std::string(41, 'f')), "PHB" + std::string(40, 'f')},
        {SetDateCommand(moment) + "|" + SetTimeCommand(moment), "PG311024|PF090507"},
        {LoginCommand(I16(1)), "500001"},
        {SetFlagCommand(I16(21), I16(1)), "PJ2101"},
        {ReprintCommand("F", I32(123), I32(125)), "RF00001230000125"},
        {ReprintCommand("z", Variant(DateSerial(2024, 10, 31)), Variant(DateSerial(2024, 11, 2))),
         "Rz02410310241102"},
    };
    for (const auto& row : rows) EXPECT_EQ(row.built, row.expected);
}

TEST(Builders, ArgumentsOutOfRangeRaiseError5) {
    EXPECT_EQ(ErrorNumberOf([] { ClassicItemCommand(ItemKind::kSale, 300, "", "", "", 28); }), 5);
    EXPECT_EQ(ErrorNumberOf([] { lmStr2Lines("x", 0); }), 5);
}

}  // namespace
}  // namespace corvid::documents
