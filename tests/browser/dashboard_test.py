"""The dashboard in a real headless Chromium against `corvid serve`: sign-in, the journal
following a job live, a job's steps, the X and Z reports, the paper roll, reconnection,
a job in attention resolved by a person, the narrow width and the Spanish texts. Each
screenshot is also read back with PIL."""

import json
import os
import signal
import subprocess
import sys
import threading
import time
import unittest

from PIL import Image
from selenium.common.exceptions import StaleElementReferenceException
from selenium.webdriver.common.by import By

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from corvid_harness import (SIM, TOOL, BrowserTest, Service, element_box, pixels_in,  # noqa: E402
                            screenshot, wait_for)

SALE = {"items": [{"description": "Item %d" % n, "price": 10 + n, "quantity": 1, "rate": 16}
                  for n in range(1, 13)],
        "payments": [{"means": 1, "amount": 300}]}
SMALL_SALE = {"items": [{"description": "Pan", "price": 5, "quantity": 1, "rate": 16}],
              "payments": [{"means": 1, "amount": 10}]}


def post(service, token, body, key):
    status, job = service.call("POST", "/v1/jobs", token, body, {"Idempotency-Key": key})
    assert status == 202, (status, job)
    return job


class AttentionPrinter:
    """A real job in attention, made in the background while the other tests run: a sale on
    a slow printer, the service killed mid-document, the open invoice cancelled and two
    sales printed straight on the printer; the restarted service cannot tell what became of
    its job."""

    def __init__(self):
        self.service = Service(printers=())
        self.link = os.path.join(self.service.folder, "till")
        self.service.printers = ["till=" + self.link]
        self.sim = subprocess.Popen([SIM, "--link", self.link, "--delay", "100"],
                                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.job, self.error = None, None
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        try:
            deadline = time.monotonic() + 10
            while not os.path.exists(self.link) and time.monotonic() < deadline:
                time.sleep(0.05)
            self.token = self.service.start().token()
            job = post(self.service, self.token, {"type": "sale", "document": SALE}, "till-1")
            self.wait_items_confirmed(job["id"])
            self.service.stop(signal.SIGKILL)
            self.on_printer("send", "7")
            sale_file = os.path.join(self.service.folder, "small.json")
            with open(sale_file, "w") as out:
                json.dump(SMALL_SALE, out)
            self.on_printer("sale", sale_file)
            self.on_printer("sale", sale_file)
            self.service.start()
            self.job = self.service.await_job(self.token, job["id"])
        except Exception as error:  # reported by the test that needs the job
            self.error = error

    def wait_items_confirmed(self, job_id):
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            job = self.service.call("GET", "/v1/jobs/%d" % job_id, self.token)[1]
            if sum(s["kind"] == "item" and s["state"] == "confirmed" for s in job["steps"]) >= 2:
                return
            time.sleep(0.05)
        raise AssertionError("no item of the sale was confirmed")

    def on_printer(self, *words):
        subprocess.run([TOOL, "--port", self.link, *words], cwd=self.service.folder,
                       check=True, capture_output=True, timeout=60)

    def result(self):
        self.thread.join(90)
        if self.error:
            raise self.error
        return self.job

    def close(self):
        self.service.close()
        self.sim.terminate()
        self.sim.wait(10)


def share(png, box, test):
    pixels = pixels_in(png, box)
    return sum(1 for p in pixels if test(p)) / len(pixels)


class DashboardTest(BrowserTest):
    @classmethod
    def setUpClass(cls):
        cls.attention = AttentionPrinter()
        super().setUpClass()

    @classmethod
    def tearDownClass(cls):
        super().tearDownClass()
        cls.attention.close()

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    # Asked in the page in one go: the page redraws its cards and rows on every event.
    def shown(self, selector):
        return self.driver.execute_script(
            "const e = document.querySelector(arguments[0]); return !!e && e.checkVisibility();",
            selector)

    def row_state(self, job_id):
        return self.driver.execute_script(
            "return document.querySelector(arguments[0])?.dataset.state ?? null;",
            '#jobs tbody tr[data-job-id="%d"]' % job_id)

    def text(self, selector):
        return self.driver.execute_script(
            "return document.querySelector(arguments[0])?.innerText ?? null;", selector)

    def click(self, selector):
        for attempt in range(5):
            try:
                return self.find(selector).click()
            except StaleElementReferenceException:
                if attempt == 4:
                    raise

    def pair(self, code):
        field = self.find("#login-code")
        field.clear()
        field.send_keys(code)
        self.click("#login-code-submit")

    def test_1_pairing_code_signs_in_once(self):
        self.driver.get(self.service.url + "/")
        wait_for(self.driver, lambda d: self.shown("#login"))
        code = self.service.tool("token", "pair", "dashboard")
        self.pair(code)
        wait_for(self.driver, lambda d: self.shown("#dashboard") and self.shown(".badge-online"))
        self.click("#logout")
        wait_for(self.driver, lambda d: self.shown("#login"))
        self.pair(code)
        wait_for(self.driver, lambda d: self.shown("#login-error"), message="a used code signed in")
        self.assertFalse(self.shown("#dashboard"))
        self.pair(self.service.tool("token", "pair", "dashboard"))
        wait_for(self.driver, lambda d: self.shown("#dashboard") and self.shown(".badge-online"))

    def test_2_job_walks_through_its_states_live(self):
        # Every state the row was drawn with, as the page drew it.
        self.driver.execute_script(
            "window.seen = [];"
            "new MutationObserver(() => document.querySelectorAll('#jobs tbody tr')"
            ".forEach(r => window.seen.push([r.dataset.jobId, r.dataset.state])))"
            ".observe(document.querySelector('#jobs tbody'), {childList: true, subtree: true});")
        job = post(self.service, self.token, {"type": "sale", "document": SALE}, "live-1")
        wait_for(self.driver, lambda d: self.row_state(job["id"]) == "done", 30)
        seen = [state for job_id, state in self.driver.execute_script("return window.seen")
                if job_id == str(job["id"])]
        self.assertIn("printing", seen)
        self.assertEqual(seen[-1], "done")
        wait_for(self.driver, lambda d: d.execute_script(
            "return document.querySelector('[data-printer=default] [data-figure=queue]')"
            "?.textContent") == "0", message="the queue still counts the job")
        total = self.text('#jobs tbody tr[data-job-id="%d"] .col-total' % job["id"])
        self.assertRegex(total, r"\d")
        self.driver.execute_script("scrollTo(0, 0)")
        path = screenshot(self.driver, "dashboard")
        green = lambda p: p[1] > p[0] + 50 and p[1] > p[2] + 30
        self.assertGreater(share(path, element_box(self.driver, self.find(".badge-online")), green), 0.5)

    def test_3_job_detail_shows_every_step(self):
        job_id = self.service.call("GET", "/v1/jobs?limit=1", self.token)[1]["jobs"][0]["id"]
        job = self.service.call("GET", "/v1/jobs/%d" % job_id, self.token)[1]
        self.click('#jobs tbody tr[data-job-id="%d"]' % job_id)
        wait_for(self.driver, lambda d: self.shown("#job-detail") and
                 len(d.find_elements(By.CSS_SELECTOR, "#job-steps tbody tr")) == len(job["steps"]))
        states = [r.get_attribute("data-step-state")
                  for r in self.driver.find_elements(By.CSS_SELECTOR, "#job-steps tbody tr")]
        self.assertEqual(states, ["confirmed"] * len(job["steps"]))
        self.assertIn(job["steps"][0]["what"], self.text("#job-steps"))
        screenshot(self.driver, "job-detail")
        self.click("#job-detail-close")
        wait_for(self.driver, lambda d: not self.shown("#job-detail"))

    def jobs_of_type(self, kind):
        jobs = self.service.call("GET", "/v1/jobs?limit=500", self.token)[1]["jobs"]
        return [job for job in jobs if job["type"] == kind]

    def test_4_x_report_prints_on_the_paper(self):
        self.click("#report-x")
        wait_for(self.driver, lambda d: "REPORTE X" in self.text("#paper"), 30)
        self.assertEqual([job["state"] for job in self.jobs_of_type("report-x")], ["done"])
        paper = self.find("#paper")
        self.driver.execute_script("scrollTo(0, 0); arguments[0].scrollIntoView({block: 'nearest'})", paper)
        path = screenshot(self.driver, "paper-roll")
        box = element_box(self.driver, paper)
        self.assertGreater(share(path, box, lambda p: sum(p) > 600), 0.7, "a light ground")
        self.assertGreater(share(path, box, lambda p: sum(p) < 250), 0.01, "dark text")
        columns, fits = self.driver.execute_script(
            "const p = arguments[0], s = getComputedStyle(p), probe = document.createElement('span');"
            "probe.textContent = '0'.repeat(100); p.append(probe);"
            "const one = probe.getBoundingClientRect().width / 100; probe.remove();"
            "const inner = p.clientWidth - parseFloat(s.paddingLeft) - parseFloat(s.paddingRight);"
            "return [inner / one, p.scrollWidth <= p.clientWidth];", paper)
        self.assertTrue(39.5 <= columns <= 41.5, columns)
        self.assertTrue(fits, "the roll's lines are cut at the side")

    def test_5_z_report_asks_first_then_shows_the_closing(self):
        self.click("#report-z")
        wait_for(self.driver, lambda d: self.shown("#z-dialog"))
        self.click("#z-cancel")
        wait_for(self.driver, lambda d: not self.shown("#z-dialog"))
        self.click("#report-z")
        wait_for(self.driver, lambda d: self.shown("#z-confirm"))
        self.click("#z-confirm")
        wait_for(self.driver, lambda d: self.shown("#z-summary [data-closing]"), 30)
        self.assertEqual([job["state"] for job in self.jobs_of_type("report-z")], ["done"])
        status = self.service.call("GET", "/v1/printers/default/status", self.token)[1]
        shown = self.find("#z-summary [data-closing]").get_attribute("data-closing")
        self.assertEqual(int(shown), status["Closing"]["numeroUltimoZ"])
        self.assertEqual(int(shown), status["S1"]["nCierres"])
        self.assertIn(str(status["Closing"]["numeroUltimoZ"]), self.text("#z-summary h3"))

    def test_6_page_reconnects_after_a_restart(self):
        self.service.stop()
        wait_for(self.driver, lambda d: self.shown("#banner-offline"), 20)
        self.service.start()
        wait_for(self.driver, lambda d: not self.shown("#banner-offline"), 30)
        job = post(self.service, self.token,
                   {"type": "nonfiscal", "document": {"lines": ["after the restart"]}}, "back-1")
        wait_for(self.driver, lambda d: self.row_state(job["id"]) == "done", 30)

    def test_7_switch_to_spanish(self):
        self.assertEqual(self.text("#report-x"), "X report")
        self.click("#lang-switch")
        wait_for(self.driver, lambda d: self.text("#report-x") == "Reporte X")
        self.assertEqual(self.text(".badge-online"), "en línea")
        self.click("#lang-switch")
        wait_for(self.driver, lambda d: self.text("#report-x") == "X report")

    def test_8_narrow_width_cuts_nothing(self):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": 390, "height": 844, "deviceScaleFactor": 1, "mobile": True})
        try:
            wait_for(self.driver, lambda d: d.execute_script("return innerWidth") == 390)
            wide = self.driver.execute_script(
                "return document.documentElement.scrollWidth - innerWidth")
            self.assertLessEqual(wide, 0)
            image = Image.open(screenshot(self.driver, "narrow")).convert("RGB")
            self.assertEqual(image.width, 390)
            # Down the right edge, a pixel differs from its row's left end only where
            # something runs into the edge.
            cut = [y for y in range(image.height)
                   if image.getpixel((image.width - 2, y)) != image.getpixel((1, y))]
            self.assertEqual(cut, [])
        finally:
            self.driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})

    def test_9_job_in_attention_resolved_by_a_button(self):
        job = self.attention.result()
        self.assertEqual(job["state"], "attention", job)
        # Judged from the printer's counters, not from a step planned afresh against a
        # printer that had just lost its host mid-reply.
        self.assertIn("counter moved by", job["evidence"])
        till = self.attention.service
        self.driver.get(till.url + "/")
        wait_for(self.driver, lambda d: self.shown("#login-token"))
        self.find("#login-token").send_keys(self.attention.token)
        self.click("#login-token-submit")
        row = '#jobs tbody tr[data-job-id="%d"]' % job["id"]
        wait_for(self.driver, lambda d: self.row_state(job["id"]) == "attention")
        self.click(row)
        evidence = wait_for(self.driver, lambda d: d.execute_script(
            "return document.querySelector('#job-detail #job-evidence')?.textContent.trim()"))
        self.assertTrue(evidence)
        self.click("button[data-resolve=done]")
        wait_for(self.driver, lambda d: self.row_state(job["id"]) == "done")
        self.assertEqual(till.call("GET", "/v1/jobs/%d" % job["id"], self.attention.token)[1]["state"], "done")


if __name__ == "__main__":
    unittest.main(verbosity=2)
