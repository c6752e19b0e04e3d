#include "service/job_json.h"

#include "service/learnt.h"

namespace corvid::service {

nlohmann::json JobJson(const JobRecord& job) {
    nlohmann::json steps = nlohmann::json::array();
    nlohmann::json total = nullptr;
    for (const StepRecord& step : job.steps) {
        if (const auto due = LearntCents(kDueBefore, step.learnt)) {
            total = static_cast<double>(*due) / 100;
        }
        steps.push_back({{"what", step.what},
                         {"kind", step.kind},
                         {"state", NameOf(step.state)},
                         {"learnt", step.learnt}});
    }
    nlohmann::json error = nullptr;
    if (job.error) {
        error = {{"pfError", job.error->pfError},
                 {"DescripcionError", job.error->description},
                 {"status", job.error->status}};
    }
    return {
        {"id", job.id},
        {"key", job.key},
        {"printer", job.printer},
        {"type", job.type},
        {"state", NameOf(job.state)},
        {"created", job.created},
        {"finished", job.finished.empty() ? nlohmann::json(nullptr) : nlohmann::json(job.finished)},
        {"steps", steps},
        {"document_number",
         job.documentNumber ? nlohmann::json(*job.documentNumber) : nlohmann::json(nullptr)},
        {"error", error},
        {"evidence", job.evidence},
        {"total", total}};
}

}  // namespace corvid::service
