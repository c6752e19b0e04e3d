// The print service's promise under chaos: the sample sale through `corvid serve` on the
// simulated printer, with the service killed just after each step's block reached the
// printer, the printer's power cut after each step, and each line fault on each step. Every
// run must end with the job done, one invoice on the paper with each item once, the total
// 372,51, and the job's number the paper's. The outcomes are printed as a table.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <functional>
#include <iomanip>
#include <sstream>
#include <thread>

#include "print_service/service_harness.h"
#include "service/journal.h"
#include "sim/simulator.h"
#include "support/temp_folder.h"

namespace corvid::e2e {
namespace {

using namespace std::chrono_literals;
using Entry = sim::TranscriptEntry;

const char* const kItems[] = {"Harina de ma", "Caf\xC3\xA9 molido", "Leche en polvo",
                              "Arroz blanco"};

// Where each step's block falls in a run without faults: how many blocks (status queries
// among them) and status replies the printer gave before it.
struct StepMark {
    std::string what;
    int blocksBefore = 0;
    int statusRepliesBefore = 0;
};

// One kind of chaos: arms the printer before the job; `killed` says the service dies once
// the step's block took effect. `spent` tells afterwards whether the fault really happened.
struct Chaos {
    const char* name;
    std::function<void(sim::Simulator&, int step, const StepMark&)> arm;
    std::function<bool(sim::Simulator&)> spent;
    bool killed = false;
};

sim::CountedFault sim::FaultPlan::*const kNone = nullptr;

Chaos OnAck(const char* name, sim::CountedFault sim::FaultPlan::*fault,
            std::function<void(sim::FaultPlan&)> more = {}) {
    return {name,
            [=](sim::Simulator& p, int step, const StepMark&) {
                p.ChangeFaults([&](sim::FaultPlan& plan) {
                    plan.*fault = {1, sim::kAckReply, step};
                    if (more) more(plan);
                });
            },
            [=](sim::Simulator& p) {
                bool spent = false;
                p.ChangeFaults([&](sim::FaultPlan& plan) { spent = (plan.*fault).remaining == 0; });
                return spent;
            }};
}

std::vector<Chaos> Chaoses() {
    const auto none = [](sim::Simulator&) { return true; };
    return {
        // The step's ACK is held back, so the service is still waiting for it when it dies.
        {"kill -9",
         [](sim::Simulator& p, int step, const StepMark&) {
             p.ChangeFaults([&](sim::FaultPlan& plan) {
                 plan.late = {1, sim::kAckReply, step};
                 plan.lateBy = 3000ms;
             });
         },
         none, true},
        {"power cut",
         [](sim::Simulator& p, int, const StepMark& m) {
             p.PowerCutAfter(m.blocksBefore + 1, 1500ms);
         },
         [](sim::Simulator& p) {
             const auto entries = p.transcript().Entries();
             return std::any_of(entries.begin(), entries.end(), [](const Entry& e) {
                 return e.note.find("power") != std::string::npos;
             });
         }},
        OnAck("ENQ first", &sim::FaultPlan::enqPrefix),
        OnAck("garbage", &sim::FaultPlan::garbage),
        OnAck("dropped", &sim::FaultPlan::drop),
        {"bad check",
         [](sim::Simulator& p, int, const StepMark& m) {
             p.ChangeFaults([&](sim::FaultPlan& plan) {
                 plan.badCheck = {1, sim::kStatusReply, m.statusRepliesBefore - 1};
             });
         },
         [](sim::Simulator& p) {
             bool spent = false;
             p.ChangeFaults([&](sim::FaultPlan& plan) { spent = plan.badCheck.remaining == 0; });
             return spent;
         }},
        {"silent",
         [](sim::Simulator& p, int, const StepMark& m) {
             p.ChangeFaults([&](sim::FaultPlan& plan) {
                 plan.ignoreSkip = m.blocksBefore;
                 plan.ignoreBlocks = 1;
             });
         },
         [](sim::Simulator& p) {
             bool spent = false;
             p.ChangeFaults([&](sim::FaultPlan& plan) { spent = plan.ignoreBlocks == 0; });
             return spent;
         }},
        OnAck("late", &sim::FaultPlan::late, [](sim::FaultPlan& plan) { plan.lateBy = 1500ms; }),
    };
}

bool IsStatusQuery(const std::string& command) { return !command.empty() && command[0] == 'S'; }

std::size_t Occurrences(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

// What is wrong with a finished run; empty when nothing is.
std::string Verdict(const nlohmann::json& job, const std::string& paper) {
    if (!job.is_object() || job.value("state", "") != "done") {
        return "job " + (job.is_object()
                             ? job.value("state", "?") + ": " + job.value("evidence", "")
                             : std::string("unreadable"));
    }
    const std::size_t invoices =
        Occurrences(paper, "FACTURA") - Occurrences(paper, "FACTURA AFECTADA");
    if (invoices != 1) return std::to_string(invoices) + " invoices on the paper";
    for (const char* item : kItems) {
        if (Occurrences(paper, item) != 1)
            return std::string(item) + " printed " + std::to_string(Occurrences(paper, item)) +
                   " times";
    }
    // A subtotal line the printer cannot report is never sent again: at most one.
    if (Occurrences(paper, "SUBTOTAL") > 1) return "the subtotal printed twice";
    if (paper.find("372,51") == std::string::npos) return "no total 372,51";
    char number[16];
    std::snprintf(number, sizeof number, "%08lld", job["document_number"].get<long long>());
    if (paper.find(number) == std::string::npos)
        return "the paper has no document " + std::string(number);
    return "";
}

class PrintServiceChaos : public ::testing::Test {
  protected:
    // Runs the sale once; `arm` may set faults first.
    std::string RunSale(const std::string& cell, const Chaos* chaos, int step, const StepMark& mark,
                        sim::Simulator& printer, nlohmann::json* finished = nullptr) {
        printer.Start();
        if (chaos) chaos->arm(printer, step, mark);
        ServiceProcess service(printer.SlavePath(), folder_.path() / cell);
        service.Start();
        const Reply posted = Post(service.target(), "sale-" + cell, SampleSaleJob());
        if (posted.status != 202) return "post answered " + std::to_string(posted.status);
        if (chaos && chaos->killed) {
            if (!printer.WaitForAcceptedBlocks(mark.blocksBefore + 1, 20s))
                return "block never came";
            service.Kill();
            // Proof that it died in the middle of the step: the journal on disk says so.
            const auto record =
                service::Journal(folder_.path() / cell / "data").Find(posted.body["id"]);
            if (!record || record->state != service::JobState::kPrinting ||
                record->steps.at(static_cast<std::size_t>(step)).state != service::StepState::kSent)
                return "the service was not killed in the middle of the step";
            service.Start();
        }
        const nlohmann::json job = AwaitEnd(service.target(), posted.body["id"], 60s);
        if (chaos && !chaos->spent(printer)) return "the fault never happened";
        if (finished) *finished = job;
        return Verdict(job, printer.PaperText());
    }

    std::vector<StepMark> MarkSteps() {
        sim::Simulator printer;
        nlohmann::json job;
        const std::string verdict = RunSale("clean", nullptr, 0, {}, printer, &job);
        EXPECT_EQ(verdict, "");
        std::vector<StepMark> marks;
        int blocks = 0, status = 0;
        for (const Entry& e : printer.transcript().Entries()) {
            if (e.what == Entry::What::StatusReply) ++status;
            if (e.what != Entry::What::Block) continue;
            if (!IsStatusQuery(e.command)) marks.push_back({"", blocks, status});
            ++blocks;
        }
        const auto& steps = job["steps"];
        EXPECT_EQ(marks.size(), steps.size());
        for (std::size_t i = 0; i < std::min(marks.size(), steps.size()); ++i) {
            marks[i].what = std::to_string(i + 1) + " " + steps[i]["kind"].get<std::string>();
        }
        return marks;
    }

    test_support::TempFolder folder_;
};

TEST_F(PrintServiceChaos, EveryRunEndsWithExactlyOneReceipt) {
    const std::vector<StepMark> marks = MarkSteps();
    ASSERT_FALSE(marks.empty());
    const std::vector<Chaos> chaoses = Chaoses();
    // Each cell has its own printer, service and journal; most of a cell is waiting, so a
    // few run at once.
    std::vector<std::string> verdicts(marks.size() * chaoses.size());
    std::atomic<std::size_t> next{0};
    std::vector<std::thread> runners;
    for (int r = 0; r < 4; ++r) {
        runners.emplace_back([&] {
            for (std::size_t cell = next++; cell < verdicts.size(); cell = next++) {
                const std::size_t step = cell / chaoses.size();
                const Chaos& chaos = chaoses[cell % chaoses.size()];
                sim::Simulator printer;
                verdicts[cell] = RunSale(std::to_string(cell), &chaos, static_cast<int>(step),
                                         marks[step], printer);
            }
        });
    }
    for (std::thread& runner : runners) runner.join();
    std::ostringstream table;
    table << "Print service under chaos: the sample sale, one run per cell (ok: done, one "
             "receipt, each item once)\n"
          << std::string(30, ' ');
    for (const Chaos& chaos : chaoses) table << std::left << std::setw(11) << chaos.name;
    table << "\n";
    for (std::size_t step = 0; step < marks.size(); ++step) {
        table << std::left << std::setw(30) << marks[step].what;
        for (std::size_t c = 0; c < chaoses.size(); ++c) {
            const std::string& verdict = verdicts[step * chaoses.size() + c];
            EXPECT_EQ(verdict, "")
                << chaoses[c].name << " at step " << step + 1 << " (" << marks[step].what << ")";
            table << std::setw(11) << (verdict.empty() ? "ok" : "FAIL");
        }
        table << "\n";
    }
    std::ofstream(CORVID_CHAOS_TABLE) << table.str();
}

}  // namespace
}  // namespace corvid::e2e
