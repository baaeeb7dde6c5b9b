"""The office at work: its window on the station's display, operated by keys."""

import csv
import subprocess
from pathlib import Path

from conditions import Missed, wait_until
from display import press, wait_for_window, wait_gone, write

PAGES = ["Lists", "Users", "Company", "Station", "Backup", "Day book", "Move"]
LISTS = ["Cities", "Parties", "Commodities", "Bag classes", "Bag types"]


class Office:
    """Started on a station's folder; `station` takes the pictures."""

    def __init__(self, station, command, company):
        self.station = station
        self.command = command
        self.title = f"Quillane Office - {company}"
        self.process = None
        self.list = LISTS[0]

    def start(self, user, password):
        self.station.log(f"the office, as {user}")
        with open(self.station.out / "office.log", "a", encoding="utf-8") as log:
            self.process = subprocess.Popen(self.command, stdin=subprocess.DEVNULL, stdout=log,
                                            stderr=log)
        dialog = self.window("Sign in")
        self.station.look("office-sign-in")
        write(user)
        press("Return")
        write(password)
        press("Return")
        wait_gone(dialog, "Sign in")
        self.window(self.title)

    def close(self):
        self.window(self.title)
        press("alt+F4")
        if self.process.wait(20) != 0:
            raise Missed(f"the office ended with code {self.process.returncode}")

    def stop(self):
        if self.process and self.process.poll() is None:
            self.process.terminate()
            self.process.wait()

    def window(self, title):
        return wait_for_window("the office", self.process, title)

    def go_to(self, page):
        self.window(self.title)
        press(f"ctrl+{PAGES.index(page) + 1}")

    def go_to_list(self, name):
        steps = LISTS.index(name) - LISTS.index(self.list)
        press(*["ctrl+Next" if steps > 0 else "ctrl+Prior"] * abs(steps))
        self.list = name

    def fill_form(self, title, *steps, name=None):
        """Ctrl+N opens the form; each step is a text to write or a list of keys; Ctrl+S saves."""
        self.window(self.title)
        press("ctrl+n")
        form = self.window(title)
        for step in steps:
            if isinstance(step, str):
                write(step)
            else:
                press(*step)
        if name:
            self.station.look(name)
        press("ctrl+s")
        wait_gone(form, title)
        self.window(self.title)

    def export_table(self, file):
        """The shown table of the day book as a CSV file; returns its rows as dictionaries."""
        self.window(self.title)
        press("ctrl+e")
        dialog = self.window("Save the day book")
        press("ctrl+a")
        write(str(file))
        press("Return")
        wait_gone(dialog, "Save the day book")
        wait_until(f"the file {file}", Path(file).exists)
        self.window(self.title)
        with open(file, encoding="utf-8-sig", newline="") as table:
            return list(csv.DictReader(table))
