#include "service/job_runner.h"

#include <chrono>

#include "documents/totals.h"
#include "jobs/job_request.h"
#include "service/learnt.h"
#include "session/printer_fiscal.h"
#include "text/windows_1252.h"

namespace corvid::service {
namespace {

std::vector<StepRecord> StepRecords(const JobPlan& plan) {
    std::vector<StepRecord> steps;
    for (std::size_t i = 0; i < plan.steps.size(); ++i) {
        const PlannedStep& step = plan.steps[i];
        steps.push_back({static_cast<int>(i), step.what, std::string(jobs::NameOf(step.kind)),
                         step.command, StepState::kPending, ""});
    }
    return steps;
}

}  // namespace

void JobRunner::Run(std::int64_t id) {
    const std::optional<JobRecord> record = c_.journal.Find(id);
    if (!record || (record->state != JobState::kQueued && record->state != JobState::kPrinting)) {
        return;
    }
    Job job;
    job.id = id;
    try {
        job.plan = PlanJob(jobs::ParseJobRequest(record->body), c_.printer);
    } catch (const std::exception& error) {
        Finish(id, JobState::kFailed, std::nullopt,
               JobError{session::pfClientError, error.what(), ""}, "the job cannot be planned");
        return;
    }
    job.progress.assign(job.plan.steps.size(), StepProgress{});
    const std::optional<std::size_t> from =
        record->state == JobState::kQueued ? Begin(job, *record) : TakeUp(job, *record);
    if (from && SendFrom(job, *from)) Close(job);
}

std::optional<std::size_t> JobRunner::Begin(Job& job, const JobRecord&) {
    std::optional<PrinterSnapshot> now = c_.awaitPrinter();
    if (!now) return std::nullopt;
    std::string evidence;
    if (now->documentKind != kNoDocument) {
        // No job of this service owns it (a stopped job is taken up before any new one).
        CancelOpenDocument();
        evidence = "cancelled a document the printer had open: " + now->Describe();
        now = c_.awaitPrinter();
        if (!now) return std::nullopt;
    }
    job.before = now->counters;
    c_.journal.SetBaseline(job.id, job.before.ToJson().dump());
    c_.journal.SetSteps(job.id, StepRecords(job.plan));
    c_.journal.SetState(job.id, JobState::kPrinting);
    c_.jobChanged(job.id);
    return 0;
}

std::optional<std::size_t> JobRunner::TakeUp(Job& job, const JobRecord& record) {
    if (record.steps.size() != job.plan.steps.size()) {
        Finish(job.id, JobState::kAttention, std::nullopt, std::nullopt,
               "the journal's steps no longer match the job's document");
        return std::nullopt;
    }
    for (std::size_t i = 0; i < record.steps.size(); ++i) {
        if (record.steps[i].kind != jobs::NameOf(job.plan.steps[i].kind)) {
            Finish(job.id, JobState::kAttention, std::nullopt, std::nullopt,
                   "step " + std::to_string(i + 1) + " is no longer the same kind of step");
            return std::nullopt;
        }
        // The bytes the journal holds, not the plan's: a printer with a document open may
        // not answer what planning asks (its tax rates), and a step must go out as it was
        // first written.
        job.plan.steps[i].command = record.steps[i].command;
        job.progress[i] = {record.steps[i].state,
                           LearntCents(kSubtotalBefore, record.steps[i].learnt)};
    }
    job.before = Counters::FromJson(nlohmann::json::parse(record.baseline));
    const std::optional<PrinterSnapshot> now = c_.awaitPrinter();
    if (!now) return std::nullopt;
    const Resume resume = FindResume(job.plan, job.progress, job.before, *now);
    if (resume.verdict == Resume::Verdict::kRunFrom && now->documentKind != kNoDocument &&
        c_.policy == OpenDocumentPolicy::kCancel) {
        CancelOpenDocument();
        Finish(job.id, JobState::kFailed, std::nullopt,
               JobError{session::pfPrinterError, "documento cancelado", ""},
               "the service stopped with the document open; it was cancelled on restart (" +
                   resume.evidence + ")");
        return std::nullopt;
    }
    const std::size_t firstUnconfirmed = static_cast<std::size_t>(
        std::find_if(job.progress.begin(), job.progress.end(),
                     [](const StepProgress& p) { return p.state != StepState::kConfirmed; }) -
        job.progress.begin());
    return Apply(job, resume, firstUnconfirmed);
}

bool JobRunner::SendFrom(Job& job, std::size_t from) {
    std::size_t k = from;
    while (k < job.plan.steps.size()) {
        const PlannedStep& step = job.plan.steps[k];
        std::string learnt;
        if (step.kind == jobs::StepKind::kDiscount) {
            job.progress[k].subtotalBefore = ReadSubtotal(c_.printer);
            if (job.progress[k].subtotalBefore) {
                learnt = Learnt(kSubtotalBefore, *job.progress[k].subtotalBefore);
            }
        } else if (step.kind == jobs::StepKind::kPayment && step.paymentsAfter == 1) {
            // Read for the journal's readers, not for recovery: the S2 reply is its cost.
            if (const auto due = ReadDue(c_.printer)) learnt = Learnt(kDueBefore, *due);
        }
        MarkStep(job, k, StepState::kSent, learnt);
        const auto start = std::chrono::steady_clock::now();
        const session::Delivery delivery = c_.printer.Deliver(step.command);
        c_.exchangeTimed(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (delivery == session::Delivery::kAccepted) {
            MarkStep(job, k, StepState::kConfirmed, learnt);
            ++k;
            continue;
        }
        if (delivery == session::Delivery::kRefused) {
            c_.lineFault("nak");
            const JobError error = PrinterError();
            CancelOpenDocument();
            Finish(job.id, JobState::kFailed, std::nullopt, error,
                   "the printer refused step " + std::to_string(k + 1));
            return false;
        }
        c_.lineFault(delivery == session::Delivery::kUnclear ? "unclear" : "no_answer");
        const std::optional<std::size_t> next = Recover(job, k);
        if (!next) return false;
        k = *next;
    }
    return true;
}

std::optional<std::size_t> JobRunner::Recover(Job& job, std::size_t k) {
    const std::optional<PrinterSnapshot> now = c_.awaitPrinter();
    if (!now) return std::nullopt;
    return Apply(job, FindResume(job.plan, job.progress, job.before, *now), k);
}

// `sentStep`: the first step the journal does not confirm.
std::optional<std::size_t> JobRunner::Apply(Job& job, const Resume& resume, std::size_t sentStep) {
    const std::size_t steps = job.plan.steps.size();
    switch (resume.verdict) {
        case Resume::Verdict::kDone:
            for (std::size_t i = sentStep; i < steps; ++i) {
                MarkStep(job, i, StepState::kConfirmed, "the printer shows it");
            }
            Finish(job.id, JobState::kDone, resume.number, std::nullopt, resume.evidence);
            return std::nullopt;
        case Resume::Verdict::kAttention:
            Finish(job.id, JobState::kAttention, std::nullopt, std::nullopt, resume.evidence);
            return std::nullopt;
        case Resume::Verdict::kRunFrom:
            break;
    }
    for (std::size_t i = 0; i < steps; ++i) {
        const bool shown = i < resume.from;
        if (shown && job.progress[i].state != StepState::kConfirmed) {
            MarkStep(job, i, StepState::kConfirmed, "the printer shows it");
        } else if (!shown && job.progress[i].state != StepState::kPending) {
            MarkStep(job, i, StepState::kPending, resume.evidence);
        }
    }
    return resume.from;
}

void JobRunner::Close(Job& job) {
    const std::optional<PrinterSnapshot> now = c_.awaitPrinter();
    if (!now) return;
    const Resume resume = FindResume(job.plan, job.progress, job.before, *now);
    if (resume.verdict == Resume::Verdict::kDone) {
        Finish(job.id, JobState::kDone, resume.number, std::nullopt, resume.evidence);
    } else {
        Finish(job.id, JobState::kAttention, std::nullopt, std::nullopt,
               "every step was taken but the document did not close: " + resume.evidence);
    }
}

void JobRunner::MarkStep(Job& job, std::size_t k, StepState state, const std::string& learnt) {
    job.progress[k].state = state;
    c_.journal.SetStepState(job.id, static_cast<int>(k), state, learnt);
    c_.jobChanged(job.id);
}

void JobRunner::Finish(std::int64_t id, JobState state, std::optional<std::int64_t> number,
                       const std::optional<JobError>& error, const std::string& evidence) {
    c_.journal.Finish(id, state, number, error, evidence);
    c_.jobChanged(id);
}

JobError JobRunner::PrinterError() {
    const session::ExchangeOutcome outcome = c_.printer.outcome();
    c_.printer.GetStatus();
    return {outcome.pfError, text::Utf8FromWindows1252(outcome.DescripcionError),
            text::Utf8FromWindows1252(c_.printer.explainSTS1() + "; " + c_.printer.explainSTS2())};
}

void JobRunner::CancelOpenDocument() { c_.printer.Execute(documents::kCancelCommand); }

}  // namespace corvid::service
