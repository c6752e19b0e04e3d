// The dashboard once signed in: what it knows of printers and jobs, kept current by the
// client's events, and drawn again from that knowledge (so a language switch redraws too).

import { CorvidClient, CorvidError } from "../corvid-client.js";
import { t } from "../i18n.js";
import { coalesced, replaceChildren, el } from "./dom.js";
import { printerCard } from "./printers.js";
import { journalHeader, journalRow, jobDetail } from "./journal.js";
import { closingSummary } from "./closing.js";

const $ = (id) => document.getElementById(id);
const ENDED = new Set(["done", "failed", "cancelled", "attention"]);
const PAGE = 500;

export class Board {
  constructor(client, { onUnauthorised }) {
    this.client = client;
    this.onUnauthorised = onUnauthorised;
    this.printers = [];
    this.statuses = new Map();
    this.statusLoaders = new Map();
    this.jobs = new Map();
    this.detailId = null;
    this.closing = null;
    this.online = true;
    this.loadPaper = coalesced(() => this.fetchPaper());
    this.loadPrinterList = coalesced(async () => {
      this.printers = await this.ask(() => this.client.printers());
      this.renderPrinters();
      this.renderChoice();
    });
    this.unsubscribe = [
      client.on("job", (job) => this.onJob(job)),
      client.on("printer", (printer) => this.onPrinter(printer)),
      client.on("connection", ({ connected }) => this.onConnection(connected)),
    ];
  }

  close() {
    for (const off of this.unsubscribe) if (typeof off === "function") off();
    this.client.close();
  }

  // Every answer goes through here: a refused token sends the person back to sign in.
  async ask(call) {
    try {
      return await call();
    } catch (error) {
      if (error instanceof CorvidError && error.status === 401) this.onUnauthorised(error);
      throw error;
    }
  }

  async refresh() {
    await Promise.all([this.loadPrinters(), this.loadJobs()]);
  }

  async loadPrinters() {
    await this.loadPrinterList();
    await Promise.allSettled([...this.printers.map((p) => this.loadStatus(p.id)), this.loadPaper()]);
  }

  loadStatus(printer) {
    if (!this.statusLoaders.has(printer)) {
      this.statusLoaders.set(
        printer,
        coalesced(async () => {
          this.statuses.set(printer, await this.ask(() => this.client.status(printer)));
          this.renderPrinters();
        }),
      );
    }
    return this.statusLoaders.get(printer)().catch(report);
  }

  async loadJobs() {
    const since = localMidnight().toISOString();
    const found = new Map();
    let before;
    do {
      const page = await this.ask(() => this.client.jobs({ since, limit: PAGE, before }));
      for (const job of page.jobs) found.set(job.id, job);
      before = page.next;
    } while (before !== null && before !== undefined);
    this.jobs = found;
    this.renderJournal();
  }

  chosenPrinter() {
    return this.printers.find((p) => p.id === $("printer-choice").value) || this.printers[0];
  }

  async fetchPaper() {
    const printer = this.chosenPrinter();
    $("paper-section").hidden = !printer?.paper;
    if (!printer?.paper) return;
    const answer = await this.ask(() => this.client.paper(printer.id));
    const view = $("paper");
    view.textContent = answer.text;
    view.scrollTop = view.scrollHeight;
  }

  onJob(job) {
    if (!job || job.id === undefined) return;
    this.jobs.set(job.id, job);
    this.renderJournal();
    if (this.detailId === job.id) this.renderDetail(job);
    if (job.printer === this.chosenPrinter()?.id) this.loadPaper().catch(report);
    if (ENDED.has(job.state)) {
      // A job's end changes the queue and the day's figures; no printer event says so.
      this.loadPrinterList().catch(report);
      this.loadStatus(job.printer);
    }
  }

  onPrinter(printer) {
    if (!printer || printer.id === undefined) return;
    const at = this.printers.findIndex((p) => p.id === printer.id);
    if (at < 0) this.printers.push(printer);
    else this.printers[at] = { ...this.printers[at], ...printer };
    this.renderPrinters();
  }

  onConnection(up) {
    const wasDown = !this.online;
    this.online = up;
    $("banner-offline").hidden = up;
    if (up && wasDown) this.refresh().catch(report);
    // A stream refused for a removed token looks like a drop: one call tells them apart.
    if (!up) this.ask(() => this.client.printers()).catch(() => {});
  }

  render() {
    this.renderPrinters();
    this.renderJournal(true);
    const open = this.jobs.get(this.detailId);
    if (open) this.renderDetail(open);
    if (this.closing) this.showClosing(this.closing);
  }

  renderPrinters() {
    if (this.printers.length === 0) {
      replaceChildren($("printers"), el("p", { class: "hint", text: t("printers.none") }));
      return;
    }
    replaceChildren($("printers"), this.printers.map((p) => printerCard(p, this.statuses.get(p.id))));
  }

  renderChoice() {
    const choice = $("printer-choice");
    const kept = choice.value;
    replaceChildren(choice, this.printers.map((p) => el("option", { value: p.id, text: p.id })));
    if (this.printers.some((p) => p.id === kept)) choice.value = kept;
    choice.hidden = this.printers.length < 2;
  }

  // A row is drawn again only when its job changed (or the language did), so the row a
  // person is about to click stays the same element while other jobs print.
  renderJournal(redrawAll = false) {
    const table = $("jobs");
    if (redrawAll || !table.tHead.rows.length) replaceChildren(table.tHead, journalHeader());
    const newestFirst = [...this.jobs.values()].sort((a, b) => b.id - a.id);
    const rows = new Map();
    for (const job of newestFirst) {
      const drawn = this.rows?.get(job.id);
      rows.set(job.id, { job, row: drawn && drawn.job === job && !redrawAll ? drawn.row : journalRow(job) });
    }
    this.rows = rows;
    replaceChildren(table.tBodies[0], [...rows.values()].map((drawn) => drawn.row));
    $("jobs-empty").hidden = newestFirst.length > 0;
  }

  async openDetail(id) {
    this.detailId = id;
    const known = this.jobs.get(id);
    if (known) this.renderDetail(known);
    const dialog = $("job-detail");
    if (!dialog.open) dialog.showModal();
    const fresh = await this.ask(() => this.client.job(id));
    this.jobs.set(id, fresh);
    if (this.detailId === id) this.renderDetail(fresh);
  }

  renderDetail(job) {
    replaceChildren($("job-detail-body"), jobDetail(job));
  }

  async resolve(id, as) {
    try {
      this.onJob(await this.ask(() => this.client.resolve(id, as)));
    } catch (error) {
      const box = $("resolve-error");
      if (box) {
        box.textContent = t("detail.resolve-failed", { message: messageOf(error) });
        box.hidden = false;
      }
    }
  }

  // Prints a report on the chosen printer and waits for its end; a Z report then shows
  // the closing's summary as the printer reports it.
  async runReport(type) {
    const printer = this.chosenPrinter();
    if (!printer) return;
    const status = $("report-status");
    status.textContent = t("reports.running", { type: t("type." + type) });
    status.hidden = false;
    try {
      const job = await this.ask(() => this.client.print({ printer: printer.id, type }, { key: CorvidClient.newKey() }));
      this.onJob(job);
      if (job.state !== "done") throw new Error(job.error?.DescripcionError || t("state." + job.state));
      status.hidden = true;
      if (type === "report-z") await this.loadClosing(printer.id);
    } catch (error) {
      status.textContent = t("reports.failed", { message: messageOf(error) });
    }
  }

  async loadClosing(printer) {
    const answer = await this.ask(() => this.client.status(printer));
    const closing = answer.Closing || answer.view?.Closing;
    if (closing) this.showClosing(closing);
  }

  showClosing(closing) {
    this.closing = closing;
    const box = $("z-summary");
    replaceChildren(box, closingSummary(closing));
    box.hidden = false;
  }
}

function localMidnight() {
  const now = new Date();
  return new Date(now.getFullYear(), now.getMonth(), now.getDate());
}

export function messageOf(error) {
  return error?.body?.error?.message || error?.message || String(error);
}

function report(error) {
  console.warn("corvid dashboard:", error);
}
