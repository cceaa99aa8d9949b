"""A headless Chromium for tests of the report's page, and what they ask of it.

    class Parts(browser.PageTest):
        def test_something(self):
            self.open(path_of_page)
            self.js("return document.title")

A test file starts one browser. The programs and folders are told by the environment: MORVEX_DECK_PROGRAM, MORVEX_EXAMPLES,
MORVEX_SAMPLE_PAGES (a program that writes pages), MORVEX_SCREENSHOTS (a folder that is kept).
"""
import base64
import json
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

FLAGS = [
    "--headless=new", "--no-sandbox", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--disable-quic",
    "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync",
    "--disable-dev-shm-usage", "--hide-scrollbars", "--force-color-profile=srgb",
]



class Browser:
    """Chromium with a profile of its own."""

    def __init__(self):
        self.profile = tempfile.mkdtemp(prefix="morvex-browser-")
        options = webdriver.ChromeOptions()
        options.binary_location = shutil.which("chromium")
        for flag in FLAGS + [f"--user-data-dir={self.profile}"]:
            options.add_argument(flag)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        service = Service(shutil.which("chromedriver"), log_path=os.devnull)
        self.driver = webdriver.Chrome(service=service, options=options)
        self.driver.set_page_load_timeout(60)
        self.driver.set_script_timeout(60)

    def close(self):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)


class PageTest(unittest.TestCase):
    """Tests that share one browser. Each begins with an empty log, a window of 1280 by 900 and the light theme."""

    browser = None

    @classmethod
    def setUpClass(cls):
        if PageTest.browser is None:
            PageTest.browser = Browser()
            unittest.addModuleCleanup(cls.stop)
        cls.driver = PageTest.browser.driver

    @staticmethod
    def stop():
        PageTest.browser.close()
        PageTest.browser = None

    def setUp(self):
        self.size(1280, 900)
        self.media()
        self.logs()

    # ---- pages -----------------------------------------------------------------------------------------------------

    def open(self, page, fragment="", view=False):
        """Opens a page's file and waits until it is built; with `view`, until the first picture is drawn."""
        self.driver.get("about:blank")
        self.driver.get(Path(page).resolve().as_uri() + fragment)
        self.wait("return document.documentElement.dataset.built !== undefined")
        if view:
            self.wait("return document.documentElement.dataset.firstPicture !== undefined")

    def js(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def wait(self, script, *arguments, seconds=20):
        """Waits until the script returns something that is true."""
        return WebDriverWait(self.driver, seconds, 0.05).until(lambda driver: driver.execute_script(script, *arguments))

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def text(self, selector):
        """The text as it stands in the document, shown or not."""
        return self.js("return document.querySelector(arguments[0]).textContent", selector)

    def keys(self, *keys):
        """Types at whatever has the focus."""
        ActionChains(self.driver).send_keys(*keys).perform()

    def focused(self):
        return self.driver.switch_to.active_element

    def tab_to(self, condition, most=200, back=False):
        """Presses Tab until the script says of the element that has the focus, `element`, that it is the one."""
        for _ in range(most):
            chain = ActionChains(self.driver)
            if back:
                chain.key_down(Keys.SHIFT).send_keys(Keys.TAB).key_up(Keys.SHIFT).perform()
            else:
                chain.send_keys(Keys.TAB).perform()
            if self.js("const element = document.activeElement; return " + condition):
                return self.focused()
        self.fail(f"no element with {condition} is reached with Tab")

    # ---- surroundings ----------------------------------------------------------------------------------------------

    def size(self, width, height=900):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})

    def media(self, scheme="light", kind=""):
        """The system's colours, light or dark; kind "print" is how it prints."""
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {
            "media": kind, "features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def screenshot(self, name, selector=None, whole=False, scale=1):
        """Keeps a picture of the window, of one element, or of the whole page."""
        folder = Path(os.environ.get("MORVEX_SCREENSHOTS", "screenshots"))
        folder.mkdir(parents=True, exist_ok=True)
        path = folder / f"{name}.png"
        clip = None
        if selector is not None:
            clip = self.js("""const box = document.querySelector(arguments[0]).getBoundingClientRect();
                return {x: box.x + scrollX, y: box.y + scrollY, width: box.width, height: box.height, scale: arguments[1]}""", selector, scale)
        elif whole:
            clip = self.js("""return {x: 0, y: 0, width: innerWidth, scale: 1,
                height: Math.min(document.documentElement.scrollHeight, 12000)}""")
        if clip is not None:
            picture = self.driver.execute_cdp_cmd("Page.captureScreenshot", {"captureBeyondViewport": True, "clip": clip})
            path.write_bytes(base64.b64decode(picture["data"]))
        else:
            self.driver.save_screenshot(str(path))
        return path

    # ---- what the page did -----------------------------------------------------------------------------------------

    def logs(self):
        """Console messages and addresses asked for since the last call."""
        # A driver that waits for the graphics writes of it to the console; no page does.
        messages = [entry["message"] for entry in self.driver.get_log("browser")
                    if "GPU stall due to ReadPixels" not in entry["message"]]
        addresses = []
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                addresses.append(message["params"]["request"]["url"])
        return messages, addresses

    def assert_quiet(self, page):
        """Nothing on the console, and no request but for the page itself."""
        messages, addresses = self.logs()
        self.assertEqual(messages, [])
        own = Path(page).resolve().as_uri()
        others = [address for address in addresses
                  if address.split("#")[0] != own and not address.startswith(("data:", "blob:", "about:", "chrome"))]
        self.assertEqual(others, [])
        self.assertIn(own, [address.split("#")[0] for address in addresses], "requests were not seen at all")


# ---- pages to test -------------------------------------------------------------------------------------------------

def temporary_folder(test_class):
    """A folder that goes away with the test file."""
    folder = tempfile.mkdtemp(prefix="morvex-pages-")
    unittest.addModuleCleanup(shutil.rmtree, folder, True)
    return Path(folder)


def sample_pages(folder):
    """Pages of conversions made by hand: sample.html, hostile/hostile.html, long/long.html, huge/huge.html."""
    subprocess.run([os.environ["MORVEX_SAMPLE_PAGES"], str(folder)], check=True)
    return Path(folder)


EXAMPLES = {"bird-strike": "bird.k", "blast-plate": "plate.k", "explosive-cylinder": "charge.k", "taylor-bar": "taylor.k"}


def convert(deck, folder, *arguments):
    """Converts a deck into a new folder and returns it. Losses are no failure."""
    run = subprocess.run([os.environ["MORVEX_DECK_PROGRAM"], "convert", str(deck), "-d", str(folder), *arguments],
                         capture_output=True, text=True)
    if run.returncode not in (0, 1):
        raise RuntimeError(run.stdout + run.stderr)
    return Path(folder)


def convert_example(name, folder):
    """Converts one of the examples: the folder with its report.html and ledger.json."""
    return convert(Path(os.environ["MORVEX_EXAMPLES"]) / name / EXAMPLES[name], Path(folder) / name)


def main():
    unittest.main(module="__main__", verbosity=2)
