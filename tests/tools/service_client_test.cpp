// What the tool shows of a job it follows on a print service.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "corvid/job_progress.h"

namespace corvid::tool {
namespace {

using nlohmann::json;

json Job(const std::string& state, const std::vector<const char*>& stepStates) {
    json steps = json::array();
    for (std::size_t i = 0; i < stepStates.size(); ++i)
        steps.push_back({{"what", "step " + std::to_string(i + 1)}, {"state", stepStates[i]}});
    return {{"id", 12},
            {"state", state},
            {"steps", steps},
            {"document_number", state == "done" ? json(457) : json()},
            {"error", state == "failed" ? json{{"pfError", 3},
                                               {"DescripcionError", "Se recibió NAK"},
                                               {"status", "En factura"}}
                                        : json()},
            {"evidence", state == "attention" ? "S2 shows 2 items, the journal 3" : ""}};
}

TEST(JobProgress, EachConfirmedStepIsShownOnceInOrderThenTheOutcome) {
    const json printing = Job("printing", {"confirmed", "sent", "pending"});
    struct Row {
        json last;
        std::string tail;
        int exitCode;
    };
    const Row rows[] = {
        {Job("done", {"confirmed", "confirmed", "confirmed"}),
         "  ok       step 2\n  ok       step 3\nAccepted: 3 steps; job 12, document number 457.\n",
         0},
        {Job("failed", {"confirmed", "sent", "pending"}),
         "  FAILED   step 2\n           printer: Se recibió NAK (pfError 3)\n"
         "           status:  En factura\nJob 12 failed.\n",
         1},
        {Job("attention", {"confirmed", "confirmed", "sent"}),
         "  ok       step 2\n  CHECK    step 3\n           the printer cannot tell what "
         "happened: S2 shows 2 items, the journal 3\n",
         1},
    };
    for (const Row& row : rows) {
        std::ostringstream out;
        JobProgress progress(out);
        progress.Update(Job("queued", {"pending", "pending", "pending"}));
        // An event may come twice (the WebSocket and a poll): each step is shown once.
        progress.Update(printing);
        progress.Update(printing);
        EXPECT_FALSE(progress.exitCode());
        progress.Update(row.last);
        progress.Update(row.last);
        EXPECT_THAT(out.str(), ::testing::StartsWith("  ok       step 1\n" + row.tail));
        EXPECT_EQ(progress.exitCode(), row.exitCode);
    }
}

}  // namespace
}  // namespace corvid::tool
