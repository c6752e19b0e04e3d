// Commands that make no sense in the printer's state are refused with NAK, change nothing,
// and leave STS2 at "fiscal error" until a command is accepted.

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

const std::string kPan = Cmd("0000001000", "00001000", "PAN");  // 10,00 x 1

TEST_F(PrinterTest, LinesAndPaymentsNeedTheirDocument) {
    Refuse("\xA1" + kPan);  // a void with nothing sold
    Refuse("d1" + kPan);    // a credit note that names no invoice
    Refuse("3");
    Refuse("p-01000");
    Refuse("101");
    Refuse(Cmd("201", "000000001000"));
    Accept("iS*JUAN PEREZ");
    Refuse("101");  // customer data is no item
    Refuse(Cmd("800", "Hola"));
    Accept("!" + kPan);
    Refuse("iR*V-1");  // the heading is printed
    Refuse(Cmd("f01", "000000000000"));
    Refuse(Cmd("\xA1", "0000001000", "00002000", "PAN"));  // more than was sold
    Refuse("p-10001");                                     // beyond the subtotal
    Refuse("PJ2102");
    Accept(Cmd("201", "000000000500"));
    Refuse("!" + kPan);  // payment has begun
    Accept("101");

    EXPECT_EQ(S1()[2], "00001521");  // the refusals used no number
    EXPECT_EQ(State().day.sales.Total(), 1160);
}

TEST_F(PrinterTest, RefusesSecondLoginUnknownAndMalformedCommands) {
    Accept("500001");
    Refuse("500002");
    Accept("6");
    Refuse("6");
    Refuse("500000");
    Refuse("ZZ");
    Refuse("I9X");
    Refuse(Cmd("!", "00000012ab", "00001000", "PAN"));
    Refuse("F+13,5x||1,000||PAN");
    Refuse("PG300224");  // no 30 February
    Refuse("PH1too short");
    EXPECT_EQ(Status(), std::make_pair(0x60, 0x60));
    Accept("w");
    EXPECT_EQ(Status(), std::make_pair(0x60, 0x40));
    EXPECT_EQ(sim_->PaperText(), "");
}

}  // namespace
}  // namespace corvid::sim::testing
