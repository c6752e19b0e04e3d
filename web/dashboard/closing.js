// The summary of the last daily closing (the printer's Z report), from the status' Closing.

import { el, figureList } from "./dom.js";
import { salesRows } from "./printers.js";
import { t, formatAmount } from "../i18n.js";

export function closingSummary(closing) {
  const sales = salesRows(closing.ventas, "sales.");
  const notes = salesRows(closing.notasCredito, "credit.");
  return el(
    "div",
    { class: "closing", "data-closing": String(closing.numeroUltimoZ) },
    el("h3", { text: t("reports.closing", { number: closing.numeroUltimoZ }) }),
    figureList([
      [t("closing.date"), closing.fechaUltimoReporte || "", "fechaUltimoReporte"],
      [t("closing.last-invoice"), closing.numeroUltimaFactura, "numeroUltimaFactura"],
      [t("closing.last-credit-note"), closing.ultimaNC, "ultimaNC"],
    ]),
    el("h4", { text: t("closing.sales") }),
    figureList(sales),
    el("h4", { text: t("closing.credit-notes") }),
    figureList(notes),
    closing.igtf ? figureList([[t("closing.igtf"), formatAmount(closing.igtf.valor), "igtf"]]) : null,
  );
}
