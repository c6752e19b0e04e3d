// The journal against a real SQLite file in a fresh folder.
#include "service/journal.h"

#include <gtest/gtest.h>

#include "service/journal_time.h"
#include "support/temp_folder.h"

namespace corvid::service {
namespace {

using test_support::TempFolder;

NewJob Sale(std::string key, std::string printer = "front", std::string body = R"({"n":1})") {
    return {std::move(key), std::move(printer), "sale", std::move(body)};
}

std::vector<std::int64_t> IdsOf(const std::vector<JobRecord>& jobs) {
    std::vector<std::int64_t> ids;
    for (const JobRecord& job : jobs) ids.push_back(job.id);
    return ids;
}

struct AdmitCase {
    const char* name;
    NewJob second;
    Admission::Outcome outcome;
};

class AdmitTwice : public ::testing::TestWithParam<AdmitCase> {};

TEST_P(AdmitTwice, GivesTheFirstJobBack) {
    TempFolder folder;
    Journal journal(folder.path());
    const Admission first = journal.Admit(Sale("k1"));
    ASSERT_EQ(first.outcome, Admission::Outcome::kCreated);
    journal.SetState(first.job.id, JobState::kPrinting);

    const Admission second = journal.Admit(GetParam().second);
    EXPECT_EQ(second.outcome, GetParam().outcome);
    EXPECT_EQ(second.job.id, first.job.id);
    EXPECT_EQ(second.job.state, JobState::kPrinting);
    EXPECT_EQ(second.job.body, R"({"n":1})");
    EXPECT_EQ(journal.List({}).size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, AdmitTwice,
    ::testing::Values(
        AdmitCase{"same_body", Sale("k1"), Admission::Outcome::kSame},
        AdmitCase{"other_body", Sale("k1", "front", R"({"n":2})"), Admission::Outcome::kConflict},
        AdmitCase{"other_printer", Sale("k1", "back"), Admission::Outcome::kConflict}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Journal, KeepsEverythingAcrossReopening) {
    TempFolder folder;
    const auto where = folder.path() / "nested" / "data";
    std::int64_t id = 0;
    {
        Journal journal(where);
        id = journal.Admit(Sale("k1")).job.id;
        journal.SetBaseline(id, R"({"invoice":41})");
        // The command is in the printer's code page, not UTF-8.
        journal.SetSteps(id, {{0, "customer", "customer",
                               "i01PI\xD1"
                               "A",
                               StepState::kPending, ""},
                              {1, "close", "payment", "101", StepState::kPending, ""}});
        journal.SetStepState(id, 0, StepState::kConfirmed, "S2: 0 items");
        journal.SetStepState(id, 1, StepState::kSent, "");
        journal.Finish(id, JobState::kFailed, 42, JobError{3, "papel", "0x60 0x41"}, "why");
        journal.AddToken("till", "hash1");
    }
    Journal journal(where);
    const auto job = journal.Find(id);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->key, "k1");
    EXPECT_EQ(job->printer, "front");
    EXPECT_EQ(job->type, "sale");
    EXPECT_EQ(job->state, JobState::kFailed);
    EXPECT_EQ(job->documentNumber, 42);
    ASSERT_TRUE(job->error);
    EXPECT_EQ(job->error->pfError, 3);
    EXPECT_EQ(job->error->description, "papel");
    EXPECT_EQ(job->error->status, "0x60 0x41");
    EXPECT_EQ(job->evidence, "why");
    EXPECT_EQ(job->baseline, R"({"invoice":41})");
    EXPECT_GE(job->finished, job->created);
    ASSERT_EQ(job->steps.size(), 2u);
    EXPECT_EQ(job->steps[0].command,
              "i01PI\xD1"
              "A");
    EXPECT_EQ(job->steps[0].state, StepState::kConfirmed);
    EXPECT_EQ(job->steps[0].learnt, "S2: 0 items");
    EXPECT_EQ(job->steps[1].kind, "payment");
    EXPECT_EQ(job->steps[1].state, StepState::kSent);
    EXPECT_TRUE(journal.HasTokenHash("hash1"));
    EXPECT_EQ(journal.Admit(Sale("k1")).outcome, Admission::Outcome::kSame);
}

TEST(Journal, ListsNewestFirstWithFiltersAndPages) {
    TempFolder folder;
    Journal journal(folder.path());
    for (const char* key : {"a", "b", "c", "d", "e"}) {
        journal.Admit(Sale(key, std::string(key) < "c" ? "front" : "back"));
    }
    journal.Finish(2, JobState::kDone, 7, std::nullopt, "");
    journal.Finish(4, JobState::kAttention, std::nullopt, std::nullopt, "S2 shows 3 items");
    journal.SetState(5, JobState::kPrinting);
    EXPECT_TRUE(journal.Find(4)->finished.empty());

    struct Case {
        JobQuery query;
        std::vector<std::int64_t> ids;
    };
    JobQuery all, queued, front, page, doneSince, future, unreadable;
    queued.state = JobState::kQueued;
    front.printer = "front";
    page.before = 4;
    page.limit = 2;
    doneSince.since = "2000-01-01T00:00:00-04:00";
    doneSince.state = JobState::kDone;
    future.since = "2999-01-01";
    unreadable.since = "yesterday";
    const Case cases[] = {
        {all, {5, 4, 3, 2, 1}}, {queued, {3, 1}}, {front, {2, 1}},
        {page, {3, 2}},         {doneSince, {2}}, {future, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(IdsOf(journal.List(c.query)), c.ids);
    EXPECT_EQ(journal.Unfinished("back"), (std::vector<std::int64_t>{3, 5}));
    const auto counts = journal.CountByState();
    EXPECT_EQ(counts.at(JobState::kQueued), 2);
    EXPECT_EQ(counts.at(JobState::kFailed), 0);
    EXPECT_THROW(journal.List(unreadable), JournalError);
    EXPECT_THROW(journal.SetState(99, JobState::kDone), JournalError);
}

TEST(Journal, TokensAreReplacedByNameAndRemoved) {
    TempFolder folder;
    Journal journal(folder.path());
    journal.AddToken("till", "old");
    journal.AddToken("till", "new");
    journal.AddToken("office", "other");
    EXPECT_FALSE(journal.HasTokenHash("old"));
    EXPECT_TRUE(journal.HasTokenHash("new"));
    ASSERT_EQ(journal.Tokens().size(), 2u);
    EXPECT_EQ(journal.Tokens()[0].name, "office");
    EXPECT_TRUE(journal.RemoveToken("till"));
    EXPECT_FALSE(journal.RemoveToken("till"));
    EXPECT_FALSE(journal.HasTokenHash("new"));
}

TEST(Journal, APairingCodeWorksOnceAndNotWhenStaleOrGuessedAt) {
    TempFolder folder;
    Journal journal(folder.path());
    journal.AddPairing("fresh", "till", std::chrono::minutes(5));
    journal.AddPairing("stale", "till", std::chrono::seconds(-1));
    EXPECT_EQ(journal.ClaimPairing("fresh"), "till");
    EXPECT_EQ(journal.ClaimPairing("fresh"), std::nullopt);
    EXPECT_EQ(journal.ClaimPairing("stale"), std::nullopt);
    // Two wrong codes so far; eight more void the code that was still good.
    journal.AddPairing("pending", "office", std::chrono::minutes(5));
    for (int guess = 0; guess < 8; ++guess) EXPECT_EQ(journal.ClaimPairing("guess"), std::nullopt);
    EXPECT_EQ(journal.ClaimPairing("pending"), std::nullopt);
}

TEST(Journal, ABrokenFileIsAJournalError) {
    TempFolder folder;
    folder.Write("journal.db", std::string(4096, 'x'));
    EXPECT_THROW(Journal{folder.path()}, JournalError);
}

TEST(JournalTime, WritesTimesInUtcToTheMillisecond) {
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"2026-11-24", "2026-11-24T00:00:00.000Z"},
        {"2026-11-24T06:15:02.5-04:00", "2026-11-24T10:15:02.500Z"},
        {"2026-11-24T23:30+01:00", "2026-11-24T22:30:00.000Z"},
        {"2026-12-31T22:00:00Z", "2026-12-31T22:00:00.000Z"},
        {"2026-02-30", std::nullopt},
        {"2026-11-24T25:00", std::nullopt},
        {"2026-11-24T10:00Zjunk", std::nullopt},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(NormalizedUtcTime(text), expected) << text;
}

}  // namespace
}  // namespace corvid::service
