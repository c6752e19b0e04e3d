// One command exchange against a scripted printer, and opening and closing the port.
#include "session/framing.h"
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

const std::string kEnq = Byte(ENQ), kAck = Byte(ACK), kNak = Byte(NAK);

Reads EveryByte(const std::string& reply) {
    Reads bytes;
    for (char c : reply) bytes.emplace_back(1, c);
    return bytes;
}

Reads AfterSlices(int slices, const std::string& reply) {
    Reads reads(static_cast<std::size_t>(slices), "");
    reads.push_back(reply);
    return reads;
}

struct ExecuteCase {
    const char* name;
    std::deque<Reads> status, blocks;
    std::int16_t returned;
    int flag;
    std::string result;
    int blocksWritten, enqs, acks;
    std::string description;
    double startSeconds = 43200;
    const char* skipChecks = "0";
};

TEST_F(SessionTest, ExecuteAgainstScriptedPrinters) {
    const Reads silence;
    // clang-format off
    const std::vector<ExecuteCase> cases = {
        {"accepted", {}, {}, 0, ACK, "", 1, 1, 0, "Ok"},
        {"reply at every byte", {}, {EveryByte(DataReply("A\nB"))}, 0, ETX, "\x02" "A\nB\x03", 1, 1, 0, "Ok"},
        {"ENQ before the reply", {}, {{kEnq + DataReply("X")}}, 0, ETX, "\x02X\x03", 1, 1, 1, "Ok"},
        {"EOT ends a reply", {}, {{"\x02X\x04"}}, 0, ETX, "\x02X\x04", 1, 1, 0, "Ok"},
        {"NAK then ACK", {}, {{kNak}}, 0, ACK, "", 2, 1, 0, "Ok"},
        {"seven NAKs", {}, std::deque<Reads>(8, {kNak}), 0, NAK, "", 7, 1, 0, "Ok"},
        {"silent reply", {}, std::deque<Reads>(7, silence), pfCommError, ETX, "", 7, 7, 0, "pfError de comunicacion"},
        // The late reply is then taken for the answer to the next status request.
        {"reply at the time-out is late", {}, {AfterSlices(201, DataReply("X"))}, 0, ETX, "\x02`@\x03", 2, 2, 0, "Ok"},
        {"silent status requests", std::deque<Reads>(9, silence), {}, 0, ACK, "", 1, 10, 0, "Ok"},
        {"wait across midnight", {}, {AfterSlices(600, DataReply("late"))}, 0, ETX, "\x02late\x03", 1, 1, 0, "Ok", 86399.5},
        {"skip checks: no status, nothing read", {}, {{kNak}}, 0, ACK, "", 1, 0, 0, "NO_STATUS_CHECK", 43200, "1"},
    };
    // clang-format on
    for (const ExecuteCase& c : cases) {
        SCOPED_TRACE(c.name);
        session_.reset();
        line_ = std::make_shared<ScriptedLine>(*fakeClock_);
        Set("SkipChecks", c.skipChecks);
        PrinterFiscal& s = OpenSession();
        fakeClock_->SetSecondsSinceMidnight(c.startSeconds);
        line_->statusAnswers = c.status;
        line_->blockAnswers = c.blocks;
        EXPECT_EQ(s.Execute("w"), c.returned);
        EXPECT_EQ(s.outcome().resultFlag, c.flag);
        EXPECT_EQ(s.outcome().result, c.result);
        EXPECT_EQ(line_->BlocksWritten(), c.blocksWritten);
        EXPECT_EQ(line_->Count(kEnq), c.enqs);
        EXPECT_EQ(line_->Count(kAck), c.acks);
        EXPECT_EQ(s.outcome().DescripcionError, c.description);
        // Waits block on the port in slices: never more than one per 50 ms of time-out.
        EXPECT_LE(line_->waits, (c.blocksWritten + c.enqs) * (10000 / 50 + 1) + 600);
    }
}

// The service's sending: a block whose answer is lost or hidden is never sent again.
TEST_F(SessionTest, DeliverSendsAgainOnlyAfterNak) {
    const Reads silence;
    struct DeliverCase {
        const char* name;
        std::deque<Reads> status, blocks;
        Delivery delivery;
        int blocksWritten;
    };
    // clang-format off
    const std::vector<DeliverCase> cases = {
        {"accepted", {}, {}, Delivery::kAccepted, 1},
        {"NAK then ACK", {}, {{kNak}}, Delivery::kAccepted, 2},
        {"NAK at every attempt", {}, std::deque<Reads>(8, {kNak}), Delivery::kRefused, 7},
        {"ACK hidden behind ENQ", {}, {{kEnq + kAck}}, Delivery::kUnclear, 1},
        {"ACK behind garbage", {}, {{"\xFF" + kAck}}, Delivery::kUnclear, 1},
        {"no answer to the block", {}, {silence}, Delivery::kUnclear, 1},
        {"a framed reply where ACK was due", {}, {{DataReply("X")}}, Delivery::kUnclear, 1},
        {"no status: nothing sent", {silence}, {}, Delivery::kNoAnswer, 0},
    };
    // clang-format on
    for (const DeliverCase& c : cases) {
        SCOPED_TRACE(c.name);
        session_.reset();
        line_ = std::make_shared<ScriptedLine>(*fakeClock_);
        PrinterFiscal& s = OpenSession();
        line_->statusAnswers = c.status;
        line_->blockAnswers = c.blocks;
        EXPECT_EQ(s.Deliver("w"), c.delivery);
        EXPECT_EQ(line_->BlocksWritten(), c.blocksWritten);
        EXPECT_EQ(s.outcome().pfError == pfOk, c.delivery == Delivery::kAccepted);
    }
}

TEST_F(SessionTest, AbrirOpensComNRaisesLinesAndLearnsTheSerial) {
    line_->blockAnswers.push_back(
        Reads{DataReply("S101\n0\n12\n3\n4\n5\n6\n7\nJ-123\nZ7A0001234\n240115\n1200")});
    PrinterFiscal& s = Session();
    s.Abrir(5);
    EXPECT_EQ(line_->openedPort, 5);
    EXPECT_EQ(line_->lineChanges, (decltype(line_->lineChanges){{3, 0}, {2, 1}}));
    EXPECT_EQ(s.tipoPrinter(), HKA112);  // from the serial
    s.Abrir(6);                          // a new Abrir closes the port first
    s.Cerrar();
    EXPECT_EQ(line_->closedPorts, (std::vector<std::int16_t>{5, 6}));
}

TEST_F(SessionTest, DirectSendsFrameTheCommandWithoutStatusOrWait) {
    PrinterFiscal& s = OpenSession();
    s.outcome().pfError = pfPrinterError;
    line_->blockAnswers = {Reads{}, Reads{}};
    s.SendDirect("a b");
    s.ExecuteNoCheck("c");
    EXPECT_EQ(line_->Commands(), (std::vector<std::string>{"a b", "c"}));
    EXPECT_EQ(s.outcome().pfError, pfPrinterError);  // outcome untouched
    EXPECT_EQ(line_->waits, 0);
    line_->ackAnswers.push_back(Reads{DataReply("next")});
    s.SendAck();
    EXPECT_EQ(s.outcome().result, std::string("\x02next\x03"));
    EXPECT_EQ(s.Reset(), 0);
    EXPECT_EQ(line_->Commands().back(), "e");
}

TEST(Framing, BlocksCarryTheXorOfCommandAndEtx) {
    EXPECT_EQ(BuildCommandBlock("w"), std::string("\x02w\x03t"));
    // A check byte may itself be a control code, sent raw.
    EXPECT_EQ(BuildCommandBlock(std::string("\x01\x03", 2)),
              std::string("\x02\x01\x03\x03\x01", 5));
}

TEST_F(SessionTest, SettingsAreReadAtCreationWithTheirConversions) {
    Set("TimeOut", "7,5");  // either decimal separator; rounds half to even
    Set("FactorDelay", "0,25");
    // The rates stop at the first gap.
    for (int i = 0; i < 5; ++i)
        Set(std::to_string(i), std::to_string(10 + i) + "%", host::kRatesSection);
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.timeOut(), 8);
    EXPECT_DOUBLE_EQ(s.tasas()[4], 14);
    Set("3", "nil", host::kRatesSection);
    EXPECT_EQ(PrinterFiscal(line_).numTasas(), 3);
    s.Demora(4);
    EXPECT_EQ(fakeClock_->slept_milliseconds(), 1000);
}

}  // namespace
}  // namespace corvid::session::testing
