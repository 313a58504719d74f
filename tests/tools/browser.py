"""A headless Chromium, driven over its pipe for debuggers: no library is needed for that."""
import base64
import json
import os
import pathlib
import shutil
import subprocess
import tempfile


class Browser:
    def __init__(self, program):
        self.profile = tempfile.mkdtemp()
        to_browser, self.to = os.pipe()
        self.answers, from_browser = os.pipe()
        # The browser reads from 3 and writes to 4.
        script = f'exec "$0" "$@" 3<&{to_browser} 4>&{from_browser}'
        self.process = subprocess.Popen(
            ["sh", "-c", script, program, "--headless=new", "--no-sandbox", "--disable-gpu",
             "--disable-dev-shm-usage", "--remote-debugging-pipe", "--no-first-run",
             "--disable-background-networking", "--disable-component-update",
             f"--user-data-dir={self.profile}"],
            pass_fds=(to_browser, from_browser), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env=os.environ | {"HOME": self.profile})
        os.close(to_browser)
        os.close(from_browser)
        self.buffer, self.number, self.session = b"", 0, None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        self.errors = []
        self.call("Page.enable")
        self.call("Runtime.enable")
        self.call("Log.enable")

    def close(self):
        self.process.terminate()
        self.process.wait(timeout=30)
        os.close(self.to)
        os.close(self.answers)
        # Its last children may still write there.
        shutil.rmtree(self.profile, ignore_errors=True)

    def message(self):
        while b"\0" not in self.buffer:
            block = os.read(self.answers, 1 << 16)
            if not block:
                raise RuntimeError("the browser has ended")
            self.buffer += block
        text, self.buffer = self.buffer.split(b"\0", 1)
        message = json.loads(text)
        if message.get("method") == "Runtime.exceptionThrown" or (
                message.get("method") == "Log.entryAdded"
                and message["params"]["entry"]["level"] == "error"):
            self.errors.append(message["params"])
        return message

    def call(self, method, **params):
        self.number += 1
        message = {"id": self.number, "method": method, "params": params}
        if self.session:
            message["sessionId"] = self.session
        os.write(self.to, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.message()
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def look(self, width, height, scheme="light", motion="no-preference"):
        """At the page that is open."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=1, mobile=width < 600)
        self.call("Emulation.setEmulatedMedia",
                  features=[{"name": "prefers-color-scheme", "value": scheme},
                            {"name": "prefers-reduced-motion", "value": motion}])

    def open(self, path, width, height, scheme="light", motion="no-preference"):
        self.look(width, height, scheme, motion)
        self.call("Page.navigate", url=pathlib.Path(path).resolve().as_uri())
        while self.message().get("method") != "Page.loadEventFired":
            pass

    def ask(self, expression):
        """The value of an expression of JavaScript."""
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True,
                           awaitPromise=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(f"{expression}: {answer['exceptionDetails']}")
        return answer["result"].get("value")

    def press(self, key):
        text = {"text": key} if len(key) == 1 else {}
        self.call("Input.dispatchKeyEvent", type="keyDown", key=key, **text)
        self.call("Input.dispatchKeyEvent", type="keyUp", key=key)

    def mouse(self, kind, x, y, buttons=1):
        self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", buttons=buttons,
                  clickCount=1)

    def click(self, selector):
        x, y = self.ask(f"""(() => {{
            const it = document.querySelector({json.dumps(selector)});
            it.scrollIntoView({{block: "center"}});
            const box = it.getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2];
        }})()""")
        self.mouse("mousePressed", x, y)
        self.mouse("mouseReleased", x, y, 0)

    def screenshot(self, path):
        data = self.call("Page.captureScreenshot", format="png")["data"]
        pathlib.Path(path).write_bytes(base64.b64decode(data))
