"""What the browser tests share: `corvid serve` as a process of its own, tokens, and a
headless Chromium driven by Selenium. Run with /usr/bin/python3 (Debian's selenium)."""

import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
import urllib.error
import urllib.request

from PIL import Image
from selenium import webdriver
from selenium.webdriver.chrome.service import Service as DriverService
from selenium.webdriver.support.ui import WebDriverWait

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), "..", ".."))
TOOL = os.path.abspath(os.environ.get("CORVID_TOOL", ROOT + "/build/linux/tools/corvid/corvid"))
SIM = os.path.abspath(os.environ.get("CORVID_SIM", ROOT + "/build/linux/sim/corvid-sim"))
SCREENSHOTS = os.path.abspath(os.environ.get("CORVID_SCREENSHOTS", ROOT + "/build/screenshots"))


class Service:
    """`corvid serve` on port 0, its journal in a folder of its own; stop() and start()
    again keep the port and the journal."""

    def __init__(self, folder=None, printers=(), origins=()):
        self.folder = folder or tempfile.mkdtemp(prefix="corvid-browser-")
        self.data = os.path.join(self.folder, "data")
        self.printers, self.origins = list(printers), list(origins)
        self.port, self.process = 0, None
        # Short waits, so that a test of a silent printer ends in seconds.
        with open(os.path.join(self.folder, "ORV.ini"), "w") as ini:
            ini.write("[Config\\NimbusPF]\nTimeOut=1\nMaxWait=3\n")

    @property
    def url(self):
        return "http://127.0.0.1:%d" % self.port

    def tool(self, *words, check=True):
        """Runs the tool on this service's journal and returns what it printed."""
        done = subprocess.run([TOOL, *words, "--data", self.data], cwd=self.folder,
                              capture_output=True, text=True, timeout=60)
        if check and done.returncode != 0:
            raise RuntimeError("corvid %s: %s" % (" ".join(words), done.stderr))
        return done.stdout.strip()

    def token(self, name="tests"):
        return self.tool("token", "add", name)

    def start(self):
        words = [TOOL, "serve", "--data", self.data, "--listen", "127.0.0.1:%d" % self.port]
        for printer in self.printers:
            words += ["--printer", printer]
        for origin in self.origins:
            words += ["--allow-origin", origin]
        self.process = subprocess.Popen(words, cwd=self.folder, stdout=subprocess.PIPE,
                                        text=True)
        first = self.process.stdout.readline()
        prefix = "corvid serve: listening on http://127.0.0.1:"
        if not first.startswith(prefix):
            raise RuntimeError("corvid serve did not start: %r" % first)
        self.port = int(first[len(prefix):])
        return self

    def stop(self, sig=signal.SIGTERM):
        process, self.process = self.process, None
        if not process:
            return
        if process.poll() is None:
            process.send_signal(sig)
            process.wait(timeout=30)
        process.stdout.close()
        # A clean stop exits 0; under the sanitizers a leak or a fault shows here.
        if sig == signal.SIGTERM and process.returncode != 0:
            raise AssertionError("corvid serve exited %d" % process.returncode)

    def call(self, method, path, token=None, body=None, headers=None):
        """(status, JSON answer) of one API call."""
        request = urllib.request.Request(self.url + path, method=method)
        if token:
            request.add_header("Authorization", "Bearer " + token)
        for name, value in (headers or {}).items():
            request.add_header(name, value)
        data = None
        if body is not None:
            data = body if isinstance(body, bytes) else json.dumps(body).encode()
            if "Content-Type" not in (headers or {}):
                request.add_header("Content-Type", "application/json")
        try:
            with urllib.request.urlopen(request, data, timeout=30) as answer:
                text = answer.read().decode()
                return answer.status, json.loads(text) if text else None
        except urllib.error.HTTPError as error:
            text = error.read().decode()
            return error.code, json.loads(text) if text else None

    def await_job(self, token, job_id, states=("done", "failed", "cancelled", "attention"),
                  seconds=60):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            status, job = self.call("GET", "/v1/jobs/%d" % job_id, token)
            if status == 200 and job["state"] in states:
                return job
            time.sleep(0.1)
        raise AssertionError("job %d did not reach %s" % (job_id, states))

    def close(self):
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)


def browser(width=1024, height=768, language="en"):
    """A headless Chromium of the given window size and language."""
    options = webdriver.ChromeOptions()
    options.binary_location = "/usr/bin/chromium"
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu",
                     "--disable-dev-shm-usage", "--window-size=%d,%d" % (width, height),
                     "--lang=" + language, "--hide-scrollbars"):
        options.add_argument(argument)
    options.add_experimental_option("prefs", {"intl.accept_languages": language})
    driver = webdriver.Chrome(service=DriverService("/usr/bin/chromedriver"), options=options)
    driver.set_window_size(width, height)
    return driver


def wait_for(driver, condition, seconds=20, message=""):
    return WebDriverWait(driver, seconds, poll_frequency=0.1).until(
        lambda d: condition(d), message)


def screenshot(driver, name):
    """Saves build/.../NAME.png and returns its path, for the test to look at."""
    os.makedirs(SCREENSHOTS, exist_ok=True)
    path = os.path.join(SCREENSHOTS, name + ".png")
    driver.save_screenshot(path)
    return path


def element_box(driver, element):
    """The element's box in screenshot pixels (left, top, right, bottom)."""
    box = driver.execute_script(
        "const r = arguments[0].getBoundingClientRect();"
        "return [r.left, r.top, r.right, r.bottom, window.devicePixelRatio];", element)
    return tuple(int(round(v * box[4])) for v in box[:4])


def pixels_in(png, box):
    """The RGB pixels of the screenshot inside BOX, clipped to the picture."""
    with Image.open(png) as image:
        box = (max(box[0], 0), max(box[1], 0), min(box[2], image.width),
               min(box[3], image.height))
        return list(image.convert("RGB").crop(box).getdata())


class BrowserTest(unittest.TestCase):
    """One service (with `service_options`) and one browser for a whole test class."""

    service_options = {}

    @classmethod
    def setUpClass(cls):
        cls.service = Service(**cls.service_options).start()
        cls.token = cls.service.token()
        cls.driver = browser()

    @classmethod
    def tearDownClass(cls):
        cls.driver.quit()
        cls.service.close()
