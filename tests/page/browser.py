"""A Chromium without a screen, driven by the WebDriver protocol of Debian's chromedriver."""

import base64
import json
import subprocess
import time
import urllib.error
import urllib.request
from pathlib import Path

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
KEYS = {"down": "\ue015", "up": "\ue013", "right": "\ue014", "enter": "\ue007", "end": "\ue010",
        "escape": "\ue00c", "tab": "\ue004"}


class Browser:
    def __init__(self, folder, size=(1290, 800)):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE, text=True)
        port = None
        for line in self.driver.stdout:
            if "successfully on port" in line:
                port = line.rsplit(" ", 1)[1].strip().rstrip(".")
                break
        self.address = f"http://127.0.0.1:{port}/session"
        # Nothing of the user's is read or written; root has no sandbox.
        arguments = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     f"--user-data-dir={folder}/profile", f"--window-size={size[0]},{size[1]}",
                     "--hide-scrollbars", "--disable-lcd-text", "--force-device-scale-factor=1", "--disable-background-networking"]
        preferences = {"download.default_directory": str(folder), "profile.default_content_settings.popups": 0}
        session = self.call("POST", "", {"capabilities": {"alwaysMatch": {
            "goog:chromeOptions": {"args": arguments, "prefs": preferences},
            "goog:loggingPrefs": {"browser": "ALL"}}}})
        self.address += "/" + session["sessionId"]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self.call("DELETE", "")
        finally:
            self.driver.terminate()
            self.driver.wait()

    def call(self, method, command, body=None):
        content = None if method != "POST" else json.dumps(body or {}).encode()
        request = urllib.request.Request(self.address + command, content, method=method)
        try:
            with urllib.request.urlopen(request, timeout=120) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise AssertionError(json.load(error)["value"]["message"]) from None

    def open(self, path, fragment=""):
        self.call("POST", "/url", {"url": "about:blank"})
        self.call("POST", "/url", {"url": Path(path).as_uri() + fragment})

    def run(self, script, *arguments):
        """The value of a JavaScript expression, in which the arguments are `arguments`."""
        return self.call("POST", "/execute/sync", {"script": f"return {script}", "args": arguments})

    def wait(self, promise, *arguments):
        """What a promise becomes."""
        script = f"const done = arguments[arguments.length - 1]; ({promise}).then(done);"
        return self.call("POST", "/execute/async", {"script": script, "args": arguments})

    def emulate(self, is_dark):
        """Sets the colors that the system is said to have."""
        value = "dark" if is_dark else "light"
        self.call("POST", "/goog/cdp/execute", {"cmd": "Emulation.setEmulatedMedia", "params": {
            "features": [{"name": "prefers-color-scheme", "value": value}]}})

    def until(self, script, *arguments):
        """Waits until the expression is true."""
        for _ in range(200):
            if self.run(script, *arguments):
                return
            time.sleep(0.025)
        raise AssertionError(f"never true: {script} {arguments}")

    def find(self, selector):
        return self.call("POST", "/element", {"using": "css selector", "value": selector})[ELEMENT]

    def click(self, selector):
        self.call("POST", f"/element/{self.find(selector)}/click")

    def type(self, selector, text):
        self.call("POST", f"/element/{self.find(selector)}/value", {"text": text})

    def press(self, *keys):
        """Presses keys, one after the other, in the element that has the focus."""
        actions = [{"type": kind, "value": KEYS.get(key, key)} for key in keys for kind in ("keyDown", "keyUp")]
        self.call("POST", "/actions", {"actions": [{"type": "key", "id": "keyboard", "actions": actions}]})

    def screenshot(self, path):
        Path(path).write_bytes(base64.b64decode(self.call("GET", "/screenshot")))

    def complaints(self):
        """What the page and the browser reported, such as errors and violations of the policy."""
        return [entry["message"] for entry in self.call("POST", "/se/log", {"type": "browser"})
                if "favicon" not in entry["message"]]
