// The daily closing, the fiscal memory it writes and the closings read back from it.

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

constexpr char kEtx = 3;
constexpr char kEtb = 23;

class ClosingTest : public PrinterTest {
  protected:
    void SellTen() {  // 10,00 at 16 %
        Accept(Cmd("!", "0000001000", "00001000", "A"));
        Accept("101");
    }
    void RefundTwelveFifty() {  // 12,50 at 16 %
        Accept("iF*00001521");
        Accept(Cmd("d1", "0000001250", "00001000", "B"));
        Accept(Cmd("f01", "000000001450"));
    }
    static std::vector<long> Amounts(const std::vector<std::string>& row, std::size_t first) {
        std::vector<long> amounts;
        for (std::size_t i = first; i < first + 5; ++i) amounts.push_back(std::stol(row.at(i)));
        return amounts;
    }
    static char EndOf(const std::string& reply) {
        return reply.size() >= 2 ? reply[reply.size() - 2] : '\0';
    }
};

TEST_F(ClosingTest, ClosingWaitsForTheOpenDocumentThenReportsAndStartsANewDay) {
    Accept(Cmd("!", "0000001000", "00001000", "A"));
    const std::string paper = sim_->PaperText();
    Refuse("I0Z");
    EXPECT_EQ(sim_->PaperText(), paper);
    EXPECT_EQ(S1()[6], "0204");
    Refuse(Cmd("U3A", "000205", "000205"));  // nothing was written

    Accept("101");
    Accept("I0X");
    for (const char* line :
         {"REPORTE X                           0020", "FACTURAS                               1",
          "EFECTIVO                           11,60"}) {
        EXPECT_NE(sim_->PaperText().find(line), std::string::npos) << line;
    }
    EXPECT_EQ(std::stol(S1()[1]), 1160);
    Accept("I0Z");
    EXPECT_NE(sim_->PaperText().find("REPORTE Z                           0205"),
              std::string::npos);
    std::vector<std::string> s1 = S1();
    EXPECT_EQ(s1[6], "0205");
    EXPECT_EQ(s1[2], "00001521");
    EXPECT_EQ(std::stol(s1[1]), 0);
    EXPECT_EQ(std::stol(s1[3]), 0);
    std::vector<std::string> s4 = FieldsOf(SendCommand("S4"));
    ASSERT_EQ(s4.size(), 24u);
    EXPECT_EQ(std::stol(s4[0].substr(2)), 0);
}

TEST_F(ClosingTest, FiscalMemorySendsOneBlockPerClosingOfTheRange) {
    SellTen();
    Accept("I0Z");
    RefundTwelveFifty();
    Accept("I0Z");

    const std::string first = SendCommand(Cmd("U3A", "000205", "000206"));
    EXPECT_EQ(EndOf(first), kEtb);
    const std::string second = Exchange(Bytes({6}));
    EXPECT_EQ(EndOf(second), kEtx);
    std::vector<std::string> day1 = FieldsOf(first);
    std::vector<std::string> day2 = FieldsOf(second);
    ASSERT_EQ(day1.size(), 28u);
    ASSERT_EQ(day2.size(), 28u);
    EXPECT_EQ(day1[0], "0205");
    EXPECT_EQ(day1[1] + day1[2], "2405171030");
    EXPECT_EQ(day1[3], "00001521");
    EXPECT_EQ(Amounts(day1, 9), (std::vector<long>{0, 1000, 160, 0, 0}));
    EXPECT_EQ(Amounts(day1, 23), std::vector<long>(5, 0));
    EXPECT_EQ(day2[0], "0206");
    EXPECT_EQ(Amounts(day2, 9), std::vector<long>(5, 0));
    EXPECT_EQ(Amounts(day2, 23), (std::vector<long>{0, 1250, 200, 0, 0}));

    Refuse(Cmd("U3A", "000207", "000300"));
    Refuse(Cmd("U3A", "000206", "000205"));
    Refuse(Cmd("U3A", "205", "206"));
}

}  // namespace
}  // namespace corvid::sim::testing
