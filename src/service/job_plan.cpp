#include "service/job_plan.h"

#include "service/command_collector.h"

namespace corvid::service {
namespace {

struct Shape {
    int documentKind;
    Counter counter;
};

Shape ShapeOf(jobs::JobType type) {
    switch (type) {
        case jobs::JobType::kSale:
            return {kInvoiceOpen, Counter::kInvoice};
        case jobs::JobType::kCreditNote:
            return {kCreditNoteOpen, Counter::kCreditNote};
        case jobs::JobType::kNonFiscal:
            return {kNonFiscalOpen, Counter::kNonFiscal};
        case jobs::JobType::kReportX:
            return {kNoDocument, Counter::kReport};
        case jobs::JobType::kReportZ:
            break;
    }
    return {kNoDocument, Counter::kClosure};
}

}  // namespace

JobPlan PlanJob(const jobs::JobRequest& job, session::PrinterFiscal& printer) {
    const Shape shape = ShapeOf(job.type);
    JobPlan plan{shape.documentKind, shape.counter, {}};
    CommandCollector collector(printer);
    std::int64_t quantity = 0;
    int payments = 0;
    for (const jobs::Step& step : jobs::StepsOf(job)) {
        step.call(collector);
        const std::vector<std::string> commands = collector.Take();
        quantity += step.quantityThousandths;
        if (step.kind == jobs::StepKind::kPayment) ++payments;
        for (std::size_t i = 0; i < commands.size(); ++i) {
            PlannedStep planned;
            planned.what = commands.size() == 1
                               ? step.label
                               : step.label + " (block " + std::to_string(i + 1) + " of " +
                                     std::to_string(commands.size()) + ")";
            planned.kind = step.kind;
            planned.command = commands[i];
            planned.quantityAfter = quantity;
            planned.paymentsAfter = payments;
            planned.closesDocument = step.closesDocument && i + 1 == commands.size();
            plan.steps.push_back(std::move(planned));
        }
    }
    return plan;
}

}  // namespace corvid::service
