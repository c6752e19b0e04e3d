// The journal of the day as table rows, and one job opened: its steps, its error in the
// printer's words, its evidence, and for a job in attention the two ways to settle it.

import { el } from "./dom.js";
import { t, formatAmount, formatTime } from "../i18n.js";

const COLUMNS = ["id", "time", "state", "key", "type", "total", "number"];

export function journalHeader() {
  return el("tr", {}, COLUMNS.map((name) => el("th", { scope: "col", text: t("journal." + name) })));
}

export function journalRow(job) {
  const cells = {
    id: String(job.id),
    time: formatTime(job.created),
    state: stateBadge(job.state),
    key: job.key,
    type: t("type." + job.type),
    total: job.total === null || job.total === undefined ? "" : formatAmount(job.total),
    number: job.document_number ?? "",
  };
  return el(
    "tr",
    { "data-job-id": String(job.id), "data-state": job.state, tabindex: "0", class: "job-row" },
    COLUMNS.map((name) =>
      el("td", { class: "col-" + name, "data-label": t("journal." + name) }, cells[name]),
    ),
  );
}

export function stateBadge(state) {
  return el("span", { class: "state state-" + state, "data-state": state, text: t("state." + state) });
}

export function jobDetail(job) {
  return el(
    "div",
    { class: "detail", "data-job-id": String(job.id) },
    el(
      "header",
      { class: "card-head" },
      el("h2", { text: t("detail.heading", { id: job.id }) }),
      stateBadge(job.state),
    ),
    el("p", { class: "detail-meta" }, [t("type." + job.type), job.key, job.printer].join(" · ")),
    job.state === "attention" ? attention() : null,
    job.error ? errorPart(job.error) : null,
    job.evidence ? evidencePart(job.evidence) : null,
    stepsPart(job.steps || []),
  );
}

function attention() {
  return el(
    "div",
    { class: "attention", id: "job-attention" },
    el("p", { text: t("detail.attention") }),
    el(
      "div",
      { class: "actions" },
      el("button", { type: "button", class: "good", "data-resolve": "done", text: t("detail.printed") }),
      el("button", { type: "button", class: "bad", "data-resolve": "failed", text: t("detail.not-printed") }),
    ),
    el("p", { class: "notice notice-error", id: "resolve-error", hidden: true }),
  );
}

function errorPart(error) {
  const words = [error.DescripcionError, error.pfError !== undefined ? "pfError " + error.pfError : null, error.status]
    .filter((part) => part !== null && part !== undefined && part !== "")
    .join(" · ");
  return el("section", { id: "job-error" }, el("h3", { text: t("detail.error") }), el("p", { class: "notice notice-error", text: words }));
}

// Evidence is text; when it is JSON (the printer's state as read), it is shown indented.
function evidencePart(evidence) {
  let text = typeof evidence === "string" ? evidence : JSON.stringify(evidence);
  try {
    text = JSON.stringify(JSON.parse(text), null, 2);
  } catch {
    // prose stays as it is
  }
  return el("section", {}, el("h3", { text: t("detail.evidence") }), el("pre", { id: "job-evidence", class: "evidence", text }));
}

function stepsPart(steps) {
  return el(
    "section",
    {},
    el("h3", { text: t("detail.steps") }),
    el(
      "table",
      { id: "job-steps", class: "steps" },
      el("thead", {}, el("tr", {}, [t("detail.what"), t("journal.state"), t("detail.learnt")].map((text) => el("th", { text })))),
      el(
        "tbody",
        {},
        steps.map((step) =>
          el(
            "tr",
            { "data-step-state": step.state },
            el("td", { "data-label": t("detail.what"), text: step.what }),
            el("td", { "data-label": t("journal.state") }, stateBadge(step.state)),
            el("td", { "data-label": t("detail.learnt"), text: step.learnt || "" }),
          ),
        ),
      ),
    ),
  );
}
