#include "service/metrics.h"

#include <gtest/gtest.h>

#include <regex>

#include "service/tokens.h"

namespace corvid::service {
namespace {

TEST(Metrics, RendersAKnownStateInThePrometheusFormat) {
    Metrics metrics;
    for (double seconds : {0.005, 0.3, 20.0}) metrics.ObserveExchange(seconds);
    metrics.CountLineFault("front", "nak");
    metrics.CountLineFault("front", "nak");
    metrics.CountLineFault("back\"2", "power");
    std::string text =
        metrics.Render({{JobState::kDone, 3}}, {{"front", 2, true}, {"back\"2", 0, false}});
    for (const char* line :
         {"# TYPE corvid_jobs gauge", "corvid_jobs{state=\"done\"} 3",
          "corvid_jobs{state=\"queued\"} 0", "corvid_queue_length{printer=\"front\"} 2",
          "corvid_printer_online{printer=\"front\"} 1",
          "corvid_printer_online{printer=\"back\\\"2\"} 0",
          "# TYPE corvid_exchange_seconds histogram",
          "corvid_exchange_seconds_bucket{le=\"0.005\"} 1",
          "corvid_exchange_seconds_bucket{le=\"0.25\"} 1",
          "corvid_exchange_seconds_bucket{le=\"0.5\"} 2",
          "corvid_exchange_seconds_bucket{le=\"10\"} 2",
          "corvid_exchange_seconds_bucket{le=\"+Inf\"} 3", "corvid_exchange_seconds_sum 20.305",
          "corvid_exchange_seconds_count 3",
          "corvid_line_faults_total{printer=\"front\",kind=\"nak\"} 2",
          "corvid_line_faults_total{printer=\"back\\\"2\",kind=\"power\"} 1"})
        EXPECT_NE(("\n" + text).find("\n" + std::string(line) + "\n"), std::string::npos)
            << line << " missing from\n"
            << text;
}

TEST(Tokens, AreFreshRandomHexAndHashWithSha256) {
    EXPECT_EQ(TokenHash("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    std::string a = NewToken(), b = NewToken();
    EXPECT_TRUE(std::regex_match(a, std::regex("[0-9a-f]{64}"))) << a;
    EXPECT_NE(a, b);
}

}  // namespace
}  // namespace corvid::service
