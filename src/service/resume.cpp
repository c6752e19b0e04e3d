#include "service/resume.h"

namespace corvid::service {
namespace {

using Kind = jobs::StepKind;

bool Observable(const PlannedStep& step) {
    return step.kind == Kind::kItem || step.kind == Kind::kPayment;
}

// Whether an observable step shows: the printer's running figures reached the step's.
bool Shows(const PlannedStep& step, const PrinterSnapshot& now) {
    return now.quantityThousandths >= step.quantityAfter && now.payments >= step.paymentsAfter;
}

// An unobservable step the journal does not confirm, with the document open.
bool CountsAsTaken(const PlannedStep& step, const StepProgress& progress,
                   const PrinterSnapshot& now) {
    if (progress.state == StepState::kConfirmed) return true;
    if (progress.state == StepState::kPending) return false;
    // The document is still open, so the block that would have closed it did not.
    if (step.closesDocument) return false;
    switch (step.kind) {
        case Kind::kSubtotal:
        case Kind::kNonFiscalLine:
            return true;
        case Kind::kDiscount:
            return progress.subtotalBefore && *progress.subtotalBefore != now.subtotalCents;
        default:
            return false;
    }
}

Resume Attention(std::string why, const PrinterSnapshot& now) {
    return {Resume::Verdict::kAttention, 0, 0, why + "; the printer shows " + now.Describe()};
}

Resume InOpenDocument(const JobPlan& plan, const std::vector<StepProgress>& progress,
                      const PrinterSnapshot& now) {
    std::optional<std::size_t> lastShown;
    for (std::size_t i = 0; i < plan.steps.size(); ++i) {
        if (Observable(plan.steps[i]) && Shows(plan.steps[i], now)) lastShown = i;
    }
    const std::int64_t quantity = lastShown ? plan.steps[*lastShown].quantityAfter : 0;
    const int payments = lastShown ? plan.steps[*lastShown].paymentsAfter : 0;
    if (now.quantityThousandths != quantity || now.payments != payments) {
        return Attention("the open document fits no step of the job", now);
    }
    std::size_t from = lastShown ? *lastShown + 1 : 0;
    while (from < plan.steps.size() && !Observable(plan.steps[from]) &&
           CountsAsTaken(plan.steps[from], progress[from], now)) {
        ++from;
    }
    if (from == plan.steps.size()) {
        return Attention("every step shows but the document is still open", now);
    }
    return {Resume::Verdict::kRunFrom, from, 0,
            "the printer shows the document open up to step " + std::to_string(from) + " of " +
                std::to_string(plan.steps.size())};
}

}  // namespace

Resume FindResume(const JobPlan& plan, const std::vector<StepProgress>& progress,
                  const Counters& before, const PrinterSnapshot& now) {
    // A printer may count a document from its first item or only once it closes: while
    // it is open, the counter has moved by one or not at all.
    const std::int64_t moved = now.counters.Of(plan.counter) - before.Of(plan.counter);
    if (moved == 1 && now.documentKind == kNoDocument) {
        const std::int64_t number = now.counters.Of(plan.counter);
        return {Resume::Verdict::kDone, 0, number,
                "the printer closed document " + std::to_string(number)};
    }
    if (moved != 0 && moved != 1) {
        return Attention("the printer's counter moved by " + std::to_string(moved), now);
    }
    if (now.documentKind == kNoDocument) {
        return {Resume::Verdict::kRunFrom, 0, 0, "nothing of the job is open on the printer"};
    }
    if (now.documentKind != plan.documentKind) {
        return Attention("another kind of document is open", now);
    }
    return InOpenDocument(plan, progress, now);
}

}  // namespace corvid::service
