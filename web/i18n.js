// Every text the dashboard shows, in Spanish and English. The browser's language picks
// at first; the switch's choice is kept in localStorage.

const TEXTS = {
  en: {
    title: "Corvid print service",
    "login.heading": "Sign in",
    "login.token": "Token",
    "login.token-submit": "Use this token",
    "login.code": "Pairing code",
    "login.code-hint": "Six digits from: corvid token pair NAME",
    "login.code-submit": "Pair",
    "login.failed": "Sign-in refused: {message}",
    "login.paired": "Paired as {name}",
    logout: "Log out",
    "lang.switch": "Español",
    "banner.offline": "The print service is unreachable: reconnecting…",
    "printers.heading": "Printers",
    "printers.none": "No printers.",
    "printer.online": "online",
    "printer.offline": "offline",
    "printer.busy": "printing: figures after this job",
    "printer.unanswered": "The printer did not answer: {message}",
    "printer.serial": "Serial",
    "printer.model": "Model",
    "printer.queue": "Queue",
    "printer.status": "Status",
    "printer.day": "Today",
    "printer.invoices": "Invoices today",
    "printer.last-invoice": "Last invoice",
    "printer.daily-sales": "Daily sales",
    "printer.credit-notes": "Credit notes today",
    "printer.last-credit-note": "Last credit note",
    "printer.nonfiscal": "Non-fiscal documents today",
    "printer.closings": "Closings",
    "printer.exempt": "Exempt",
    "printer.base-general": "Base, general rate",
    "printer.tax-general": "Tax, general rate",
    "printer.base-reduced": "Base, reduced rate",
    "printer.tax-reduced": "Tax, reduced rate",
    "printer.base-additional": "Base, additional rate",
    "printer.tax-additional": "Tax, additional rate",
    "printer.igtf": "IGTF",
    "printer.means": "Payments by means",
    "printer.means-n": "Means {n}",
    "reports.x": "X report",
    "reports.z": "Z report",
    "reports.z-question": "Close the fiscal day with a Z report? This cannot be undone.",
    "reports.z-confirm": "Print the Z report",
    "reports.cancel": "Cancel",
    "reports.running": "Printing {type}…",
    "reports.failed": "The report did not print: {message}",
    "reports.closing": "Closing no. {number}",
    "closing.date": "Date",
    "closing.last-invoice": "Last invoice",
    "closing.last-credit-note": "Last credit note",
    "closing.sales": "Sales",
    "closing.credit-notes": "Credit notes",
    "closing.igtf": "IGTF",
    "paper.heading": "Paper roll",
    "journal.heading": "Today's journal",
    "journal.empty": "No jobs today.",
    "journal.id": "No.",
    "journal.time": "Time",
    "journal.state": "State",
    "journal.key": "Key",
    "journal.type": "Type",
    "journal.total": "Total",
    "journal.number": "Document",
    "detail.heading": "Job {id}",
    "detail.close": "Close",
    "detail.steps": "Steps",
    "detail.what": "What",
    "detail.learnt": "Learnt from the printer",
    "detail.error": "Error",
    "detail.evidence": "Evidence",
    "detail.attention": "The printer cannot tell whether this document printed. Look at the paper, then say:",
    "detail.printed": "It printed",
    "detail.not-printed": "It did not print",
    "detail.resolve-failed": "Could not resolve: {message}",
    "state.queued": "queued",
    "state.printing": "printing",
    "state.done": "done",
    "state.failed": "failed",
    "state.cancelled": "cancelled",
    "state.attention": "attention",
    "state.confirmed": "confirmed",
    "state.sent": "sent",
    "state.pending": "pending",
    "type.sale": "sale",
    "type.credit-note": "credit note",
    "type.nonfiscal": "non-fiscal text",
    "type.report-x": "X report",
    "type.report-z": "Z report",
  },
  es: {
    title: "Servicio de impresión Corvid",
    "login.heading": "Entrar",
    "login.token": "Token",
    "login.token-submit": "Usar este token",
    "login.code": "Código de enlace",
    "login.code-hint": "Seis dígitos de: corvid token pair NOMBRE",
    "login.code-submit": "Enlazar",
    "login.failed": "Entrada rechazada: {message}",
    "login.paired": "Enlazado como {name}",
    logout: "Salir",
    "lang.switch": "English",
    "banner.offline": "No se alcanza el servicio de impresión: reconectando…",
    "printers.heading": "Impresoras",
    "printers.none": "No hay impresoras.",
    "printer.online": "en línea",
    "printer.offline": "fuera de línea",
    "printer.busy": "imprimiendo: cifras tras este trabajo",
    "printer.unanswered": "La impresora no respondió: {message}",
    "printer.serial": "Serial",
    "printer.model": "Modelo",
    "printer.queue": "En cola",
    "printer.status": "Estado",
    "printer.day": "Hoy",
    "printer.invoices": "Facturas del día",
    "printer.last-invoice": "Última factura",
    "printer.daily-sales": "Ventas del día",
    "printer.credit-notes": "Notas de crédito del día",
    "printer.last-credit-note": "Última nota de crédito",
    "printer.nonfiscal": "Documentos no fiscales del día",
    "printer.closings": "Cierres",
    "printer.exempt": "Exento",
    "printer.base-general": "Base, tasa general",
    "printer.tax-general": "IVA, tasa general",
    "printer.base-reduced": "Base, tasa reducida",
    "printer.tax-reduced": "IVA, tasa reducida",
    "printer.base-additional": "Base, tasa adicional",
    "printer.tax-additional": "IVA, tasa adicional",
    "printer.igtf": "IGTF",
    "printer.means": "Pagos por medio",
    "printer.means-n": "Medio {n}",
    "reports.x": "Reporte X",
    "reports.z": "Reporte Z",
    "reports.z-question": "¿Cerrar el día fiscal con un reporte Z? No se puede deshacer.",
    "reports.z-confirm": "Imprimir el reporte Z",
    "reports.cancel": "Cancelar",
    "reports.running": "Imprimiendo {type}…",
    "reports.failed": "El reporte no se imprimió: {message}",
    "reports.closing": "Cierre n.º {number}",
    "closing.date": "Fecha",
    "closing.last-invoice": "Última factura",
    "closing.last-credit-note": "Última nota de crédito",
    "closing.sales": "Ventas",
    "closing.credit-notes": "Notas de crédito",
    "closing.igtf": "IGTF",
    "paper.heading": "Rollo de papel",
    "journal.heading": "Diario de hoy",
    "journal.empty": "No hay trabajos hoy.",
    "journal.id": "N.º",
    "journal.time": "Hora",
    "journal.state": "Estado",
    "journal.key": "Clave",
    "journal.type": "Tipo",
    "journal.total": "Total",
    "journal.number": "Documento",
    "detail.heading": "Trabajo {id}",
    "detail.close": "Cerrar",
    "detail.steps": "Pasos",
    "detail.what": "Qué",
    "detail.learnt": "Lo que dijo la impresora",
    "detail.error": "Error",
    "detail.evidence": "Evidencia",
    "detail.attention": "La impresora no puede decir si este documento se imprimió. Mire el papel y diga:",
    "detail.printed": "Se imprimió",
    "detail.not-printed": "No se imprimió",
    "detail.resolve-failed": "No se pudo resolver: {message}",
    "state.queued": "en cola",
    "state.printing": "imprimiendo",
    "state.done": "hecho",
    "state.failed": "fallido",
    "state.cancelled": "anulado",
    "state.attention": "atención",
    "state.confirmed": "confirmado",
    "state.sent": "enviado",
    "state.pending": "pendiente",
    "type.sale": "venta",
    "type.credit-note": "nota de crédito",
    "type.nonfiscal": "texto no fiscal",
    "type.report-x": "reporte X",
    "type.report-z": "reporte Z",
  },
};

const STORE_KEY = "corvid.lang";
let language = pickLanguage();

function pickLanguage() {
  const kept = localStorage.getItem(STORE_KEY);
  if (kept && TEXTS[kept]) return kept;
  return (navigator.language || "en").toLowerCase().startsWith("es") ? "es" : "en";
}

export function currentLanguage() {
  return language;
}

export function setLanguage(next) {
  language = TEXTS[next] ? next : "en";
  localStorage.setItem(STORE_KEY, language);
  document.documentElement.lang = language;
}

// t("login.failed", {message}) -> the text in the current language, placeholders filled.
// An unknown key shows itself, so a missing text is visible rather than blank.
export function t(key, values = {}) {
  const text = TEXTS[language][key] ?? TEXTS.en[key] ?? key;
  return text.replace(/\{(\w+)\}/g, (whole, name) => (name in values ? String(values[name]) : whole));
}

// Fills every [data-i18n] element of the page with its text.
export function translatePage(root = document) {
  document.documentElement.lang = language;
  for (const node of root.querySelectorAll("[data-i18n]")) node.textContent = t(node.dataset.i18n);
  for (const node of root.querySelectorAll("[data-i18n-placeholder]")) {
    node.placeholder = t(node.dataset.i18nPlaceholder);
  }
  document.title = t("title");
}

export function formatAmount(value) {
  if (value === null || value === undefined) return "";
  const locale = language === "es" ? "es-VE" : "en-US";
  return Number(value).toLocaleString(locale, { minimumFractionDigits: 2, maximumFractionDigits: 2 });
}

export function formatTime(iso) {
  if (!iso) return "";
  const when = new Date(iso);
  if (Number.isNaN(when.getTime())) return iso;
  return when.toLocaleTimeString(language === "es" ? "es-VE" : "en-GB", { hour12: false });
}
