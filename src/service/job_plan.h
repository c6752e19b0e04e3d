// A job as the blocks it sends, one journal step each, with what the printer's S2 must
// show once each block took effect: the running quantity of items and count of payments.
// Built again from the job's body after a restart, so that expectations never depend on
// memory.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_request.h"
#include "jobs/steps.h"
#include "service/printer_snapshot.h"

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::service {

struct PlannedStep {
    std::string what;  // UTF-8
    jobs::StepKind kind = jobs::StepKind::kSetting;
    std::string command;
    std::int64_t quantityAfter = 0;  // thousandths, counting this step
    int paymentsAfter = 0;
    bool closesDocument = false;
};

struct JobPlan {
    int documentKind = kNoDocument;  // what S2 shows while the document is open
    Counter counter = Counter::kInvoice;
    std::vector<PlannedStep> steps;
};

// `printer` gives rate indexes and amount formats; nothing is sent.
JobPlan PlanJob(const jobs::JobRequest& job, session::PrinterFiscal& printer);

}  // namespace corvid::service
