#!/usr/bin/env python3
"""The lines of scenes/README.md that fetch and show, run as they stand, but for who answers.

Arguments: the folder of the tools, the folder of the scenes, that of their golden pictures.
"""
import datetime
import http.server
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest
import urllib.parse

TOOLS, SCENES, GOLDEN = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(3))
DAY = datetime.date(2026, 11, 22)


def data_of(folder):
    return json.loads((SCENES / folder / "data.json").read_text("utf-8"))


def forecast(query):
    """What the service answers: only what is asked for, 7 days of 24 hours each."""
    weather = data_of("weather")
    hours = [f"{DAY + datetime.timedelta(day)}T{hour:02}:00" for day in range(7) for hour in range(24)]
    days = [str(DAY + datetime.timedelta(day)) for day in range(7)]
    code = {"rain": 61, "partly": 2, "sun": 0, "cloud": 3, "snow": 73, "fog": 45}

    def at_8(values):
        return [0] * 8 + values + [0] * (len(hours) - 8 - len(values))

    def from_tomorrow(name, today):
        return [today] + [day[name] for day in weather["days"]] + [today]

    known = {
        "current": {"temperature_2m": 7.6, "apparent_temperature": 4.1, "relative_humidity_2m": 86,
                    "weather_code": 61, "wind_speed_10m": 18.4},
        "hourly": {"temperature_2m": at_8(weather["hours"]["temp"]),
                   "precipitation_probability": at_8(weather["hours"]["rain"])},
        "daily": {"weather_code": [61] + [code[day["picture"]] for day in weather["days"]] + [61],
                  "temperature_2m_max": from_tomorrow("high", 8.4),
                  "temperature_2m_min": from_tomorrow("low", 3.6),
                  "sunrise": [f"{day}T07:38" for day in days], "sunset": [f"{day}T16:12" for day in days]}}
    times = {"current": f"{DAY}T08:00", "hourly": hours, "daily": days}
    answer = {name: query[name][0] for name in ("latitude", "longitude", "timezone")}
    for part, values in known.items():
        wanted = query[part][0].split(",") if part in query else []
        answer[part] = {"time": times[part], **{name: values[name] for name in wanted}}
    return answer


class Service(http.server.BaseHTTPRequestHandler):
    """Stands in for all hosts; the first step of the path says which."""

    def do_GET(self):  # pylint: disable=invalid-name
        url = urllib.parse.urlsplit(self.path)
        answers = {
            "/api.open-meteo.com/v1/forecast": lambda: forecast(urllib.parse.parse_qs(url.query)),
            "/home.example/power-and-rooms.json": lambda: data_of("home"),
            "/house.example/state.json": lambda: data_of("energy"),
            "/boiler.example/state.json": lambda: data_of("instrument"),
            "/transit.example/stops/seestrasse/departures.json": lambda: data_of("departures")}
        answer = answers.get(url.path)
        body = json.dumps(answer()).encode() if answer else b"no such place"
        self.send_response(200 if answer else 404)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_arguments):  # pylint: disable=arguments-differ
        pass


class ScenesFetched(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        home = pathlib.Path(self.folder.name)
        self.scenes = home / "scenes"
        shutil.copytree(SCENES, self.scenes)
        (home / ".config/panel").mkdir(parents=True)
        (self.scenes / "settings/data.json").rename(home / ".config/panel/settings.json")
        for data in self.scenes.glob("*/data.json"):
            data.unlink()  # the lines have to bring them
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Service)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{server.server_port}/"
        self.environment = {**os.environ, "HOME": str(home), "LC_ALL": "C", "no_proxy": "127.0.0.1",
                            "PATH": f"{TOOLS}{os.pathsep}{os.environ['PATH']}"}

    def run_line(self, line):
        line = re.sub(r"https?://", self.address, line)
        done = subprocess.run(["bash", "-o", "pipefail", "-ec", line], cwd=self.scenes, text=True, check=False,
                              env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual((done.returncode, done.stdout), (0, ""), line)

    def test_every_pair_of_lines_fetches_and_shows(self):
        lines = re.findall("^ {4}(.*)$", (self.scenes / "README.md").read_text("utf-8"), re.M)
        self.assertGreaterEqual(len(lines), 14)
        for fetch, show in zip(lines[::2], lines[1::2]):
            self.assertTrue(show.startswith("orvel-render "), show)
            self.run_line(fetch)
            self.run_line(show)
            data, picture = re.search(r"--data (\S+)", show)[1], show.split()[-1]
            got = json.loads((self.scenes / data).read_text("utf-8"))
            if data.startswith("weather"):
                self.expect_weather(got)
            else:
                self.assertEqual(got, data_of(data.split("/")[0]))
                subprocess.run([TOOLS / "orvel-compare", GOLDEN / picture, self.scenes / picture],
                               check=True, stdout=subprocess.DEVNULL)
            (self.scenes / data).unlink()
            self.assertTrue((self.scenes / picture).exists())
            self.assertEqual((self.scenes / picture).read_bytes()[:4], b"\x89PNG")

    def expect_weather(self, got):
        expected = data_of("weather")
        expected["now"]["sky"] = "Rain"  # the service has no finer word
        expected["events"] = []  # which another one would have
        expected["updated"] = "8:00"
        self.assertEqual(got, expected)


if __name__ == "__main__":
    unittest.main()
