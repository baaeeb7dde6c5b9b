"""The built program with station folders in other places, operated by real keys on a display."""

import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[2] / "tools" / "try-out"
sys.path.insert(0, str(TOOLS))
sys.dont_write_bytecode = True

from conditions import wait_until
from display import Display, active_window, has_keyboard, press, run, wait_gone, windows, write

PROGRAM = Path(os.environ["QUILLANE_PROGRAM"])
SET_UP, SIGN_IN, START, FAILURE = "Set up the station", "Sign in", "Veltrane: Quillane", "Quillane"


class StationFoldersTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = Display()

    @classmethod
    def tearDownClass(cls):
        cls.display.stop()

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.programs = []
        # The program is in a folder without a station.
        self.program = self.folder / "bin" / "quillane"
        self.program.parent.mkdir()
        shutil.copy(PROGRAM, self.program)

    def tearDown(self):
        for program in self.programs:
            if program.poll() is None:
                program.terminate()
            program.wait()
        shutil.rmtree(self.folder)

    def start(self, *arguments, program=None, **variables):
        home = self.folder / "home"
        environment = {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(home), **variables}
        started = subprocess.Popen([program or self.program, *arguments], env=environment,
                                   cwd=self.folder, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.programs.append(started)
        return started

    def window(self, title, others=()):
        """Waits for a window that is not one of the others, with the keyboard."""

        def in_front():
            active = active_window()
            fits = active in windows(title) and active not in others and has_keyboard(active)
            return active if fits else None

        found = wait_until(f'the window "{title}"', in_front, 30.0)
        icon = run("xprop", "-id", found, "-notype", "32c", "_NET_WM_ICON")
        self.assertIn("_NET_WM_ICON =", icon, f'"{title}" carries no icon')
        return found

    def set_up(self, company, user):
        dialog = self.window(SET_UP)
        for text in (company, "14 Canal Road", "044 555", "gate@mill.example", user, "chaff", "chaff"):
            write(text)
            press("Return")
        press("Return")
        wait_gone(dialog, SET_UP, 60)

    def sign_in(self, user, others=()):
        dialog = self.window(SIGN_IN, others)
        write(user)
        press("Return")
        write("chaff")
        press("Return")
        wait_gone(dialog, SIGN_IN)

    def company_in(self, station):
        with sqlite3.connect(station / "Account1.db") as database:
            return database.execute("SELECT value FROM Project_Registry"
                                    " WHERE registrykey = 'CompanyName'").fetchone()[0]

    def test_two_stations_with_folders_of_their_own_run_at_one_time(self):
        north, south = self.folder / "gate north", self.folder / "گیٹ جنوبی"
        north.mkdir()
        south.mkdir()
        self.start("--station", north)
        self.set_up("North Mills", "nadia")
        self.sign_in("nadia")
        first = self.window(START)
        self.start(QUILLANE_STATION=str(south))
        self.set_up("South Mills", "ali")
        self.sign_in("ali")
        self.window(START, others=(first,))
        self.assertEqual([program.poll() for program in self.programs], [None, None])
        self.assertEqual(self.company_in(north), "NORTH MILLS")
        self.assertEqual(self.company_in(south), "SOUTH MILLS")
        for station in (north, south):
            self.assertTrue((station / "Config.ini").exists())
            self.assertTrue((station / "Station.ini").exists())
        self.assertEqual(os.listdir(self.program.parent), ["quillane"], "nothing next to the program")

    def test_a_portable_station_needs_no_word(self):
        station = self.folder / "portable"
        station.mkdir()
        program = station / "quillane"
        shutil.copy(PROGRAM, program)
        first = self.start("--station", station, program=program)
        self.set_up("Portable Mills", "nadia")
        self.window(SIGN_IN)
        press("Escape")
        self.assertEqual(first.wait(30), 0)
        self.start(program=program)
        self.sign_in("nadia")
        self.window(START)
        self.assertEqual(self.company_in(station), "PORTABLE MILLS")

    def test_a_bad_folder_is_told_instead_of_a_form(self):
        plain = self.folder / "plain"
        plain.write_text("")
        for bad in (self.folder / "missing", plain):
            with self.subTest(bad.name):
                started = self.start("--station", bad)
                box = self.window(FAILURE)
                self.assertEqual(windows(SET_UP), [])
                press("Return")
                wait_gone(box, FAILURE)
                self.assertEqual(started.wait(30), 1)


if __name__ == "__main__":
    unittest.main()
