// One card per printer: on or off line, its status in words, and the day's figures from
// the printer's own counters (S1), the day so far (U0X) and the payments by means (S4).

import { el, figureList } from "./dom.js";
import { t, formatAmount } from "../i18n.js";

export function printerCard(printer, status) {
  const online = Boolean(printer.online);
  // The status names the model in words; the printer list only by its number.
  const identity = (status?.busy ? status.view?.Status : status?.Status) || {};
  return el(
    "article",
    { class: "card printer-card", "data-printer": printer.id },
    el(
      "header",
      { class: "card-head" },
      el("h3", { text: printer.id }),
      el("span", {
        class: "badge " + (online ? "badge-online" : "badge-offline"),
        "data-online": String(online),
        text: t(online ? "printer.online" : "printer.offline"),
      }),
    ),
    el("p", { class: "status-text", text: printer.status_text || "" }),
    figureList(
      [
        [t("printer.serial"), identity.Serial || printer.serial || "", "serial"],
        [t("printer.model"), identity.model || printer.model || "", "model"],
        [t("printer.queue"), String(printer.queue ?? 0), "queue"],
      ],
      "figures facts",
    ),
    statusPart(status),
  );
}

function statusPart(status) {
  if (!status) return null;
  if (status.error) {
    const message = status.error.DescripcionError || status.error.pfError || "";
    return el("p", { class: "notice notice-error", text: t("printer.unanswered", { message }) });
  }
  const view = status.busy ? status.view || {} : status;
  return el(
    "div",
    { class: "day" },
    status.busy ? el("p", { class: "notice", text: t("printer.busy") }) : null,
    el("h4", { text: t("printer.day") }),
    counters(view.S1),
    dayTotals(view.Day),
    means(view.S4),
  );
}

function counters(s1) {
  if (!s1) return null;
  return figureList([
    [t("printer.invoices"), s1.facturasDia, "facturasDia"],
    [t("printer.last-invoice"), s1.numeroUltimaFactura, "numeroUltimaFactura"],
    [t("printer.daily-sales"), formatAmount(s1.totalVentasDiarias), "totalVentasDiarias"],
    [t("printer.credit-notes"), s1.notasCreditoDia, "notasCreditoDia"],
    [t("printer.last-credit-note"), s1.numeroUltimaNC, "numeroUltimaNC"],
    [t("printer.nonfiscal"), s1.ndfDia, "ndfDia"],
    [t("printer.closings"), s1.nCierres, "nCierres"],
  ]);
}

// The sales of the day by rate, as the printer adds them up for its X report.
export function salesRows(sales, prefix = "") {
  if (!sales) return [];
  return [
    [t("printer.exempt"), formatAmount(sales.exento), prefix + "exento"],
    [t("printer.base-general"), formatAmount(sales.baseGeneral), prefix + "baseGeneral"],
    [t("printer.tax-general"), formatAmount(sales.ivaGeneral), prefix + "ivaGeneral"],
    [t("printer.base-reduced"), formatAmount(sales.baseReducida), prefix + "baseReducida"],
    [t("printer.tax-reduced"), formatAmount(sales.ivaReducida), prefix + "ivaReducida"],
    [t("printer.base-additional"), formatAmount(sales.baseAdicional), prefix + "baseAdicional"],
    [t("printer.tax-additional"), formatAmount(sales.ivaAdicional), prefix + "ivaAdicional"],
  ];
}

function dayTotals(day) {
  if (!day) return null;
  const rows = salesRows(day.ventas, "day.");
  if (day.igtf) rows.push([t("printer.igtf"), formatAmount(day.igtf.valor), "day.igtf"]);
  return figureList(rows);
}

function means(s4) {
  const amounts = s4?.medios || [];
  const rows = [];
  amounts.forEach((amount, index) => {
    if (Number(amount) !== 0) {
      rows.push([t("printer.means-n", { n: index + 1 }), formatAmount(amount), "means." + (index + 1)]);
    }
  });
  if (rows.length === 0) return null;
  return el("div", { class: "means" }, el("h4", { text: t("printer.means") }), figureList(rows));
}
