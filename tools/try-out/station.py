"""A running station: the program on a display, an indicator on its line, and screenshots."""

import os
import subprocess

import rows
from conditions import DEADLINE, Missed, wait_until
from display import (Display, active_window, coloured_area, crop_to_window, dark_area, picture,
                     press, rest, wait_for_window, wait_gone, write)
from indicator import Indicator

START, WEIGHMENT, PREVIEW = "Veltrane: Quillane", "Weighment for Veltrane", "Previewing Report"


class Station:
    """Started in a prepared folder; leaves its pictures in the folder's `out`.

    `program` is an installed one, which finds the folder by itself; without it the folder holds one.
    `command` starts another one.
    `guide` is a folder that gets those pictures again, cut to their windows, that `guide_names`
    holds.
    """

    def __init__(self, folder, size, scale, layout, weight, guide=None, guide_names=(),
                 program=None, command=None):
        self.folder = folder
        self.command = command or (
            [program] if program else [folder / "quillane", "--station", folder])
        self.out = folder / "out"
        self.guide, self.guide_names = guide, guide_names
        self.database = folder / "Account1.db"
        self.pictures = 0
        self.display = Display(size)
        self.indicator = Indicator(folder / "scale", weight, layout)
        os.environ["QT_SCALE_FACTOR"] = scale
        os.environ["XDG_CONFIG_HOME"] = str(folder / "settings")
        os.environ["XDG_RUNTIME_DIR"] = str(folder / "settings")
        self.process = None

    def start(self):
        with open(self.out / "station.log", "a") as log:
            self.process = subprocess.Popen(self.command, stdin=subprocess.DEVNULL, stdout=log,
                                            stderr=log)

    def wait_for_end(self):
        if self.process.wait(DEADLINE) != 0:
            raise Missed(f"the station ended with code {self.process.returncode}")

    def stop(self):
        if self.process and self.process.poll() is None:
            self.process.terminate()
            self.process.wait()
        self.indicator.stop()
        self.display.stop()

    # ---- Output ----

    def log(self, text):
        print(f"  {text}", flush=True)

    def look(self, name, moves=False):
        """A screenshot when the display does not change any more, or at once if it always moves."""
        if not moves:
            rest()
        self.pictures += 1
        file = self.out / f"{self.pictures:02}-{name}.png"
        picture(file)
        if self.guide and name in self.guide_names:
            crop_to_window(file, active_window(), self.guide / f"{name}.png")

    def window(self, title, deadline=DEADLINE):
        """Waits for a window; fails early if the program has ended."""
        return wait_for_window("the station", self.process, title, deadline)

    def wait_for_reading(self, other_than=None):
        """Waits until the reading shows digits, has changed, and is constant."""
        screen = self.window(WEIGHMENT)

        def is_constant():
            area, mark = coloured_area(screen, "yellow")
            if area < 500 or mark == other_than:
                return None
            return mark if coloured_area(screen, "yellow")[1] == mark else None

        return wait_until("a constant reading", is_constant)

    def wait_for_text(self, window, act):
        """Waits until an action has added a word to a window."""
        rest()
        before = dark_area(window)
        act()
        wait_until("the text", lambda: dark_area(window) > before + 200)

    # ---- Input ----

    def press(self, *keys):
        press(*keys)

    def write(self, text):
        write(text)

    def answer(self, title, key, name=None):
        """Answers a message box and waits until it is closed."""
        box = self.window(title)
        if name:
            self.look(name)
        press(key)
        wait_gone(box, title)

    # ---- Database ----

    def ask(self, statement, *values):
        return rows.ask(self.database, statement, *values)

    def arrival(self, number):
        """Header and body rows of an arrival, each a list."""
        return rows.stored_arrival(self.database, number)

    def keep_rows(self, number, stage):
        """Adds the current rows of an arrival to the output of the walk."""
        with open(self.out / "rows.txt", "a", encoding="utf-8") as page:
            page.write(f"==== {stage}\n\n{rows.as_text(*self.arrival(number))}\n")

    def expect(self, number, header=None, body=(), stage=""):
        """Checks that these are the only stored rows of an arrival."""
        found_header, found_body = self.arrival(number)
        self.keep_rows(number, stage)
        differences = []
        if len(found_header) != (header is not None):
            differences.append(f"{len(found_header)} headers")
        elif header is not None:
            differences += rows.differences(header, found_header[0])
        if len(found_body) != len(body):
            differences.append(f"{len(found_body)} body rows where {len(body)} were expected")
        for expected, line in zip(body, found_body):
            differences += rows.differences(expected, line)
        if differences:
            raise Missed(f"arrival {number}, {stage}: " + "; ".join(differences))
