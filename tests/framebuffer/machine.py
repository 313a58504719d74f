#!/usr/bin/env python3
"""examples/framebuffer.c in a virtual machine: what the display shows is, pixel by pixel, what orvel-render
draws after the same events; the console is given back in whatever way the program ends. Arguments: a folder
with a kernel, one to work in, a build folder."""
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import time
import unittest

KERNEL, WORK, BUILD = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(3))
SCENE = pathlib.Path(__file__).resolve().parents[2] / "examples" / "greenhouse.json"
# In this order: each needs those before it.
DISPLAY = ["drm", "drm_kms_helper", "ttm", "drm_ttm_helper", "drm_vram_helper", "bochs"]
INPUT = ["evdev", "psmouse"]


def initial_files(folder, modules, pointer):
    """An archive of what the machine has: modules, the program with its libraries, the scene."""
    shutil.rmtree(folder, ignore_errors=True)
    (folder / "modules").mkdir(parents=True)
    for number, name in enumerate(modules):
        found = next((KERNEL / "lib/modules").rglob(f"{name}.ko*"))
        assert found.suffix == ".ko", f"{found} is packed"
        shutil.copy(found, folder / "modules" / f"{number:02d}.ko")
    program = BUILD / "examples" / "framebuffer"
    libraries = subprocess.run(["ldd", program], check=True, text=True, stdout=subprocess.PIPE).stdout
    for library in re.findall(r"(/\S+) \(0x", libraries):
        # The loader where programs expect it, all others where it looks for them.
        to = folder / library[1:] if "ld-linux" in library else folder / "lib" / pathlib.Path(library).name
        to.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(library, to)
    shutil.copy(program, folder / "framebuffer")
    shutil.copy(WORK / "init", folder / "init")
    shutil.copy(SCENE, folder / "scene.json")
    if pointer:
        (folder / "pointer").touch()
    names = "\n".join(str(path.relative_to(folder)) for path in sorted(folder.rglob("*")))
    archive = subprocess.run(["cpio", "-o", "-H", "newc", "--quiet"], cwd=folder, check=True,
                             input=names.encode(), stdout=subprocess.PIPE).stdout
    (WORK / "initrd").write_bytes(archive)


class Machine:
    def __init__(self, modules, pointer=False, boot=""):
        initial_files(WORK / "files", modules, pointer)
        monitor = WORK / "monitor"
        monitor.unlink(missing_ok=True)
        kernel = next((KERNEL / "boot").glob("vmlinuz-*"))
        self.lines = (WORK / "serial.log").open("wb+")
        self.process = subprocess.Popen(
            ["qemu-system-x86_64", "-machine", "pc,accel=tcg", "-m", "512", "-display", "none",
             "-nodefaults", "-vga", "std", "-no-reboot", "-serial", "stdio",
             "-monitor", f"unix:{monitor},server,nowait", "-kernel", kernel, "-initrd", WORK / "initrd",
             "-append", f"console=ttyS0 quiet loglevel=3 panic=-1 {boot}"],
            stdin=subprocess.PIPE, stdout=self.lines, stderr=subprocess.STDOUT)
        for _ in range(100):
            if monitor.exists():
                break
            time.sleep(0.1)
        self.monitor = socket.socket(socket.AF_UNIX)
        self.monitor.settimeout(20)
        self.monitor.connect(str(monitor))
        self.answer()

    def answer(self):
        text = b""
        while not text.endswith(b"(qemu) "):
            text += self.monitor.recv(65536)
        return text

    def ask(self, command):
        self.monitor.sendall(command.encode() + b"\n")
        self.answer()
        time.sleep(0.05)

    def said(self, pattern, seconds=120):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = re.search(pattern, (WORK / "serial.log").read_text(errors="replace"))
            if found:
                return found
            if self.process.poll() is not None:
                break
            time.sleep(0.2)
        raise AssertionError(f"no {pattern} in:\n" + (WORK / "serial.log").read_text(errors="replace")[-2000:])

    def tell(self, line):
        self.process.stdin.write(line.encode() + b"\n")
        self.process.stdin.flush()

    def picture(self):
        file = WORK / "dump.ppm"
        self.ask(f"screendump {file}")
        return file.read_bytes()

    def stop(self):
        self.process.kill()
        self.process.wait()
        self.monitor.close()
        self.process.stdin.close()
        self.lines.close()


def pixels(ppm):
    """Width, height and the colours of a P6."""
    header = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", ppm)
    return int(header[1]), int(header[2]), ppm[header.end():]


class Framebuffer(unittest.TestCase):
    def start(self, *arguments, **options):
        self.machine = Machine(*arguments, **options)
        self.addCleanup(self.machine.stop)
        found = self.machine.said(r"(KMS|fbdev) (\d+)x(\d+)")
        self.size = f"{found[2]}x{found[3]}"
        time.sleep(1)
        return found[1]

    def expected(self, events):
        """What the screen shows after these events, a tenth of a second apart."""
        session, file = WORK / "session.jsonl", WORK / "expected.ppm"
        session.write_text("".join('{"at": %d, %s}\n' % (i * 100, event)
                                   for i, event in enumerate(events)), encoding="utf-8")
        subprocess.run([BUILD / "orvel-render", SCENE, "--sample", "--size", self.size, "--events", session,
                        "-o", file], check=True)
        return file.read_bytes()

    def expect_shown(self, events):
        """The display has a few seconds to show the same pixels: a caret blinks."""
        expected = pixels(self.expected(events))
        for _ in range(20):
            shown = pixels(self.machine.picture())
            if shown == expected:
                return
            time.sleep(0.3)
        shutil.copy(WORK / "dump.ppm", WORK / "failure.ppm")
        self.assertEqual(shown[:2], expected[:2])
        self.fail(f"other pixels; see {WORK}/failure.ppm and expected.ppm")

    def expect_ended(self, status):
        self.machine.tell("wait")
        found = self.machine.said(r"ended (-?\d+) (.*\S)", 30)
        self.assertEqual((int(found[1]), found[2]), (status, "restored"))

    def use_it(self):
        """Keys and a mouse, each followed by a look at the display."""
        events = []
        self.expect_shown(events)
        for key in ("tab", "spc", "tab", "tab", "right", "tab", "up", "tab", "spc"):
            self.machine.ask(f"sendkey {key}")
            name = {"spc": "space"}.get(key, key)
            events.append(f'"key": "{name}"')
        self.machine.said(r"value light true")
        self.machine.said(r"press row\[3\]")
        self.expect_shown(events)
        return events

    def test_kms_shows_what_orvel_render_draws_and_a_signal_gives_the_console_back(self):
        self.assertEqual(self.start(DISPLAY + INPUT), "KMS")
        self.use_it()
        self.machine.tell("end 15")
        self.expect_ended(0)

    def test_a_mouse_presses_and_the_pointer_is_all_that_differs(self):
        self.assertEqual(self.start(DISPLAY + INPUT, pointer=True), "KMS")
        width, height = (int(side) for side in self.size.split("x"))
        for _ in range(40):  # to the top right corner, and from there to the switch
            self.machine.ask("mouse_move 100 -100")
        for _ in range(19):
            self.machine.ask("mouse_move -2 1")
        self.machine.ask("mouse_button 1")
        self.machine.ask("mouse_button 0")
        self.machine.said(r"value light true")
        x, y = width - 1 - 38, 19
        at = f"[{x}, {y}]"
        expected = pixels(self.expected([f'"move": {at}', f'"press": {at}', f'"release": {at}']))[2]
        time.sleep(1)
        shown = pixels(self.machine.picture())[2]
        other = [i // 3 for i in range(0, len(shown), 3) if shown[i:i + 3] != expected[i:i + 3]]
        self.assertTrue(other)
        outside = [(i % width, i // width) for i in other
                   if not (x <= i % width < x + 12 and y <= i // width < y + 16)]
        self.assertEqual(outside, [])
        self.machine.ask("sendkey ctrl-q")
        self.expect_ended(0)

    def test_a_program_that_is_killed_gives_the_console_back_too(self):
        self.start(DISPLAY + INPUT)
        self.machine.tell("mode")
        self.machine.said(r"mode 1")
        self.machine.tell("kill")
        self.expect_ended(1)

    def test_fbdev_is_the_second_way(self):
        self.assertEqual(self.start(INPUT, boot="vga=0x344"), "fbdev")
        self.use_it()
        self.machine.tell("end 2")
        self.expect_ended(0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
