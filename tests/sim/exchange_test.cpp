// The printer's answers on the line: status, acceptance, refusal and data replies, and
// what it records of them.

#include "sim/builtin_commands.h"
#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

using What = TranscriptEntry::What;

TEST_F(SimulatorTest, AnswersStatusBlocksAndBadChecksAndSkipsStrayBytes) {
    EXPECT_EQ(Exchange(Bytes({5})), Bytes({2, 0x60, 0x40, 3, 0x60 ^ 0x40 ^ 3}));
    sim_->SetStatusBytes(0x61, 0x08);
    EXPECT_EQ(Exchange(Bytes({5})), Bytes({2, 0x61, 0x08, 3, 0x61 ^ 0x08 ^ 3}));
    sim_->transcript().Clear();
    std::string bad = session::BuildCommandBlock("w");
    bad.back() = static_cast<char>(bad.back() ^ 1);
    EXPECT_EQ(Exchange(bad), Bytes({21}));
    // Stray bytes before a block, and a block split across writes.
    const std::string block = session::BuildCommandBlock("7");
    line_->Send("xy" + block.substr(0, 2));
    EXPECT_EQ(line_->ReadChunk(kQuiet), "");
    EXPECT_EQ(Exchange(block.substr(2)), Bytes({6}));

    const std::vector<TranscriptEntry> entries = sim_->transcript().Entries();
    ASSERT_EQ(entries.size(), 5u);
    EXPECT_FALSE(entries[0].checkOk);
    EXPECT_EQ(entries[1].what, What::Nak);
    EXPECT_EQ(entries[2].what, What::Stray);
    EXPECT_TRUE(entries[3].checkOk);
    EXPECT_EQ(sim_->transcript().Commands(), (std::vector<std::string>{"w", "7"}));
}

// S1 has the short layout (14 fields) or, for the models that use it, the long one (16)
// that puts the time before the date; the serial number's prefix tells the model.
TEST_F(SimulatorTest, S1LayoutFollowsTheModel) {
    struct Case {
        Variant variant;
        std::size_t fields, reports, closures, serial, date, time;
        const char* timeText;
    };
    for (const Case& c : {Case{Variant::SRP350, 14, 7, 6, 9, 10, 11, "1030"},
                          Case{Variant::DT230, 14, 7, 6, 9, 10, 11, "1030"},
                          Case{Variant::HKA112, 16, 10, 11, 13, 15, 14, "103015"},
                          Case{Variant::SRP812, 16, 10, 11, 13, 15, 14, "103015"}}) {
        const std::string serial = DefaultSerial(c.variant);
        SCOPED_TRACE(serial);
        EXPECT_EQ(VariantFromSerial(serial), c.variant);
        sim_->ChangeState([&](FiscalState& state) {
            state.serial = serial;
            state.clock = May17At103015();
            state.cashier = 7;
            state.lastInvoice = 4321;
            state.closures = 88;
            state.reportCounter = 9;
            state.day.sales.bases[1] = 1000;
            state.day.sales.taxes[1] = 160;
        });
        const std::string reply = SendCommand("S1");
        // A one-block data reply is framed exactly like a command block.
        EXPECT_EQ(reply, session::BuildCommandBlock(reply.substr(1, reply.size() - 3)));
        const std::vector<std::string> fields = FieldsOf(reply);
        ASSERT_EQ(fields.size(), c.fields);
        EXPECT_EQ(fields[0], "S107");
        EXPECT_EQ(std::stol(fields[1]), 1160);
        EXPECT_EQ(std::stol(fields[2]), 4321);
        EXPECT_EQ(std::stol(fields[c.reports]), 9);
        EXPECT_EQ(std::stol(fields[c.closures]), 88);
        EXPECT_EQ(fields[c.serial], serial);
        EXPECT_EQ(fields[c.date], "240517");
        EXPECT_EQ(fields[c.time], c.timeText);
    }
}

}  // namespace
}  // namespace corvid::sim::testing
