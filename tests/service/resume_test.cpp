// Where a job stands after a lost reply or a restart, decided from what the printer shows.
#include "service/resume.h"

#include <gtest/gtest.h>

namespace corvid::service {
namespace {

using Kind = jobs::StepKind;
using Verdict = Resume::Verdict;
constexpr auto kPending = StepState::kPending, kSent = StepState::kSent,
               kConfirmed = StepState::kConfirmed;

// Customer data in two blocks, two items (2 and 1 units), the subtotal, a discount and
// two payments, the second closing the invoice.
JobPlan SalePlan() {
    JobPlan plan{kInvoiceOpen, Counter::kInvoice, {}};
    auto add = [&](Kind kind, std::int64_t quantity, int payments, bool closes = false) {
        plan.steps.push_back({"step", kind, "cmd", quantity, payments, closes});
    };
    add(Kind::kCustomer, 0, 0);
    add(Kind::kCustomer, 0, 0);
    add(Kind::kItem, 2000, 0);
    add(Kind::kItem, 3000, 0);
    add(Kind::kSubtotal, 3000, 0);
    add(Kind::kDiscount, 3000, 0);
    add(Kind::kPayment, 3000, 1);
    add(Kind::kPayment, 3000, 2, true);
    return plan;
}

// The journal: steps before `sent` confirmed, `sent` itself sent, the rest pending.
std::vector<StepProgress> SentAt(std::size_t sent, std::optional<std::int64_t> subtotal = {}) {
    std::vector<StepProgress> progress(8);
    for (std::size_t i = 0; i < progress.size(); ++i) {
        progress[i].state = i < sent ? kConfirmed : i == sent ? kSent : kPending;
    }
    progress[5].subtotalBefore = subtotal;
    return progress;
}

PrinterSnapshot Shows(int kind, std::int64_t quantity, int payments, std::int64_t subtotal,
                      std::int64_t invoice) {
    PrinterSnapshot now;
    now.documentKind = kind;
    now.quantityThousandths = quantity;
    now.payments = payments;
    now.subtotalCents = subtotal;
    now.counters.invoice = invoice;
    return now;
}

TEST(FindResume, DecidesFromThePrintersOwnState) {
    struct Case {
        const char* name;
        std::size_t sent;
        std::optional<std::int64_t> subtotalBefore;
        PrinterSnapshot now;
        Verdict verdict;
        std::size_t from;
        std::int64_t number;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"customer line unsure, nothing open: run again from the start", 1, {}, Shows(0, 0, 0, 0, 41), Verdict::kRunFrom, 0, 0},
        {"the closing payment took: done with the next number", 7, {}, Shows(0, 0, 0, 0, 42), Verdict::kDone, 0, 42},
        {"the counter moved by two", 7, {}, Shows(0, 0, 0, 0, 43), Verdict::kAttention, 0, 0},
        {"second item not shown: send it", 3, {}, Shows(1, 2000, 0, 7700, 41), Verdict::kRunFrom, 3, 0},
        {"an open invoice already counted", 3, {}, Shows(1, 2000, 0, 7700, 42), Verdict::kRunFrom, 3, 0},
        {"second item shown: go on with the subtotal", 3, {}, Shows(1, 3000, 0, 9000, 41), Verdict::kRunFrom, 4, 0},
        {"subtotal unsure: never printed twice", 4, {}, Shows(1, 3000, 0, 9000, 41), Verdict::kRunFrom, 5, 0},
        {"discount moved the subtotal: taken", 5, 9000, Shows(1, 3000, 0, 8550, 41), Verdict::kRunFrom, 6, 0},
        {"discount left the subtotal: send it", 5, 9000, Shows(1, 3000, 0, 9000, 41), Verdict::kRunFrom, 5, 0},
        {"first payment shown", 6, {}, Shows(1, 3000, 1, 8550, 41), Verdict::kRunFrom, 7, 0},
        {"closing payment not taken: the document is open", 7, {}, Shows(1, 3000, 1, 8550, 41), Verdict::kRunFrom, 7, 0},
        {"a quantity no step gives", 3, {}, Shows(1, 2500, 0, 0, 41), Verdict::kAttention, 0, 0},
        {"another kind of document open", 3, {}, Shows(3, 0, 0, 0, 41), Verdict::kAttention, 0, 0},
    };
    // clang-format on
    Counters before;
    before.invoice = 41;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Resume resume =
            FindResume(SalePlan(), SentAt(c.sent, c.subtotalBefore), before, c.now);
        EXPECT_EQ(resume.verdict, c.verdict) << resume.evidence;
        if (c.verdict == Verdict::kRunFrom) {
            EXPECT_EQ(resume.from, c.from);
        }
        if (c.verdict == Verdict::kDone) {
            EXPECT_EQ(resume.number, c.number);
        }
    }
}

}  // namespace
}  // namespace corvid::service
