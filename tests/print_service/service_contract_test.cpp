// `corvid serve` on the simulated printer as its clients see it: one key gives one job and
// one receipt whatever the client repeats, refusals change nothing, and many terminals
// sharing a printer each see their documents printed once, in the order they sent them.
#include <gtest/gtest.h>

#include <thread>

#include "print_service/service_harness.h"
#include "sim/simulator.h"
#include "support/temp_folder.h"

namespace corvid::e2e {
namespace {

using namespace std::chrono_literals;

std::size_t Occurrences(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

std::size_t Invoices(const std::string& paper) {
    return Occurrences(paper, "FACTURA") - Occurrences(paper, "FACTURA AFECTADA");
}

std::size_t JobCount(const tool::ServiceTarget& target) {
    return Get(target, "/v1/jobs?limit=500").body["jobs"].size();
}

// A sale of one item whose description names it, paid in full.
nlohmann::json TaggedSale(const std::string& tag) {
    return {{"type", "sale"},
            {"document",
             {{"items", {{{"description", tag}, {"price", 10}, {"quantity", 1}, {"rate", 16}}}},
              {"payments", {{{"means", 1}, {"amount", 11.6}}}}}}};
}

class PrintServiceContract : public ::testing::Test {
  protected:
    void SetUp() override { printer_.Start(); }

    sim::Simulator printer_;
    test_support::TempFolder folder_;
};

TEST_F(PrintServiceContract, OneKeyGivesOneJobAndOneReceipt) {
    ServiceProcess service(printer_.SlavePath(), folder_.path());
    service.Start();
    const Reply first = Post(service.target(), "till-1/0042", SampleSaleJob());
    ASSERT_EQ(first.status, 202);
    const std::int64_t id = first.body["id"];
    // Again while it is printing, and again after the service was killed and started again.
    const Reply whilePrinting = Post(service.target(), "till-1/0042", SampleSaleJob());
    ASSERT_TRUE(printer_.WaitForAcceptedBlocks(8, 20s));
    service.Kill();
    service.Start();
    const Reply afterRestart = Post(service.target(), "till-1/0042", SampleSaleJob());
    for (const Reply* again : {&whilePrinting, &afterRestart}) {
        EXPECT_EQ(again->status, 200);
        EXPECT_EQ(again->body["id"], id);
    }
    EXPECT_EQ(AwaitEnd(service.target(), id, 30s)["state"], "done");
    EXPECT_EQ(Post(service.target(), "till-1/0042", TaggedSale("other")).status, 409);
    // The tool as a client: the same key follows the same job; a new one prints once more.
    const std::string sample = std::string(CORVID_SAMPLES) + "/sale.json";
    EXPECT_EQ(RunClient(service.target(), {"--key", "till-1/0042", "sale", sample}), 0);
    EXPECT_EQ(RunClient(service.target(), {"--key", "till-1/0043", "sale", sample}), 0);
    // A known key with another document is the caller's mistake: exit status 2, nothing sent.
    EXPECT_EQ(RunClient(service.target(), {"--key", "till-1/0042", "nonfiscal", "otra cosa"}), 2);

    // Refusals queue nothing.
    const std::size_t jobs = JobCount(service.target());
    tool::ServiceTarget stranger = service.target();
    stranger.token = "not-a-token";
    EXPECT_EQ(Post(stranger, "k-401", TaggedSale("x")).status, 401);
    nlohmann::json badPrice = TaggedSale("x");
    badPrice["document"]["items"][0]["price"] = "ten";
    const Reply refused = Post(service.target(), "k-400", badPrice);
    EXPECT_EQ(refused.status, 400);
    EXPECT_NE(refused.body.dump().find("document.items[0].price"), std::string::npos);
    nlohmann::json elsewhere = TaggedSale("x");
    elsewhere["printer"] = "back";
    EXPECT_EQ(Post(service.target(), "k-404", elsewhere).status, 404);
    EXPECT_EQ(JobCount(service.target()), jobs);
    EXPECT_EQ(Invoices(printer_.PaperText()), 2u);
}

// Told to, a restarted service cancels the document a killed one left open.
TEST_F(PrintServiceContract, LeftOpenDocumentCancelledOnRestart) {
    ServiceProcess service(printer_.SlavePath(), folder_.path(), {"--on-open-document", "cancel"});
    service.Start();
    // The second item's ACK is held back: the service dies with the invoice open.
    printer_.ChangeFaults([](sim::FaultPlan& plan) {
        plan.late = {1, sim::kAckReply, 5};
        plan.lateBy = 3000ms;
    });
    const Reply posted = Post(service.target(), "left-open", SampleSaleJob());
    // Killed while it waits for that ACK (the step is sent, its answer not yet seen).
    const std::string path = "/v1/jobs/" + std::to_string(posted.body["id"].get<std::int64_t>());
    const auto giveUp = std::chrono::steady_clock::now() + 20s;
    const auto secondItem = [&] {
        const nlohmann::json steps = Get(service.target(), path).body["steps"];
        return steps.size() > 5 ? steps[5]["state"].get<std::string>() : std::string();
    };
    while (secondItem() != "sent") {
        ASSERT_LT(std::chrono::steady_clock::now(), giveUp);
        std::this_thread::sleep_for(10ms);
    }
    service.Kill();
    service.Start();
    const nlohmann::json job = AwaitEnd(service.target(), posted.body["id"], 30s);
    EXPECT_EQ(job["state"], "failed") << job.dump();
    EXPECT_NE(job["evidence"].get<std::string>().find("cancelled"), std::string::npos);
    const Reply next = Post(service.target(), "next", TaggedSale("after the cancel"));
    EXPECT_EQ(AwaitEnd(service.target(), next.body["id"], 30s)["state"], "done");
}

TEST_F(PrintServiceContract, ManyTerminalsShareOnePrinter) {
    constexpr int kTerminals = 8, kDocuments = 25;
    ServiceProcess service(printer_.SlavePath(), folder_.path());
    service.Start();
    std::vector<std::vector<std::int64_t>> ids(kTerminals);
    std::vector<std::thread> terminals;
    for (int t = 0; t < kTerminals; ++t) {
        terminals.emplace_back([&, t] {
            for (int d = 0; d < kDocuments; ++d) {
                const std::string tag = "T" + std::to_string(t) + " N" + std::to_string(d) + ".";
                const Reply posted = Post(service.target(), tag, TaggedSale(tag));
                if (posted.status == 202) ids[t].push_back(posted.body["id"]);
            }
        });
    }
    for (std::thread& terminal : terminals) terminal.join();
    const std::string paper = [&] {
        for (int t = 0; t < kTerminals; ++t) {
            for (std::int64_t id : ids[t]) AwaitEnd(service.target(), id, 120s);
        }
        return printer_.PaperText();
    }();
    EXPECT_EQ(Invoices(paper), static_cast<std::size_t>(kTerminals * kDocuments));
    for (int t = 0; t < kTerminals; ++t) {
        ASSERT_EQ(ids[t].size(), static_cast<std::size_t>(kDocuments)) << "terminal " << t;
        std::int64_t previous = 0;
        for (int d = 0; d < kDocuments; ++d) {
            const std::string tag = "T" + std::to_string(t) + " N" + std::to_string(d) + ".";
            const nlohmann::json job =
                Get(service.target(), "/v1/jobs/" + std::to_string(ids[t][d])).body;
            EXPECT_EQ(job["state"], "done") << tag;
            const std::int64_t number =
                job["document_number"].is_number() ? job["document_number"].get<std::int64_t>() : 0;
            EXPECT_GT(number, previous) << tag << " printed out of its terminal's order";
            previous = number;
            EXPECT_EQ(Occurrences(paper, tag), 1u) << tag;
        }
    }
}

}  // namespace
}  // namespace corvid::e2e
