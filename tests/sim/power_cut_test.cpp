// A power cut: the block that triggers it takes effect but is not answered, the printer is
// deaf while off, and it comes back with the document it had open.

#include <thread>

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

TEST_F(PrinterTest, PowerCutKeepsTheLastBlockAndTheOpenDocument) {
    const milliseconds off(1500);
    sim_->PowerCutAfter(2, off);
    Accept(Cmd("!", "0000001250", "00001000", "PAN"));
    line_->Send(session::BuildCommandBlock(Cmd("!", "0000003000", "00001000", "LECHE")));
    ASSERT_TRUE(sim_->WaitForAcceptedBlocks(2, milliseconds(2000)));
    const auto cut = std::chrono::steady_clock::now();

    // While off: no answer to the block that cut it, to ENQ or to a new block, which is lost.
    EXPECT_EQ(line_->ReadReply(kQuiet), "");
    line_->Send(Bytes({5}));
    EXPECT_EQ(line_->ReadReply(kQuiet), "");
    line_->Send(session::BuildCommandBlock(Cmd("!", "0000004500", "00001000", "ARROZ")));
    EXPECT_EQ(line_->ReadReply(kQuiet), "");
    ASSERT_LT(std::chrono::steady_clock::now() - cut, off) << "the test ran too slowly";

    std::this_thread::sleep_until(cut + off + milliseconds(50));
    EXPECT_EQ(Status(), std::make_pair(0x61, 0x40));
    ASSERT_TRUE(State().document);
    EXPECT_EQ(State().document->items.size(), 2u);
    EXPECT_EQ(sim_->AcceptedBlocks(), 2);
    Accept(Cmd("!", "0000004500", "00001000", "ARROZ"));  // the cut does not come again
}

}  // namespace
}  // namespace corvid::sim::testing
