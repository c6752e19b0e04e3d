"""The example POS page in a real Chromium, served from the shop's origin, printing through
`corvid serve`; and what a page from an origin NOT allowed can do (nothing).
Run: /usr/bin/python3 tests/browser/pos_page_test.py"""

import functools
import http.server
import os
import socketserver
import threading
import unittest
import urllib.parse

from corvid_harness import ROOT, BrowserTest, element_box, pixels_in, screenshot, wait_for

EXAMPLES = os.path.join(ROOT, "web", "examples")


def static_site(folder):
    """A plain web server for FOLDER on a free loopback port; returns (server, origin)."""
    class Quiet(http.server.SimpleHTTPRequestHandler):
        def log_message(self, *args):
            pass

    server = socketserver.ThreadingTCPServer(("127.0.0.1", 0),
                                             functools.partial(Quiet, directory=folder))
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server, "http://127.0.0.1:%d" % server.server_address[1]


class PosPageTest(BrowserTest):
    @classmethod
    def setUpClass(cls):
        cls.shop, cls.shop_origin = static_site(EXAMPLES)
        cls.stranger, cls.stranger_origin = static_site(EXAMPLES)
        cls.service_options = {"origins": [cls.shop_origin]}
        super().setUpClass()

    @classmethod
    def tearDownClass(cls):
        super().tearDownClass()
        for server in (cls.shop, cls.stranger):
            server.shutdown()
            server.server_close()

    def jobs(self):
        status, page = self.service.call("GET", "/v1/jobs", self.token)
        self.assertEqual(status, 200)
        return page["jobs"]

    def test_the_page_prints_a_sale_and_shows_its_number(self):
        query = urllib.parse.urlencode({"service": self.service.url, "token": self.token})
        self.driver.get("%s/pos.html?%s" % (self.shop_origin, query))
        self.driver.find_element("id", "print").click()
        number = self.driver.find_element("id", "receipt-number")
        error = self.driver.find_element("id", "error")
        wait_for(self.driver, lambda d: number.text or error.text, 60, "no receipt, no error")
        self.assertEqual(error.text, "")
        [job] = [job for job in self.jobs() if job["type"] == "sale"]
        self.assertEqual(job["state"], "done")
        self.assertEqual(number.text, str(job["document_number"]))

        png = screenshot(self.driver, "pos-page")
        box = element_box(self.driver, number)
        self.assertGreater(box[2] - box[0], 0)
        self.assertGreater(len(set(pixels_in(png, box))), 1,
                           "the receipt number is not on the screenshot")

    def test_a_page_from_an_origin_not_allowed_can_neither_read_nor_print(self):
        before = len(self.jobs())
        self.driver.get(self.stranger_origin + "/pos.html")
        outcome = self.driver.execute_async_script(
            """const [url, token, done] = arguments;
            fetch(url + "/v1/printers", {headers: {Authorization: "Bearer " + token}})
              .then(answer => done("read: " + answer.status), error => done("refused: " + error.name));""",
            self.service.url, self.token)
        self.assertEqual(outcome, "refused: TypeError")

        # A form needs no preflight: the request reaches the service, which must refuse it.
        self.driver.execute_script(
            """const form = document.createElement("form");
            form.method = "post";
            form.enctype = "text/plain";
            form.action = arguments[0] + "/v1/jobs";
            const field = document.createElement("input");
            field.name = '{"type": "report-x", "x": "';
            field.value = '"}';
            form.append(field);
            document.body.append(form);
            form.submit();""", self.service.url)
        wait_for(self.driver, lambda d: d.current_url.startswith(self.service.url))
        self.assertEqual(self.driver.execute_script(
            'return performance.getEntriesByType("navigation")[0].responseStatus'), 403)
        self.assertIn("is not allowed", self.driver.find_element("tag name", "body").text)
        self.assertEqual(len(self.jobs()), before, "a job was queued")


if __name__ == "__main__":
    unittest.main(verbosity=2)
