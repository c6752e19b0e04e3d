// Where a job stands, decided from the printer's own state against the job's plan and
// journal: after a reply was lost or unclear, after a restart, and when a printer comes
// back from a power cut. Nothing here talks to the printer.
//
// Items and payments show in S2 (running quantity, count of payments) and the closing in
// S1 (the counter moves on by one), so those are never guessed. Three kinds of block leave
// no trace the printer can report; for them the safe way is chosen:
//   - customer data is kept by the printer by line number until the document opens:
//     sending it again changes nothing, so an unsure line is sent again;
//   - the printed subtotal and non-fiscal text lines: sending again could print a line
//     twice, so an unsure one counts as printed (a line missing beats a line twice);
//   - a discount moves the subtotal: the subtotal read just before it was sent decides.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "service/job_plan.h"
#include "service/journal.h"
#include "service/printer_snapshot.h"

namespace corvid::service {

struct StepProgress {
    StepState state = StepState::kPending;
    // Discounts: the open document's subtotal read before the block was sent.
    std::optional<std::int64_t> subtotalBefore;
};

struct Resume {
    enum class Verdict { kDone, kRunFrom, kAttention };
    Verdict verdict = Verdict::kRunFrom;
    std::size_t from = 0;     // kRunFrom: the first step the printer does not show
    std::int64_t number = 0;  // kDone: the document's number
    std::string evidence;     // what was decided and why (UTF-8)
};

Resume FindResume(const JobPlan& plan, const std::vector<StepProgress>& progress,
                  const Counters& before, const PrinterSnapshot& now);

}  // namespace corvid::service
