// The dashboard's entry: sign in (a token or a pairing code), the language switch, and the
// wiring of the page's controls to the board.

import { CorvidClient } from "./corvid-client.js";
import { t, translatePage, setLanguage, currentLanguage } from "./i18n.js";
import { Board, messageOf } from "./dashboard/board.js";

const TOKEN_KEY = "corvid.token";
const $ = (id) => document.getElementById(id);
let board = null;

function showLogin(message) {
  if (board) board.close();
  board = null;
  $("dashboard").hidden = true;
  $("logout").hidden = true;
  $("banner-offline").hidden = true;
  $("login").hidden = false;
  const error = $("login-error");
  error.textContent = message || "";
  error.hidden = !message;
}

function enter(token) {
  localStorage.setItem(TOKEN_KEY, token);
  $("login").hidden = true;
  $("dashboard").hidden = false;
  $("logout").hidden = false;
  const client = new CorvidClient(location.origin, { token });
  board = new Board(client, {
    onUnauthorised: (error) => forget(t("login.failed", { message: messageOf(error) })),
  });
  board.refresh().catch((error) => console.warn("corvid dashboard:", error));
}

function forget(message) {
  localStorage.removeItem(TOKEN_KEY);
  showLogin(message);
}

async function pair(event) {
  event.preventDefault();
  const input = $("login-code");
  try {
    const { token } = await CorvidClient.pair(location.origin, input.value.trim());
    input.value = "";
    enter(token);
  } catch (error) {
    showLogin(t("login.failed", { message: messageOf(error) }));
  }
}

function useToken(event) {
  event.preventDefault();
  const input = $("login-token");
  const token = input.value.trim();
  input.value = "";
  if (token) enter(token);
}

function switchLanguage() {
  setLanguage(currentLanguage() === "es" ? "en" : "es");
  translatePage();
  if (board) board.render();
}

function openRow(event) {
  if (event.type === "keydown" && event.key !== "Enter") return;
  const row = event.target.closest("tr[data-job-id]");
  if (row && board) board.openDetail(Number(row.dataset.jobId)).catch((e) => console.warn(e));
}

function wireReports() {
  const dialog = $("z-dialog");
  $("report-x").addEventListener("click", () => board?.runReport("report-x"));
  $("report-z").addEventListener("click", () => dialog.showModal());
  $("z-cancel").addEventListener("click", () => dialog.close());
  $("z-confirm").addEventListener("click", () => {
    dialog.close();
    board?.runReport("report-z");
  });
  $("printer-choice").addEventListener("change", () => board?.loadPaper());
}

function wireDetail() {
  const dialog = $("job-detail");
  dialog.addEventListener("close", () => {
    if (board) board.detailId = null;
  });
  dialog.addEventListener("click", (event) => {
    const button = event.target.closest("button[data-resolve]");
    if (button && board) board.resolve(board.detailId, button.dataset.resolve);
  });
}

function start() {
  translatePage();
  $("login-code-form").addEventListener("submit", pair);
  $("login-token-form").addEventListener("submit", useToken);
  $("logout").addEventListener("click", () => forget());
  $("lang-switch").addEventListener("click", switchLanguage);
  $("jobs").addEventListener("click", openRow);
  $("jobs").addEventListener("keydown", openRow);
  wireReports();
  wireDetail();
  const token = localStorage.getItem(TOKEN_KEY);
  if (token) enter(token);
  else showLogin();
}

start();
