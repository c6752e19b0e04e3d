// The open document (S2) and the daily summary as a host reads them back.

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

class DayTest : public PrinterTest {
  protected:
    void Start(Variant variant) {
        SimulatorConfig config = StoppedClock();
        config.printer.serial = DefaultSerial(variant);
        PrinterTest::Start(std::move(config));
    }
    // Two invoices and a credit note. The general rate's tax is rounded on each receipt
    // (1,6048 and 0,0048), so the day's tax is 1,60 where 16 % of the day's base is 1,61.
    void SellAndRefund() {
        Accept(Cmd("!", "0000001003", "00001000", "A"));
        Accept(Cmd("\"", "0000002000", "00001000", "B"));
        Accept(Cmd("#", "0000001000", "00001000", "C"));
        Accept(Cmd(" ", "0000000500", "00001000", "D"));
        Accept("101");
        Accept(Cmd("!", "0000000003", "00001000", "E"));
        Accept("101");
        Accept("iF*00001521");
        Accept(Cmd("d1", "0000001250", "00001000", "F"));
        Accept(Cmd("f01", "000000001450"));
    }
    std::vector<std::string> Query(std::string_view command) {
        return FieldsOf(SendCommand(command));
    }
};

// Exempt, base and tax at the general, reduced and additional rates, as the receipts of
// SellAndRefund print them.
const std::vector<long> kSales{500, 1006, 160, 2000, 160, 1000, 310};
const std::vector<long> kCreditNotes{0, 1250, 200, 0, 0, 0, 0};

std::vector<long> Amounts(const std::vector<std::string>& fields, std::size_t first) {
    std::vector<long> amounts;
    for (std::size_t i = first; i < first + 7 && i < fields.size(); ++i) {
        amounts.push_back(std::stol(fields[i]));
    }
    return amounts;
}

TEST_F(DayTest, S2FollowsTheOpenDocument) {
    EXPECT_EQ(Query("S2")[6], "0");
    Accept(Cmd("!", "0000001250", "00002000", "A"));     // 25,00 at 16 %
    Accept(Cmd(" ", "0000000500", "00000500", "B"));     // 2,50 exempt
    Accept(Cmd("\xA1", "0000001250", "00001000", "A"));  // void of one A
    Accept(Cmd("201", "000000000500"));
    std::vector<std::string> s2 = Query("S2");
    ASSERT_EQ(s2.size(), 7u);
    EXPECT_EQ(std::stol(s2[0].substr(3)), 1500);
    EXPECT_EQ(std::stol(s2[1]), 200);
    EXPECT_EQ(s2[3], "1.5");
    EXPECT_EQ(std::stol(s2[4]), 1700);
    EXPECT_EQ(s2[5], "1");
    EXPECT_EQ(s2[6], "1");
    Accept("101");
    EXPECT_EQ(Query("S2")[6], "0");

    Accept("iF*00001521");
    EXPECT_EQ(Query("S2")[6], "0");  // customer data opens nothing yet
    Accept(Cmd("d1", "0000001000", "00001000", "A"));
    EXPECT_EQ(Query("S2")[6], "2");
    Accept("7");
    Accept(Cmd("800", "Hola"));
    EXPECT_EQ(Query("S2")[6], "3");
}

// The summary of the day so far (U0X) and of the last closing (U0Z) add up the receipts,
// in the model's layout: where it puts the closing, the last credit note and the amounts.
TEST_F(DayTest, SummaryAddsUpTheReceiptsInTheModelsLayout) {
    struct Case {
        Variant variant;
        std::size_t fields, lastCreditNote, firstSale, firstCreditNote;
    };
    for (const Case& c :
         {Case{Variant::DT230, 20, 19, 5, 12}, Case{Variant::SRP812, 29, 28, 6, 21},
          Case{Variant::HKA112, 30, 7, 9, 23}, Case{Variant::SRP350, 39, 7, 9, 23}}) {
        SCOPED_TRACE(DefaultSerial(c.variant));
        Start(c.variant);
        SellAndRefund();
        std::vector<std::string> day = Query("U0X");
        ASSERT_EQ(day.size(), c.fields);
        EXPECT_EQ(std::stol(day[0]), 204);
        EXPECT_EQ(Amounts(day, c.firstSale), kSales);
        EXPECT_EQ(Amounts(day, c.firstCreditNote), kCreditNotes);
        Accept("I0Z");
        std::vector<std::string> z = Query("U0Z");
        ASSERT_EQ(z.size(), c.fields);
        EXPECT_EQ(std::stol(z[0]), 205);
        EXPECT_EQ(z[1], "240517");
        EXPECT_EQ(std::stol(z[c.lastCreditNote]), 49);
        EXPECT_EQ(Amounts(z, c.firstSale), kSales);
        EXPECT_EQ(Amounts(z, c.firstCreditNote), kCreditNotes);
        EXPECT_EQ(Amounts(Query("U0X"), c.firstSale), std::vector<long>(7, 0));
    }
    // The long layout also carries the last invoice, its date and the closing's taxes.
    const std::vector<std::string> z = Query("U0Z");
    EXPECT_EQ(z[2], "1030");
    EXPECT_EQ(std::stol(z[3]), 1522);
    EXPECT_EQ(z[4], "240517");
    EXPECT_EQ(std::stol(z[8]), 310);
    EXPECT_EQ(Amounts(z, 16), std::vector<long>(7, 0));  // no debit notes
}

}  // namespace
}  // namespace corvid::sim::testing
